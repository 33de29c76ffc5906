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
  presetLibrary().setStore(manager.get());
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

// What the session reports

void KestroAUViewController::presetSessionDidLoad() {
  if (const auto* unit = audioUnit()) setPresetName(unit->currentPresetName());
}

void KestroAUViewController::presetSessionCanUndo(const std::string& sentence) {
  noticeView_.show(sentence, "UNDO", [this] { presetSession_.undo(); });
}

void KestroAUViewController::presetStoreDidFail(const std::string& sentence) {
  noticeView_.show(sentence);
}

void KestroAUViewController::presetLibraryDidChange(Change) {
  menuBar_.setPresetModified(presetLibrary().isModified());
  menuBar_.setCanStepPresets(presetLibrary().walk().size() > 1);
  // An editor that neither brings presets nor keeps any has nothing to browse.
  menuBar_.setHasPresets(!groupBundleId().empty() || !presetLibrary().all().empty());
}

std::vector<MenuBarDelegate::PresetAction> KestroAUViewController::menuBarPresetActions() {
  std::vector<PresetAction> actions;
  const auto selected = selectedPreset();
  const bool isModified = selected && presetLibrary().isModified();
  const std::string name = selected ? "\u201c" + selected->name + "\u201d" : std::string();
  if (isModified) actions.push_back({"Revert to " + name, [this] { presetSession_.revert(); }});
  if (presetSession_.canUndo())
    actions.push_back({"Undo: " + presetSession_.undoTitle(), [this] { presetSession_.undo(); }});
  const auto user = std::dynamic_pointer_cast<UserPreset>(selected);
  if (isModified && user) actions.push_back({"Save " + name, [this, user] { savePreset(*user); }});
  if (presetManager_ && !groupBundleId().empty())
    actions.push_back({"Save as a new preset", [this] { openSaveNewPanel(); }});
  return actions;
}

void KestroAUViewController::openSaveNewPanel() {
  PresetViewOverlay& browser = overlaysView_.presetViewOverlay();
  if (browser.isHidden()) menuBar_.onPresetButton();
  browser.handleTouchDown(browser.saveNewButton());
}

const std::shared_ptr<Preset>& KestroAUViewController::selectedPreset() {
  return presetLibrary().selected();
}

std::string KestroAUViewController::currentPresetName() {
  return selectedPreset() ? selectedPreset()->name : std::string();
}

std::vector<std::string> KestroAUViewController::currentPresetCatgories() {
  return selectedPreset() ? selectedPreset()->categories : std::vector<std::string>();
}

bool KestroAUViewController::load(const std::shared_ptr<Preset>& preset) {
  return presetSession_.load(preset);
}

void KestroAUViewController::presetSelected(const std::shared_ptr<Preset>& preset) {
  presetSession_.didSelect(preset);
}

void KestroAUViewController::presetAuditioned(const std::shared_ptr<Preset>& preset) {
  presetSession_.audition(preset);
}

bool KestroAUViewController::endAudition(bool keeps) {
  if (!presetSession_.isAuditioning()) return false;
  using Verdict = PresetSession::Verdict;
  presetSession_.endAudition(keeps ? Verdict::keep : Verdict::goBack);
  return true;
}

void KestroAUViewController::selectPreset(const std::shared_ptr<Preset>& preset) {
  presetLibrary().select(preset);
  overlaysView_.presetViewOverlay().presetListDidSelect(presetLibrary().selected());
}

void KestroAUViewController::presetWasImported(const std::shared_ptr<UserPreset>& preset) {
  if (!overlaysView_.isInit()) isLoadingUserPreset = true;
  presetLibrary().announce();
  selectPreset(preset);
}

std::optional<std::string> KestroAUViewController::saveNewPreset(
    const std::string& name, const std::vector<std::string>& presetCategories) {
  return presetSession_.saveNew(name, presetCategories);
}

std::optional<std::string> KestroAUViewController::renamePreset(
    const UserPreset& preset, const std::string& name,
    const std::vector<std::string>& presetCategories) {
  return presetSession_.rename(preset, name, presetCategories);
}

void KestroAUViewController::savePreset(const UserPreset& preset) {
  presetSession_.save(preset, preset.categories);
}

void KestroAUViewController::deletePresets(
    const std::vector<std::shared_ptr<UserPreset>>& presets) {
  presetSession_.remove(presets);
}

void KestroAUViewController::setPresetCategories(const std::vector<PresetCategories>& categories) {
  presetSession_.setCategories(categories);
}

bool KestroAUViewController::undoPresetChange() {
  if (!presetSession_.canUndo()) return false;
  noticeView_.hide();
  presetSession_.undo();
  return true;
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

void KestroAUViewController::exportPresets(
    const std::vector<std::shared_ptr<UserPreset>>& presets) {
  if (presetManager_) presetManager_->exportPresets(presets);
}

void KestroAUViewController::exportAll() {
  if (presetManager_) presetManager_->exportAll();
}

}  // namespace orvane
