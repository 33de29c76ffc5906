#include "KestroUI/KnobContainer.h"

namespace kestroui {

KnobContainer::KnobContainer() { setControl(knob_); }

void KnobContainer::setValueRange(float minimum, float maximum) {
  range_.setRange(minimum, maximum);
  range_.applyTo(knob_);
}

void KnobContainer::setStringValues(const std::vector<std::string>& values) {
  range_.setNames(values.size());
  range_.applyTo(knob_);
}

}  // namespace kestroui
