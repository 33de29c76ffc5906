#include "KestroUI/SimpleCurveControl.h"

namespace kestroui {

using platform::Rect;

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

}  // namespace kestroui
