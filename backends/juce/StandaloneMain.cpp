#include "backends/juce/Standalone.h"

/// The plug-in defines it.
const orvane::PluginEntry& orvanePluginEntry();

int main() { return juce_backend::runStandalone(orvanePluginEntry()); }
