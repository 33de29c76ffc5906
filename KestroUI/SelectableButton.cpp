#include "KestroUI/SelectableButton.h"

#include <algorithm>

namespace kestroui {

SelectableButton::SelectableButton() {
  setAccentColor(Theme::accent);
  setTitleColor(Theme::text);
}

void SelectableButton::paint(platform::Canvas& canvas) {
  const platform::Rect place = bounds();
  if (!(place.width >= 4) || !(place.height >= 4)) return;
  if (isSelected())
    canvas.fillRect(place, platform::Paint({0, place.y}, {0, place.maxY()},
                                           {{0, accentColor().withAlpha(0.0f)},
                                            {1, accentColor().withAlpha(0.13f)}}));
  paintState(canvas, 0);
  const double rule = std::clamp(place.height * 0.06, 1.5, 3.0);
  canvas.fillRect({place.x, place.maxY() - Theme::lineWidth, place.width, Theme::lineWidth},
                  Theme::line.withAlpha(0.6f));
  if (isSelected())
    canvas.fillRect({place.x, place.maxY() - rule, place.width, rule}, accentColor());
  const double size = std::min(font().pointSize, place.height * 0.5);
  const platform::Color color =
      isSelected() ? titleColor() : stateColor(isHovered() ? titleColor() : Theme::textDim);
  canvas.drawText(title(), font().withSize(size), place.inset(std::min(8.0, place.width * 0.05), 0),
                  platform::TextAlignment::centre, color);
}

}  // namespace kestroui
