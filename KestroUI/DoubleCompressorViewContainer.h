#pragma once

#include "KestroUI/CompressorView.h"
#include "KestroUI/DisplayContainer.h"

namespace kestroui {

/// Two compressors in one picture. The keys of the second follow those of the first.
class DoubleCompressorViewContainer : public DisplayContainer {
 public:
  DoubleCompressorViewContainer() { setDisplay(view_); }

 private:
  CompressorView view_{2};
};

}  // namespace kestroui
