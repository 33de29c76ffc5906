#include "backends/juce/PluginBundle.h"

#include "platform/Bundle.h"

namespace juce_backend {

void ensureMainBundle(const orvane::PluginEntry& entry) {
  // A program or library has one plug-in, for as long as it is loaded.
  if (!platform::Bundle::mainInfoDictionary())
    static const platform::MainBundle bundle(entry.infoDictionary());
}

}  // namespace juce_backend
