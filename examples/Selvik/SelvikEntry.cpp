#include "examples/Selvik/SelvikPlugin.h"

/// What a backend asks for; apart from the rest, so that a program may hold several plug-ins.
const orvane::PluginEntry& orvanePluginEntry() { return selvik::pluginEntry(); }
