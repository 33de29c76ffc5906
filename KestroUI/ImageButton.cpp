#include "KestroUI/ImageButton.h"

#include <algorithm>

namespace kestroui {

using platform::Rect;

void ImageButton::paint(platform::Canvas& canvas) {
  const Rect whole = bounds();
  if (!(whole.width >= 4) || !(whole.height >= 4)) return;
  const double radius = Theme::cornerRadius + 1;
  const platform::Color color = stateColor(titleColor());
  if (title().empty()) {
    paintState(canvas, radius);
    const double margin = std::min(whole.width, whole.height) * 0.12;
    image().draw(canvas, whole.inset(margin, margin), color);
    return;
  }
  Rect picture{whole.x, whole.y, 0, whole.height};
  if (!image().isEmpty()) {
    const double natural =
        image().size().height > 0 ? image().size().width / image().size().height : 1;
    const double height = whole.height * 0.64;
    const double width = std::min(height * natural, whole.width * 0.5);
    const double margin = (whole.height - height) / 2;
    picture = {whole.x + margin, whole.y + margin, width, height};
  }
  const double gap = std::min(8.0, (whole.width - picture.maxX()) * 0.06);
  const Rect place{picture.maxX() + gap, whole.y, whole.maxX() - picture.maxX() - 2 * gap,
                   whole.height};
  const platform::Font titleFont = font().withSize(std::min(font().pointSize, place.height * 0.62));
  const double textWidth = std::min(canvas.textWidth(title(), titleFont), place.width);
  // A wide frame is easy to hit; what shows that it is hit goes no farther than the title.
  paintState(canvas, radius,
             Rect{whole.x, whole.y, place.x + textWidth + 2 * gap - whole.x, whole.height}
                 .intersection(whole)
                 .inset(0, whole.height * 0.06));
  image().draw(canvas, picture, color);
  if (place.width > 4 && titleFont.pointSize >= 4)
    canvas.drawText(title(), titleFont, place, platform::TextAlignment::left, color);
}

}  // namespace kestroui
