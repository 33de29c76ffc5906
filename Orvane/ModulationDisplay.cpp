#include "Orvane/ModulationDisplay.h"

#include "KestroUI/Container.h"
#include "KestroUI/KestroControl.h"

namespace orvane {

void showModulation(const kestroui::Container& container, kestroui::KestroControl& control) {
  if (!container.allowModulation) return;
  if (container.isModulating.empty() || !container.isModulating[0]) return;
  if (!container.isModulating[0]->load(std::memory_order_relaxed)) {
    control.setModulated(false);
    return;
  }
  if (container.watchedValues.empty()) return;
  const float value = container.watchedValues[0]->load(std::memory_order_relaxed);
  control.setModulated(true);
  control.setModulatedValue(container.positionOfValue ? container.positionOfValue(0, value)
                                                      : value);
}

}  // namespace orvane
