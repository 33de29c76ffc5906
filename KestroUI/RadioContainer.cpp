#include "KestroUI/RadioContainer.h"

#include <cmath>

#include "KestroUI/ValueNames.h"

namespace kestroui {

RadioContainer::RadioContainer(bool isWaveform) : buttons_({}, isWaveform) { setControl(buttons_); }

Container::ValueForm RadioContainer::valueForm(const std::string&) const { return ValueForm::raw; }

void RadioContainer::setValueRange(float minimum, float maximum) {
  if (buttons_.titles().empty()) buttons_.setTitles(numbers(minimum, maximum));
  buttons_.setRange(minimum, maximum);
  buttons_.setStepCount(static_cast<int>(std::lround(buttons_.maximum() - buttons_.minimum())));
}

void RadioContainer::setStringValues(const std::vector<std::string>& values) {
  buttons_.setTitles(values);
}

}  // namespace kestroui
