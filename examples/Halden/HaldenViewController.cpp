#include "examples/Halden/HaldenViewController.h"

#include "Orvane/AUFilterViewContainer.h"
#include "examples/Halden/HaldenAudioUnit.h"
#include "examples/Halden/HaldenDesign.h"
#include "examples/Halden/HaldenLogo.h"

namespace halden {
namespace {

struct SyncedTime {
  const char* sync;
  const char* free;
  const char* synced;
};

constexpr SyncedTime syncedTimes[] = {{"lfo1Sync", "lfo1Rate", "lfo1Division"},
                                      {"lfo2Sync", "lfo2Rate", "lfo2Beats"},
                                      {"delaySync", "delayTime", "delayDivision"}};

}  // namespace

HaldenViewController::HaldenViewController() {
  presetViewUseFilters = true;
  allowImportAndExport = true;
  menuBar().setDisplays({"Scope", "FFT", "Level"});
  monitor_->sampleRate = [this] {
    const auto* unit = dynamic_cast<const HaldenAudioUnit*>(audioUnit());
    return unit ? unit->displayedSampleRate() : 44100;
  };
}

std::shared_ptr<orvane::AUDesign> HaldenViewController::design() {
  return std::make_shared<HaldenDesign>(monitor_);
}

platform::Image HaldenViewController::appLogo() { return logo(); }

std::vector<std::shared_ptr<kestroui::ParamKey>> HaldenViewController::foot_stack() {
  return HaldenDesign::foot();
}

bool HaldenViewController::isControlShown(const kestroui::ParamKey& key) {
  for (const SyncedTime& time : syncedTimes) {
    const bool isFree = key.key() == time.free;
    if (!isFree && key.key() != time.synced) continue;
    const platform::AUParameter* sync = parameters()[time.sync];
    return sync && (sync->value() >= 0.5f) != isFree;
  }
  return true;
}

void HaldenViewController::updateParameter(platform::AUParameterAddress address) {
  KestroAUViewController::updateParameter(address);
  const auto key = parameterKeyMap().find(address);
  if (key == parameterKeyMap().end()) return;
  for (const SyncedTime& time : syncedTimes) {
    if (key->second == time.sync) updateVisibility();
  }
  // The response depends on a choice that is no part of the filter view.
  if (key->second != "filterType") return;
  const auto view = std::dynamic_pointer_cast<orvane::AUFilterViewContainer>(container("cutoff"));
  if (view) view->updateViewData();
}

void HaldenViewController::displayChanged(int index) {
  monitor_->setMode(static_cast<MonitorMode>(index));
}

}  // namespace halden
