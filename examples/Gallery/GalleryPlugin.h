#pragma once

#include "Orvane/PluginEntry.h"

namespace gallery {

/// A plug-in whose pages show every kind of control, bound to parameters of its own.
const orvane::PluginEntry& pluginEntry();

}  // namespace gallery
