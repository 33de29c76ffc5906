#pragma once

#include <string>
#include <vector>

#include "Orvane/Preset.h"

namespace orvane {

/// The user's favourite presets: one list for all editors of the process, shared with the other
/// processes of the app group. User-interface thread.
class FavPresetsStore {
 public:
  FavPresetsStore() = delete;

  /// Unique names in the order in which they were marked. A name may be there twice, or that of a
  /// preset that exists no more.
  static inline std::vector<std::string> favouritePresets;
  /// The app group.
  static inline std::string suiteName;

  /// Reads the list anew; empty when there is none. What is no text in it is left out.
  static void load();
  /// Stores the whole list.
  static void save();

  /// Marks a preset, or takes the first mark away, and saves.
  static void setFavourite(Preset& preset, bool isFavourite);
  static bool contains(const std::string& uniqueName);
  static void add(const std::string& uniqueName);
  /// Takes the first mark of this name away, if there is one, and saves.
  static void remove(const std::string& uniqueName);
};

}  // namespace orvane
