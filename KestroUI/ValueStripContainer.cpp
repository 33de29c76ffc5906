#include "KestroUI/ValueStripContainer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "KestroUI/PositionRange.h"

namespace kestroui {

using platform::ControlEvent;
using platform::Rect;

ValueStripContainer::ValueStripContainer() = default;

ValueStripContainer::~ValueStripContainer() = default;

void ValueStripContainer::setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) {
  Container::setParamKeys(std::move(keys));
  rows_.clear();
  for (const std::shared_ptr<ParamKey>& key : paramKeys()) {
    auto strip = std::make_unique<ValueStrip>();
    const std::string& name = key->settings().displayName;
    strip->setName(name.empty() ? key->key() : name);
    strip->addTarget<&ValueStripContainer::handleValueChanged>(*this, ControlEvent::valueChanged);
    strip->addTarget<&ValueStripContainer::onEditingDidBegin>(*this, ControlEvent::editingDidBegin);
    strip->addTarget<&ValueStripContainer::onEditingDidEnd>(*this, ControlEvent::editingDidEnd);
    strip->doubleTapped = [this, key] { tellDoubleTap(key); };
    addSubview(*strip);
    rows_.push_back({key, std::move(strip)});
  }
  configureOwnStrip();
  styleStrips();
  setNeedsDisplay();
}

ValueStrip* ValueStripContainer::strip(const std::string& key) const {
  for (const Row& row : rows_)
    if (row.key->key() == key) return row.strip.get();
  return nullptr;
}

float ValueStripContainer::value(const std::string& key) const {
  const ValueStrip* found = strip(key);
  return found ? found->value() : 0;
}

void ValueStripContainer::showValue(const std::string& key, float value, const std::string& text) {
  if (ValueStrip* found = strip(key)) {
    found->setValue(value);
    found->setText(text);
  }
  Container::showValue(key, value, text);
}

void ValueStripContainer::setValueRange(float minimum, float maximum) {
  if (!(minimum <= maximum)) return;
  minimumValue_ = minimum;
  maximumValue_ = maximum;
  configureOwnStrip();
}

void ValueStripContainer::configureOwnStrip() {
  if (rows_.empty()) return;
  ValueStrip& own = *rows_.front().strip;
  if (valueForm(rows_.front().key->key()) == ValueForm::raw) {
    own.setRange(minimumValue_, maximumValue_);
    own.setStepCount(static_cast<int>(std::lround(maximumValue_ - minimumValue_)));
    return;
  }
  PositionRange range;
  range.setRange(minimumValue_, maximumValue_);
  range.applyTo(own);
}

void ValueStripContainer::setInverted(bool inverted) {
  inverted_ = inverted;
  styleStrips();
}

void ValueStripContainer::setControlColor(platform::Color color) {
  Container::setControlColor(color);
  styleStrips();
}

void ValueStripContainer::setColors(const std::vector<platform::Color>& colors) {
  Container::setColors(colors);
  styleStrips();
}

void ValueStripContainer::setInactive(bool inactive) {
  Container::setInactive(inactive);
  styleStrips();
}

void ValueStripContainer::styleStrips() {
  for (const Row& row : rows_) {
    row.strip->setAccentColor(accent());
    row.strip->setInactive(isInactive());
    row.strip->setFaceScale(textScale());
  }
  // Only the own parameter is shown reversed; the attached ones have settings of their own.
  if (!rows_.empty()) rows_.front().strip->setInverted(inverted_);
}

void ValueStripContainer::draw(const Rect& rect) {
  Container::draw(rect);
  if (rows_.empty()) return;
  styleStrips();
  const Rect area = controlFrame().inset(3, 3);
  const double gap = 2;
  const auto count = static_cast<double>(rows_.size());
  const auto positive = [](double length) { return length > 0 ? length : 0; };
  // Several columns once the strips would be too low to take hold of.
  const double columns =
      std::clamp(std::ceil(count * 12 / std::max(12.0, positive(area.height))), 1.0, count);
  const double perColumn = std::ceil(count / columns);
  const double width = positive((area.width - gap * (columns - 1)) / columns);
  const double height =
      std::min(28.0 * textScale(), positive((area.height - gap * (perColumn - 1)) / perColumn));
  const double used = perColumn * height + gap * (perColumn - 1);
  const double top = area.y + positive(area.height - used) / 2;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const double column = std::floor(static_cast<double>(i) / perColumn);
    const double line = static_cast<double>(i) - column * perColumn;
    rows_[i].strip->setFrame(
        {area.x + column * (width + gap), top + line * (height + gap), width, height});
  }
}

void ValueStripContainer::paint(platform::Canvas& canvas) {
  const Rect frame = controlFrame();
  if (!(frame.width >= 8) || !(frame.height >= 8)) return;
  canvas.fillRoundedRect(frame, Theme::cornerRadius + 1, Theme::background.withAlpha(0.45f));
  canvas.strokeRoundedRect(frame.inset(0.5, 0.5), Theme::cornerRadius + 1, Theme::lineWidth,
                           Theme::line.withAlpha(0.6f));
}

}  // namespace kestroui
