#pragma once

#include "KestroUI/GestureControl.h"

namespace kestroui {

/// Base of every control that moves one value: knobs, sliders, buttons that switch, lists. It holds
/// a position from 0 to 1, or for the kinds that choose among values the raw value itself. A
/// change by the user sends valueChanged; setValue only shows.
class KestroControl : public GestureControl {
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

  bool wheelTurned(const platform::WheelEvent& event) override;
  bool keyPressed(const platform::KeyEvent& event) override;
  platform::Accessibility accessibility() const override;
  bool setAccessibilityValue(double value) override;

 protected:
  /// A change by the user: brings it to the range and its steps, shows it and, when it changed,
  /// sends valueChanged, which may destroy the control.
  void changeValue(float value);
  /// One change with a gesture of its own around it, as of a key or a wheel notch; such changes
  /// that follow each other closely share one gesture. May destroy the control.
  void changeValueOnce(float value);
  /// Where `value` is drawn: its share of the range from 0 to 1, reversed when inverted.
  float shown(float value) const;
  /// The value that is drawn at `share`: the reverse of `shown`.
  float valueAt(float share) const;

 private:
  float value_ = 0;
  float minimum_ = 0;
  float maximum_ = 1;
  float modulatedValue_ = 0;
  int stepCount_ = 0;
  /// What smooth wheels have turned of the next step.
  double wheelRest_ = 0;
  bool modulated_ = false;
  bool inverted_ = false;
};

}  // namespace kestroui
