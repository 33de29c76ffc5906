#pragma once

#include "Orvane/PluginEntry.h"

namespace halden {

const orvane::PluginEntry& pluginEntry();

}  // namespace halden
