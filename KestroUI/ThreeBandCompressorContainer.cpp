#include "KestroUI/ThreeBandCompressorContainer.h"

namespace kestroui {

const std::vector<std::string>& ThreeBandCompressorContainer::bandKeys() {
  static const std::vector<std::string> keys = {
      "LowThreshold",  "LowRatio",        "LowReduction",    "MidThreshold",
      "MidRatio",      "MidReduction",    "HighThreshold",   "HighRatio",
      "HighReduction", "LowMidFrequency", "MidHighFrequency"};
  return keys;
}

}  // namespace kestroui
