#include "KestroUI/CurveSequencerView.h"

#include <algorithm>

namespace kestroui {

using platform::Rect;

void CurveSequencerView::paintShape(platform::Canvas& canvas, const Rect& plot) {
  paintColumns(canvas, plot);
  if (valueCount() == 0) return;
  std::vector<platform::Point> points;
  for (const Handle& handle : handles()) points.push_back(handle.place);
  // Level before the first and after the last step.
  points.insert(points.begin(), {plot.x, points.front().y});
  points.push_back({plot.maxX(), points.back().y});
  const double base = plot.maxY() - plot.height * origin(0);
  Plot::paintCurve(canvas, Plot::smoothCurve(points), plot, base, stateAccent());
  if (!playhead()) return;
  const double x = column(0).x + column(0).width * static_cast<double>(*playhead());
  canvas.fillRect({std::min(x, plot.maxX() - 1), plot.y, 1, plot.height},
                  Theme::white.withAlpha(0.8f));
}

void CurveSequencerView::paintHandle(platform::Canvas& canvas, const Handle& handle,
                                     Plot::HandleState state) {
  // Narrow steps are drawn as a curve alone.
  const double most = column(0).width * 0.22;
  const double radius = std::min(Plot::handleRadius(bounds().size()) * 0.75, most);
  if (radius >= 1.25) Plot::paintHandle(canvas, handle.place, radius, stateAccent(), state);
}

}  // namespace kestroui
