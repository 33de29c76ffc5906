#include "KestroUI/DragControl.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

void DragControl::setOrigin(float position) {
  if (position == origin_ || std::isnan(position)) return;
  origin_ = std::clamp(position, 0.0f, 1.0f);
  setNeedsDisplay();
}

GestureControl::Grasp DragControl::grasp(const toolkit::Touch& touch) {
  return touch.tapCount == 2 && doubleTapped ? Grasp::secondTap : Grasp::value;
}

void DragControl::pressed(const toolkit::Touch&) { share_ = DraggedShare(shown(value())); }

void DragControl::slid(const toolkit::Touch& touch) {
  const platform::Weak<DragControl> self = this;
  const platform::Point way = touch.location - touch.previousLocation;
  const double points = dragAxis() == Axis::vertical ? -way.y : way.x;
  const double speed = has(touch.modifiers, platform::Modifiers::shift) ? 0.1 : 1.0;
  const double by = points * speed / std::max(1.0, dragLength());
  changeValue(valueAt(static_cast<float>(share_.moveBy(shown(value()), by))));
  if (self) share_.leaveAt(shown(value()));
}

bool DragControl::keyPressed(const platform::KeyEvent& event) {
  if (event.key != platform::Key::returnKey || !isEnabled() || !doubleTapped)
    return KestroControl::keyPressed(event);
  tellDoubleTap();
  return true;
}

}  // namespace kestroui
