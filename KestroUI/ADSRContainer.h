#pragma once

#include "KestroUI/ADSRControl.h"
#include "KestroUI/ShapeContainer.h"

namespace kestroui {

/// An envelope of attack, decay, sustain and release, in the order of its keys.
class ADSRContainer : public ShapeContainer {
 public:
  ADSRContainer() { setShape(adsrControl_); }

  ADSRControl& adsrControl() { return adsrControl_; }

 private:
  ADSRControl adsrControl_;
};

}  // namespace kestroui
