#include "Orvane/PresetManager.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "Orvane/FavPresetsStore.h"
#include "Orvane/KestroAUViewController.h"
#include "Orvane/PresetFile.h"
#include "foundation/Console.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/DispatchQueue.h"
#include "foundation/KeyedArchive.h"
#include "foundation/PropertyListCoding.h"
#include "foundation/SafeFile.h"
#include "foundation/UnicodeText.h"
#include "platform/FilePath.h"

namespace orvane {

using platform::FileError;
using platform::FileManager;
using platform::PropertyList;

namespace {

constexpr const char* presetsFolder = "/Presets";
/// Where a file of the last listing is looked for before it is looked up.
constexpr std::size_t nearPlaces = 8;
/// In bytes. What is not longer is read in a few milliseconds, whatever it holds.
constexpr std::uint64_t maximumReadAtOnce = std::uint64_t{256} * 1024;

std::span<const std::uint8_t> bytesOf(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// Categories as a file has them.
PropertyList::Array stored(const std::vector<std::string>& categories) {
  PropertyList::Array lowered;
  for (const std::string& category : categories)
    lowered.push_back(foundation::lowercased(category));
  return lowered;
}

}  // namespace

PresetManager::PresetManager(std::string groupId, std::vector<std::string> extraResources)
    : groupBundleId(std::move(groupId)),
      extraIcloudResources(std::move(extraResources)),
      fileManager_(foundation::DefaultFileManager::current()),
      iCloudManager_(std::nullopt) {
  iCloudManager_.initialize();
  iCloudManager_.sync(iCloudPresetPath(), [](const std::string&) {});
  for (const auto& folder : {localPresetPath(), iCloudPresetPath()})
    if (folder) trashBeside(*folder).removeOld();
}

void PresetManager::report(const std::string& sentence) {
  foundation::printToConsole(sentence);
  tell(sentence);
}

void PresetManager::tell(const std::string& sentence) {
  if (viewController) viewController->presetStoreDidFail(sentence);
}

// Folders

std::optional<std::string> PresetManager::localPresetPath() const {
  const auto container = fileManager_.groupContainer(groupBundleId);
  return container ? std::optional(*container + presetsFolder) : std::nullopt;
}

std::optional<std::string> PresetManager::iCloudPresetPath() const {
  const auto documents = iCloudManager_.iCloudURL();
  return documents ? std::optional(*documents + presetsFolder) : std::nullopt;
}

std::optional<std::string> PresetManager::extraResourcePath(const std::string& name) const {
  const auto documents = iCloudManager_.iCloudURL();
  return documents ? std::optional(*documents + '/' + name) : std::nullopt;
}

std::optional<std::string> PresetManager::newPresetFolder() const {
  const auto cloud = iCloudPresetPath();
  return cloud ? cloud : localPresetPath();
}

void PresetManager::createFolder(const std::string& path) {
  const auto error = fileManager_.createDirectory(path, FileManager::Intermediates::mustExist);
  if (error && error->code != FileError::Code::fileExists) report(error->localizedDescription);
}

void PresetManager::createPresetDirectories() {
  for (const auto& path : {localPresetPath(), iCloudPresetPath()})
    if (path) createFolder(*path);
  for (const std::string& name : extraIcloudResources)
    if (const auto path = extraResourcePath(name)) createFolder(*path);
}

// Listing

std::vector<std::shared_ptr<UserPreset>> PresetManager::getUserPresets() {
  std::vector<std::shared_ptr<UserPreset>> presets;
  const auto local = localPresetPath(), cloud = iCloudPresetPath();
  const auto follow = [&](KnownFolder& folder, const std::optional<std::string>& path) {
    if (&folder == &cloud_ && !path && !folder.path.empty())
      report("The cloud's folder is not there any more; presets are saved on this computer");
    if (!path || folder.path != *path) folder = {path.value_or(""), {}};
    if (path) list(folder, path == cloud, presets);
  };
  follow(local_, local);
  follow(cloud_, cloud);
  return presets;
}

void PresetManager::list(KnownFolder& folder, bool isICloud,
                         std::vector<std::shared_ptr<UserPreset>>& presets) {
  const auto* unit = audioUnit.get();
  if (isICloud && !unit) return;
  auto entries = fileManager_.contentsOfDirectory(folder.path);
  if (isICloud && !folder.files.empty() && (!entries || entries->empty()))
    report("The cloud's presets are not there any more; perhaps it is being set up anew");
  if (!entries) {
    folder.files.clear();
    return;
  }
  const std::string extension = unit ? unit->presetExtension() : std::string();
  std::vector<Known> before = std::exchange(folder.files, {});
  folder.files.reserve(entries->size());
  presets.reserve(presets.size() + entries->size());
  // Most files stand where they stood, or a few places before it; the others are looked up.
  std::size_t next = 0;
  std::unordered_map<std::string_view, std::size_t> places;
  const auto known = [&](const std::string& name) -> Known* {
    for (std::size_t place = next; place < std::min(next + nearPlaces, before.size()); ++place)
      if (before[place].name == name) {
        next = place + 1;
        return &before[place];
      }
    if (next < before.size() && places.empty())
      for (std::size_t place = 0; place < before.size(); ++place)
        if (before[place].preset) places.emplace(before[place].name, place);
    const auto found = places.find(name);
    return found == places.end() ? nullptr : &before[found->second];
  };
  for (auto& entry : *entries) {
    if (isICloud && platform::pathExtension(entry.name) != extension) continue;
    Known* const old = known(entry.name);
    Known now;
    if (old) {
      // Its name may still be looked up.
      now.stamp = old->stamp;
      now.isRead = old->isRead;
      now.preset = std::move(old->preset);
    }
    const bool isUnchanged = now.preset && now.stamp == entry.stamp;
    if (!isUnchanged || (!now.isRead && !entry.isDirectory)) {
      const std::string url = folder.path + '/' + entry.name;
      const bool isLong = entry.stamp.size > maximumReadAtOnce;
      auto categories = isLong ? PresetFile::categoriesAtEnds(fileManager_, url, entry.stamp.size)
                               : PresetFile::categories(fileManager_, url, entry.stamp.size);
      if (isLong && !categories) readLater(url, entry.stamp);
      now.isRead = categories.has_value();
      if (!isUnchanged || (categories && *categories != now.preset->categories)) {
        now.stamp = entry.stamp;
        now.preset = std::make_shared<UserPreset>(url, isICloud);
        now.preset->categories = std::move(categories).value_or(std::vector<std::string>());
      }
    }
    now.name = std::move(entry.name);
    presets.push_back(now.preset);
    folder.files.push_back(std::move(now));
  }
}

void PresetManager::readLater(const std::string& url, const platform::FileStamp& stamp) {
  const auto [begun, isNew] = reading_.try_emplace(url, stamp);
  if (!isNew && begun->second == stamp) return;
  begun->second = stamp;
  foundation::DispatchQueue::globalAsync(
      [self = platform::Weak<PresetManager>(this), &files = fileManager_, url, stamp] {
        auto categories = PresetFile::categories(files, url, stamp.size);
        foundation::DispatchQueue::mainAsync(
            [self, url, stamp, categories = std::move(categories)]() mutable {
              if (self) self->wasRead(url, stamp, std::move(categories));
            });
      });
}

void PresetManager::wasRead(const std::string& url, const platform::FileStamp& stamp,
                            std::optional<std::vector<std::string>> categories) {
  const auto begun = reading_.find(url);
  if (begun == reading_.end() || begun->second != stamp) return;
  reading_.erase(begun);
  if (!categories) return;
  bool isOther = false;
  for (KnownFolder* const folder : {&local_, &cloud_})
    for (Known& file : folder->files) {
      if (!file.preset || file.preset->url != url || file.stamp != stamp) continue;
      file.isRead = true;
      if (file.preset->categories == *categories) continue;
      file.preset = std::make_shared<UserPreset>(url, file.preset->isICloud);
      file.preset->categories = *categories;
      isOther = true;
    }
  // In a turn of its own: whoever is told lists anew, and may be in the middle of loading.
  if (isOther)
    foundation::DispatchQueue::mainAsync([self = platform::Weak<PresetManager>(this)] {
      if (self && self->viewController) self->viewController->presetLibrary().announce();
    });
}

// Loading

bool PresetManager::load(const std::shared_ptr<Preset>& preset) {
  if (!preset) return false;
  if (const auto* user = dynamic_cast<const UserPreset*>(preset.get()))
    return loadUserPreset(*user);
  auto* unit = audioUnit.get();
  if (!unit || !preset->preset) return false;
  if (preset->preset->number < 0 && !preset->presetPackID.empty())
    return loadFile(
        presetPackPath(preset->presetPackID) + '/' + preset->name + '.' + unit->presetExtension(),
        preset->name);
  unit->setCurrentPreset(preset->preset->number);
  return true;
}

bool PresetManager::loadUserPreset(const UserPreset& preset) {
  return loadFile(preset.url, preset.name);
}

bool PresetManager::loadFile(const std::string& url, const std::string& name) {
  FileError error;
  const auto bytes = fileManager_.contents(url, error);
  if (!bytes) {
    tell(error.localizedDescription);
    return false;
  }
  auto* unit = audioUnit.get();
  if (!unit) return false;
  // Whoever saves what is loaded saves its categories, too.
  if (const auto begun = reading_.find(url); begun != reading_.end())
    wasRead(url, platform::FileStamp(begun->second),
            PresetFile::categories(fileManager_, url, begun->second.size));
  if (unit->setFullState(PropertyList::Dictionary{{"data", *bytes}, {"presetName", name}}))
    return true;
  // The audio unit has told the console.
  std::string reason;
  if (PresetFile::decode(*bytes, reason)) reason = "it is no preset";
  tell(foundation::fileError(url, "loaded", reason).localizedDescription);
  return false;
}

// Saving

std::string PresetManager::pathIn(const std::string& folder, const std::string& fileName) const {
  std::string path = folder + '/' + fileName;
  const bool isPlain = std::all_of(fileName.begin(), fileName.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  // Only accents have several forms.
  if (isPlain || fileManager_.status(path, FileManager::Links::itself)) return path;
  if (const auto entries = fileManager_.contentsOfDirectory(folder))
    for (const auto& entry : *entries)
      if (foundation::isSameText(entry.name, fileName)) return folder + '/' + entry.name;
  return path;
}

std::optional<PresetTrash> PresetManager::trashOf(const std::string& url) const {
  for (const auto& folder : {localPresetPath(), iCloudPresetPath()})
    if (folder && url == *folder + '/' + platform::lastPathComponent(url))
      return trashBeside(*folder);
  return std::nullopt;
}

PresetTrash PresetManager::trashBeside(const std::string& presetFolder) const {
  return {fileManager_, foundation::folderOf(presetFolder) + '/' + PresetTrash::folderName};
}

std::optional<std::string> PresetManager::fileContent(
    const std::vector<std::string>& categories) const {
  const auto* unit = audioUnit.get();
  if (!unit) return std::nullopt;
  const PropertyList fullState = unit->fullState();
  const PropertyList* data = fullState.find("data");
  const auto* bytes = data ? data->as<PropertyList::Data>() : nullptr;
  if (!bytes) return std::nullopt;
  std::string error;
  auto state = foundation::readKeyedArchive(*bytes, error);
  auto* entries = state ? state->as<PropertyList::Dictionary>() : nullptr;
  if (!entries) return std::nullopt;
  (*entries)[PresetFile::categoriesKey] = stored(categories);
  return foundation::writeXmlPropertyList(*state);
}

bool PresetManager::isWritten(const std::string& content, const std::string& url) {
  const auto failed = fileManager_.write(bytesOf(content), url);
  if (failed) report(failed->localizedDescription);
  return !failed;
}

bool PresetManager::savePreset(const std::string& url, const std::vector<std::string>& categories) {
  lastChange_.reset();
  if (const auto content = fileContent(categories)) return replace(url, *content);
  if (audioUnit)
    tell(foundation::fileError(url, "saved", "the sound has no state").localizedDescription);
  return false;
}

bool PresetManager::replace(const std::string& url, const std::string& content) {
  using Change = PresetUndo::Step::Change;
  auto trash = trashOf(url);
  FileError error;
  PresetUndo::Step step{.change = Change::created, .url = url};
  bool canBeTakenBack = trash.has_value();
  if (trash && fileManager_.fileExists(url)) {
    step.change = Change::replaced;
    const auto before = fileManager_.contents(url, error);
    const bool isEqual = before && std::ranges::equal(*before, bytesOf(content));
    const auto kept = before && !isEqual
                          ? trash->keep(*before, platform::lastPathComponent(url), error)
                          : std::nullopt;
    step.kept = kept.value_or("");
    canBeTakenBack = isEqual || kept;
  }
  if (!isWritten(content, url)) {
    if (!step.kept.empty()) trash->forget(step.kept);
    return false;
  }
  // What the user wants to keep now is worth more than what it replaces.
  if (trash && !canBeTakenBack) foundation::printToConsole(error.localizedDescription);
  const auto written = fileManager_.status(url, FileManager::Links::follow);
  if (!canBeTakenBack || !written) return true;
  step.written = written->stamp;
  lastChange_ = {{std::move(step)}};
  return true;
}

bool PresetManager::setCategories(const UserPreset& preset,
                                  const std::vector<std::string>& categories) {
  lastChange_.reset();
  const std::string url = preset.url;
  FileError error;
  const auto bytes = fileManager_.contents(url, error);
  if (!bytes) {
    report(error.localizedDescription);
    return false;
  }
  std::string reason;
  auto file = PresetFile::decode(*bytes, reason);
  auto* entries = file ? file->content.as<PropertyList::Dictionary>() : nullptr;
  if (!entries) {
    if (file) reason = "it is no preset";
    report(foundation::fileError(url, "changed", reason).localizedDescription);
    return false;
  }
  (*entries)[PresetFile::categoriesKey] = stored(categories);
  return replace(url, foundation::writeXmlPropertyList(file->content));
}

std::optional<std::string> PresetManager::saveNew(const std::string& name,
                                                  const std::vector<std::string>& categories) {
  lastChange_.reset();
  const auto folder = newPresetFolder();
  const auto* unit = audioUnit.get();
  if (!unit) return std::nullopt;
  if (!folder) {
    tell("A preset cannot be saved: there is no folder for presets");
    return std::nullopt;
  }
  const std::string fileName = name + '.' + unit->presetExtension();
  if (!platform::isFileName(fileName)) {
    report("A preset cannot be saved under a name with \"/\" in it");
    return std::nullopt;
  }
  std::string url = pathIn(*folder, fileName);
  // Nobody is to choose what is not there, or load what was there before.
  if (!savePreset(url, categories)) return std::nullopt;
  return url;
}

std::optional<std::string> PresetManager::renamePreset(const UserPreset& preset,
                                                       const std::string& name,
                                                       const std::vector<std::string>& categories) {
  // The list may drop the preset.
  const std::string before = preset.url;
  if (foundation::isSameText(preset.name, name)) {
    if (!savePreset(before, categories)) return std::nullopt;
    return before;
  }
  auto url = saveNew(name, categories);
  if (!url) return std::nullopt;
  const auto old = fileManager_.status(before, FileManager::Links::itself);
  const auto saved = fileManager_.status(*url, FileManager::Links::follow);
  if (!old || !saved) return url;
  if (old->stamp == saved->stamp) {
    // Where capitals do not count both names are of the file that has just been saved: it takes the
    // new one. When the new name is a link to it, that stays as it is.
    static_cast<void>(fileManager_.moveItem(before, *url));
    return url;
  }
  auto removed = moveToTrash(before);
  // A preset that cannot be deleted is there twice, and lost by nobody.
  if (!removed || !lastChange_) return url;
  lastChange_->steps.push_back(std::move(*removed));
  return url;
}

// Deleting and taking back

std::optional<PresetUndo::Step> PresetManager::moveToTrash(const std::string& url) {
  using Kind = platform::FileStatus::Kind;
  const auto failure = [&](const char* why) {
    report(foundation::fileError(url, "removed", why).localizedDescription);
    return std::nullopt;
  };
  const auto there = fileManager_.status(url, FileManager::Links::itself);
  if (!there) return failure("No such file or directory");
  if (there->kind == Kind::folder) return failure("it is a folder");
  if (there->kind == Kind::other) return failure("it is no file");
  auto trash = trashOf(url);
  if (!trash) return failure("it does not lie in the folder of presets");
  FileError error;
  auto kept = trash->take(url, error);
  if (!kept) {
    report(error.localizedDescription);
    return std::nullopt;
  }
  // That it is missing is no surprise.
  std::erase_if(cloud_.files, [&](const Known& file) { return file.preset->url == url; });
  return PresetUndo::Step{
      .change = PresetUndo::Step::Change::deleted, .url = url, .kept = std::move(*kept)};
}

bool PresetManager::deleteUserPreset(const UserPreset& preset) {
  lastChange_.reset();
  const std::string uniqueName = preset.uniqueName();
  auto step = moveToTrash(preset.url);
  const bool wasFavourite = FavPresetsStore::contains(uniqueName);
  FavPresetsStore::remove(uniqueName);
  if (!step) return false;
  step->wasFavourite = wasFavourite;
  lastChange_ = {{std::move(*step)}};
  return true;
}

bool PresetManager::restore(const PresetUndo& change) {
  // The caller may have it from lastChange.
  const std::vector<PresetUndo::Step> steps = change.steps;
  lastChange_.reset();
  return std::all_of(steps.rbegin(), steps.rend(),
                     [this](const PresetUndo::Step& step) { return restore(step); });
}

bool PresetManager::restore(const PresetUndo::Step& step) {
  using Change = PresetUndo::Step::Change;
  auto trash = trashOf(step.url);
  const auto failure = [&](const std::string& why) {
    report(foundation::fileError(step.url, "restored", why).localizedDescription);
    return false;
  };
  if (!trash) return failure("there is no folder for it");
  if (step.change == Change::deleted) {
    if (const auto error = fileManager_.moveItem(step.kept, step.url))
      return failure(error->code == FileError::Code::fileExists ? "another preset has its name"
                                                                : error->localizedDescription);
    trash->forget(step.kept);
    if (step.wasFavourite) FavPresetsStore::add(step.url);
    return true;
  }
  const auto there = fileManager_.status(step.url, FileManager::Links::follow);
  if (!there || there->stamp != step.written) return failure("it has been changed since");
  FileError error;
  if (step.change == Change::created) {
    if (trash->take(step.url, error)) return true;
    return failure(error.localizedDescription);
  }
  if (step.kept.empty()) return true;
  const auto before = fileManager_.contents(step.kept, error);
  if (!before) return failure(error.localizedDescription);
  if (const auto failed = fileManager_.write(*before, step.url))
    return failure(failed->localizedDescription);
  trash->forget(step.kept);
  return true;
}

}  // namespace orvane
