#pragma once

#include <string>
#include <vector>

#include "Orvane/PresetFile.h"
#include "platform/FileManager.h"

namespace tool {

/// A folder of user presets, and the containers of which it may be a part.
struct PresetFolder {
  /// `path` is a container, or the preset folder of one or of no container.
  static PresetFolder at(const std::string& path);

  std::string presets;
  /// Empty when there is none.
  std::string container;
  bool isCloud = false;
};

/// A regular file of a preset folder with what it holds.
struct PresetEntry {
  std::string path;
  std::string name;
  /// Why the file is no preset; then it has no content.
  std::string error;
  orvane::PresetFile file;
};

/// In the order of their names; without folders and placeholders.
std::vector<PresetEntry> presetsIn(platform::FileManager& files, const std::string& folder);
/// One file; the entry has an error when it is no preset.
PresetEntry readPreset(platform::FileManager& files, const std::string& path);
/// "" when it is written, else why not.
std::string writePreset(platform::FileManager& files, const PresetEntry& entry);

/// A list of favourites.
struct Favourites {
  std::string suite;
  std::vector<std::string> names;
};
/// Every list that is stored in a container.
std::vector<Favourites> favouritesIn(platform::FileManager& files, const std::string& container);

}  // namespace tool
