#include "Orvane/AUWaveformKnobContainer.h"

#include "Orvane/ModulationDisplay.h"

namespace orvane {

void AUWaveformKnobContainer::updateModulation() { showModulation(*this, knob()); }

}  // namespace orvane
