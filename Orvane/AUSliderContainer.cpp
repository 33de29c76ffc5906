#include "Orvane/AUSliderContainer.h"

#include "Orvane/ModulationDisplay.h"

namespace orvane {

void AUSliderContainer::updateModulation() { showModulation(*this, slider()); }

}  // namespace orvane
