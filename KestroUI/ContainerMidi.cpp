// The part of a container that learns MIDI messages.

#include <algorithm>
#include <utility>

#include "KestroUI/Container.h"
#include "KestroUI/MidiMapBadge.h"
#include "toolkit/Window.h"

namespace kestroui {

using platform::Rect;
using toolkit::ControlEvent;

namespace {

// The shape of a badge that its texts fill best: as many times as wide as it is high.
constexpr double badgeShape = 2.4;

/// Rows of equal places, in reading order, of the shape that suits badges best.
std::vector<Rect> badgeTiles(const Rect& area, std::size_t count) {
  const auto rowsOf = [count](std::size_t columns) { return (count + columns - 1) / columns; };
  const auto tileOf = [&](std::size_t columns) {
    return platform::Size{area.width / static_cast<double>(columns),
                          area.height / static_cast<double>(rowsOf(columns))};
  };
  std::size_t columns = 1;
  double best = -1;
  for (std::size_t tried = 1; tried <= count; ++tried) {
    const platform::Size tile = tileOf(tried);
    const double size = std::min(tile.width / badgeShape, tile.height);
    if (size <= best) continue;
    best = size;
    columns = tried;
  }
  std::vector<Rect> tiles;
  const platform::Size tile = tileOf(columns);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t column = i % columns, row = i / columns;
    tiles.push_back({area.x + static_cast<double>(column) * tile.width,
                     area.y + static_cast<double>(row) * tile.height, tile.width, tile.height});
  }
  return tiles;
}

}  // namespace

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

bool Container::midiMapSelected() const {
  return std::any_of(midi_.begin(), midi_.end(),
                     [](const MidiValue& each) { return each.selected; });
}

bool Container::midiMapSelected(std::size_t index) const {
  return index < midi_.size() && midi_[index].selected;
}

void Container::setMidiMapSelected(bool selected) {
  for (std::size_t i = 0; i < midi_.size(); ++i) setMidiMapSelected(i, selected);
}

void Container::setMidiMapSelected(std::size_t index, bool selected) {
  if (index >= midi_.size()) return;
  midi_[index].selected = selected;
  if (midi_[index].badge) midi_[index].badge->setSelected(selected);
}

std::optional<Container::MidiMessage> Container::midiMapMessage(std::size_t index) const {
  return index < midi_.size() ? midi_[index].message : std::nullopt;
}

void Container::setMidiMapMessage(std::optional<MidiMessage> message) {
  setMidiMapMessage(0, std::move(message));
}

void Container::setMidiMapMessage(std::size_t index, std::optional<MidiMessage> message) {
  if (index >= midi_.size()) return;
  midi_[index].message = std::move(message);
  if (midi_[index].badge) midi_[index].badge->setMessage(midi_[index].message);
}

MidiMapBadge* Container::midiMapBadge(std::size_t index) const {
  return index < midi_.size() ? midi_[index].badge.get() : nullptr;
}

void Container::updateMidiMappingVisibility() {
  toolkit::View* const focused = window() ? window()->firstResponder() : nullptr;
  const bool hasKeyboard = focused && focused->isDescendantOf(*this);
  bool wasOnBadge = false;
  MidiMapBadge* first = nullptr;
  for (std::size_t i = 0; i < midi_.size(); ++i) {
    const bool shown = midiMappingEnabled_ && hasBadge(i);
    if (shown) showBadge(i);
    MidiMapBadge* const badge = midi_[i].badge.get();
    if (!badge) continue;
    wasOnBadge = wasOnBadge || focused == badge;
    badge->setHidden(!shown);
    if (shown && !first) first = badge;
  }
  if (first) placeBadges();
  if (!hasKeyboard) return;
  // What the badges cover is not moved by keys either.
  if (first)
    first->becomeFirstResponder();
  else if (wasOnBadge && face_)
    face_->becomeFirstResponder();
}

void Container::showBadge(std::size_t index) {
  MidiValue& value = midi_[index];
  if (!value.badge) {
    value.badge = std::make_unique<MidiMapBadge>();
    value.badge->ownerName = [this] { return accessibilityName(); };
    value.badge->setMessage(value.message);
    value.badge->setSelected(value.selected);
    value.badge->addTarget<&Container::handleSelected>(*this, ControlEvent::touchDown);
    value.badge->deleteButton().addTarget<&Container::wantsToDeleteMap>(
        *this, ControlEvent::touchUpInside);
  }
  // On top, also of what was added since.
  addSubview(*value.badge);
}

void Container::placeBadges() {
  std::vector<std::size_t> shown;
  for (std::size_t i = 0; i < midi_.size(); ++i)
    if (midi_[i].badge && !midi_[i].badge->isHidden()) shown.push_back(i);
  const bool isAlone = shown.size() == 1;
  // All that is above the title, whatever the kind leaves of it for its control.
  const std::vector<Rect> tiles = badgeTiles(Container::controlFrame(), shown.size());
  for (std::size_t i = 0; i < shown.size(); ++i) {
    MidiMapBadge& badge = *midi_[shown[i]].badge;
    badge.setFrame(isAlone ? bounds() : tiles[i]);
    badge.setFace(isAlone ? controlFrame() : Rect{});
    badge.setTextScale(textScale_);
    badge.setTitle(isAlone ? std::string() : paramKeys_[shown[i]]->title());
  }
}

std::shared_ptr<ParamKey> Container::keyOfBadge(const toolkit::Control& sender) const {
  for (std::size_t i = 0; i < std::min(midi_.size(), paramKeys_.size()); ++i)
    if (MidiMapBadge* const badge = midi_[i].badge.get();
        badge && (badge == &sender || &badge->deleteButton() == &sender))
      return paramKeys_[i];
  return nullptr;
}

void Container::handleSelected(toolkit::Control& sender) {
  if (auto* alive = delegate.get()) alive->didSelectMidiMap(keyOfBadge(sender), this);
}

void Container::wantsToDeleteMap(toolkit::Control& sender) {
  if (auto* alive = delegate.get()) alive->wantToDeleteMidiMap(keyOfBadge(sender));
}

}  // namespace kestroui
