#include "KestroUI/DragControl.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

namespace {

// A second tap that moves further than this, in points, is a drag after all.
constexpr double tapSlop = 4;

}  // namespace

void DragControl::setOrigin(float position) {
  if (position == origin_ || std::isnan(position)) return;
  origin_ = std::clamp(position, 0.0f, 1.0f);
  setNeedsDisplay();
}

void DragControl::touchBegan(const toolkit::Touch& touch) {
  if (touchId_ || !isEnabled()) return;
  const platform::Weak<DragControl> alive = this;
  touchId_ = touch.id;
  KestroControl::touchBegan(touch);
  if (!alive) return;
  if (touch.tapCount == 2 && doubleTapped)
    phase_ = Phase::secondTap;
  else
    startDrag();
}

void DragControl::startDrag() {
  phase_ = Phase::dragging;
  share_ = DraggedShare(shown(value()));
  beginGesture();
}

void DragControl::touchMoved(const toolkit::Touch& touch) {
  if (touch.id != touchId_) return;
  const platform::Weak<DragControl> alive = this;
  KestroControl::touchMoved(touch);
  if (!alive) return;
  if (phase_ == Phase::secondTap) {
    const platform::Point way = touch.location - touch.startLocation;
    if (std::hypot(way.x, way.y) <= tapSlop) return;
    startDrag();
    return;
  }
  if (phase_ != Phase::dragging) return;
  const platform::Point way = touch.location - touch.previousLocation;
  const double points = dragAxis() == Axis::vertical ? -way.y : way.x;
  const double speed = has(touch.modifiers, platform::Modifiers::shift) ? 0.1 : 1.0;
  const double by = points * speed / std::max(1.0, dragLength());
  changeValue(valueAt(static_cast<float>(share_.moveBy(shown(value()), by))));
  if (alive) share_.leaveAt(shown(value()));
}

void DragControl::touchEnded(const toolkit::Touch& touch) {
  if (touch.id != touchId_) return;
  const platform::Weak<DragControl> alive = this;
  const Phase phase = phase_;
  phase_ = Phase::none;
  touchId_.reset();
  KestroControl::touchEnded(touch);
  if (!alive) return;
  if (phase == Phase::dragging) endGesture();
  if (phase != Phase::secondTap || !doubleTapped) return;
  // A copy, since the action may destroy the control and with it the original.
  const std::function<void()> action = doubleTapped;
  action();
}

void DragControl::touchCancelled(const toolkit::Touch& touch) {
  if (touch.id != touchId_) return;
  const platform::Weak<DragControl> alive = this;
  phase_ = Phase::none;
  touchId_.reset();
  KestroControl::touchCancelled(touch);
  if (alive) endGesture();
}

bool DragControl::keyPressed(const platform::KeyEvent& event) {
  if (event.key == platform::Key::returnKey && isEnabled() && doubleTapped) {
    const std::function<void()> action = doubleTapped;
    action();
    return true;
  }
  return KestroControl::keyPressed(event);
}

}  // namespace kestroui
