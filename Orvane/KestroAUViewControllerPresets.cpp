// The presets of the editor: the store, the favourites, and what the user does with them.

#include <utility>

#include "Orvane/FavPresetsStore.h"
#include "Orvane/KestroAUViewController.h"
#include "Orvane/PresetManager.h"
#include "foundation/DispatchQueue.h"

namespace orvane {

void KestroAUViewController::instantiatePresetManager() {
  setPresetManager(std::make_unique<PresetManager>(groupBundleId(), extraIcloudResources()));
}

void KestroAUViewController::setPresetManager(std::unique_ptr<PresetManager> manager) {
  // The list lets go of the old one before that dies.
  presetLibrary_.setStore(manager.get());
  presetManager_ = std::move(manager);
  if (!presetManager_) return;
  presetManager_->audioUnit = audioUnit_;
  presetManager_->productCode = productId();
  presetManager_->viewController = this;
}

void KestroAUViewController::loadPresetStorage() {
  FavPresetsStore::suiteName = groupBundleId();
  FavPresetsStore::load();
  instantiatePresetManager();
  setUpOverlays();
}

void KestroAUViewController::followAudioUnitWithPresets() {
  if (!presetManager_ || !audioUnit_) return;
  presetManager_->audioUnit = audioUnit_;
  foundation::DispatchQueue::mainAsync([self = platform::Weak<KestroAUViewController>(this)] {
    if (!self || !self->presetManager_ || !self->audioUnit_) return;
    self->rebuildPresetList();
  });
}

void KestroAUViewController::setUpOverlays() {
  overlaysView_.setPresetViewUseFilters(presetViewUseFilters);
  overlaysView_.setAllowImportAndExport(allowImportAndExport);
  PresetViewOverlay& browser = overlaysView_.presetViewOverlay();
  browser.categories = categories();
  browser.delegate = {this, *this};
  const MakerAddresses known = addresses();
  AboutOverlay& about = overlaysView_.aboutViewOverlay();
  about.viewController = this;
  about.overlayDelegate = {this, *this};
  about.delegate = {this, *this};
  about.setAppLogo(menuBar_.appLogo());
  about.setAddresses(known);
  menuBar_.helpHost = known.helpHost;
}

void KestroAUViewController::rebuildPresetList() {
  auto* unit = audioUnit();
  if (unit) unit->rebuildPresetList();
  overlaysView_.initPresetList(unit, isLoadingUserPreset);
}

void KestroAUViewController::presetLibraryDidChange(Change) {
  menuBar_.setCanStepPresets(presetLibrary_.walk().size() > 1);
  // An editor that neither brings presets nor keeps any has nothing to browse.
  menuBar_.presetNameLabel().setHidden(groupBundleId().empty() && presetLibrary_.all().empty());
}

const std::shared_ptr<Preset>& KestroAUViewController::selectedPreset() {
  return presetLibrary_.selected();
}

std::string KestroAUViewController::currentPresetName() {
  return selectedPreset() ? selectedPreset()->name : std::string();
}

std::vector<std::string> KestroAUViewController::currentPresetCatgories() {
  return selectedPreset() ? selectedPreset()->categories : std::vector<std::string>();
}

void KestroAUViewController::load(const std::shared_ptr<Preset>& preset) {
  preLoadAction();
  if (presetManager_) {
    presetManager_->load(preset);
    return;
  }
  // Factory presets are the audio unit's own; they need no store.
  if (auto* unit = audioUnit(); unit && preset && preset->preset)
    unit->setCurrentPreset(preset->preset->number);
}

void KestroAUViewController::presetSelected(const std::shared_ptr<Preset>& preset) {
  load(preset);
  followPresetName();
  const auto* unit = audioUnit();
  if (!unit || !preset || !preset->isUserPreset) return;
  // A file that is gone, or is no preset, has left the sound as it was: then the list says so.
  const std::string name = unit->currentPresetName();
  if (name.empty() || name == preset->name) return;
  const std::shared_ptr<Preset> before = presetLibrary_.selectedBefore();
  presetLibrary_.announce();
  presetLibrary_.select(before ? presetLibrary_.find(*before) : nullptr);
}

void KestroAUViewController::selectPreset(const std::shared_ptr<Preset>& preset) {
  presetLibrary_.select(preset);
  overlaysView_.presetViewOverlay().presetListDidSelect(presetLibrary_.selected());
}

void KestroAUViewController::presetStoreDidFail(const std::string& /*sentence*/) {}

void KestroAUViewController::presetWasImported(const std::shared_ptr<UserPreset>& preset) {
  if (!overlaysView_.isInit()) isLoadingUserPreset = true;
  presetLibrary_.announce();
  selectPreset(preset);
}

std::optional<std::string> KestroAUViewController::saveNewPreset(
    const std::string& name, const std::vector<std::string>& presetCategories) {
  preSaveAction();
  auto url = presetManager_ ? presetManager_->saveNew(name, presetCategories) : std::nullopt;
  presetLibrary_.announce();
  return url;
}

void KestroAUViewController::savePreset(const UserPreset& preset) {
  if (presetManager_) presetManager_->savePreset(preset.url, preset.categories);
  if (const auto* unit = audioUnit()) setPresetName(unit->currentPresetName());
  presetLibrary_.announce();
}

void KestroAUViewController::deletePreset(const UserPreset& preset) {
  if (presetManager_) presetManager_->deleteUserPreset(preset);
  presetLibrary_.announce();
}

void KestroAUViewController::importPreset() {
  if (presetManager_) presetManager_->importPreset();
}

void KestroAUViewController::importPresetFile(const std::string& url) {
  if (presetManager_) presetManager_->importPresetFile(url);
}

void KestroAUViewController::documentPickerDidPick(const std::vector<std::string>& paths) {
  documentPickerAction(paths);
}

void KestroAUViewController::documentPickerAction(const std::vector<std::string>& urls) {
  if (!urls.empty()) importPresetFile(urls.front());
}

void KestroAUViewController::exportPreset() {
  if (presetManager_) presetManager_->exportPreset(selectedPreset());
}

void KestroAUViewController::exportAll() {
  if (presetManager_) presetManager_->exportAll();
}

}  // namespace orvane
