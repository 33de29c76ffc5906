#include "KestroUI/StepSequencerView.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

using platform::Color;
using platform::Rect;

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

}  // namespace kestroui
