#pragma once

#include "KestroUI/BandsView.h"
#include "KestroUI/DisplayContainer.h"

namespace kestroui {

/// A compressor of one band of frequencies: its threshold, its ratio, and the edges of the band by what
/// their keys say.
class BandCompressorContainer : public DisplayContainer {
 public:
  BandCompressorContainer() { setDisplay(view_); }

 private:
  BandsView view_{BandsView::Bands::one};
};

}  // namespace kestroui
