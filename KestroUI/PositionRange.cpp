#include "KestroUI/PositionRange.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

void PositionRange::setRange(float minimum, float maximum) {
  if (!(minimum <= maximum)) return;
  minimum_ = minimum;
  maximum_ = maximum;
  known_ = true;
}

void PositionRange::applyTo(DragControl& control) const {
  const float length = maximum_ - minimum_;
  const bool symmetrical = minimum_ < 0 && std::fabs(minimum_ + maximum_) < 1e-4f * length;
  control.setOrigin(symmetrical ? 0.5f : 0.0f);
  const int steps = known_ ? static_cast<int>(std::lround(length)) : static_cast<int>(names_) - 1;
  control.setStepCount(names_ > 0 ? std::max(1, steps) : 0);
}

}  // namespace kestroui
