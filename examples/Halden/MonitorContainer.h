#pragma once

#include <functional>
#include <vector>

#include "KestroUI/DisplayContainers.h"
#include "examples/Halden/MonitorView.h"

namespace halden {

/// A control of the plug-in's own: the oscilloscope of the library, whose place a spectrum or the
/// loudness of the last seconds may take. Its parameter needs two live buffers, of the sound and of
/// its loudness.
class MonitorContainer : public kestroui::OscilloscopeContainer {
 public:
  MonitorContainer();

  MonitorMode mode() const { return mode_; }
  void setMode(MonitorMode mode);
  /// In hertz; asked at each display frame that shows a spectrum. Must be set.
  std::function<double()> sampleRate;

  void setBuffers(const std::vector<const platform::LiveBuffer*>& buffers) override;
  void updateModulation() override;
  void draw(const platform::Rect& rect) override;

 private:
  MonitorMode mode_ = MonitorMode::scope;
  MonitorView monitor_;
};

}  // namespace halden
