#include "KestroUI/FilterView.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace kestroui {

using platform::Color;
using platform::ControlEvent;
using platform::Point;
using platform::Rect;

namespace {

constexpr double lowest = 20, highest = 20000;
constexpr std::size_t points = 96;
// What the curve shows, in decibels.
constexpr double bottomLevel = -36, topLevel = 30;

double positionOf(double hertz) { return std::log(hertz / lowest) / std::log(highest / lowest); }
double hertzAt(double position) { return lowest * std::pow(highest / lowest, position); }

constexpr std::array<std::string_view, 7> typeNames = {"lowPass", "hiPass",   "bandPass", "notch",
                                                       "peak",    "lowShelf", "hiShelf"};

}  // namespace

FilterView::FilterView() {
  frequencies_.reserve(points);
  for (std::size_t i = 0; i < points; ++i)
    frequencies_.push_back(hertzAt(static_cast<double>(i) / (points - 1)));
}

void FilterView::setType(Type type) {
  if (type == type_) return;
  type_ = type;
  setNeedsDisplay();
}

std::string_view FilterView::typeName() const { return typeNames[static_cast<std::size_t>(type_)]; }

void FilterView::setFilterMagnitudes(std::vector<double> decibels) {
  if (decibels == magnitudes_) return;
  magnitudes_ = std::move(decibels);
  setNeedsDisplay();
}

void FilterView::setFrequency(float hertz) {
  if (std::isnan(hertz)) return;
  hertz = std::clamp(hertz, static_cast<float>(lowest), static_cast<float>(highest));
  if (hertz == frequency_) return;
  frequency_ = hertz;
  setNeedsDisplay();
}

float FilterView::frequencyPosition() const { return static_cast<float>(positionOf(frequency_)); }

void FilterView::setFrequencyPosition(float position) {
  setFrequency(static_cast<float>(hertzAt(std::clamp(position, 0.0f, 1.0f))));
}

void FilterView::setResonance(float resonance) {
  if (std::isnan(resonance)) return;
  resonance = std::clamp(resonance, minimumResonance_, maximumResonance_);
  if (resonance == resonance_) return;
  resonance_ = resonance;
  setNeedsDisplay();
}

void FilterView::setResonanceRange(float minimum, float maximum) {
  if (!(minimum < maximum)) return;
  minimumResonance_ = minimum;
  maximumResonance_ = maximum;
  resonance_ = std::clamp(resonance_, minimum, maximum);
  setNeedsDisplay();
}

void FilterView::setModulated(bool modulated) {
  if (modulated == modulated_) return;
  modulated_ = modulated;
  setNeedsDisplay();
}

void FilterView::setAccentColor(Color color) {
  if (color == accent_) return;
  accent_ = color;
  setNeedsDisplay();
}

void FilterView::setInactive(bool inactive) {
  if (inactive == inactive_) return;
  inactive_ = inactive;
  setNeedsDisplay();
}

void FilterView::touchBegan(const platform::Touch& touch) {
  if (touchId_ || !isEnabled()) return;
  const platform::Weak<FilterView> alive = this;
  touchId_ = touch.id;
  Control::touchBegan(touch);
  if (!alive || (touch.tapCount == 2 && doubleTapped)) return;
  dragging_ = true;
  sendActions(ControlEvent::editingDidBegin);
}

void FilterView::touchMoved(const platform::Touch& touch) {
  if (touch.id != touchId_) return;
  const platform::Weak<FilterView> alive = this;
  Control::touchMoved(touch);
  const Rect area = plot();
  if (!alive || !dragging_ || area.isEmpty()) return;
  const double speed = has(touch.modifiers, platform::Modifiers::shift) ? 0.1 : 1.0;
  const Point way = touch.location - touch.previousLocation;
  const float frequency = frequency_, resonance = resonance_;
  setFrequencyPosition(frequencyPosition() + static_cast<float>(way.x * speed / area.width));
  setResonance(resonance_ - static_cast<float>(way.y * speed / area.height) *
                                (maximumResonance_ - minimumResonance_));
  if (frequency_ != frequency || resonance_ != resonance) sendActions(ControlEvent::valueChanged);
}

