#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/FileManager.h"
#include "tools/orvane/PresetFolder.h"

namespace tool {

/// Something that is wrong in a folder of presets.
struct PresetProblem {
  /// What is in the trash is no problem: it is listed, and left alone.
  enum class Kind { unreadable, duplicateName, categories, missingFavourite, unfinished, trash };

  Kind kind;
  std::string file;
  std::string text;
  bool isFixed = false;
};

/// "unreadable", "duplicate-name"
std::string kindName(PresetProblem::Kind kind);

/// Looks for what the user of a folder of presets would stumble over, and mends it if asked to:
/// files that are no presets go to the folder "Unreadable Presets" beside it, the second of two
/// presets of one name gets a number and keeps its star, categories become lower case, favourites of
/// files of this folder that are gone are forgotten, and what a killed process has left is removed.
/// Nothing is ever replaced.
class PresetDoctor {
 public:
  enum class Mode { report, fix };

  PresetDoctor(platform::FileManager& files, PresetFolder folder, Mode mode);

  std::vector<PresetProblem> examine();

 private:
  void findUnreadable();
  void findDuplicates();
  void findCategories();
  void findMissingFavourites();
  void findUnfinished();
  void listTrash();
  /// `fix` mends it and returns "", or says why it cannot.
  template <class Fix>
  void found(PresetProblem::Kind kind, const std::string& file, std::string text, Fix fix);
  std::string move(const std::string& from, const std::string& to);
  /// In every list of the container: another name instead, or none.
  std::string changeFavourite(const std::string& name, const std::optional<std::string>& newName);

  platform::FileManager& files_;
  const PresetFolder folder_;
  const Mode mode_;
  std::vector<PresetEntry> presets_;
  std::vector<PresetProblem> problems_;
};

}  // namespace tool
