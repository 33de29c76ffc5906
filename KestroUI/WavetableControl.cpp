#include "KestroUI/WavetableControl.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace kestroui {

using platform::Color;
using platform::Path;
using platform::Rect;

namespace {

constexpr std::size_t periodLength = 64;
// How many waves stand behind each other at most.
constexpr std::size_t mostShown = 10;

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

WavetableControl::WavetableControl() : waves_(plainWaves()) { setValueCount(1); }

void WavetableControl::setWaves(std::vector<std::vector<float>> waves) {
  std::erase_if(waves, [](const std::vector<float>& wave) { return wave.empty(); });
  if (waves == waves_) return;
  waves_ = std::move(waves);
  setNeedsDisplay();
}

double WavetableControl::sample(double place, double phase) const {
  if (waves_.empty()) return 0;
  const auto at = [&](std::size_t wave) {
    const std::vector<float>& samples = waves_[wave];
    const double position = phase * static_cast<double>(samples.size());
    const auto index = static_cast<std::size_t>(position) % samples.size();
    const float value = samples[index];
    return std::isfinite(value) ? std::clamp(static_cast<double>(value), -1.0, 1.0) : 0.0;
  };
  const double exact = std::clamp(place, 0.0, 1.0) * static_cast<double>(waves_.size() - 1);
  const auto before = static_cast<std::size_t>(exact);
  const std::size_t after = std::min(before + 1, waves_.size() - 1);
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
      static_cast<std::size_t>(std::max(0.0, plot.height / 8)), 2, mostShown);
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
