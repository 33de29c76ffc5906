#include "KestroUI/FilterViews.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace kestroui {

using platform::Canvas;
using platform::Point;
using platform::Rect;

namespace {

constexpr std::size_t pointCount = 96;
double decibels(double magnitude) { return 20 * std::log10(std::max(1e-6, magnitude)); }

}  // namespace

ResponseView::ResponseView() {
  frequencies_.reserve(pointCount);
  for (std::size_t i = 0; i < pointCount; ++i)
    frequencies_.push_back(Plot::hertzAt(static_cast<double>(i) / (pointCount - 1)));
}

void ResponseView::setFilterMagnitudes(std::vector<double> decibels) {
  if (decibels == magnitudes_) return;
  magnitudes_ = std::move(decibels);
  setNeedsDisplay();
}

std::pair<double, double> ResponseView::levelsOf(std::size_t resonance) const {
  const double low = minimum(resonance), high = maximum(resonance);
  const bool isLevel = low < 0 && high > 0 && high - low >= 24 && high - low <= 100;
  return isLevel ? std::pair(low, high) : ResponseView::levels();
}

void ResponseView::paintShape(Canvas& canvas, const Rect& plot) {
  const auto [bottom, top] = levels();
  const auto levelShare = [bottom = bottom, top = top](double decibels) {
    return std::clamp((decibels - bottom) / (top - bottom), -0.1, 1.1);
  };
  const bool isRoomy = plot.width >= 90 && plot.height >= 40;
  if (isRoomy) {
    std::vector<double> between;
    for (const double decade : {10.0, 100.0, 1000.0, 10000.0})
      for (int digit = 2; digit < 10; ++digit)
        if (digit * decade > 20 && digit * decade < 20000)
          between.push_back(Plot::shareOfHertz(digit * decade));
    Plot::paintGrid(canvas, plot, between, {}, 0.18f);
  }
  std::vector<double> lines{levelShare(0)};
  if (isRoomy)
    for (int line = static_cast<int>(std::floor(bottom / 12)) + 1; line * 12 < top; ++line)
      if (line != 0) lines.push_back(levelShare(line * 12));
  Plot::paintGrid(canvas, plot,
                  {Plot::shareOfHertz(100), Plot::shareOfHertz(1000), Plot::shareOfHertz(10000)},
                  lines, 0.45f);
  if (isRoomy) paintLabels(canvas, plot);
  if (!magnitudes_.empty() && magnitudes_.size() != frequencies_.size()) return;
  platform::Path curve;
  for (std::size_t i = 0; i < pointCount; ++i) {
    const double level = magnitudes_.empty() ? plainMagnitude(frequencies_[i]) : magnitudes_[i];
    const Point point{
        plot.x + plot.width * static_cast<double>(i) / (pointCount - 1),
        plot.maxY() - plot.height * levelShare(std::isfinite(level) ? level : bottom)};
    if (i == 0)
      curve.moveTo(point);
    else
      curve.lineTo(point);
  }
  Plot::paintCurve(canvas, curve, plot, bounds().maxY(), stateAccent());
}

void ResponseView::paintLabels(Canvas& canvas, const Rect& plot) const {
  if (plot.width < 150 || plot.height < 70) return;
  const double size = std::min(9.0 * faceScale(), plot.height * 0.1);
  const platform::Font font = Theme::valueFont.withSize(size);
  const std::pair<double, std::string_view> labels[] = {{100, "100"}, {1000, "1k"}, {10000, "10k"}};
  for (const auto& [hertz, text] : labels) {
    const double x = plot.x + plot.width * Plot::shareOfHertz(hertz) + 3;
    canvas.drawText(text, font,
                    {x, plot.maxY() - size * 1.3, std::min(40.0, plot.maxX() - x), size * 1.3},
                    platform::TextAlignment::left, Theme::textDim.withAlpha(0.55f));
  }
}

namespace PlainFilter {

double quality(double share) { return 0.5 * std::pow(24.0, share); }

double lowPass(double r, double q) { return decibels(1 / std::hypot(1 - r * r, r / q)); }

double highPass(double r, double q) { return decibels(r * r / std::hypot(1 - r * r, r / q)); }

double bandPass(double r, double q) { return decibels(r / q / std::hypot(1 - r * r, r / q)); }

double notch(double r, double q) {
  return decibels(std::fabs(1 - r * r) / std::hypot(1 - r * r, r / q));
}

double peak(double r, double gain) {
  const double width = 1.2, high = std::pow(10, gain / 40);
  return decibels(std::hypot(1 - r * r, r * width * high) /
                  std::hypot(1 - r * r, r * width / high));
}

double lowShelf(double r, double gain) { return gain / (1 + r * r); }

}  // namespace PlainFilter

