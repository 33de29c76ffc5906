#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "Orvane/ICloudManager.h"
#include "Orvane/Preset.h"
#include "platform/AudioUnit.h"
#include "platform/FileManager.h"
#include "platform/Weak.h"

namespace orvane {

class KestroAUViewController;

/// The user's presets: a file for each, in the folder "Presets" of the app group's container or,
/// where the user has a cloud, of that. The main controller owns it. Nothing throws or fails
/// visibly: file errors are printed on the console. Works on the calling thread, the user-interface
/// thread; only what comes from the cloud comes later.
///
///     PresetManager presets("group.org.example.synth", {});
///     presets.audioUnit = &unit;
///     presets.createPresetDirectories();
///     presets.saveNew("Warm Pad", {"Pad"});
class PresetManager : public platform::WeakTarget {
 public:
  /// Starts to bring the presets here that are in the cloud only.
  PresetManager(std::string groupBundleId, std::vector<std::string> extraIcloudResources);

  /// The container's folder; none when it is not available.
  std::optional<std::string> localPresetPath() const;
  std::optional<std::string> iCloudPresetPath() const;
  /// A folder beside the presets in the cloud.
  std::optional<std::string> extraResourcePath(const std::string& name) const;

  void createPresetDirectories();
  /// Those of the container, then those of the cloud, each in the order of the file system. Reads
  /// only files that are new or have changed since the last time; the presets of others are the same
  /// objects as then.
  std::vector<std::shared_ptr<UserPreset>> getUserPresets();

  /// Applies a preset to the audio unit; null and a file that cannot be read do nothing.
  void load(const std::shared_ptr<Preset>& preset);
  void loadUserPreset(const UserPreset& preset);
  /// Writes the audio unit's state, replacing any file at this path. Categories are stored in lower
  /// case. Whether it is written.
  bool savePreset(const std::string& url, const std::vector<std::string>& categories);
  /// Replaces a preset of the same name. The path of the file; none when it could not be written,
  /// without a folder or an audio unit, and for a name that leads out of the folder.
  std::optional<std::string> saveNew(const std::string& name,
                                     const std::vector<std::string>& categories);
  /// Removes the file, and the first mark of a favourite.
  void deleteUserPreset(const UserPreset& preset);

  // Import and export

  /// Lets the user pick files; they come back through the view controller.
  void importPreset();
  /// Copies a file into the preset folder, never over another, and selects that preset.
  void importPresetFile(const std::string& url);
  /// Shares the audio unit's state as it is now, under the name and categories of the preset.
  void exportPreset(const std::shared_ptr<Preset>& preset);
  /// Shares all user presets as one folder; older files leave as property lists.
  void exportAll();
  void wantsToExportFileFrom(const std::string& path);
  /// Installs every pack in the folder "Contents" of a bundle.
  void copyPresetsFromBundle(const std::string& bundleURL);
  /// Installs one pack in place of an earlier version of it.
  void copyPresetsFromFolder(const std::string& folderURL);
  /// The folder of the installed packs; none without a container.
  std::optional<std::string> packPresetPath() const;
  /// The folder of one installed pack, or "".
  std::string presetPackPath(const std::string& packID) const;

  const std::string groupBundleId;
  const std::vector<std::string> extraIcloudResources;
  /// Part of the document type of the presets.
  std::string productCode;
  platform::Weak<platform::AudioUnit> audioUnit;
  /// Presents pickers and alerts.
  platform::Weak<KestroAUViewController> viewController;

 private:
  struct Known {
    platform::FileStamp stamp;
    std::shared_ptr<UserPreset> preset;
    /// Of the listing that saw it last.
    unsigned listing = 0;
  };

  std::optional<std::string> newPresetFolder() const;
  void createFolder(const std::string& path);
  void exportFile(const std::string& file, const std::string& folder, const std::string& extension);

  platform::FileManager& fileManager_;
  ICloudManager iCloudManager_;
  /// What the files of the last listing held, by path.
  std::unordered_map<std::string, Known> known_;
  unsigned listings_ = 0;
};

}  // namespace orvane
