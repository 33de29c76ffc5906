#include "tools/orvane/DescribedViewController.h"

#include "tools/orvane/DescribedAudioUnit.h"

namespace tool {

std::unique_ptr<platform::AudioUnit> DescribedViewController::createAudioUnit(
    const platform::AudioComponentDescription&) {
  return std::make_unique<DescribedAudioUnit>(*plugin_);
}

}  // namespace tool
