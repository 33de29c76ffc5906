// The part of the controller that learns MIDI messages.

#include <string>
#include <utility>

#include "KestroUI/MultipleContainer.h"
#include "Orvane/ControlBuilder.h"
#include "Orvane/KestroAUViewController.h"
#include "Orvane/MidiScale.h"
#include "foundation/Console.h"

namespace orvane {

using kestroui::Container;
using kestroui::MultipleContainer;
using Key = std::shared_ptr<kestroui::ParamKey>;

namespace {

/// A design may show a parameter in several places; calls `visit` with each container and the place
/// of the key among its keys.
template <class Visit>
void visitPlaces(const ControlCollection& controls, const std::string& key, const Visit& visit) {
  for (const auto& [own, container] : controls.controls()) {
    const auto& keys = container->paramKeys();
    for (std::size_t i = 0; i < keys.size(); ++i)
      if (keys[i]->key() == key) visit(*container, i);
  }
}

}  // namespace

void KestroAUViewController::setMidiMappingEnabled(bool enabled) {
  if (enabled == midiMappingEnabled_) return;
  midiMappingEnabled_ = enabled;
  // Nothing waits any more; who waited last is still told by lastMidiMapKey.
  if (!enabled && lastMidiMapKey_) markMidiMap(*lastMidiMapKey_, false);
  for (const auto& [key, container] : controls_->controls())
    container->setMidiMappingEnabled(enabled);
  if (auto* host = hostDelegate.get()) host->midiMappingDidChange();
}

void KestroAUViewController::markMidiMap(const kestroui::ParamKey& key, bool selected) {
  visitPlaces(*controls_, key.key(), [selected](Container& container, std::size_t index) {
    container.setMidiMapSelected(index, selected);
  });
}

void KestroAUViewController::setMap(const std::optional<MidiMessage>& map, const Key& key) {
  if (!key) return;
  if (map)
    midiMap_[key] = *map;
  else
    midiMap_.erase(key);
  visitPlaces(*controls_, key->key(), [&](Container& container, std::size_t index) {
    container.setMidiMapMessage(index, map);
  });
}

void KestroAUViewController::update(const MidiMap& map) {
  // A copy: it may be the one that is kept.
  for (const auto& [key, message] : MidiMap(map)) setMap(message, key);
}

void KestroAUViewController::removeAllMap() {
  midiMap_.clear();
  for (const auto& [key, container] : controls_->controls())
    for (std::size_t i = 0; i < container->paramKeys().size(); ++i)
      container->setMidiMapMessage(i, std::nullopt);
}

void KestroAUViewController::setMidiValue(std::uint8_t midiValue, const Key& key) {
  auto* unit = audioUnit();
  if (!unit || !key) return;
  std::string name = key->key();
  visitPlaces(*controls_, key->key(), [&](const Container& container, std::size_t) {
    name = ControlBuilder::parameterKey(container, key->key());
  });
  const platform::AUParameter* registered = parameters_[name];
  auto* parameter =
      registered ? unit->parameterTree().parameterWithAddress(registered->address()) : nullptr;
  if (parameter) parameter->setValue(midiParameterValue(*parameter, midiValue));
}

void KestroAUViewController::didSelectMidiMap(const Key& key, Container* container) {
  if (!key) return;
  if (auto* before = lastMidiMapppedContainer_.get()) before->setMidiMapSelected(false);
  if (lastMidiMapKey_) markMidiMap(*lastMidiMapKey_, false);
  lastMidiMapKey_ = key;
  lastMidiMapppedContainer_ = container;
  // The bare number is a diagnostic line that the family's programs print.
  if (auto* several = dynamic_cast<MultipleContainer*>(container))
    foundation::printToConsole(std::to_string(several->subContainers().size()));
  markMidiMap(*key, true);
  if (auto* host = hostDelegate.get()) host->didSelectMidiMap(key);
}

void KestroAUViewController::wantToDeleteMidiMap(const Key& key) {
  auto* host = hostDelegate.get();
  if (host && key) host->deleteMidiMap(key);
}

}  // namespace orvane
