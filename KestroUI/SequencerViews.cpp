#include "KestroUI/SequencerViews.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

using platform::Color;
using platform::Rect;

void SequencerView::setPlayhead(std::optional<float> step) {
  if (step && !(*step >= 0 && *step < static_cast<float>(valueCount()))) step = std::nullopt;
  if (step == playhead_) return;
  playhead_ = step;
  setNeedsDisplay();
}

Rect SequencerView::column(std::size_t index) const {
  const Rect area = plot();
  const double width = area.width / static_cast<double>(std::max<std::size_t>(1, valueCount()));
  return {area.x + width * static_cast<double>(index), area.y, width, area.height};
}

std::vector<ShapeControl::Handle> SequencerView::handles() const {
  std::vector<Handle> result;
  result.reserve(valueCount());
  for (std::size_t i = 0; i < valueCount(); ++i) {
    const Rect place = column(i);
    result.push_back(
        {std::nullopt, i, {place.midX(), place.maxY() - place.height * share(i)}, place.size()});
  }
  return result;
}

std::optional<std::size_t> SequencerView::handleAt(platform::Point location) const {
  if (valueCount() == 0) return std::nullopt;
  const Rect area = plot();
  const double share = area.width > 0 ? (location.x - area.x) / area.width : 0;
  if (std::isnan(share)) return std::nullopt;
  const double last = static_cast<double>(valueCount() - 1);
  return static_cast<std::size_t>(std::clamp(share * static_cast<double>(valueCount()), 0.0, last));
}

bool SequencerView::plays(std::size_t index) const {
  return playhead_ && static_cast<std::size_t>(*playhead_) == index;
}

void SequencerView::paintColumns(platform::Canvas& canvas, const Rect& plot) const {
  const std::optional<std::size_t> active = activeHandle();
  const auto count = static_cast<double>(valueCount());
  if (count > 0 && plot.width / count >= 4)
    for (std::size_t i = 0; i < valueCount(); ++i) {
      const Rect place = column(i);
      const double gap = std::min(1.5, place.width * 0.12);
      const bool isEvenGroup = (i / 4) % 2 == 0;
      const float strength = plays(i) ? 0.9f : active == i ? 0.75f : isEvenGroup ? 0.5f : 0.32f;
      canvas.fillRoundedRect(place.inset(gap, 0), 1.5, Theme::surface.withAlpha(strength));
    }
  if (plot.height >= 20) Plot::paintGrid(canvas, plot, {}, {valueCount() ? origin(0) : 0}, 0.8f);
}

void StepSequencerView::paintShape(platform::Canvas& canvas, const Rect& plot) {
  paintColumns(canvas, plot);
  const Color accent = stateAccent();
  const std::optional<std::size_t> active = activeHandle();
  for (std::size_t i = 0; i < valueCount(); ++i) {
    const Rect place = column(i);
    const double gap = std::min(1.5, place.width * 0.12);
    const double from = place.maxY() - place.height * origin(i);
    const double to = place.maxY() - place.height * share(i);
    const Color color = plays(i)      ? accent.mixed(Theme::white, 0.55f)
                        : active == i ? accent.mixed(Theme::white, 0.2f)
                                      : accent;
    const Rect bar{place.x + gap, std::min(from, to), place.width - 2 * gap, std::fabs(to - from)};
    if (bar.height >= 0.5)
      canvas.fillRoundedRect(
          bar, 1.5,
          platform::Paint({0, bar.y}, {0, bar.maxY()},
                          {{0, color.withAlpha(color.alpha * (to < from ? 0.8f : 0.35f))},
                           {1, color.withAlpha(color.alpha * (to < from ? 0.35f : 0.8f))}}));
    // The edge that a finger draws, shown for empty steps too.
    const double line = std::clamp(place.height * 0.03, 1.0, 2.5);
    const double edge = std::clamp(to - line / 2, place.y, std::max(place.y, place.maxY() - line));
    canvas.fillRoundedRect({bar.x, edge, bar.width, line}, line / 2, color);
  }
}

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
  const double limit = column(0).width * 0.22;
  const double radius = std::min(Plot::handleRadius(bounds().size()) * 0.75, limit);
  if (radius >= 1.25) Plot::paintHandle(canvas, handle.place, radius, stateAccent(), state);
}

}  // namespace kestroui
