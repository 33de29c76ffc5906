#include "KestroUI/SliderContainer.h"

namespace kestroui {

SliderContainer::SliderContainer() { setControl(slider_); }

void SliderContainer::setValueRange(float minimum, float maximum) {
  range_.setRange(minimum, maximum);
  range_.applyTo(slider_);
}

void SliderContainer::setStringValues(const std::vector<std::string>& values) {
  range_.setNames(values.size());
  range_.applyTo(slider_);
}

}  // namespace kestroui
