#include "KestroUI/DisplayContainer.h"

#include <utility>

namespace kestroui {

void DisplayContainer::setDisplay(DisplayView& display) {
  display_ = &display;
  setShape(display);
}

void DisplayContainer::setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) {
  // First the display, which has to know the values that the base configures.
  display_->setKeys(keys);
  ShapeContainer::setParamKeys(std::move(keys));
}

void DisplayContainer::showValue(const std::string& key, float value, const std::string& text) {
  // The strips show texts all the time, other shapes only that of the handle in use.
  const std::optional<std::size_t> index = indexOf(key);
  if (index && display_->text(*index) != text) display_->setNeedsDisplay();
  ShapeContainer::showValue(key, value, text);
}

void DisplayContainer::setKeyRange(std::size_t index, float minimum, float maximum) {
  display_->setParameterRange(index, minimum, maximum);
  ShapeContainer::setKeyRange(index, minimum, maximum);
}

void DisplayContainer::setKeyStringValues(std::size_t index,
                                          const std::vector<std::string>& values) {
  display_->setValueNames(index, values);
  ShapeContainer::setKeyStringValues(index, values);
}

void DisplayContainer::setColors(const std::vector<platform::Color>& colors) {
  ShapeContainer::setColors(colors);
  display_->setColors(colors);
}

void DisplayContainer::updateModulation() {
  ShapeContainer::updateModulation();
  for (std::size_t i = 0; i < paramKeys().size(); ++i) display_->setOutput(i, liveOutput(i));
}

}  // namespace kestroui
