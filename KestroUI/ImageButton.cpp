#include "KestroUI/ImageButton.h"

#include <algorithm>

namespace kestroui {

using platform::Rect;

void ImageButton::paint(platform::Canvas& canvas) {
  Rect place = bounds();
  if (!(place.width >= 4) || !(place.height >= 4)) return;
  paintState(canvas, Theme::cornerRadius + 1);
  const platform::Color color = stateColor(titleColor());
  if (title().empty()) {
    const double margin = std::min(place.width, place.height) * 0.12;
    image().draw(canvas, place.inset(margin, margin), color);
    return;
  }
  if (!image().isEmpty()) {
    const double natural =
        image().size().height > 0 ? image().size().width / image().size().height : 1;
    const double height = place.height * 0.64;
    const double width = std::min(height * natural, place.width * 0.5);
    const double margin = (place.height - height) / 2;
    image().draw(canvas, {place.x + margin, place.y + margin, width, height}, color);
    place = {place.x + margin + width, place.y, place.width - margin - width, place.height};
  }
  place = place.inset(std::min(8.0, place.width * 0.06), 0);
  const double size = std::min(font().pointSize, place.height * 0.62);
  if (place.width > 4 && size >= 4)
    canvas.drawText(title(), font().withSize(size), place, platform::TextAlignment::left, color);
}

}  // namespace kestroui
