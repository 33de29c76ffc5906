#include "KestroUI/CurveControls.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace kestroui {

using platform::Color;
using platform::Path;
using platform::Point;
using platform::Rect;

std::optional<std::size_t> ADSRControl::indexOf(Stage stage) const {
  if (valueCount() != 2) return existing(static_cast<std::size_t>(stage));
  if (stage == Stage::attack) return 0;
  return stage == Stage::release ? std::optional<std::size_t>(1) : std::nullopt;
}

ADSRControl::Corners ADSRControl::corners() const {
  const Rect area = plot();
  const auto shareOf = [&](Stage stage, double missing) {
    const std::optional<std::size_t> index = indexOf(stage);
    return index ? share(*index) : missing;
  };
  // Each time has a place of its own, so that the release stands still while the decay moves.
  const double stage = area.width * 0.3;
  const double level = area.maxY() - area.height * shareOf(Stage::sustain, 1);
  const double peak = area.x + stage * shareOf(Stage::attack, 0);
  const double bend = peak + stage * shareOf(Stage::decay, 0);
  const double hold = area.maxX() - stage;
  const double end = hold + stage * shareOf(Stage::release, 0);
  return {{area.x, area.maxY()}, {peak, area.y},     {bend, level},
          {hold, level},         {end, area.maxY()}, stage};
}

std::vector<ShapeControl::Handle> ADSRControl::handles() const {
  const Corners at = corners();
  const platform::Size travel{at.stageWidth, plot().height};
  std::vector<Handle> result;
  if (const auto attack = indexOf(Stage::attack))
    result.push_back({attack, std::nullopt, at.peak, travel});
  const auto decay = indexOf(Stage::decay), sustain = indexOf(Stage::sustain);
  if (decay || sustain) result.push_back({decay, sustain, at.bend, travel});
  if (const auto release = indexOf(Stage::release))
    result.push_back({release, std::nullopt, at.end, travel});
  return result;
}

void ADSRControl::paintShape(platform::Canvas& canvas, const Rect& plot) {
  const Corners at = corners();
  if (plot.width >= 40 && plot.height >= 24)
    Plot::paintGrid(canvas, plot, {0.3, 0.6, 0.7}, {0.25, 0.5, 0.75}, 0.3f);
  // Each stage starts fast and arrives slowly, as a capacitor is charged.
  const auto charge = [](Path& path, Point from, Point to) {
    path.quadTo({from.x + (to.x - from.x) * 0.3, from.y + (to.y - from.y) * 0.8}, to);
  };
  Path curve;
  curve.moveTo(at.start);
  charge(curve, at.start, at.peak);
  charge(curve, at.peak, at.bend);
  curve.lineTo(at.hold);
  charge(curve, at.hold, at.end);
  Plot::paintCurve(canvas, curve, plot, plot.maxY(), stateAccent());
}

std::vector<ShapeControl::Handle> SimpleCurveControl::handles() const {
  const Rect area = plot();
  const double last = valueCount() > 1 ? static_cast<double>(valueCount() - 1) : 1;
  std::vector<Handle> result;
  for (std::size_t i = 0; i < valueCount(); ++i) {
    result.push_back(plotHandle(std::nullopt, i));
    if (valueCount() > 1)
      result.back().place.x = area.x + area.width * static_cast<double>(i) / last;
  }
  return result;
}

void SimpleCurveControl::paintShape(platform::Canvas& canvas, const Rect& plot) {
  if (plot.width >= 30 && plot.height >= 20)
    Plot::paintGrid(canvas, plot, {0.25, 0.5, 0.75}, {0.25, 0.5, 0.75}, 0.3f);
  std::vector<platform::Point> points;
  for (const Handle& handle : handles()) points.push_back(handle.place);
  if (points.empty()) return;
  if (points.size() == 1) points = {{plot.x, points[0].y}, points[0], {plot.maxX(), points[0].y}};
  const double base = plot.maxY() - plot.height * origin(0);
  Plot::paintCurve(canvas, Plot::smoothCurve(points), plot, base, stateAccent());
}

