#include "KestroUI/LEDViewContainer.h"

namespace kestroui {

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
