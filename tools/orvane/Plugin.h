#pragma once

#include <memory>
#include <string>

#include "Orvane/PluginEntry.h"
#include "tools/orvane/Problems.h"

namespace tool {

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
