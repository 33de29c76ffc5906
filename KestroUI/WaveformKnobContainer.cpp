#include "KestroUI/WaveformKnobContainer.h"

namespace kestroui {

WaveformKnobContainer::WaveformKnobContainer() { setControl(knob_); }

void WaveformKnobContainer::setValueRange(float minimum, float maximum) {
  range_.setRange(minimum, maximum);
  range_.applyTo(knob_);
}

void WaveformKnobContainer::setStringValues(const std::vector<std::string>& values) {
  range_.setNames(values.size());
  range_.applyTo(knob_);
  knob_.setValueNames(values);
}

}  // namespace kestroui
