#pragma once

#include <vector>

#include "Orvane/PluginEntry.h"

namespace tool {

/// A plug-in that is part of the tool.
struct BuiltIn {
  /// By which it is called on the command line.
  const char* name;
  const orvane::PluginEntry& (*entry)();
};

/// In the order in which they are listed.
const std::vector<BuiltIn>& builtIns();

}  // namespace tool
