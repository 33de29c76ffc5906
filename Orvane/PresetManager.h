#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Orvane/ICloudManager.h"
#include "Orvane/Preset.h"
#include "Orvane/PresetTrash.h"
#include "platform/AudioUnit.h"
#include "platform/FileManager.h"
#include "platform/KestroAUPreset.h"
#include "platform/Weak.h"

namespace orvane {

class KestroAUViewController;

/// What takes a change of the user's presets back, once: see PresetManager::restore. Steps of several
/// changes in one make one of them.
struct PresetUndo {
  struct Step {
    enum class Change { deleted, created, replaced };

    Change change;
    /// The preset's file.
    std::string url;
    /// In the trash; empty when a file was created, or replaced by its equal.
    std::string kept{};
    /// What the change has left under the url.
    platform::FileStamp written{};
    bool wasFavourite = false;
  };

  void add(const std::optional<PresetUndo>& next) {
    if (next) steps.insert(steps.end(), next->steps.begin(), next->steps.end());
  }

  std::vector<Step> steps;
};

/// The user's presets: a file for each, in the folder "Presets" of the app group's container or,
/// where the user has a cloud, of that. The main controller owns it. Nothing throws: what fails is
/// printed on the console and told to the view controller, in one sentence with the reason. Works on
/// the calling thread, the user-interface thread; only what comes from the cloud, and the categories of
/// very long files, come later.
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
  /// The files of the installed packs that have the audio unit's extension, as the list takes factory
  /// presets: by pack and name, in a bank that is called as the pack, with numbers below 0 that are
  /// none of the audio unit's own. `load` knows them.
  std::vector<platform::KestroAUPreset> getPackPresets();

  // Each tells whether it is done

  /// Applies a preset to the audio unit; null and a file that holds no state do nothing.
  bool load(const std::shared_ptr<Preset>& preset);
  bool loadUserPreset(const UserPreset& preset);
  /// Writes the audio unit's state, replacing any file at this path; a preset that was there is kept
  /// in the trash. Categories are stored in lower case.
  bool savePreset(const std::string& url, const std::vector<std::string>& categories);
  /// Replaces a preset of the same name, in whichever form its accents are. The path of the file;
  /// none when it could not be written, without a folder or an audio unit, and for a name that leads
  /// out of the folder.
  std::optional<std::string> saveNew(const std::string& name,
                                     const std::vector<std::string>& categories);
  /// Saves the audio unit's state as saveNew does and then deletes the preset, unless both names are
  /// of one file. Under its own name a preset is saved where it lies. Its marks stay as they are.
  std::optional<std::string> renamePreset(const UserPreset& preset, const std::string& name,
                                          const std::vector<std::string>& categories);
  /// Gives a preset other categories; the sound in its file stays as it is.
  bool setCategories(const UserPreset& preset, const std::vector<std::string>& categories);
  /// Moves the file, or a link itself, to the trash; nothing else can be deleted. Takes the first
  /// mark of a favourite away in any case.
  bool deleteUserPreset(const UserPreset& preset);

  /// The last saving, renaming or deleting; none when it failed or cannot be taken back.
  const std::optional<PresetUndo>& lastChange() const { return lastChange_; }
  /// Takes a change back, the last step first, up to one that cannot be: what others have put in the
  /// place meanwhile stays.
  bool restore(const PresetUndo& change);

  // Import and export

  /// Lets the user pick files; they come back through the view controller.
  void importPreset();
  /// Copies a file into the preset folder, never over another, and selects that preset.
  bool importPresetFile(const std::string& url);
  /// Shares the audio unit's state as it is now, under the name and categories of the preset.
  void exportPreset(const std::shared_ptr<Preset>& preset);
  /// Shares these presets as they are stored, as one folder; older files leave as property lists.
  void exportPresets(const std::vector<std::shared_ptr<UserPreset>>& presets);
  /// The same with all files of the user's presets.
  void exportAll();
  void wantsToExportFileFrom(const std::string& path);
  /// Installs every pack in the folder "Contents" of a bundle.
  void copyPresetsFromBundle(const std::string& bundleURL);
  /// Installs one pack in place of an earlier version of it; nothing for what is installed already.
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
  /// A file of the last listing.
  struct Known {
    std::string name;
    platform::FileStamp stamp;
    /// False for a file that could not be read just then.
    bool isRead = false;
    std::shared_ptr<UserPreset> preset;
  };
  /// A folder of presets as it was listed last, in the order of the file system.
  struct KnownFolder {
    std::string path;
    std::vector<Known> files;
  };

  void list(KnownFolder& folder, bool isICloud, std::vector<std::shared_ptr<UserPreset>>& presets);
  /// Reads the categories of a file that the user-interface thread would wait for.
  void readLater(const std::string& url, const platform::FileStamp& stamp);
  void wasRead(const std::string& url, const platform::FileStamp& stamp,
               std::optional<std::vector<std::string>> categories);
  std::optional<std::string> newPresetFolder() const;
  void createFolder(const std::string& path);
  /// The path for a file of this name: that of a file whose name reads the same, if there is one.
  std::string pathIn(const std::string& folder, const std::string& fileName) const;
  /// Of the folder that a preset lies in; none for a file elsewhere.
  std::optional<PresetTrash> trashOf(const std::string& url) const;
  PresetTrash trashBeside(const std::string& presetFolder) const;
  /// What savePreset writes; none without a state.
  std::optional<std::string> fileContent(const std::vector<std::string>& categories) const;
  bool isWritten(const std::string& content, const std::string& url);
  /// Writes what a preset's file is to hold; the file that was there is kept in the trash.
  bool replace(const std::string& url, const std::string& content);
  std::optional<PresetUndo::Step> moveToTrash(const std::string& url);
  bool restore(const PresetUndo::Step& step);
  bool loadFile(const std::string& url, const std::string& name);
  /// Every failure ends here.
  void report(const std::string& sentence);
  /// What the console is not told.
  void tell(const std::string& sentence);
  /// One for each export: a chooser may still be open for an earlier one. Ends in "/".
  std::optional<std::string> makeExportFolder();
  /// What is no preset is left out; it is told where it was asked for by name.
  enum class Unreadable { skip, report };
  void exportFiles(const std::vector<std::string>& files, Unreadable unreadable);
  void exportFile(const std::string& file, const std::string& folder, const std::string& extension,
                  Unreadable unreadable);

  platform::FileManager& fileManager_;
  ICloudManager iCloudManager_;
  KnownFolder local_, cloud_;
  /// What readLater has begun, by path.
  std::map<std::string, platform::FileStamp> reading_;
  struct PackFile {
    platform::FileStamp stamp;
    std::vector<std::string> categories;
  };
  /// By path.
  std::map<std::string, PackFile> packFiles_;
  std::optional<PresetUndo> lastChange_;
};

}  // namespace orvane
