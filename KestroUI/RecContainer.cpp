#include "KestroUI/RecContainer.h"

namespace kestroui {

RecContainer::RecContainer() {
  setControl(button_);
  Container::setControlColor(Theme::record);
}

void RecContainer::setValueRange(float minimum, float maximum) {
  button_.setStepCount(maximum - minimum > 1.5f ? 2 : 1);
}

void RecContainer::setStringValues(const std::vector<std::string>& values) {
  button_.setTitles(values);
}

void RecContainer::updateModulation() {
  if (!allowModulation) return;
  const std::optional<float> live = liveOutput(0);
  if (!live) return;
  button_.setWaiting(!((positionOfValue ? positionOfValue(0, *live) : *live) > 0.5f));
}

}  // namespace kestroui
