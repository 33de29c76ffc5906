#pragma once

#include "KestroUI/DoubleSlider.h"
#include "KestroUI/ShapeContainer.h"

namespace kestroui {

/// A range: its lower and its upper end, in the order of the keys. A linked end takes the other
/// along.
class DoubleSliderContainer : public ShapeContainer {
 public:
  DoubleSliderContainer() { setShape(doubleSlider_); }

  DoubleSlider& doubleSlider() { return doubleSlider_; }

 protected:
  /// The ends share one track.
  bool isReversed(std::size_t) const override { return isInverted(); }

 private:
  DoubleSlider doubleSlider_;
};

}  // namespace kestroui
