#include "Orvane/PluginEntry.h"

#include "Orvane/KestroAUViewController.h"

namespace orvane {

std::unique_ptr<platform::AudioUnit> PluginEntry::createAudioUnit() const {
  return createViewController()->createAudioUnit(component);
}

std::unique_ptr<KestroAUViewController> PluginEntry::createViewController() const {
  std::unique_ptr<KestroAUViewController> controller = makeViewController();
  controller->makeAudioUnit = makeAudioUnit;
  return controller;
}

}  // namespace orvane
