#include "KestroUI/ArrowButton.h"

#include <algorithm>

#include "KestroUI/Icons.h"

namespace kestroui {

void ArrowButton::setDirection(Direction direction) {
  if (direction == direction_) return;
  direction_ = direction;
  setNeedsDisplay();
}

void ArrowButton::paint(platform::Canvas& canvas) {
  const double side = std::min(bounds().width, bounds().height) * 0.42;
  if (!(side >= 2)) return;
  paintState(canvas, Theme::cornerRadius + 1);
  const auto centre = bounds().centre();
  const platform::Rect place{centre.x - side / 2, centre.y - side / 2, side, side};
  path_ = Icons::fitted(
      direction_ == Direction::left ? Icons::chevronLeft() : Icons::chevronRight(), place);
  canvas.strokePath(path_, {std::clamp(side * 0.14, 1.25, 3.0)}, stateColor(titleColor()));
}

}  // namespace kestroui
