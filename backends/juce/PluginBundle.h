#pragma once

#include "Orvane/PluginEntry.h"

namespace juce_backend {

/// Lets a plug-in that has been taken out of its bundle, and carries no property list any more,
/// still know its name and version. Before its first editor.
void ensureMainBundle(const orvane::PluginEntry& entry);

}  // namespace juce_backend
