#include "tools/orvane/DescribedPlugin.h"

#include "tools/orvane/DescribedAudioUnit.h"
#include "tools/orvane/DescribedViewController.h"

namespace tool {

orvane::PluginEntry entryOf(std::shared_ptr<const DescribedPlugin> plugin) {
  constexpr double longSide = 1024;
  orvane::PluginEntry entry;
  entry.identifier = plugin->productId;
  entry.name = plugin->name;
  entry.version = plugin->version;
  entry.build = plugin->build;
  entry.storeIdentifier = plugin->storeIdentifier;
  entry.description = "A described plug-in, without sound.";
  entry.makeAudioUnit = [plugin] { return std::make_unique<DescribedAudioUnit>(*plugin); };
  entry.makeViewController = [plugin] { return std::make_unique<DescribedViewController>(plugin); };
  const double ratio = plugin->contentRatio;
  entry.preferredSize = {ratio > 1 ? longSide / ratio : longSide,
                         ratio > 1 ? longSide : longSide * ratio};
  return entry;
}

}  // namespace tool
