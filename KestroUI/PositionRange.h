#pragma once

#include <cstddef>

#include "KestroUI/DragControl.h"

namespace kestroui {

/// What a control that holds a position shows of its parameter's range: where its fill starts, and
/// its steps when the values have names.
class PositionRange {
 public:
  void setRange(float minimum, float maximum);
  void setNames(std::size_t count) { names_ = count; }
  void applyTo(DragControl& control) const;

 private:
  float minimum_ = 0;
  float maximum_ = 1;
  bool known_ = false;
  std::size_t names_ = 0;
};

}  // namespace kestroui
