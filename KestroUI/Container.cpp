#include "KestroUI/Container.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "KestroUI/Icons.h"
#include "KestroUI/MidiMapBadge.h"
#include "KestroUI/Theme.h"
#include "foundation/UnicodeText.h"

namespace kestroui {

using platform::Rect;
using toolkit::ControlEvent;

namespace {

// In points, on the smallest editor.
constexpr double titleLine = 14.5;
constexpr double minTitleLine = 9.5;
constexpr double minTitleFontSize = 7;
// Part of the font's size that a letter is wide on average.
constexpr double letterWidth = 0.56;
constexpr double minControlHeight = 14;
// Places up to this side show their control alone. An exact square may be larger: it is no slot of
// a column but stands in the corner of a title band.
constexpr double smallPlace = 26;
constexpr double smallSquare = 44;
// Of the title's line.
constexpr double titleFontShare = 0.74;

}  // namespace

Container::Container() : midi_(1) {
  titleLabel_.setFont(Theme::labelFont);
  titleLabel_.setTextColor(Theme::textDim);
  titleLabel_.setTextAlignment(platform::TextAlignment::centre);
  addSubview(titleLabel_);
  iconLayer_.setFillColor(Theme::textDim);
  iconLayer_.setHidden(true);
  layer().addSublayer(iconLayer_);
}

Container::~Container() = default;

// Keys and values

void Container::setParamKeys(std::vector<std::shared_ptr<ParamKey>> keys) {
  paramKeys_ = std::move(keys);
  midi_.resize(std::max<std::size_t>(1, paramKeys_.size()));
  if (midiMappingEnabled_) updateMidiMappingVisibility();
}

std::shared_ptr<ParamKey> Container::key() const {
  return paramKeys_.empty() ? nullptr : paramKeys_.front();
}

std::shared_ptr<ParamKey> Container::keyAt(platform::Point place) const {
  std::shared_ptr<ParamKey> nearest = key();
  double least = handlePlace(0) ? std::numeric_limits<double>::infinity() : smallSquare / 2;
  for (std::size_t i = 0; i < paramKeys_.size(); ++i) {
    const auto handle = handlePlace(i);
    if (!handle) continue;
    const double distance = std::hypot(handle->x - place.x, handle->y - place.y);
    if (distance >= least) continue;
    least = distance;
    nearest = paramKeys_[i];
  }
  return nearest;
}

std::optional<std::size_t> Container::indexOf(const std::string& key) const {
  for (std::size_t i = 0; i < paramKeys_.size(); ++i)
    if (paramKeys_[i]->key() == key) return i;
  return std::nullopt;
}

float Container::value() const { return control_ ? control_->value() : value(0); }

void Container::setValue(float value) {
  if (control_)
    control_->setValue(value);
  else
    showValue(0, value, valueText_);
}

Container::ValueForm Container::valueForm(std::size_t) const { return ValueForm::position; }

float Container::value(std::size_t) const { return control_ ? control_->value() : 0; }

void Container::showValue(std::size_t index, float value, const std::string& text) {
  if (index != 0) return;
  if (control_) control_->setValue(value);
  valueText_ = text;
  if (showsValue()) updateTitleLabel();
}

void Container::setValueRange(float, float) {}

void Container::setKeyRange(std::size_t index, float minimum, float maximum) {
  if (index == 0) setValueRange(minimum, maximum);
}

void Container::setStringValues(const std::vector<std::string>&) {}

void Container::setKeyStringValues(std::size_t index, const std::vector<std::string>& values) {
  if (index == 0) setStringValues(values);
}

void Container::setLinks(std::vector<bool> links) { links_ = std::move(links); }

void Container::setInverted(bool inverted) {
  if (control_) control_->setInverted(inverted);
}

void Container::setColors(const std::vector<platform::Color>& colors) {
  if (colors.empty() || hasControlColor_) return;
  accent_ = colors.front();
  if (face_) face_->setAccentColor(accent_);
}

void Container::setControlColor(platform::Color color) {
  hasControlColor_ = true;
  accent_ = color;
  if (face_) face_->setAccentColor(color);
}

// Live modulation

void Container::watch(std::size_t index, const std::atomic<float>* value,
                      const std::atomic<bool>* flag) {
  const auto flagPlace = flag ? std::optional(isModulating.size()) : std::nullopt;
  if (value) liveKeys_.push_back({index, watchedValues.size(), flagPlace});
  if (value) watchedValues.push_back(value);
  if (flag) isModulating.push_back(flag);
}

void Container::watchNothing() {
  watchedValues.clear();
  isModulating.clear();
  liveKeys_.clear();
}

std::optional<float> Container::liveValue(std::size_t index) const {
  if (!allowModulation) return std::nullopt;
  for (const LiveKey& live : liveKeys_) {
    if (live.index != index) continue;
    // Whoever owns the container may have dropped what it watched.
    if (live.value >= watchedValues.size() || !live.flag || *live.flag >= isModulating.size())
      break;
    if (!isModulating[*live.flag]->load(std::memory_order_relaxed)) break;
    const float value = watchedValues[live.value]->load(std::memory_order_relaxed);
    return std::isnan(value) ? std::nullopt : std::optional(value);
  }
  return std::nullopt;
}

std::optional<float> Container::livePosition(std::size_t index) const {
  const std::optional<float> value = liveValue(index);
  if (!value || !positionOfValue) return value;
  const float position = positionOfValue(index, *value);
  return std::isnan(position) ? std::nullopt : std::optional(position);
}

std::optional<float> Container::liveOutput(std::size_t index) const {
  for (const LiveKey& live : liveKeys_) {
    if (live.index != index || live.value >= watchedValues.size()) continue;
    const float value = watchedValues[live.value]->load(std::memory_order_relaxed);
    return std::isnan(value) ? std::nullopt : std::optional(value);
  }
  return std::nullopt;
}

// Presentation

void Container::setTitle(const std::string& title) {
  if (title == title_) return;
  title_ = title;
  updateTitleLabel();
  setNeedsDisplay();
}

std::string Container::accessibilityName() const {
  return !title_.empty() || paramKeys_.empty() ? title_ : paramKeys_.front()->key();
}

void Container::setDisplayTitle(bool display) {
  if (display == displayTitle_) return;
  displayTitle_ = display;
  setNeedsDisplay();
}

void Container::setIconPath(platform::Path path) {
  iconPath_ = std::move(path);
  updateTitleLabel();
  setNeedsDisplay();
}

void Container::setMargins(double top, double bottom) {
  if (top == topMargin_ && bottom == bottomMargin_) return;
  topMargin_ = top;
  bottomMargin_ = bottom;
  setNeedsDisplay();
}

void Container::setIsVisible(bool visible) { visible_ = visible; }

void Container::setInactive(bool inactive) {
  if (inactive == inactive_) return;
  inactive_ = inactive;
  if (face_) face_->setInactive(inactive);
  updateTitleLabel();
}

void Container::setLabelHRatio(double ratio) {
  if (!(ratio > 0) || ratio == labelHRatio_) return;
  labelHRatio_ = ratio;
  updateTextScale();
  setNeedsDisplay();
}

void Container::updateTextScale() {
  const double scale = std::pow(labelHRatio_, 0.35) * textScaleIn(*this);
  if (scale == textScale_) return;
  textScale_ = scale;
  if (face_) face_->setFaceScale(scale);
}

bool Container::showsValue() const { return isHovered() || (face_ && face_->isInGesture()); }

void Container::updateTitleLabel() {
  const std::string value = showsValue() ? movingText() : std::string();
  const bool hasValue = !value.empty();
  const bool showsIcon = !hasValue && !iconPath_.isEmpty();
  const platform::Font& font = hasValue ? Theme::valueFont : Theme::labelFont;
  const std::string& text = hasValue ? value : title_;
  const double fitting = (bounds().width - 2) /
                         (letterWidth * static_cast<double>(foundation::countCodePoints(text) + 1));
  titleLabel_.setFont(
      font.withSize(std::min(titleHeight() * titleFontShare, std::max(minTitleFontSize, fitting))));
  titleLabel_.setText(showsIcon ? std::string() : text);
  const platform::Color color = inactive_  ? Theme::textDim.withAlpha(0.5f)
                                : hasValue ? Theme::text
                                           : Theme::textDim;
  titleLabel_.setTextColor(color);
  iconLayer_.setFillColor(color);
  iconLayer_.setHidden(!showsIcon || !showsTitle());
}

// Layout

double Container::titleHeight() const {
  return std::min(titleLine * textScale(), std::max(0.0, bounds().height) * 0.32);
}

bool Container::showsTitle() const {
  const double w = bounds().width, h = bounds().height - topMargin_ - bottomMargin_;
  if (!displayTitle_ || (title_.empty() && iconPath_.isEmpty())) return false;
  const bool square = std::fabs(bounds().width - bounds().height) < 0.01;
  const double small = (square ? smallSquare : smallPlace) * std::max(1.0, textScale_);
  if (w <= small && h <= small) return false;
  return w >= 18 && titleHeight() >= minTitleLine && h - titleHeight() >= minControlHeight;
}

Rect Container::controlFrame() const {
  const double title = showsTitle() ? titleHeight() + bottomGap() : 0;
  // A comparison that a size that is no number fails too.
  const auto positive = [](double length) { return length > 0 ? length : 0; };
  const double side = positive(std::min(4.0, bounds().width * 0.03));
  const double gap = positive(std::min(2.0, bounds().height * 0.03));
  return {side, topMargin_ + gap, positive(bounds().width - 2 * side),
          positive(bounds().height - topMargin_ - bottomMargin_ - title - 2 * gap)};
}

double Container::bottomGap() const { return std::min(4.0, bounds().height * 0.03); }

void Container::draw(const Rect&) {
  updateTextScale();
  const bool hasTitle = showsTitle();
  Rect place = controlFrame();
  const double best = face_ ? face_->bestHeight(place.size()) : place.height;
  const double slack = std::max(0.0, place.height - best);
  place.y += slack / 2;
  place.height -= slack;
  if (face_) face_->setFrame(place);

  titleLabel_.setHidden(!hasTitle);
  if (hasTitle) {
    const double height = titleHeight();
    // At the bottom whatever the control's height, so that the titles of a row stand on one line.
    const double bottom = bounds().height - bottomMargin_ - bottomGap();
    const Rect line{1, bottom - height, bounds().width - 2, height};
    titleLabel_.setFrame(line);
    if (!iconPath_.isEmpty()) {
      const Rect icon = Icons::squareIn(line.inset(0, height * 0.1));
      iconLayer_.setFrame(icon);
      iconLayer_.setPath(Icons::fitted(iconPath_, {0, 0, icon.width, icon.height}));
    }
  }
  updateTitleLabel();
  if (midiMappingEnabled_) placeBadges();
}

// Actions

void Container::setControl(KestroControl& control) {
  control_ = &control;
  setFace(control);
}

void Container::setFace(GestureControl& face) {
  face_ = &face;
  addPart(face);
  face.addTarget<&Container::handleValueChanged>(*this, ControlEvent::valueChanged);
  face.addTarget<&Container::onEditingDidBegin>(*this, ControlEvent::editingDidBegin);
  face.addTarget<&Container::onEditingDidEnd>(*this, ControlEvent::editingDidEnd);
  face.doubleTapped = [this] { doubleTap(); };
}

void Container::addPart(GestureControl& part) {
  addSubview(part);
  part.described = [this, &part](platform::Accessibility& told) {
    if (told.name.empty()) told.name = accessibilityName();
    if (control_ == &part) told.value = valueText_;
  };
}

void Container::handleValueChanged(toolkit::Control& sender) { sendMoved(movedIn(sender)); }

std::vector<std::size_t> Container::movedIn(toolkit::Control&) { return {0}; }

void Container::sendMoved(std::vector<std::size_t> indices) {
  const platform::Weak<Container> alive = this;
  moved_ = std::move(indices);
  sendActions(ControlEvent::valueChanged);
  if (alive) moved_.clear();
}

void Container::doubleTap() { tellDoubleTap(0, {0}); }

void Container::tellDoubleTap(std::size_t index, std::vector<std::size_t> handle) {
  auto* const owner = delegate.get();
  if (!owner) return;
  const platform::Weak<Container> alive = this;
  tapped_ = std::move(handle);
  owner->didDoubleTap(index < paramKeys_.size() ? paramKeys_[index] : nullptr);
  if (alive) tapped_.clear();
}

void Container::onEditingDidBegin() {
  updateTitleLabel();
  tellGesture(Hold::begins, paramKeys_);
}

void Container::onEditingDidEnd() {
  updateTitleLabel();
  tellGesture(Hold::ends, paramKeys_);
}

void Container::tellGesture(Hold hold, const std::vector<std::shared_ptr<ParamKey>>& keys) {
  auto* const alive = delegate.get();
  if (!alive) return;
  if (hold == Hold::begins)
    alive->didBeginGesture(*this, keys);
  else
    alive->didEndGesture(*this, keys);
}

void Container::hoverChanged(bool hovered) {
  Control::hoverChanged(hovered);
  updateTitleLabel();
}

}  // namespace kestroui
