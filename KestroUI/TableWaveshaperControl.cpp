#include "KestroUI/TableWaveshaperControl.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

using platform::Path;
using platform::Point;
using platform::Rect;

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

}  // namespace kestroui