double TableWaveshaperControl::xOf(std::size_t index) const {
  const Rect place = plot();
  const std::size_t count = valueCount();
  // A single point bends the curve in its middle.
  return count < 2
             ? place.midX()
             : place.x + place.width * static_cast<double>(index) / static_cast<double>(count - 1);
}

std::vector<ShapeControl::Handle> TableWaveshaperControl::handles() const {
  const Rect place = plot();
  std::vector<Handle> result(valueCount());
  for (std::size_t i = 0; i < result.size(); ++i) {
    result[i].y = i;
    result[i].place = {xOf(i), place.maxY() - place.height * share(i)};
    result[i].travel.height = place.height;
  }
  return result;
}

std::optional<std::size_t> TableWaveshaperControl::handleAt(Point location) const {
  if (valueCount() == 0) return std::nullopt;
  // The column decides: points of one column cannot be told apart by height.
  const Rect place = plot();
  const double at =
      (location.x - place.x) / std::max(1.0, place.width) * static_cast<double>(valueCount() - 1);
  return static_cast<std::size_t>(
      std::lround(std::clamp(at, 0.0, static_cast<double>(valueCount() - 1))));
}

Path TableWaveshaperControl::path(Source source) const {
  const Rect place = plot();
  std::vector<Point> points;
  points.reserve(valueCount() + 2);
  if (valueCount() < 2) points.push_back({place.x, place.maxY()});
  for (std::size_t i = 0; i < valueCount(); ++i) {
    const auto live = source == Source::live ? liveShare(i) : std::nullopt;
    points.push_back({xOf(i), place.maxY() - place.height * live.value_or(share(i))});
  }
  if (valueCount() < 2) points.push_back({place.maxX(), place.y});
  return Plot::smoothCurve(points);
}

void TableWaveshaperControl::paintShape(platform::Canvas& canvas, const Rect& place) {
  Plot::paintGrid(canvas, place, {0.25, 0.75}, {0.25, 0.75}, 0.25f);
  Plot::paintGrid(canvas, place, {0.5}, {0.5}, 0.6f);
  Path unity;
  unity.moveTo({place.x, place.maxY()});
  unity.lineTo({place.maxX(), place.y});
  canvas.strokePath(unity, {0.75}, Theme::line);
  Plot::paintCurve(canvas, path(Source::set), place, place.midY(), stateAccent());
  bool live = false;
  for (std::size_t i = 0; i < valueCount() && !live; ++i) live = liveShare(i).has_value();
  if (live) canvas.strokePath(path(Source::live), {1}, stateAccent().mixed(Theme::white, 0.5f));
}

void TableWaveshaperControl::paintHandle(platform::Canvas& canvas, const Handle& handle,
                                         Plot::HandleState state) {
  // Many points are small ones, until there is no room to see them apart.
  const double room = plot().width / std::max(1.0, static_cast<double>(valueCount()));
  if (room < 5 && state == Plot::HandleState::resting) return;
  const double radius = std::min(Plot::handleRadius(bounds().size()), std::max(2.0, room * 0.28));
  Plot::paintHandle(canvas, handle.place, radius, stateAccent(), state);
}

namespace {

constexpr std::size_t periodLength = 64;
// How many waves stand behind each other at most.
constexpr std::size_t maxShown = 10;

std::vector<std::vector<float>> plainWaves() {
  std::vector<std::vector<float>> waves(4, std::vector<float>(periodLength));
  for (std::size_t i = 0; i < periodLength; ++i) {
    const double phase = static_cast<double>(i) / periodLength;
    const double turn = 2 * std::numbers::pi * phase;
    waves[0][i] = static_cast<float>(std::sin(turn));
    waves[1][i] = static_cast<float>(std::asin(std::sin(turn)) * 2 / std::numbers::pi);
    waves[2][i] = static_cast<float>(1 - 2 * phase);
    waves[3][i] = phase < 0.5 ? 1.0f : -1.0f;
  }
  return waves;
}

}  // namespace

