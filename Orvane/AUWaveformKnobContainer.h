#pragma once

#include "KestroUI/WaveformKnobContainer.h"

namespace orvane {

/// A knob with a waveform that shows the live value of its parameter while that is modulated.
class AUWaveformKnobContainer : public kestroui::WaveformKnobContainer {
 public:
  void updateModulation() override;
};

}  // namespace orvane
