#include "KestroUI/XYControl.h"

#include <algorithm>

namespace kestroui {

using platform::Color;
using platform::Rect;

void XYControl::setAxes(std::optional<std::size_t> x, std::optional<std::size_t> y) {
  if (x == x_ && y == y_) return;
  x_ = x;
  y_ = y;
  setNeedsDisplay();
}

void XYControl::setLit(bool lit) {
  if (lit == lit_) return;
  lit_ = lit;
  setNeedsDisplay();
}

void XYControl::touchedNow() {
  const platform::Weak<XYControl> self = this;
  ShapeControl::touchedNow();
  if (!self || isTouched() == touched_) return;
  touched_ = !touched_;
  if (const auto action = touchedChanged) action(touched_);
}

std::vector<ShapeControl::Handle> XYControl::handles() const {
  const auto x = x_ ? existing(*x_) : std::nullopt, y = y_ ? existing(*y_) : std::nullopt;
  if (!x && !y) return {};
  return {plotHandle(x, y)};
}

void XYControl::paintShape(platform::Canvas& canvas, const Rect& plot) {
  const Color accent = stateAccent();
  if (plot.width >= 24 && plot.height >= 24)
    Plot::paintGrid(canvas, plot, {0.25, 0.5, 0.75}, {0.25, 0.5, 0.75}, 0.3f);
  const std::vector<Handle> all = handles();
  if (all.empty()) return;
  const platform::Point at = all[0].place;
  // The room below and to the left of the point is what has been dialled in.
  const float strength = lit_ ? 0.3f : 0.16f;
  canvas.fillRect({plot.x, at.y, std::max(0.0, at.x - plot.x), std::max(0.0, plot.maxY() - at.y)},
                  platform::Paint({plot.x, plot.maxY()}, at,
                                  {{0, accent.withAlpha(accent.alpha * 0.02f)},
                                   {1, accent.withAlpha(accent.alpha * strength)}}));
  const Color hair = accent.withAlpha(accent.alpha * (lit_ ? 0.8f : 0.45f));
  if (all[0].x) canvas.fillRect({at.x - 0.5, 1, 1, std::max(0.0, bounds().height - 2)}, hair);
  if (all[0].y) canvas.fillRect({1, at.y - 0.5, std::max(0.0, bounds().width - 2), 1}, hair);
}

}  // namespace kestroui
