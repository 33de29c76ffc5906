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

/// A design may show a parameter both by its own control and by a part of others.
template <class Visit>
void visitParts(const ControlCollection& controls, const std::string& key, const Visit& visit) {
  for (const auto& [own, container] : controls.controls())
    if (auto* several = dynamic_cast<MultipleContainer*>(container.get()))
      if (Container* part = several->subContainer(key)) visit(*part);
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
  if (Container* const own = midiMapContainer(key)) own->setMidiMapSelected(selected);
  visitParts(*controls_, key.key(),
             [selected](Container& part) { part.setMidiMapSelected(selected); });
}

Container* KestroAUViewController::midiMapContainer(const kestroui::ParamKey& key) const {
  const auto& known = controls_->allParamKeys();
  if (const auto entry = known.find(key.key()); entry != known.end()) {
    const std::shared_ptr<Container> own = (*controls_)[entry->second];
    auto* several = dynamic_cast<MultipleContainer*>(own.get());
    if (own) return several ? several->subContainer(key.key()) : own.get();
  }
  Container* first = nullptr;
  visitParts(*controls_, key.key(), [&](Container& part) {
    if (!first) first = &part;
  });
  return first;
}

void KestroAUViewController::setMap(const std::optional<MidiMessage>& map, const Key& key) {
  if (!key) return;
  if (map)
    midiMap_[key] = *map;
  else
    midiMap_.erase(key);
  if (Container* const container = midiMapContainer(*key)) container->setMidiMapMessage(map);
  visitParts(*controls_, key->key(), [&](Container& part) { part.setMidiMapMessage(map); });
}

void KestroAUViewController::update(const MidiMap& map) {
  // A copy: it may be the one that is kept.
  for (const auto& [key, message] : MidiMap(map)) setMap(message, key);
}

void KestroAUViewController::removeAllMap() {
  midiMap_.clear();
  for (const auto& [key, container] : controls_->controls()) {
    container->setMidiMapMessage(std::nullopt);
    if (auto* several = dynamic_cast<MultipleContainer*>(container.get()))
      for (const auto& part : several->subContainers()) part->setMidiMapMessage(std::nullopt);
  }
}

void KestroAUViewController::setMidiValue(std::uint8_t midiValue, const Key& key) {
  auto* unit = audioUnit();
  if (!unit || !key) return;
  const auto container = controls_->controls().find(key);
  const std::string& name = container == controls_->controls().end()
                                ? key->key()
                                : ControlBuilder::parameterKey(*container->second, key->key());
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
