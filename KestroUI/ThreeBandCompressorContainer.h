#pragma once

#include <string>
#include <vector>

#include "KestroUI/BandsView.h"
#include "KestroUI/DisplayContainer.h"

namespace kestroui {

/// A compressor of three bands between two crossovers. A design names only its own key: the
/// parameters of the bands are those that the audio unit has under the keys of `bandKeys`.
class ThreeBandCompressorContainer : public DisplayContainer {
 public:
  ThreeBandCompressorContainer() { setDisplay(view_); }

  /// The keys of the bands' parameters, as they stand or behind the container's own key.
  static const std::vector<std::string>& bandKeys();

 private:
  BandsView view_{BandsView::Bands::three};
};

}  // namespace kestroui
