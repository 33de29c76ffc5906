#include "Orvane/AUKnobContainer.h"

#include "Orvane/ModulationDisplay.h"

namespace orvane {

void AUKnobContainer::updateModulation() { showModulation(*this, knob()); }

}  // namespace orvane
