#include "KestroUI/StarButton.h"

#include <algorithm>

#include "KestroUI/Icons.h"

namespace kestroui {

StarButton::StarButton() { setAccentColor(platform::Color::rgb(0xf2c14e)); }

void StarButton::paint(platform::Canvas& canvas) {
  const double side = std::min({bounds().width, bounds().height, 48.0}) * 0.52;
  if (!(side >= 3)) return;
  const auto centre = bounds().centre();
  path_ = Icons::fitted(Icons::star(), {centre.x - side / 2, centre.y - side / 2, side, side});
  if (isSelected()) {
    canvas.fillPath(path_, stateColor(accentColor()));
    return;
  }
  const bool near = isHovered() || isHighlighted() || isFirstResponder();
  canvas.strokePath(path_, {std::max(1.0, side * 0.07)},
                    near ? accentColor() : Theme::textDim.withAlpha(0.7f));
}

}  // namespace kestroui
