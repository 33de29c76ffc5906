// The part of the container that learns MIDI messages.

#include <utility>

#include "KestroUI/Container.h"
#include "KestroUI/MidiMapBadge.h"

namespace kestroui {

using toolkit::ControlEvent;

void Container::setMappable(bool mappable) {
  if (mappable == mappable_) return;
  mappable_ = mappable;
  updateMidiMappingVisibility();
}

void Container::setMidiMappingEnabled(bool enabled) {
  if (enabled == midiMappingEnabled_) return;
  midiMappingEnabled_ = enabled;
  updateMidiMappingVisibility();
}

void Container::setMidiMapSelected(bool selected) {
  midiMapSelected_ = selected;
  if (badge_) badge_->setSelected(selected);
}

void Container::setMidiMapMessage(std::optional<MidiMessage> message) {
  midiMapMessage_ = std::move(message);
  if (badge_) badge_->setMessage(midiMapMessage_);
}

void Container::updateMidiMappingVisibility() {
  const bool shown = midiMappingEnabled_ && mappable_;
  if (!badge_) {
    if (!shown) return;
    badge_ = std::make_unique<MidiMapBadge>();
    badge_->setMessage(midiMapMessage_);
    badge_->setSelected(midiMapSelected_);
    badge_->addTarget<&Container::handleSelected>(*this, ControlEvent::touchDown);
    badge_->deleteButton().addTarget<&Container::wantsToDeleteMap>(*this,
                                                                   ControlEvent::touchUpInside);
  }
  if (shown) {
    // On top, also of what was added since.
    addSubview(*badge_);
    placeBadge();
  }
  badge_->setHidden(!shown);
}

void Container::placeBadge() {
  badge_->setFrame(bounds());
  badge_->setFace(controlFrame());
  badge_->setTextScale(textScale_);
}

void Container::handleSelected(toolkit::Control&) {
  if (auto* alive = delegate.get()) alive->didSelectMidiMap(key(), this);
}

void Container::wantsToDeleteMap(toolkit::Control&) {
  if (auto* alive = delegate.get()) alive->wantToDeleteMidiMap(key());
}

}  // namespace kestroui
