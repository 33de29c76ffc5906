#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

#include "KestroUI/Theme.h"
#include "foundation/RunLoop.h"
#include "platform/Color.h"
#include "toolkit/Control.h"

namespace kestroui {

/// Where a drag has come to on its way from 0 to 1, between steps too. It goes on from where the
/// value is when somebody else has set that meanwhile.
class DraggedShare {
 public:
  DraggedShare() = default;
  explicit DraggedShare(double share) : share_(share), left_(share) {}

  /// The next share, of a value that is at `present` now.
  double moveBy(double present, double by) {
    // What the drag itself has set comes back rounded.
    if (std::fabs(present - left_) > 1e-4) share_ = present;
    return share_ = std::clamp(share_ + by, 0.0, 1.0);
  }
  /// Where that has left the value, which may take steps.
  void leaveAt(double present) { left_ = present; }

 private:
  double share_ = 0;
  double left_ = 0;
};

/// Base of every control that a user takes hold of: the gesture around its changes, and how its
/// face shows its states. A gesture (a drag, a burst of wheel turns) sends editingDidBegin and
/// editingDidEnd; what lies between is the business of the kinds. User-interface thread only.
class GestureControl : public toolkit::Control {
 public:
  GestureControl() = default;

  /// The colour of its arcs and handles; the section's accent by default.
  platform::Color accentColor() const { return accentColor_; }
  virtual void setAccentColor(platform::Color color);
  /// Its section is switched off: still usable, shown muted.
  bool isInactive() const { return inactive_; }
  void setInactive(bool inactive);
  bool isInGesture() const { return inGesture_; }
  /// How much larger faces and texts may be than on the smallest editor; 1 at first.
  double faceScale() const { return faceScale_; }
  void setFaceScale(double scale);
  /// The height that its face makes use of when it may take `available`; at most that height.
  virtual double bestHeight(const platform::Size& available) const { return available.height; }

  /// Called at the second tap of a double tap by the kinds whose value can be typed; may destroy
  /// the control.
  std::function<void()> doubleTapped;

  bool canBecomeFirstResponder() const override { return isEnabled(); }
  void firstResponderChanged() override;
  void setEnabled(bool enabled) override;

  /// Named as its container is, with the container's text of the value.
  platform::Accessibility accessibility() const override;

 protected:
  virtual platform::Accessibility::Role accessibilityRole() const {
    return platform::Accessibility::Role::slider;
  }
  /// The value as a person reads it where the container has no text of it.
  virtual std::string ownValueText() const { return {}; }
  void beginGesture();
  virtual void endGesture();
  /// Makes one change with a gesture of its own around it, as of a key or a wheel notch; such
  /// changes that follow each other closely share one gesture. Does nothing while it is disabled
  /// or dragged. May destroy the control.
  void changeOnce(const std::function<void()>& change);
  /// The accent as the control's state wants it: muted when inactive, stronger under the mouse.
  platform::Color stateAccent() const;
  /// The colour of its face as its state wants it.
  platform::Color stateSurface() const;
  /// The colour of a face that is switched on: a calmer accent, since it is a large surface.
  platform::Color litSurface() const { return stateAccent().mixed(Theme::surface, 0.12f); }
  /// The height of a face of one line of text, on an editor of this scale.
  double lineFaceHeight() const { return 28 * faceScale_; }
  /// The size of a text in a face of this height.
  platform::Font faceFont(const platform::Font& font, double faceHeight) const;

 private:
  double faceScale_ = 1;
  bool inactive_ = false;
  bool inGesture_ = false;
  /// Ends the gesture of a burst of keys or wheel notches.
  foundation::Timer burst_;
  platform::Color accentColor_ = Theme::grey;
};

}  // namespace kestroui
