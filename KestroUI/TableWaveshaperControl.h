#pragma once

#include "KestroUI/ShapeControl.h"
#include "platform/Path.h"

namespace kestroui {

/// The curve of a waveshaper as a table: each value is the level out, from -1 at its minimum to 1,
/// of one of evenly spaced levels in. A touch takes hold of the nearest point.
class TableWaveshaperControl : public ShapeControl {
 public:
  TableWaveshaperControl() = default;

 protected:
  std::vector<Handle> handles() const override;
  std::optional<std::size_t> handleAt(platform::Point location) const override;
  bool jumpsToTouch() const override { return true; }
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;
  void paintHandle(platform::Canvas& canvas, const Handle& handle,
                   Plot::HandleState state) override;

 private:
  enum class Source { set, live };

  double xOf(std::size_t index) const;
  platform::Path path(Source source) const;
};

}  // namespace kestroui
