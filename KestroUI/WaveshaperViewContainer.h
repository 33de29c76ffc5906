#pragma once

#include "KestroUI/DisplayContainer.h"
#include "KestroUI/WaveshaperView.h"

namespace kestroui {

/// A waveshaper: its drive, and by what their keys say its shape, bias and mix.
class WaveshaperViewContainer : public DisplayContainer {
 public:
  WaveshaperViewContainer() { setDisplay(view_); }

 private:
  WaveshaperView view_;
};

}  // namespace kestroui
