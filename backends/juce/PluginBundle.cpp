#include "backends/juce/PluginBundle.h"

#include "foundation/Bundle.h"

namespace juce_backend {

void ensureMainBundle(const orvane::PluginEntry& entry) {
  // A program or library has one plug-in, for as long as it is loaded.
  if (!foundation::Bundle::mainInfoDictionary())
    static const foundation::MainBundle bundle(entry.infoDictionary());
}

}  // namespace juce_backend
