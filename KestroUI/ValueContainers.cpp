#include "KestroUI/ValueContainers.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

void PositionContainer::setDragged(DragControl& control) {
  dragged_ = &control;
  setControl(control);
}

void PositionContainer::setValueRange(float minimum, float maximum) {
  if (minimum <= maximum) {
    minimum_ = minimum;
    maximum_ = maximum;
    isRangeKnown_ = true;
  }
  configure();
}

void PositionContainer::setStringValues(const std::vector<std::string>& values) {
  names_ = values.size();
  configure();
}

void PositionContainer::configure() {
  const float length = maximum_ - minimum_;
  const bool symmetrical = minimum_ < 0 && std::fabs(minimum_ + maximum_) < 1e-4f * length;
  dragged_->setOrigin(symmetrical ? 0.5f : 0.0f);
  const int steps =
      isRangeKnown_ ? static_cast<int>(std::lround(length)) : static_cast<int>(names_) - 1;
  dragged_->setStepCount(names_ > 0 ? std::max(1, steps) : 0);
}

void WaveformKnobContainer::setStringValues(const std::vector<std::string>& values) {
  PositionContainer::setStringValues(values);
  knob_.setValueNames(values);
}

void StepperContainer::setValueRange(float minimum, float maximum) {
  stepper_.setRange(minimum, maximum);
  stepper_.setStepCount(static_cast<int>(std::lround(stepper_.maximum() - stepper_.minimum())));
}

void StepperContainer::setStringValues(const std::vector<std::string>& values) {
  stepper_.setValueNames(values);
}

void StepperContainer::showValue(std::size_t index, float value, const std::string& text) {
  Container::showValue(index, value, text);
  if (index == 0) stepper_.setText(text);
}

SimpleLabelContainer::SimpleLabelContainer() {
  setControl(label_);
  setDisplayTitle(false);
  setMappable(false);
}

void SimpleLabelContainer::setTitle(const std::string& title) {
  Container::setTitle(title);
  if (valueText().empty()) label_.setText(title);
}

void SimpleLabelContainer::showValue(std::size_t index, float value, const std::string& text) {
  Container::showValue(index, value, text);
  if (index == 0) label_.setText(text.empty() ? title() : text);
}

LEDViewContainer::LEDViewContainer() {
  setControl(led_);
  setMappable(false);
}

void LEDViewContainer::updateModulation() {
  if (!allowModulation || watchedValues.empty() || !watchedValues.front()) return;
  const float live = watchedValues.front()->load(std::memory_order_relaxed);
  led_.setValue(positionOfValue ? positionOfValue(0, live) : live);
}

}  // namespace kestroui
