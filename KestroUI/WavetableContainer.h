#pragma once

#include "KestroUI/ShapeContainer.h"
#include "KestroUI/WavetableControl.h"

namespace kestroui {

/// A place in a wavetable, and with a second key its level.
class WavetableContainer : public ShapeContainer {
 public:
  WavetableContainer() { setShape(wavetableControl_); }

  WavetableControl& wavetableControl() { return wavetableControl_; }

 private:
  WavetableControl wavetableControl_;
};

}  // namespace kestroui