namespace {

constexpr std::array<std::string_view, 7> typeNames = {"lowPass", "hiPass",   "bandPass", "notch",
                                                       "peak",    "lowShelf", "hiShelf"};

}  // namespace

FilterView::FilterView() {
  setValueCount(2);
  setRange(1, -20, 40);
  setFrequency(1000);
}

void FilterView::setType(Type type) {
  if (type == type_) return;
  type_ = type;
  setNeedsDisplay();
}

std::string_view FilterView::typeName() const { return typeNames[static_cast<std::size_t>(type_)]; }

float FilterView::frequency() const { return static_cast<float>(Plot::hertzAt(value(0))); }

void FilterView::setFrequency(float hertz) {
  if (std::isnan(hertz)) return;
  setValue(0, static_cast<float>(Plot::shareOfHertz(std::clamp(hertz, 20.0f, 20000.0f))));
}

std::vector<ShapeControl::Handle> FilterView::handles() const {
  if (valueCount() == 0) return {};
  return {plotHandle(existing(0), existing(1))};
}

double FilterView::plainMagnitude(double hertz) const {
  const double ratio = hertz / Plot::hertzAt(liveShare(0).value_or(share(0)));
  const double amount = liveShare(1).value_or(existing(1) ? share(1) : 0.2);
  const double quality = PlainFilter::quality(amount);
  // The gain of a peak or a shelf, which stand still in the middle of the range.
  const double gain = (amount - 0.5) * 48;
  switch (type_) {
    case Type::lowPass:
      return PlainFilter::lowPass(ratio, quality);
    case Type::hiPass:
      return PlainFilter::highPass(ratio, quality);
    case Type::bandPass:
      return PlainFilter::bandPass(ratio, quality);
    case Type::notch:
      return PlainFilter::notch(ratio, quality);
    case Type::peak:
      return PlainFilter::peak(ratio, gain);
    case Type::lowShelf:
      return PlainFilter::lowShelf(ratio, gain);
    case Type::hiShelf:
      return PlainFilter::lowShelf(1 / ratio, gain);
  }
  return 0;
}

DoubleFilterView::DoubleFilterView() {
  setValueCount(4);
  setValue(lowPassFrequency, 0.8f);
  setValue(hiPassFrequency, 0.2f);
}

std::vector<ShapeControl::Handle> DoubleFilterView::handles() const {
  std::vector<Handle> result;
  if (existing(lowPassFrequency))
    result.push_back(plotHandle(lowPassFrequency, existing(lowPassResonance)));
  if (existing(hiPassFrequency))
    result.push_back(plotHandle(hiPassFrequency, existing(hiPassResonance)));
  const platform::Rect area = plot();
  if (existing(lowPassGain)) {
    result.push_back(plotHandle(std::nullopt, lowPassGain));
    result.back().place.x = area.x;
  }
  if (existing(hiPassGain)) {
    result.push_back(plotHandle(std::nullopt, hiPassGain));
    result.back().place.x = area.maxX();
  }
  return result;
}

double DoubleFilterView::plainMagnitude(double hertz) const {
  const auto ratio = [&](Index index) {
    return hertz / Plot::hertzAt(liveShare(index).value_or(share(index)));
  };
  const auto quality = [&](Index index) {
    return PlainFilter::quality(liveShare(index).value_or(share(index)));
  };
  double result = 0;
  if (existing(lowPassFrequency))
    result += PlainFilter::lowPass(ratio(lowPassFrequency), quality(lowPassResonance));
  if (existing(hiPassFrequency))
    result += PlainFilter::highPass(ratio(hiPassFrequency), quality(hiPassResonance));
  return result;
}

void DoubleFilterView::paintHandle(platform::Canvas& canvas, const Handle& handle,
                                   Plot::HandleState state) {
  if (handle.x) return ResponseView::paintHandle(canvas, handle, state);
  const double radius = Plot::handleRadius(bounds().size());
  const double length = state == Plot::HandleState::resting ? radius * 1.6 : radius * 2.2;
  canvas.fillRoundedRect(
      {handle.place.x - length / 2, handle.place.y - radius * 0.35, length, radius * 0.7},
      radius * 0.35, state == Plot::HandleState::resting ? stateAccent() : Theme::white);
}

}  // namespace kestroui