void FilterView::stopDrag() {
  touchId_.reset();
  if (std::exchange(dragging_, false)) sendActions(ControlEvent::editingDidEnd);
}

void FilterView::touchEnded(const platform::Touch& touch) {
  if (touch.id != touchId_) return;
  const platform::Weak<FilterView> alive = this;
  const bool secondTap = !dragging_;
  Control::touchEnded(touch);
  if (alive) stopDrag();
  if (!alive || !secondTap || !doubleTapped) return;
  const std::function<void()> action = doubleTapped;
  action();
}

void FilterView::touchCancelled(const platform::Touch& touch) {
  if (touch.id != touchId_) return;
  const platform::Weak<FilterView> alive = this;
  Control::touchCancelled(touch);
  if (alive) stopDrag();
}

Point FilterView::handle() const {
  const Rect area = plot();
  const double level = (resonance_ - minimumResonance_) / (maximumResonance_ - minimumResonance_);
  return {area.x + area.width * frequencyPosition(), area.maxY() - area.height * level};
}

void FilterView::paint(platform::Canvas& canvas) {
  if (!(bounds().width >= 12) || !(bounds().height >= 12)) return;
  const bool muted = inactive_ || !isEnabled();
  const Color color = muted ? Theme::muted(accent_) : accent_;
  canvas.fillRoundedRect(bounds(), Theme::cornerRadius, Theme::background);
  canvas.save();
  canvas.clip(plot());
  paintGrid(canvas);
  if (magnitudes_.size() == frequencies_.size()) paintCurve(canvas, color);
  canvas.restore();
  const double radius = std::clamp(std::min(bounds().width, bounds().height) * 0.06, 3.0, 8.0);
  const Point at = handle();
  const bool held = dragging_ || isHovered();
  canvas.fillEllipse({at.x - radius * 1.8, at.y - radius * 1.8, radius * 3.6, radius * 3.6},
                     color.withAlpha(held ? 0.35f : 0.18f));
  canvas.fillEllipse({at.x - radius, at.y - radius, radius * 2, radius * 2},
                     modulated_ ? Theme::white : color);
}

void FilterView::paintGrid(platform::Canvas& canvas) const {
  const Rect area = plot();
  const Color color = Theme::line.withAlpha(0.4f);
  for (double hertz : {100.0, 1000.0, 10000.0})
    canvas.fillRect({area.x + area.width * positionOf(hertz), area.y, 0.75, area.height}, color);
  const double zero = area.maxY() - area.height * (0 - bottomLevel) / (topLevel - bottomLevel);
  canvas.fillRect({area.x, zero, area.width, 0.75}, color);
}

void FilterView::paintCurve(platform::Canvas& canvas, Color color) {
  const Rect area = plot();
  curve_.clear();
  for (std::size_t i = 0; i < points; ++i) {
    const double level = std::isfinite(magnitudes_[i]) ? magnitudes_[i] : bottomLevel;
    const double share = std::clamp((level - bottomLevel) / (topLevel - bottomLevel), -0.1, 1.1);
    const Point point{area.x + area.width * static_cast<double>(i) / (points - 1),
                      area.maxY() - area.height * share};
    if (i == 0)
      curve_.moveTo(point);
    else
      curve_.lineTo(point);
  }
  area_ = curve_;
  area_.lineTo({area.maxX(), area.maxY()});
  area_.lineTo({area.x, area.maxY()});
  area_.close();
  canvas.fillPath(area_,
                  platform::Paint({0, area.y}, {0, area.maxY()},
                                  {{0, color.withAlpha(0.30f)}, {1, color.withAlpha(0.05f)}}));
  canvas.strokePath(curve_, {1.75}, color);
}

}  // namespace kestroui
