#include "Orvane/PresetManager.h"

#include <utility>

#include "Orvane/FavPresetsStore.h"
#include "Orvane/KestroAUViewController.h"
#include "Orvane/PresetFile.h"
#include "foundation/Console.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/KeyedArchive.h"
#include "foundation/PropertyListCoding.h"
#include "foundation/UnicodeText.h"
#include "platform/FilePath.h"

namespace orvane {

using platform::FileError;
using platform::FileManager;
using platform::PropertyList;

namespace {

constexpr const char* presetsFolder = "/Presets";

}  // namespace

PresetManager::PresetManager(std::string groupId, std::vector<std::string> extraResources)
    : groupBundleId(std::move(groupId)),
      extraIcloudResources(std::move(extraResources)),
      fileManager_(foundation::DefaultFileManager::current()),
      iCloudManager_(std::nullopt) {
  iCloudManager_.initialize();
  iCloudManager_.sync(iCloudPresetPath(), [](const std::string&) {});
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
  if (error && error->code != FileError::Code::fileExists)
    foundation::printToConsole(error->localizedDescription);
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
  ++listings_;
  const auto cloudFolder = iCloudPresetPath();
  for (const auto& folder : {localPresetPath(), cloudFolder}) {
    const auto entries = folder ? fileManager_.contentsOfDirectory(*folder) : std::nullopt;
    if (!entries) continue;
    const bool isICloud = folder == cloudFolder;
    const auto* unit = audioUnit.get();
    if (isICloud && !unit) continue;
    const std::string extension = unit ? unit->presetExtension() : std::string();
    presets.reserve(presets.size() + entries->size());
    for (const auto& entry : *entries) {
      if (isICloud && platform::pathExtension(entry.name) != extension) continue;
      std::string url = *folder + '/' + entry.name;
      Known& known = known_[url];
      if (!known.preset || known.stamp != entry.stamp) {
        known.stamp = entry.stamp;
        known.preset = std::make_shared<UserPreset>(url, isICloud);
        known.preset->categories = PresetFile::categories(fileManager_, url, entry.stamp.size);
      }
      known.listing = listings_;
      presets.push_back(known.preset);
    }
  }
  if (known_.size() > presets.size())
    std::erase_if(known_, [this](const auto& each) { return each.second.listing != listings_; });
  return presets;
}

// Loading and saving

void PresetManager::load(const std::shared_ptr<Preset>& preset) {
  if (!preset) return;
  if (const auto* user = dynamic_cast<const UserPreset*>(preset.get()))
    loadUserPreset(*user);
  else if (auto* unit = audioUnit.get(); unit && preset->preset)
    unit->setCurrentPreset(preset->preset->number);
}

void PresetManager::loadUserPreset(const UserPreset& preset) {
  FileError ignored;
  auto bytes = fileManager_.contents(preset.url, ignored);
  auto* unit = audioUnit.get();
  if (!bytes || !unit) return;
  unit->setFullState(
      PropertyList::Dictionary{{"data", std::move(*bytes)}, {"presetName", preset.name}});
}

bool PresetManager::savePreset(const std::string& url, const std::vector<std::string>& categories) {
  const auto* unit = audioUnit.get();
  if (!unit) return false;
  const PropertyList fullState = unit->fullState();
  const PropertyList* data = fullState.find("data");
  const auto* bytes = data ? data->as<PropertyList::Data>() : nullptr;
  if (!bytes) return false;
  std::string error;
  auto state = foundation::readKeyedArchive(*bytes, error);
  auto* entries = state ? state->as<PropertyList::Dictionary>() : nullptr;
  if (!entries) return false;
  PropertyList::Array lowered;
  for (const std::string& category : categories)
    lowered.push_back(foundation::lowercased(category));
  (*entries)[PresetFile::categoriesKey] = std::move(lowered);
  const std::string xml = foundation::writeXmlPropertyList(*state);
  const auto* text = reinterpret_cast<const std::uint8_t*>(xml.data());
  const auto failed = fileManager_.write({text, xml.size()}, url);
  if (failed) foundation::printToConsole(failed->localizedDescription);
  return !failed;
}

std::optional<std::string> PresetManager::saveNew(const std::string& name,
                                                  const std::vector<std::string>& categories) {
  const auto folder = newPresetFolder();
  const auto* unit = audioUnit.get();
  if (!folder || !unit) return std::nullopt;
  const std::string fileName = name + '.' + unit->presetExtension();
  if (!platform::isFileName(fileName)) {
    foundation::printToConsole("A preset cannot be saved under a name with \"/\" in it");
    return std::nullopt;
  }
  std::string url = *folder + '/' + fileName;
  // Nobody is to choose what is not there, or load what was there before.
  if (!savePreset(url, categories)) return std::nullopt;
  return url;
}

void PresetManager::deleteUserPreset(const UserPreset& preset) {
  if (const auto error = fileManager_.removeItem(preset.url))
    foundation::printToConsole(error->localizedDescription);
  FavPresetsStore::remove(preset.uniqueName());
}

}  // namespace orvane
