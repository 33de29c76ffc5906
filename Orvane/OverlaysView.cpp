#include "Orvane/OverlaysView.h"

#include <utility>

#include "Orvane/PresetManager.h"

namespace orvane {

void OverlaysView::didMoveToSuperview() {
  if (!superview()) return;
  addSubview(aboutViewOverlay_);
  addSubview(presetViewOverlay_);
  aboutViewOverlay_.setHidden(true);
  presetViewOverlay_.setHidden(true);
  presetViewOverlay_.addTarget<&OverlaysView::handleTouchDown>(*this,
                                                               toolkit::ControlEvent::touchDown);
}

void OverlaysView::setPresetViewUseFilters(bool use) {
  presetViewOverlay_.useFilterList = use;
  presetViewOverlay_.setNeedsDisplay();
}

void OverlaysView::setAllowImportAndExport(bool allow) {
  presetViewOverlay_.allowImportAndExport = allow;
  presetViewOverlay_.setNeedsDisplay();
}

void OverlaysView::initPresetList(platform::AudioUnit* audioUnit, bool isLoadingUserPreset) {
  std::vector<platform::KestroAUPreset> records;
  if (audioUnit)
    for (const platform::AUAudioUnitPreset& preset : audioUnit->factoryPresets())
      records.emplace_back(preset);
  if (auto* store = library_.store())
    for (auto& record : store->getPackPresets()) records.push_back(std::move(record));
  presetViewOverlay_.setFactoryPresets(std::move(records));
  reloadPresetList();
  if (audioUnit && !isLoadingUserPreset) followCurrentPreset(*audioUnit);
  isInit_ = true;
}

void OverlaysView::reloadPresetList() { presetList().reload(); }

void OverlaysView::followCurrentPreset(const platform::AudioUnit& audioUnit) {
  library_.follow(audioUnit);
}

bool OverlaysView::closeUppermost() {
  if (!aboutViewOverlay_.isHidden()) {
    aboutViewOverlay_.setHidden(true);
    return true;
  }
  if (presetViewOverlay_.isHidden()) return false;
  if (!presetViewOverlay_.closeDialog()) presetViewOverlay_.setHidden(true);
  return true;
}

void OverlaysView::handleTouchDown() { presetViewOverlay_.setHidden(true); }

bool OverlaysView::pointInside(platform::Point point) const {
  const bool isOpen = !presetViewOverlay_.isHidden() || !aboutViewOverlay_.isHidden();
  return isOpen && View::pointInside(point);
}

void OverlaysView::draw(const platform::Rect&) {
  for (View* overlay : std::initializer_list<View*>{&aboutViewOverlay_, &presetViewOverlay_})
    if (!overlay->isHidden()) overlay->setFrame(bounds());
}

void OverlaysView::setNeedsDisplay() {
  View::setNeedsDisplay();
  for (View* overlay : std::initializer_list<View*>{&aboutViewOverlay_, &presetViewOverlay_})
    if (!overlay->isHidden()) overlay->setNeedsDisplay();
}

}  // namespace orvane
