#include "KestroUI/DiceButton.h"

#include <algorithm>

#include "KestroUI/Icons.h"

namespace kestroui {

void DiceButton::setHighlighted(bool highlighted) {
  // 5, 1, 3, 2, 6, 4 and again: each throw shows another number than the one before.
  if (highlighted && !isHighlighted()) pips_ = pips_ * 3 % 7;
  KestroButton::setHighlighted(highlighted);
}

void DiceButton::paint(platform::Canvas& canvas) {
  const double side = std::min(bounds().width, bounds().height) * 0.5;
  if (!(side >= 4)) return;
  paintState(canvas, Theme::cornerRadius + 1);
  const auto centre = bounds().centre();
  const platform::Color color = stateColor(titleColor());
  const platform::Rect die{centre.x - side / 2, centre.y - side / 2, side, side};
  canvas.strokeRoundedRect(die, side * 0.2, std::max(1.25, side * 0.08), color);
  const double radius = side * 0.085, far = side * 0.24;
  const auto pip = [&](double dx, double dy) {
    canvas.fillEllipse(
        {centre.x + dx * far - radius, centre.y + dy * far - radius, 2 * radius, 2 * radius},
        color);
  };
  if (pips_ % 2 == 1) pip(0, 0);
  if (pips_ >= 2) {
    pip(-1, -1);
    pip(1, 1);
  }
  if (pips_ >= 4) {
    pip(1, -1);
    pip(-1, 1);
  }
  if (pips_ == 6) {
    pip(-1, 0);
    pip(1, 0);
  }
}

}  // namespace kestroui
