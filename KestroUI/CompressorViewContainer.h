#pragma once

#include "KestroUI/CompressorView.h"
#include "KestroUI/DisplayContainer.h"

namespace kestroui {

/// A compressor: its threshold, its ratio and whatever else it has, by what its keys say or in this
/// order; see CompressorView.
class CompressorViewContainer : public DisplayContainer {
 public:
  CompressorViewContainer() { setDisplay(view_); }

 private:
  CompressorView view_;
};

}  // namespace kestroui
