#pragma once

#include "KestroUI/Theme.h"
#include "toolkit/Button.h"

namespace kestroui {

/// Base of the family's plain buttons, which report taps and hold no value.
class KestroButton : public toolkit::Button {
 public:
  KestroButton();

  /// The colour of marks and selected faces; titles have the title colour.
  platform::Color accentColor() const { return accentColor_; }
  void setAccentColor(platform::Color color);

  void firstResponderChanged() override;

 protected:
  /// `color` as the button's state wants it.
  platform::Color stateColor(platform::Color color) const;
  /// The veil below icons and titles while hovered or pressed, and the ring of the keyboard.
  void paintState(platform::Canvas& canvas, double radius) { paintState(canvas, radius, bounds()); }
  /// The same for a button that shows less than its frame.
  void paintState(platform::Canvas& canvas, double radius, const platform::Rect& face);

 private:
  platform::Color accentColor_ = Theme::front;
};

}  // namespace kestroui
