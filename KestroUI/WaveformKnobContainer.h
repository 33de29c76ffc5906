#pragma once

#include "KestroUI/Container.h"
#include "KestroUI/PositionRange.h"
#include "KestroUI/WaveformKnob.h"

namespace kestroui {

/// A knob that shows its waveform, with its title.
class WaveformKnobContainer : public Container {
 public:
  WaveformKnobContainer();

  WaveformKnob& knob() { return knob_; }

  void setValueRange(float minimum, float maximum) override;
  void setStringValues(const std::vector<std::string>& values) override;

 private:
  WaveformKnob knob_;
  PositionRange range_;
};

}  // namespace kestroui
