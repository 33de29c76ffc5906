#include "KestroUI/KestroControl.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

void KestroControl::setValue(float value) {
  if (std::isnan(value)) return;
  value = std::clamp(value, minimum_, maximum_);
  if (value == value_) return;
  value_ = value;
  setNeedsDisplay();
}

void KestroControl::setRange(float minimum, float maximum) {
  if (!(minimum <= maximum) || (minimum == minimum_ && maximum == maximum_)) return;
  minimum_ = minimum;
  maximum_ = maximum;
  value_ = std::clamp(value_, minimum_, maximum_);
  setNeedsDisplay();
}

void KestroControl::setStepCount(int count) { stepCount_ = std::max(0, count); }

float KestroControl::step() const {
  const float range = maximum_ - minimum_;
  return stepCount_ > 0 ? range / static_cast<float>(stepCount_) : range * 0.01f;
}

void KestroControl::setInverted(bool inverted) {
  if (inverted == inverted_) return;
  inverted_ = inverted;
  setNeedsDisplay();
}

bool KestroControl::isModulated() const { return modulated_ && !std::isnan(modulatedValue_); }

void KestroControl::setModulated(bool modulated) {
  if (modulated == modulated_) return;
  modulated_ = modulated;
  setNeedsDisplay();
}

void KestroControl::setModulatedValue(float position) {
  const bool same =
      position == modulatedValue_ || (std::isnan(position) && std::isnan(modulatedValue_));
  if (same) return;
  modulatedValue_ = position;
  if (modulated_) setNeedsDisplay();
}

bool KestroControl::wheelTurned(const platform::WheelEvent& event) {
  // Some systems turn a wheel sideways while Shift is held.
  double turned = event.deltaY != 0 ? event.deltaY : event.deltaX;
  if (!isEnabled() || turned == 0 || !(maximum_ > minimum_)) return false;
  if (stepCount_ > 0) {
    wheelRest_ += turned;
    turned = std::trunc(wheelRest_);
    wheelRest_ -= turned;
    if (turned == 0) return true;
  } else if (has(event.modifiers, platform::Modifiers::shift)) {
    turned *= 0.1;
  }
  changeValueOnce(value_ + static_cast<float>(turned) * (inverted_ ? -step() : step()));
  return true;
}

bool KestroControl::keyPressed(const platform::KeyEvent& event) {
  using platform::Key;
  using platform::Modifiers;
  const auto foreign = Modifiers::control | Modifiers::alt | Modifiers::command;
  if (!isEnabled() || has(event.modifiers, foreign)) return false;
  const bool fine = stepCount_ == 0 && has(event.modifiers, Modifiers::shift);
  const float one = (inverted_ ? -step() : step()) * (fine ? 0.1f : 1.0f);
  switch (event.key) {
    case Key::up:
    case Key::right:
      changeValueOnce(value_ + one);
      return true;
    case Key::down:
    case Key::left:
      changeValueOnce(value_ - one);
      return true;
    case Key::pageUp:
      changeValueOnce(value_ + 10 * one);
      return true;
    case Key::pageDown:
      changeValueOnce(value_ - 10 * one);
      return true;
    case Key::home:
      changeValueOnce(valueAt(0));
      return true;
    case Key::end:
      changeValueOnce(valueAt(1));
      return true;
    default:
      return false;
  }
}

platform::Accessibility KestroControl::accessibility() const {
  using Role = platform::Accessibility::Role;
  platform::Accessibility told = GestureControl::accessibility();
  if (told.role != Role::text && told.role != Role::button)
    told.range = {minimum_, maximum_, step(), value_};
  return told;
}

bool KestroControl::setAccessibilityValue(double value) {
  if (!isEnabled() || !canBecomeFirstResponder() || std::isnan(value)) return false;
  changeValueOnce(static_cast<float>(value));
  return true;
}

void KestroControl::changeValue(float value) {
  if (!isEnabled() || std::isnan(value)) return;
  value = std::clamp(value, minimum_, maximum_);
  if (stepCount_ > 0 && maximum_ > minimum_)
    value = minimum_ + std::round((value - minimum_) / step()) * step();
  const float before = value_;
  setValue(value);
  if (value_ != before) sendActions(toolkit::ControlEvent::valueChanged);
}

void KestroControl::changeValueOnce(float value) {
  changeOnce([this, value] { changeValue(value); });
}

float KestroControl::shown(float value) const {
  if (!(maximum_ > minimum_)) return 0;
  const float share = std::clamp((value - minimum_) / (maximum_ - minimum_), 0.0f, 1.0f);
  return inverted_ ? 1 - share : share;
}

float KestroControl::valueAt(float share) const {
  return minimum_ + (inverted_ ? 1 - share : share) * (maximum_ - minimum_);
}

}  // namespace kestroui
