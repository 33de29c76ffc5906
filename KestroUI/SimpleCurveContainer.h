#pragma once

#include "KestroUI/ShapeContainer.h"
#include "KestroUI/SimpleCurveControl.h"

namespace kestroui {

/// A curve through points at equal distances, a key each from left to right.
class SimpleCurveContainer : public ShapeContainer {
 public:
  SimpleCurveContainer() { setShape(curveControl_); }

  SimpleCurveControl& curveControl() { return curveControl_; }

 private:
  SimpleCurveControl curveControl_;
};

}  // namespace kestroui
