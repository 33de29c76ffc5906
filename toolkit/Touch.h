#pragma once

#include "platform/Geometry.h"
#include "platform/Responder.h"

namespace toolkit {

class View;

/// One finger, or the mouse with its button down, from the moment it touches to the moment it
/// lifts. The same object goes through all its phases to the view that was hit first.
struct Touch {
  enum class Kind { finger, mouse };

  /// Distinct among the touches that are down.
  int id = 0;
  Kind kind = Kind::finger;
  /// 1 for a single tap, 2 for the second of a double tap, and so on.
  int tapCount = 1;
  platform::Modifiers modifiers = platform::Modifiers::none;
  /// In the window's coordinates; `locationIn` converts.
  platform::Point location;
  platform::Point previousLocation;
  platform::Point startLocation;
  /// Seconds on the run loop's clock.
  double timestamp = 0;

  platform::Point locationIn(const View& view) const;
  platform::Point previousLocationIn(const View& view) const;
};

}  // namespace toolkit
