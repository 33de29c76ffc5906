#include "KestroUI/KestroButton.h"

#include <algorithm>

namespace kestroui {

KestroButton::KestroButton() { setFont(Theme::smallTitleFont); }

void KestroButton::setAccentColor(platform::Color color) {
  if (color == accentColor_) return;
  accentColor_ = color;
  setNeedsDisplay();
}

void KestroButton::firstResponderChanged() { setNeedsDisplay(); }

platform::Color KestroButton::stateColor(platform::Color color) const {
  if (!isEnabled()) return color.withAlpha(color.alpha * 0.35f);
  if (isHighlighted()) return color.mixed(Theme::accent, 0.45f);
  return isHovered() ? color : color.mixed(Theme::lightGrey, 0.3f);
}

void KestroButton::paintState(platform::Canvas& canvas, double radius, const platform::Rect& face) {
  if (isEnabled() && (isHovered() || isHighlighted()))
    canvas.fillRoundedRect(face, radius, Theme::white.withAlpha(isHighlighted() ? 0.14f : 0.07f));
  if (isFirstResponder())
    canvas.strokeRoundedRect(face.inset(0.5, 0.5), radius, 1, Theme::accent.withAlpha(0.8f));
}

}  // namespace kestroui
