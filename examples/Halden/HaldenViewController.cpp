#include "examples/Halden/HaldenViewController.h"

#include "examples/Halden/HaldenAudioUnit.h"
#include "examples/Halden/HaldenDesign.h"

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
}

std::shared_ptr<orvane::AUDesign> HaldenViewController::design() {
  return std::make_shared<HaldenDesign>();
}

std::unique_ptr<platform::AudioUnit> HaldenViewController::createAudioUnit(
    const platform::AudioComponentDescription&) {
  return std::make_unique<HaldenAudioUnit>();
}

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
}

}  // namespace halden
