#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

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

/// Base of every control that a user takes hold of: its presses, the gesture around its changes, and
/// how its face shows its states. A gesture (a press, a burst of wheel turns) sends editingDidBegin
/// and editingDidEnd. User-interface thread only.
///
/// A press is what a finger or the mouse does from touching the control to leaving it. The base
/// keeps its order: touchDown, editingDidBegin, `pressed`; touchDragged, `slid`; touchUpInside,
/// `letGo`, editingDidEnd, `doubleTap`. Whoever is told an action may destroy the control or disable
/// it, which ends its presses; nothing of the kind is called after that. So a kind says what a
/// touch takes hold of and what its moves mean, and sends what it changes last.
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
  /// Completes what assistive technology is told of it: whoever shows the control has a name for it,
  /// and the text of its value.
  std::function<void(platform::Accessibility& told)> described;

  void touchBegan(const toolkit::Touch& touch) final;
  void touchMoved(const toolkit::Touch& touch) final;
  void touchEnded(const toolkit::Touch& touch) final;
  void touchCancelled(const toolkit::Touch& touch) final;
  bool canBecomeFirstResponder() const override { return isEnabled(); }
  void firstResponderChanged() override;
  void setEnabled(bool enabled) override;

  platform::Accessibility accessibility() const override;

 protected:
  /// What a touch takes hold of: nothing, so that only its touch actions are sent; a value, with a
  /// gesture around it; or, as the second tap of a double tap, a value only once it moves.
  enum class Grasp { nothing, value, secondTap };

  /// What a touch that begins here takes hold of; asked once, before anybody is told of it.
  virtual Grasp grasp(const toolkit::Touch&) { return Grasp::nothing; }
  /// A value has been taken hold of: when the touch began, or when a second tap first moved.
  virtual void pressed(const toolkit::Touch&) {}
  virtual void slid(const toolkit::Touch&) {}
  /// What the touch held is free again: it was lifted or taken away, or the control was disabled,
  /// which is still to happen. The gesture ends after it.
  virtual void letGo(int /*touchId*/) {}
  /// The second tap has been lifted where it was.
  virtual void doubleTap(const toolkit::Touch&) { tellDoubleTap(); }
  /// Calls doubleTapped.
  void tellDoubleTap() const;
  /// `isTouched` may have changed, and all of the press that changed it has been told.
  virtual void touchedNow() {}
  /// A touch has hold of it, or is a second tap.
  bool isTouched() const;
  /// Lets go of all that touches, keys and the wheel hold; a touch that is still down holds nothing
  /// any more. May destroy the control.
  void endPresses();

  virtual platform::Accessibility::Role accessibilityRole() const {
    return platform::Accessibility::Role::slider;
  }
  /// The value as a person reads it where nobody else has a text of it.
  virtual std::string ownValueText() const { return {}; }
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
  struct Press {
    int touchId;
    Grasp grasp;
  };

  Press* pressOf(int touchId);
  bool holdsValue() const;
  void beginGesture();
  /// The touch holds a value from now on.
  void take(const toolkit::Touch& touch);
  void release(int touchId);
  /// The touch is over; false when the control died of it.
  bool finish(int touchId);

  std::vector<Press> presses_;
  double faceScale_ = 1;
  bool inactive_ = false;
  bool inGesture_ = false;
  /// Ends the gesture of a burst of keys or wheel notches.
  foundation::Timer burst_;
  platform::Color accentColor_ = Theme::grey;
};

}  // namespace kestroui
