#include "Orvane/AUValueContainers.h"

namespace orvane {

namespace {

// One frame of the live display: what the first flag and the first live value say now, read without
// locks.
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

}  // namespace

void AUKnobContainer::updateModulation() { showModulation(*this, knob()); }

void AUSliderContainer::updateModulation() { showModulation(*this, slider()); }

void AUWaveformKnobContainer::updateModulation() { showModulation(*this, knob()); }

}  // namespace orvane
