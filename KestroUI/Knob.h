#pragma once

#include "KestroUI/DragControl.h"
#include "platform/Path.h"

namespace kestroui {

/// A round knob: its arc of 270 degrees fills from the minimum, or from `origin`, to the value.
/// While modulated, a thin outer arc runs from the value to the live one.
class Knob : public DragControl {
 public:
  Knob() = default;

  void paint(platform::Canvas& canvas) override;

 protected:
  /// What is drawn on the body instead of a bare face; the pointer is drawn around it.
  virtual void paintCentre(platform::Canvas&, const platform::Rect& /*body*/) {}

 private:
  void paintModulation(platform::Canvas& canvas, platform::Point centre, double radius,
                       double lineWidth);

  platform::Path path_;
};

}  // namespace kestroui
