#include "KestroUI/ADSRControl.h"

namespace kestroui {

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

}  // namespace kestroui
