#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Orvane/PluginEntry.h"
#include "tools/orvane/Problems.h"

namespace tool {

/// A plug-in that is part of the tool.
struct BuiltIn {
  /// By which it is called on the command line.
  const char* name;
  const orvane::PluginEntry& (*entry)();
};

/// In the order in which they are listed.
const std::vector<BuiltIn>& builtIns();

/// The plug-in that a command line names.
struct Plugin {
  orvane::PluginEntry entry;
  /// The built-in's name or the path of the description, for messages.
  std::string place;
};

/// `name` is a built-in's or the path of a description, which ends in ".json". Throws a Failure
/// when there is no such plug-in or its file cannot be read. Problems of a description are added
/// to `problems`; the entry is empty then.
Plugin loadPlugin(const std::string& name, Problems& problems);
/// The same, but the first problem is a Failure.
Plugin loadPlugin(const std::string& name);

}  // namespace tool
