#include "KestroUI/SimpleButton.h"

#include <algorithm>

namespace kestroui {

using platform::Rect;

void SimpleButton::paint(platform::Canvas& canvas) {
  Rect place = bounds();
  if (!(place.width >= 4) || !(place.height >= 4)) return;
  const bool bordered = layer().borderWidth() > 0;
  const double radius = bordered ? layer().cornerRadius() : Theme::cornerRadius + 1;
  if (!bordered) {
    canvas.fillRoundedRect(place, radius,
                           isEnabled() ? Theme::surface : Theme::surface.mixed(Theme::panel, 0.6f));
    canvas.strokeRoundedRect(place.inset(0.5, 0.5), radius, 1, Theme::line);
  }
  paintState(canvas, radius);
  const platform::Color color = stateColor(titleColor());
  place = place.inset(std::min(8.0, place.width * 0.06), 0);
  if (!image().isEmpty()) {
    const double side = std::min(place.height * 0.6, place.width);
    const bool alone = title().empty();
    // As far from the edge as from top and bottom.
    const double x = alone ? place.midX() - side / 2 : std::max(place.x, (place.height - side) / 2);
    image().draw(canvas, {x, place.midY() - side / 2, side, side}, color);
    if (alone) return;
    place = {x + side + 4, place.y, place.maxX() - x - side - 4, place.height};
  }
  const double size = std::min(font().pointSize, place.height * 0.62);
  if (place.width > 4 && size >= 4)
    canvas.drawText(title(), font().withSize(size), place, platform::TextAlignment::centre, color);
}

}  // namespace kestroui
