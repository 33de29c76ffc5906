#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "foundation/UnicodeText.h"
#include "platform/AudioUnit.h"
#include "platform/KestroAUPreset.h"

namespace orvane {

/// An entry of the preset browser. Lists, selection and favourites share the object.
class Preset {
 public:
  /// Name and number of a preset that the audio unit has; in no bank.
  explicit Preset(const platform::AUAudioUnitPreset& unitPreset);
  explicit Preset(std::string presetName);
  explicit Preset(const platform::KestroAUPreset& record);
  virtual ~Preset() = default;

  /// Tells presets of all banks and folders apart: the key of favourites and of stepping.
  virtual std::string uniqueName() const { return bankName + '/' + name; }

  std::string name;
  /// The number of a factory preset.
  std::optional<std::int64_t> id;
  /// A factory preset's own object.
  std::optional<platform::AUAudioUnitPreset> preset;
  std::vector<std::string> categories;
  /// "USER" for every user preset.
  std::string bankName;
  /// Empty outside any pack.
  std::string presetPackID;
  bool isUserPreset = false;
  bool isFavourite = false;

  /// By name and kind alone: two factory presets of one name are equal even in different banks,
  /// and so are user presets of one name in different folders.
  friend bool operator==(const Preset& a, const Preset& b) {
    return a.isUserPreset == b.isUserPreset && foundation::isSameText(a.name, b.name);
  }
};

/// A preset that the user has saved, in a file of its own. Its name is that of the file without the
/// extension; its categories are empty until the store has read them.
class UserPreset : public Preset {
 public:
  UserPreset(std::string path, bool liesInICloud);

  std::string uniqueName() const override { return url; }

  /// Whether the file lies in the cloud's preset folder.
  bool isICloud = false;
  /// The path of the file.
  const std::string url;
};

/// The categories that a preset is to have.
struct PresetCategories {
  std::shared_ptr<UserPreset> preset;
  std::vector<std::string> names;
};

/// A preset that the audio unit itself provides.
class FactoryPreset : public Preset {
 public:
  using Preset::Preset;
};

}  // namespace orvane
