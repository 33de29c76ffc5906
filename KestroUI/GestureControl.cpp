#include "KestroUI/GestureControl.h"

#include <algorithm>

#include "KestroUI/Container.h"

namespace kestroui {

namespace {

// Keys and notches that come within this time of each other, in seconds, are one gesture.
constexpr double burstInterval = 0.4;

}  // namespace

void GestureControl::setAccentColor(platform::Color color) {
  if (color == accentColor_) return;
  accentColor_ = color;
  setNeedsDisplay();
}

void GestureControl::setInactive(bool inactive) {
  if (inactive == inactive_) return;
  inactive_ = inactive;
  setNeedsDisplay();
}

void GestureControl::setFaceScale(double scale) {
  if (!(scale > 0) || scale == faceScale_) return;
  faceScale_ = scale;
  setNeedsDisplay();
}

void GestureControl::firstResponderChanged() { setNeedsDisplay(); }

void GestureControl::setEnabled(bool enabled) {
  const platform::Weak<GestureControl> alive = this;
  if (!enabled) endGesture();
  if (alive) Control::setEnabled(enabled);
}

platform::Accessibility GestureControl::accessibility() const {
  platform::Accessibility told{accessibilityRole(), accessibilityLabel()};
  if (const auto* owner = dynamic_cast<const Container*>(superview())) {
    if (told.name.empty()) told.name = owner->accessibilityName();
    if (owner->control() == this) told.value = owner->valueText();
  }
  if (told.value.empty()) told.value = ownValueText();
  return told;
}

void GestureControl::changeOnce(const std::function<void()>& change) {
  // Whoever drags the control has it to themselves.
  if (!isEnabled() || (inGesture_ && !burst_.isValid())) return;
  const platform::Weak<GestureControl> alive = this;
  if (!inGesture_) beginGesture();
  if (!alive) return;
  const bool hasLoop = foundation::RunLoop::mainIfAny() != nullptr;
  if (hasLoop)
    burst_ =
        foundation::Timer(burstInterval, foundation::Timer::Repeat::once, [this] { endGesture(); });
  change();
  if (alive && !hasLoop) endGesture();
}

void GestureControl::beginGesture() {
  // A drag that begins during a burst takes its gesture over.
  burst_.invalidate();
  if (inGesture_) return;
  inGesture_ = true;
  setNeedsDisplay();
  sendActions(toolkit::ControlEvent::editingDidBegin);
}

void GestureControl::endGesture() {
  if (!inGesture_) return;
  burst_.invalidate();
  inGesture_ = false;
  setNeedsDisplay();
  sendActions(toolkit::ControlEvent::editingDidEnd);
}

platform::Color GestureControl::stateAccent() const {
  if (!isEnabled()) return Theme::muted(accentColor_).withAlpha(0.5f);
  const platform::Color color = inactive_ ? Theme::muted(accentColor_) : accentColor_;
  if (isHighlighted() || inGesture_) return color.mixed(Theme::white, 0.28f);
  return isHovered() ? color.mixed(Theme::white, 0.14f) : color;
}

platform::Color GestureControl::stateSurface() const {
  if (!isEnabled()) return Theme::surface.mixed(Theme::panel, 0.6f);
  const platform::Color color =
      inactive_ ? Theme::surface.mixed(Theme::panel, 0.4f) : Theme::surface;
  if (isHighlighted() || inGesture_) return color.mixed(Theme::surfaceRaised, 1.0f);
  return isHovered() ? color.mixed(Theme::surfaceRaised, 0.6f) : color;
}

platform::Font GestureControl::faceFont(const platform::Font& font, double faceHeight) const {
  const double readable = std::max(7.0, faceHeight * 0.46);
  return font.withSize(std::min({readable, faceHeight * 0.8, 12 * faceScale_}));
}

}  // namespace kestroui
