#pragma once

#include <cstdint>
#include <vector>

#include "examples/Halden/Spectrum.h"
#include "platform/Color.h"
#include "platform/LiveBuffer.h"
#include "toolkit/View.h"

namespace halden {

/// What a monitor shows of the sound.
enum class MonitorMode { scope, spectrum, loudness };

/// The spectrum of a sound, or its loudness over the last seconds. Owned by its MonitorContainer;
/// repaints only what has changed.
class MonitorView : public toolkit::View {
 public:
  /// `loudness` holds the loudest sample of each hundredth of a second. Both must live until the next
  /// call, or until `read` is called no more; either may be null.
  void setBuffers(const platform::LiveBuffer* sound, const platform::LiveBuffer* loudness);
  void setMode(MonitorMode mode);
  void setAccentColor(platform::Color color);
  /// Copies what is new.
  void read(double sampleRate);

  void paint(platform::Canvas& canvas) override;

 private:
  void readLoudness();
  void paintSpectrum(platform::Canvas& canvas, const platform::Rect& plot);
  void paintLoudness(platform::Canvas& canvas, const platform::Rect& plot);

  const platform::LiveBuffer* sound_ = nullptr;
  const platform::LiveBuffer* loudness_ = nullptr;
  MonitorMode mode_ = MonitorMode::scope;
  platform::Color accent_;
  std::uint64_t written_ = 0;
  std::vector<float> incoming_, shown_;
  Spectrum spectrum_;
};

}  // namespace halden
