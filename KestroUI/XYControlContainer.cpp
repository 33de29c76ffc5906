#include "KestroUI/XYControlContainer.h"

#include <algorithm>
#include <utility>

namespace kestroui {

using platform::Rect;
using toolkit::ControlEvent;

XYControlContainer::XYControlContainer() {
  setShape(pad_);
  pad_.touchedChanged = [this](bool touched) { padTouched(touched); };
  connect(on_);
  connect(hold_);
}

void XYControlContainer::connect(Switch& part) {
  addPart(part.button);
  part.button.addTarget<&XYControlContainer::onSwitched>(*this, ControlEvent::valueChanged);
  part.button.addTarget<&XYControlContainer::onSwitchHeld>(*this, ControlEvent::editingDidBegin);
  part.button.addTarget<&XYControlContainer::onSwitchLetGo>(*this, ControlEvent::editingDidEnd);
}

void XYControlContainer::setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) {
  ShapeContainer::setParamKeys(std::move(keys));
  on_.indices.clear();
  hold_.indices.clear();
  std::vector<std::size_t> axes;
  for (std::size_t i = 0; i < paramKeys().size(); ++i) {
    const std::string& key = paramKeys()[i]->key();
    if (key.find("OnOff") != std::string::npos)
      on_.indices.push_back(i);
    else if (key.find("Hold") != std::string::npos)
      hold_.indices.push_back(i);
    else
      axes.push_back(i);
  }
  const auto axis = [&](std::size_t n) {
    return n < axes.size() ? std::optional(axes[n]) : std::nullopt;
  };
  pad_.setAxes(axis(0), axis(1));
  setNeedsDisplay();
}

float XYControlContainer::value(std::size_t index) const {
  if (on_.drives(index)) return on_.button.value();
  if (hold_.drives(index)) return hold_.button.value();
  return ShapeContainer::value(index);
}

std::optional<platform::Point> XYControlContainer::handlePlace(std::size_t index) const {
  if (on_.drives(index)) return on_.button.frame().centre();
  if (hold_.drives(index)) return hold_.button.frame().centre();
  return ShapeContainer::handlePlace(index);
}

void XYControlContainer::showValue(std::size_t index, float value, const std::string& text) {
  if (on_.drives(index)) {
    on_.button.setValue(value);
    pad_.setLit(on_.button.isOn());
  } else if (hold_.drives(index)) {
    hold_.button.setValue(value);
  }
  ShapeContainer::showValue(index, value, text);
}

void XYControlContainer::switchOn(bool on) {
  if (!on_.isUsed() || on_.button.isOn() == on) return;
  const platform::Weak<XYControlContainer> alive = this;
  tellSwitch(Hold::begins, on_);
  if (!alive) return;
  on_.button.setOn(on);
  pad_.setLit(on);
  sendMoved(on_.indices);
  if (alive) tellSwitch(Hold::ends, on_);
}

void XYControlContainer::onSwitched(toolkit::Control& sender) {
  const platform::Weak<XYControlContainer> alive = this;
  pad_.setLit(on_.button.isOn());
  sendMoved(switchOf(sender).indices);
  if (alive && &sender == &hold_.button) holdSwitched();
}

void XYControlContainer::onSwitchHeld(toolkit::Control& sender) {
  tellSwitch(Hold::begins, switchOf(sender));
}

void XYControlContainer::onSwitchLetGo(toolkit::Control& sender) {
  tellSwitch(Hold::ends, switchOf(sender));
}

void XYControlContainer::tellSwitch(Hold hold, const Switch& part) {
  std::vector<std::shared_ptr<ParamKey>> keys;
  for (const std::size_t index : part.indices) keys.push_back(paramKeys()[index]);
  tellGesture(hold, keys);
}

bool XYControlContainer::Switch::drives(std::size_t index) const {
  return std::find(indices.begin(), indices.end(), index) != indices.end();
}

void XYControlContainer::setControlColor(platform::Color color) {
  ShapeContainer::setControlColor(color);
  style();
}

void XYControlContainer::setColors(const std::vector<platform::Color>& colors) {
  ShapeContainer::setColors(colors);
  style();
}

void XYControlContainer::setInactive(bool inactive) {
  ShapeContainer::setInactive(inactive);
  style();
}

void XYControlContainer::style() {
  for (OnOffButton* const button : {&on_.button, &hold_.button}) {
    button->setAccentColor(accent());
    button->setInactive(isInactive());
    button->setFaceScale(textScale());
  }
}

Rect XYControlContainer::switchFrame(const Rect& frame) const {
  if (switchCount() == 0 || std::min(frame.width, frame.height) < 44) return {};
  const double scale = textScale();
  if (frame.width >= frame.height) {
    const double width = std::min(52 * scale, frame.width * 0.3);
    const double height = std::min(frame.height, (28 * scale + 4) * switchCount() - 4);
    return {frame.maxX() - width, frame.y + (frame.height - height) / 2, width, height};
  }
  const double height = std::min(26 * scale, frame.height * 0.25);
  return {frame.x, frame.y, frame.width, height};
}

Rect XYControlContainer::controlFrame() const {
  Rect frame = ShapeContainer::controlFrame();
  const Rect taken = switchFrame(frame);
  if (taken.isEmpty()) return frame;
  if (frame.width >= frame.height) {
    frame.width = std::max(0.0, frame.width - taken.width - 4);
  } else {
    frame.y += taken.height + 4;
    frame.height = std::max(0.0, frame.height - taken.height - 4);
  }
  return frame;
}

void XYControlContainer::draw(const Rect& rect) {
  ShapeContainer::draw(rect);
  style();
  const Rect whole = ShapeContainer::controlFrame();
  const Rect taken = switchFrame(whole);
  const bool isColumn = whole.width >= whole.height;
  const double count = std::max(1, switchCount());
  int place = 0;
  for (Switch* const part : {&on_, &hold_}) {
    part->button.setHidden(!part->isUsed() || taken.isEmpty());
    if (!part->isUsed()) continue;
    const double width = isColumn ? taken.width : (taken.width - 4 * (count - 1)) / count;
    const double height = isColumn ? (taken.height - 4 * (count - 1)) / count : taken.height;
    part->button.setFrame({taken.x + (isColumn ? 0 : place * (width + 4)),
                           taken.y + (isColumn ? place * (height + 4) : 0), width, height});
    ++place;
  }
}

void TimeStopXYContainer::padTouched(bool touched) {
  touched_ = touched;
  if (touched) {
    if (!onOffSwitch() || onOffSwitch()->isOn()) return;
    startedByTouch_ = true;
    switchOn(true);
  } else if (startedByTouch_ && !isHolding()) {
    startedByTouch_ = false;
    switchOn(false);
  }
}

void TimeStopXYContainer::holdSwitched() {
  if (isHolding() || touched_) return;
  if (std::exchange(startedByTouch_, false)) switchOn(false);
}

}  // namespace kestroui
