#pragma once

#include <cstdint>
#include <vector>

#include "KestroUI/DisplayView.h"
#include "platform/LiveBuffer.h"
#include "platform/Path.h"

namespace kestroui {

/// One or several sounds as they are now. The first value zooms: the higher, the longer the time
/// that is shown. A sound that repeats stands still, since each picture begins where it rises
/// through zero; one picture of the last sound stays when there is no more.
class OscilloscopeView : public DisplayView {
 public:
  /// Samples of the longest time that is shown.
  static constexpr std::size_t longest = 4096;

  OscilloscopeView();

  /// Read at once. They must live until the next call, or until `read` is called no more.
  void setBuffers(const std::vector<const platform::LiveBuffer*>& buffers);
  std::size_t bufferCount() const { return traces_.size(); }
  /// Copies what is new; nothing is repainted when there is nothing.
  void read();

 protected:
  std::vector<Handle> pictureHandles() const override;
  void paintPicture(platform::Canvas& canvas) override;
  void paintHandle(platform::Canvas& canvas, const Handle& handle,
                   Plot::HandleState state) override;

 private:
  struct Trace {
    const platform::LiveBuffer* buffer;
    std::uint64_t written = 0;
    std::vector<float> samples;
  };

  /// How many samples are shown.
  std::size_t window(const Trace& trace) const;
  void paintTrace(platform::Canvas& canvas, const Trace& trace, const platform::Rect& place,
                  platform::Color color);

  std::vector<Trace> traces_;
  std::vector<float> incoming_;
  platform::Path path_;
};

}  // namespace kestroui