WavetableControl::WavetableControl() { setValueCount(1); }

void WavetableControl::setWaves(std::shared_ptr<const platform::SampleData> table) {
  if (table == table_) return;
  table_ = std::move(table);
  setNeedsDisplay();
}

const std::vector<std::vector<float>>& WavetableControl::waves() const {
  static const std::vector<std::vector<float>> plain = plainWaves();
  const bool isWhole = table_ && !table_->channels.empty() &&
                       std::none_of(table_->channels.begin(), table_->channels.end(),
                                    [](const auto& wave) { return wave.empty(); });
  return isWhole ? table_->channels : plain;
}

double WavetableControl::sample(double place, double phase) const {
  const std::vector<std::vector<float>>& all = waves();
  const auto at = [&](std::size_t wave) {
    const std::vector<float>& samples = all[wave];
    const double position = phase * static_cast<double>(samples.size());
    const auto index = static_cast<std::size_t>(position) % samples.size();
    const float value = samples[index];
    return std::isfinite(value) ? std::clamp(static_cast<double>(value), -1.0, 1.0) : 0.0;
  };
  const double exact = std::clamp(place, 0.0, 1.0) * static_cast<double>(all.size() - 1);
  const auto before = static_cast<std::size_t>(exact);
  const std::size_t after = std::min(before + 1, all.size() - 1);
  return std::lerp(at(before), at(after), exact - static_cast<double>(before));
}

Rect WavetableControl::waveFrame(double place) const {
  const Rect area = plot();
  // Further waves stand higher and a little to the right.
  const double height = area.height * 0.34, width = area.width * 0.82;
  return {area.x + (area.width - width) * place,
          area.maxY() - height - (area.height - height) * place, width, height};
}

Path WavetableControl::wave(double place, std::size_t points) const {
  const Rect frame = waveFrame(place);
  const double level = existing(1) ? 0.25 + 0.75 * share(1) : 1;
  Path path;
  for (std::size_t i = 0; i <= points; ++i) {
    const double phase = static_cast<double>(i) / static_cast<double>(points);
    const double value = sample(place, std::min(phase, 0.9999));
    const platform::Point point{frame.x + frame.width * phase,
                                frame.midY() - frame.height / 2 * value * level};
    if (i == 0)
      path.moveTo(point);
    else
      path.lineTo(point);
  }
  return path;
}

std::vector<ShapeControl::Handle> WavetableControl::handles() const {
  if (valueCount() == 0) return {};
  const Rect frame = waveFrame(share(0));
  const Rect area = plot();
  const double x = existing(1) ? frame.x + frame.width * share(1) : frame.maxX();
  return {{existing(1),
           0,
           {x, frame.midY()},
           {existing(1) ? frame.width : area.width, area.height - frame.height}}};
}

void WavetableControl::paintShape(platform::Canvas& canvas, const Rect& plot) {
  const auto points = static_cast<std::size_t>(std::clamp(plot.width / 2, 8.0, 64.0));
  const std::size_t shown = std::clamp<std::size_t>(
      static_cast<std::size_t>(std::max(0.0, plot.height / 8)), 2, maxShown);
  const Color accent = stateAccent();
  const double place = liveShare(0).value_or(valueCount() ? share(0) : 0);
  // From the back to the front, the one that sounds between its neighbours.
  bool isPainted = valueCount() == 0;
  const auto paintOwn = [&] {
    const Rect frame = waveFrame(place);
    Plot::paintCurve(canvas, wave(place, points), frame, frame.midY(), accent);
    isPainted = true;
  };
  for (std::size_t i = shown; i-- > 0;) {
    const double at = static_cast<double>(i) / static_cast<double>(shown - 1);
    if (!isPainted && place >= at) paintOwn();
    canvas.strokePath(
        wave(at, points), {0.75},
        Theme::line.mixed(accent, 0.45f).withAlpha(0.75f - 0.4f * static_cast<float>(at)));
  }
  if (!isPainted) paintOwn();
}

}  // namespace kestroui
