#include "KestroUI/GestureControl.h"

#include <algorithm>

namespace kestroui {

namespace {

// Keys and notches that come within this time of each other, in seconds, are one gesture.
constexpr double burstInterval = 0.4;
// A second tap that moves further than this, in points, is a drag after all.
constexpr double tapSlop = 4;

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
  const platform::Weak<GestureControl> self = this;
  // While a change can still be made, so that a button that is held goes back.
  if (!enabled) endPresses();
  if (self) Control::setEnabled(enabled);
}

platform::Accessibility GestureControl::accessibility() const {
  platform::Accessibility told{accessibilityRole(), accessibilityLabel()};
  if (described) described(told);
  if (told.value.empty()) told.value = ownValueText();
  return told;
}

// Presses

GestureControl::Press* GestureControl::pressOf(int touchId) {
  const auto found = std::find_if(presses_.begin(), presses_.end(), [touchId](const Press& press) {
    return press.touchId == touchId;
  });
  return found == presses_.end() ? nullptr : &*found;
}

bool GestureControl::isTouched() const {
  return std::any_of(presses_.begin(), presses_.end(),
                     [](const Press& press) { return press.grasp != Grasp::nothing; });
}

bool GestureControl::holdsValue() const {
  return std::any_of(presses_.begin(), presses_.end(),
                     [](const Press& press) { return press.grasp == Grasp::value; });
}

void GestureControl::touchBegan(const toolkit::Touch& touch) {
  if (!isEnabled()) return;
  const platform::Weak<GestureControl> self = this;
  presses_.push_back({touch.id, grasp(touch)});
  Control::touchBegan(touch);
  const Press* const press = self ? pressOf(touch.id) : nullptr;
  if (press && press->grasp == Grasp::value) take(touch);
  if (self) touchedNow();
}

void GestureControl::take(const toolkit::Touch& touch) {
  const platform::Weak<GestureControl> self = this;
  beginGesture();
  const Press* const press = self ? pressOf(touch.id) : nullptr;
  if (press && press->grasp == Grasp::value) pressed(touch);
}

void GestureControl::touchMoved(const toolkit::Touch& touch) {
  if (!pressOf(touch.id)) return;
  const platform::Weak<GestureControl> self = this;
  Control::touchMoved(touch);
  Press* const press = self ? pressOf(touch.id) : nullptr;
  if (!press || press->grasp == Grasp::nothing) return;
  if (press->grasp == Grasp::value) return slid(touch);
  const platform::Point way = touch.location - touch.startLocation;
  if (std::hypot(way.x, way.y) <= tapSlop) return;
  press->grasp = Grasp::value;
  take(touch);
}

void GestureControl::touchEnded(const toolkit::Touch& touch) {
  if (!pressOf(touch.id)) return;
  const platform::Weak<GestureControl> self = this;
  Control::touchEnded(touch);
  const Press* const press = self ? pressOf(touch.id) : nullptr;
  if (!press) return;
  const bool isSecondTap = press->grasp == Grasp::secondTap;
  if (finish(touch.id) && isSecondTap) doubleTap(touch);
}

void GestureControl::touchCancelled(const toolkit::Touch& touch) {
  if (!pressOf(touch.id)) return;
  const platform::Weak<GestureControl> self = this;
  Control::touchCancelled(touch);
  if (self) finish(touch.id);
}

bool GestureControl::finish(int touchId) {
  const platform::Weak<GestureControl> self = this;
  release(touchId);
  if (!self) return false;
  std::erase_if(presses_, [touchId](const Press& press) { return press.touchId == touchId; });
  touchedNow();
  return static_cast<bool>(self);
}

void GestureControl::release(int touchId) {
  Press* const press = pressOf(touchId);
  if (!press || press->grasp == Grasp::nothing) return;
  press->grasp = Grasp::nothing;
  const platform::Weak<GestureControl> self = this;
  letGo(touchId);
  if (self && !holdsValue()) endGesture();
}

void GestureControl::endPresses() {
  const platform::Weak<GestureControl> self = this;
  for (std::size_t i = 0; self && i < presses_.size(); ++i) release(presses_[i].touchId);
  // That of a burst.
  if (self) endGesture();
  if (self) touchedNow();
}

void GestureControl::tellDoubleTap() const {
  // A copy, since the action may destroy the control and with it the original.
  if (const auto action = doubleTapped) action();
}

// Gestures

void GestureControl::changeOnce(const std::function<void()>& change) {
  // Whoever drags the control has it to themselves.
  if (!isEnabled() || (inGesture_ && !burst_.isValid())) return;
  const platform::Weak<GestureControl> self = this;
  if (!inGesture_) beginGesture();
  if (!self) return;
  const bool hasLoop = foundation::RunLoop::mainIfAny() != nullptr;
  if (hasLoop)
    burst_ =
        foundation::Timer(burstInterval, foundation::Timer::Repeat::once, [this] { endGesture(); });
  change();
  if (self && !hasLoop) endGesture();
}

void GestureControl::beginGesture() {
  // A press that begins during a burst takes its gesture over.
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
