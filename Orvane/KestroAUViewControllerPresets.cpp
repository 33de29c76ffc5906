// The presets of the editor: the store, the favourites, and what the user does with them.

#include <utility>

#include "Orvane/FavPresetsStore.h"
#include "Orvane/KestroAUViewController.h"
#include "platform/DispatchQueue.h"

namespace orvane {

void KestroAUViewController::instantiatePresetManager() {
  setPresetManager(std::make_unique<PresetManager>(groupBundleId(), extraIcloudResources()));
}

void KestroAUViewController::setPresetManager(std::unique_ptr<PresetManager> manager) {
  presetManager_ = std::move(manager);
  if (!presetManager_) return;
  presetManager_->audioUnit = audioUnit_;
  presetManager_->productCode = productId();
}

void KestroAUViewController::loadPresetStorage() {
  FavPresetsStore::suiteName = groupBundleId();
  FavPresetsStore::load();
  instantiatePresetManager();
  if (presetManager_) presetManager_->viewController = this;
}

void KestroAUViewController::followAudioUnitWithPresets() {
  if (!presetManager_ || !audioUnit_) return;
  platform::DispatchQueue::mainAsync([self = platform::Weak<KestroAUViewController>(this)] {
    if (!self || !self->presetManager_ || !self->audioUnit_) return;
    self->presetManager_->audioUnit = self->audioUnit_;
    self->rebuildPresetList();
  });
}

void KestroAUViewController::rebuildPresetList() {
  if (auto* unit = audioUnit()) unit->rebuildPresetList();
}

void KestroAUViewController::load(const std::shared_ptr<Preset>& preset) {
  preLoadAction();
  if (!preset) return;
  if (const auto* user = dynamic_cast<const UserPreset*>(preset.get())) {
    if (presetManager_) presetManager_->loadUserPreset(*user);
  } else if (auto* unit = audioUnit(); unit && preset->preset) {
    unit->setCurrentPreset(preset->preset->number);
  }
}

void KestroAUViewController::presetSelected(const std::shared_ptr<Preset>& preset) {
  selectedPreset_ = preset;
  load(preset);
  followPresetName();
}

void KestroAUViewController::presetWasImported(const std::shared_ptr<UserPreset>& preset) {
  presetSelected(preset);
  isLoadingUserPreset = true;
}

std::optional<std::string> KestroAUViewController::saveNewPreset(
    const std::string& name, const std::vector<std::string>& presetCategories) {
  preSaveAction();
  return presetManager_ ? presetManager_->saveNew(name, presetCategories) : std::nullopt;
}

void KestroAUViewController::savePreset(const UserPreset& preset) {
  if (presetManager_) presetManager_->savePreset(preset.url, preset.categories);
  if (const auto* unit = audioUnit()) setPresetName(unit->currentPresetName());
}

void KestroAUViewController::deletePreset(const UserPreset& preset) {
  if (presetManager_) presetManager_->deleteUserPreset(preset);
}

void KestroAUViewController::importPreset() {
  if (presetManager_) presetManager_->importPreset();
}

void KestroAUViewController::importPresetFile(const std::string& url) {
  if (presetManager_) presetManager_->importPresetFile(url);
}

void KestroAUViewController::documentPickerDidPick(const std::vector<std::string>& paths) {
  if (!paths.empty()) importPresetFile(paths.front());
}

void KestroAUViewController::exportPreset() {
  if (presetManager_) presetManager_->exportPreset(selectedPreset_);
}

void KestroAUViewController::exportAll() {
  if (presetManager_) presetManager_->exportAll();
}

}  // namespace orvane
