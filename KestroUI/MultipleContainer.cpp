#include "KestroUI/MultipleContainer.h"

#include <algorithm>
#include <utility>

namespace kestroui {

using platform::Rect;
using toolkit::ControlEvent;

MultipleContainer::MultipleContainer() { setDisplayTitle(false); }

MultipleContainer::~MultipleContainer() = default;

void MultipleContainer::setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) {
  Container::setParamKeys(std::move(keys));
  knobs_.clear();
  for (const std::shared_ptr<ParamKey>& key : paramKeys()) {
    auto knob = std::make_unique<KnobContainer>();
    knob->setParamKeys({key});
    knob->setTitle(key->title());
    knob->delegate = this;
    knob->addTarget<&MultipleContainer::handleValueChanged>(*this, ControlEvent::valueChanged);
    knob->setMappable(mappable());
    knob->setMidiMappingEnabled(midiMappingEnabled());
    addSubview(*knob);
    knobs_.push_back(std::move(knob));
  }
  styleKnobs();
  setNeedsDisplay();
}

KnobContainer* MultipleContainer::subContainer(const std::string& key) const {
  for (const std::unique_ptr<KnobContainer>& knob : knobs_)
    if (knob->key()->key() == key) return knob.get();
  return nullptr;
}

float MultipleContainer::value(std::size_t index) const {
  return index < knobs_.size() ? knobs_[index]->value() : 0;
}

std::optional<platform::Point> MultipleContainer::handlePlace(std::size_t index) const {
  if (index >= knobs_.size()) return std::nullopt;
  return convertFromRoot(knobs_[index]->control()->frameInRoot().centre());
}

void MultipleContainer::showValue(std::size_t index, float value, const std::string& text) {
  if (index < knobs_.size()) knobs_[index]->showValue(0, value, text);
  Container::showValue(index, value, text);
}

void MultipleContainer::setKeyRange(std::size_t index, float minimum, float maximum) {
  if (index < knobs_.size()) knobs_[index]->setValueRange(minimum, maximum);
}

void MultipleContainer::setKeyStringValues(std::size_t index,
                                           const std::vector<std::string>& values) {
  if (index < knobs_.size()) knobs_[index]->setStringValues(values);
}

void MultipleContainer::updateModulation() {
  for (std::size_t i = 0; i < knobs_.size(); ++i) {
    const std::optional<float> live = livePosition(i);
    knobs_[i]->knob().setModulated(live.has_value());
    if (live) knobs_[i]->knob().setModulatedValue(*live);
  }
}

void MultipleContainer::setInverted(bool inverted) {
  inverted_ = inverted;
  styleKnobs();
}

void MultipleContainer::setControlColor(platform::Color color) {
  Container::setControlColor(color);
  styleKnobs();
}

void MultipleContainer::setColors(const std::vector<platform::Color>& colors) {
  Container::setColors(colors);
  styleKnobs();
}

void MultipleContainer::setInactive(bool inactive) {
  Container::setInactive(inactive);
  styleKnobs();
}

void MultipleContainer::setMappable(bool mappable) {
  Container::setMappable(mappable);
  for (const std::unique_ptr<KnobContainer>& knob : knobs_) knob->setMappable(mappable);
}

void MultipleContainer::setMidiMappingEnabled(bool enabled) {
  Container::setMidiMappingEnabled(enabled);
  for (const std::unique_ptr<KnobContainer>& knob : knobs_) knob->setMidiMappingEnabled(enabled);
}

bool MultipleContainer::midiMapSelected(std::size_t index) const {
  return index < knobs_.size() && knobs_[index]->midiMapSelected();
}

std::optional<Container::MidiMessage> MultipleContainer::midiMapMessage(std::size_t index) const {
  return index < knobs_.size() ? knobs_[index]->midiMapMessage() : std::nullopt;
}

void MultipleContainer::setMidiMapSelected(std::size_t index, bool selected) {
  if (index < knobs_.size()) knobs_[index]->setMidiMapSelected(selected);
}

void MultipleContainer::setMidiMapMessage(std::size_t index, std::optional<MidiMessage> message) {
  if (index < knobs_.size()) knobs_[index]->setMidiMapMessage(std::move(message));
}

void MultipleContainer::updateMidiMappingVisibility() {
  for (const std::unique_ptr<KnobContainer>& knob : knobs_) knob->updateMidiMappingVisibility();
}

std::vector<std::size_t> MultipleContainer::movedIn(toolkit::Control& sender) {
  std::vector<std::size_t> moved;
  for (std::size_t i = 0; i < knobs_.size(); ++i)
    if (knobs_[i].get() == &sender) moved.push_back(i);
  return moved;
}

void MultipleContainer::styleKnobs() {
  for (const std::unique_ptr<KnobContainer>& knob : knobs_) {
    knob->setControlColor(accent());
    knob->setInactive(isInactive());
  }
  // The attached parameters are reversed by settings of their own.
  for (std::size_t i = 0; i < knobs_.size(); ++i)
    knobs_[i]->setInverted(i == 0 ? inverted_ : paramKeys()[i]->settings().inverted);
}

void MultipleContainer::draw(const Rect& rect) {
  Container::draw(rect);
  if (knobs_.empty()) return;
  const Rect area = controlFrame();
  const auto count = static_cast<double>(knobs_.size());
  const bool row = area.width >= area.height;
  for (std::size_t i = 0; i < knobs_.size(); ++i) {
    const auto at = static_cast<double>(i);
    const double w = area.width / count, h = area.height / count;
    knobs_[i]->setLabelHRatio(labelHRatio());
    knobs_[i]->setFrame(row ? Rect{area.x + w * at, area.y, w, area.height}
                            : Rect{area.x, area.y + h * at, area.width, h});
  }
}

void MultipleContainer::didDoubleTap(const std::shared_ptr<ParamKey>& key) {
  const auto found = std::find(paramKeys().begin(), paramKeys().end(), key);
  const auto index = static_cast<std::size_t>(found - paramKeys().begin());
  tellDoubleTap(index, {index});
}

void MultipleContainer::didBeginGesture(Container&,
                                        const std::vector<std::shared_ptr<ParamKey>>& keys) {
  tellGesture(Hold::begins, keys);
}

void MultipleContainer::didEndGesture(Container&,
                                      const std::vector<std::shared_ptr<ParamKey>>& keys) {
  tellGesture(Hold::ends, keys);
}

void MultipleContainer::didSelectMidiMap(const std::shared_ptr<ParamKey>& key, Container*) {
  if (auto* alive = delegate.get()) alive->didSelectMidiMap(key, this);
}

void MultipleContainer::wantToDeleteMidiMap(const std::shared_ptr<ParamKey>& key) {
  if (auto* alive = delegate.get()) alive->wantToDeleteMidiMap(key);
}

}  // namespace kestroui
