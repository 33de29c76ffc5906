#include "KestroUI/MutableContainer.h"

#include <algorithm>
#include <utility>

namespace kestroui {

using platform::Rect;
using toolkit::ControlEvent;

namespace {

constexpr std::size_t muteIndex = 1;

}  // namespace

MutableContainer::MutableContainer() {
  addPart(muteButton_);
  muteButton_.addTarget<&MutableContainer::onMuted>(*this, ControlEvent::valueChanged);
  muteButton_.addTarget<&MutableContainer::onMuteHeld>(*this, ControlEvent::editingDidBegin);
  muteButton_.addTarget<&MutableContainer::onMuteLetGo>(*this, ControlEvent::editingDidEnd);
}

void MutableContainer::setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) {
  KnobContainer::setParamKeys(std::move(keys));
  setNeedsDisplay();
}

float MutableContainer::value(std::size_t index) const {
  if (index == muteIndex) return muteButton_.value();
  return index == 0 ? knob().value() : 0;
}

std::optional<platform::Point> MutableContainer::handlePlace(std::size_t index) const {
  const bool isMute = index == muteIndex && index < paramKeys().size();
  return isMute ? std::optional(muteButton_.frame().centre()) : std::nullopt;
}

void MutableContainer::showValue(std::size_t index, float value, const std::string& text) {
  if (index != muteIndex) return KnobContainer::showValue(index, value, text);
  muteButton_.setValue(value);
  style();
}

void MutableContainer::setKeyRange(std::size_t index, float minimum, float maximum) {
  if (index == 0) setValueRange(minimum, maximum);
}

bool MutableContainer::hasBadge(std::size_t index) const {
  return mappable() && index <= muteIndex;
}

void MutableContainer::setInactive(bool inactive) {
  KnobContainer::setInactive(inactive);
  style();
}

void MutableContainer::updateModulation() {
  const std::optional<float> live = livePosition(0);
  knob().setModulated(live.has_value());
  if (live) knob().setModulatedValue(*live);
}

void MutableContainer::style() {
  knob().setInactive(isInactive() || muteButton_.isOn());
  muteButton_.setAccentColor(Theme::mute);
  muteButton_.setInactive(isInactive());
  muteButton_.setFaceScale(textScale());
}

void MutableContainer::onMuted() {
  style();
  sendMoved({muteIndex});
}

void MutableContainer::onMuteHeld() { tellGesture(Hold::begins, {paramKeys()[muteIndex]}); }

void MutableContainer::onMuteLetGo() { tellGesture(Hold::ends, {paramKeys()[muteIndex]}); }

void MutableContainer::onEditingDidBegin() {
  updateTitleLabel();
  if (key()) tellGesture(Hold::begins, {key()});
}

void MutableContainer::onEditingDidEnd() {
  updateTitleLabel();
  if (key()) tellGesture(Hold::ends, {key()});
}

Rect MutableContainer::muteFrame(const Rect& frame) const {
  if (paramKeys().size() <= muteIndex || std::max(frame.width, frame.height) < 36) return {};
  const double scale = textScale();
  if (frame.width > frame.height * 1.3) {
    const double width = std::min(30 * scale, frame.width * 0.3);
    const double height = std::min(24 * scale, frame.height);
    return {frame.maxX() - width, frame.midY() - height / 2, width, height};
  }
  const double height = std::min(20 * scale, frame.height * 0.26);
  const double width = std::min(frame.width, 34 * scale);
  return {frame.midX() - width / 2, frame.maxY() - height, width, height};
}

Rect MutableContainer::controlFrame() const {
  Rect frame = KnobContainer::controlFrame();
  const Rect taken = muteFrame(frame);
  if (taken.isEmpty()) return frame;
  if (frame.width > frame.height * 1.3)
    frame.width = std::max(0.0, frame.width - taken.width - 2);
  else
    frame.height = std::max(0.0, frame.height - taken.height - 2);
  return frame;
}

void MutableContainer::draw(const Rect& rect) {
  KnobContainer::draw(rect);
  style();
  const Rect taken = muteFrame(KnobContainer::controlFrame());
  muteButton_.setHidden(taken.isEmpty());
  muteButton_.setFrame(taken);
}

}  // namespace kestroui
