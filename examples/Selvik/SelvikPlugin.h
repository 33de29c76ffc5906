#pragma once

#include "Orvane/PluginEntry.h"

namespace selvik {

const orvane::PluginEntry& pluginEntry();

}  // namespace selvik
