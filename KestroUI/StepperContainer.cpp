#include "KestroUI/StepperContainer.h"

#include <cmath>

namespace kestroui {

StepperContainer::StepperContainer() { setControl(stepper_); }

Container::ValueForm StepperContainer::valueForm(const std::string&) const {
  return ValueForm::raw;
}

void StepperContainer::setValueRange(float minimum, float maximum) {
  stepper_.setRange(minimum, maximum);
  stepper_.setStepCount(static_cast<int>(std::lround(stepper_.maximum() - stepper_.minimum())));
}

void StepperContainer::setStringValues(const std::vector<std::string>& values) {
  stepper_.setValueNames(values);
}

void StepperContainer::showValue(const std::string& key, float value, const std::string& text) {
  Container::showValue(key, value, text);
  if (isOwnKey(key)) stepper_.setText(text);
}

}  // namespace kestroui
