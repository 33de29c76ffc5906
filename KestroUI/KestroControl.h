#pragma once

#include <functional>

#include "KestroUI/Theme.h"
#include "platform/Color.h"
#include "platform/Control.h"
#include "platform/RunLoop.h"

namespace kestroui {

/// Base of every control that moves a value: knobs, sliders, buttons that switch, lists. It holds
/// a position from 0 to 1, or for the kinds that choose among values the raw value itself. A
/// change by the user sends valueChanged; setValue only shows. A gesture (a drag, a burst of wheel
/// turns) sends editingDidBegin and editingDidEnd around its changes.
class KestroControl : public platform::Control {
 public:
  KestroControl() = default;

  float value() const { return value_; }
  /// Shows `value`, within minimum and maximum; NaN is ignored. Nothing is repainted when it does
  /// not change. Sends nothing.
  virtual void setValue(float value);
  /// 0 and 1 at first; raw kinds set their own range.
  float minimum() const { return minimum_; }
  float maximum() const { return maximum_; }
  void setRange(float minimum, float maximum);
  /// How many steps the range has; the user then moves from step to step. 0, the value at first,
  /// is no steps.
  int stepCount() const { return stepCount_; }
  virtual void setStepCount(int count);
  /// The step of an arrow key or wheel notch: one of the range's steps, else 0.01 of the range.
  virtual float step() const;
  /// Shows the range reversed: 0 where 1 would be.
  bool isInverted() const { return inverted_; }
  void setInverted(bool inverted);

  /// The live position that is drawn over the control while it is modulated; no repaint when
  /// neither changes. NaN counts as not modulated.
  bool isModulated() const;
  float modulatedValue() const { return modulatedValue_; }
  void setModulated(bool modulated);
  void setModulatedValue(float position);

  /// The colour of its arcs and handles; the section's accent by default.
  platform::Color accentColor() const { return accentColor_; }
  virtual void setAccentColor(platform::Color color);
  /// Its section is switched off: still usable, shown muted.
  bool isInactive() const { return inactive_; }
  bool isInGesture() const { return inGesture_; }
  /// How much larger faces and texts may be than on the smallest editor; 1 at first.
  double faceScale() const { return faceScale_; }
  void setFaceScale(double scale);
  /// The height that its face makes use of when it may take `available`; at most that height.
  virtual double bestHeight(const platform::Size& available) const { return available.height; }
  void setInactive(bool inactive);

  /// Called at the second tap of a double tap by the kinds whose value can be typed; may destroy
  /// the control.
  std::function<void()> doubleTapped;

  bool canBecomeFirstResponder() const override { return isEnabled(); }
  void firstResponderChanged() override;
  bool wheelTurned(const platform::WheelEvent& event) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  void setEnabled(bool enabled) override;

 protected:
  /// A change by the user: brings it to the range and its steps, shows it and, when it changed,
  /// sends valueChanged, which may destroy the control.
  void changeValue(float value);
  /// One change with a gesture of its own around it, as of a key or a wheel notch; such changes
  /// that follow each other closely share one gesture. May destroy the control.
  void changeValueOnce(float value);
  void beginGesture();
  void endGesture();
  /// Where `value` is drawn: its share of the range from 0 to 1, reversed when inverted.
  float shown(float value) const;
  /// The value that is drawn at `share`: the reverse of `shown`.
  float valueAt(float share) const;
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
  float value_ = 0;
  float minimum_ = 0;
  float maximum_ = 1;
  float modulatedValue_ = 0;
  int stepCount_ = 0;
  /// What smooth wheels have turned of the next step.
  double wheelRest_ = 0;
  double faceScale_ = 1;
  bool modulated_ = false;
  bool inverted_ = false;
  bool inactive_ = false;
  bool inGesture_ = false;
  /// Ends the gesture of a burst of keys or wheel notches.
  platform::Timer burst_;
  platform::Color accentColor_ = Theme::grey;
};

}  // namespace kestroui
