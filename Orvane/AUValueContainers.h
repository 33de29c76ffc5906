#pragma once

#include "KestroUI/ValueContainers.h"

namespace orvane {

/// A knob that shows the live value of its parameter while that is modulated.
class AUKnobContainer : public kestroui::KnobContainer {
 public:
  void updateModulation() override;
};

/// A slider that shows the live value of its parameter while that is modulated.
class AUSliderContainer : public kestroui::SliderContainer {
 public:
  void updateModulation() override;
};

/// A knob with a waveform that shows the live value of its parameter while that is modulated.
class AUWaveformKnobContainer : public kestroui::WaveformKnobContainer {
 public:
  void updateModulation() override;
};

}  // namespace orvane
