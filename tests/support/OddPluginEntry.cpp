#include "tests/support/OddPlugin.h"

/// Apart from the rest: a test program may hold several plug-ins.
const orvane::PluginEntry& orvanePluginEntry() { return support::oddPluginEntry(); }
