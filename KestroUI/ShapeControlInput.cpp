// The part of ShapeControl that answers fingers, the mouse, the wheel and the keys.

#include "KestroUI/ShapeControl.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestroui {

using platform::Point;
using platform::Rect;

namespace {

// A finger this near to a handle, in points, holds it.
constexpr double reach = 22;

/// In the direction of `travel`.
double atLeastAPoint(double travel) {
  return std::copysign(std::max(1.0, std::fabs(travel)), travel);
}

}  // namespace

// Holds

bool ShapeControl::isHeld(std::size_t index) const {
  return std::find(holds_.begin(), holds_.end(), index) != holds_.end();
}

bool ShapeControl::isGripped(std::size_t index) const {
  return std::any_of(grips_.begin(), grips_.end(), [index](const Grip& grip) {
    return std::find(grip.held.begin(), grip.held.end(), index) != grip.held.end();
  });
}

bool ShapeControl::hold(const std::vector<std::size_t>& indices) {
  for (const std::size_t index : indices) {
    // Whoever was told of one before may have ended the gesture.
    if (!isInGesture() || isHeld(index)) continue;
    holds_.push_back(index);
    if (!tellHold(index, true)) return false;
  }
  return true;
}

bool ShapeControl::free(const std::vector<std::size_t>& indices) {
  for (const std::size_t index : indices)
    if (std::erase(holds_, index) > 0 && !tellHold(index, false)) return false;
  return true;
}

bool ShapeControl::tellHold(std::size_t index, bool held) {
  const platform::Weak<ShapeControl> self = this;
  // A copy, since the action may destroy the control and with it the original.
  if (const auto action = holdChanged) action(index, held);
  return static_cast<bool>(self);
}

void ShapeControl::endGesture() {
  const platform::Weak<ShapeControl> self = this;
  const std::vector<std::size_t> held = holds_;
  if (!free(held)) return;
  GestureControl::endGesture();
  if (self) noteActive();
}

void ShapeControl::tellDoubleTap(std::size_t index, const std::vector<Handle>& handles) {
  const auto own = std::find_if(handles.begin(), handles.end(), [index](const Handle& handle) {
    return handle.x == index || handle.y == index;
  });
  if (own == handles.end()) return;
  if (const auto action = valueDoubleTapped) action(index, keyOrder({*own}));
}

std::vector<std::size_t> ShapeControl::movedBy(const Handle& handle) const {
  std::vector<std::size_t> result;
  for (const std::optional<std::size_t>& own : {handle.x, handle.y})
    if (own)
      for (const std::size_t index : movedWith(*own, handle.movesAll))
        if (std::find(result.begin(), result.end(), index) == result.end()) result.push_back(index);
  return result;
}

std::size_t ShapeControl::meant(const Handle& handle) const {
  if (handle.x == chosen_ || handle.y == chosen_) return chosen_;
  return handle.x ? *handle.x : handle.y.value_or(0);
}

// Touches

ShapeControl::Grip* ShapeControl::gripOf(int touchId) {
  const auto found = std::find_if(grips_.begin(), grips_.end(),
                                  [touchId](const Grip& grip) { return grip.touchId == touchId; });
  return found == grips_.end() ? nullptr : &*found;
}

GestureControl::Grasp ShapeControl::grasp(const toolkit::Touch& touch) {
  const std::optional<std::size_t> found = handleAt(touch.locationIn(*this));
  if (!found || *found >= handles().size()) return Grasp::nothing;
  // One finger for each handle.
  for (const Grip& grip : grips_)
    if (grip.handle == *found) return Grasp::nothing;
  grips_.push_back({touch.id, *found, {}, {}, {}});
  return touch.tapCount == 2 && valueDoubleTapped ? Grasp::secondTap : Grasp::value;
}

void ShapeControl::pressed(const toolkit::Touch& touch) {
  Grip* grip = gripOf(touch.id);
  const std::vector<Handle> all = handles();
  if (!grip || grip->handle >= all.size()) return;
  const Handle& handle = all[grip->handle];
  const Point location = touch.locationIn(*this);
  choose(meant(handle));
  // A stroke takes hold of what it passes.
  if (isDrawn()) return drawTo(touch.id, location, location);
  grip->x = DraggedShare(handle.x ? share(*handle.x) : 0);
  grip->y = DraggedShare(handle.y ? share(*handle.y) : 0);
  const std::vector<std::size_t> held = grip->held = movedBy(handle);
  if (!hold(held)) return;
  grip = gripOf(touch.id);
  const Point way = location - handle.place;
  if (grip && jumpsToTouch() && std::hypot(way.x, way.y) > reach) dragBy(*grip, handle, way);
}

void ShapeControl::dragBy(Grip& grip, const Handle& handle, Point way) {
  if (!std::isfinite(way.x) || !std::isfinite(way.y)) return;
  bool changed = false;
  const auto move = [&](DraggedShare& dragged, std::size_t index, double by) {
    changed = moveTo(index, dragged.moveBy(share(index), by), handle.movesAll) || changed;
    dragged.leaveAt(share(index));
  };
  if (handle.x && way.x != 0) move(grip.x, *handle.x, way.x / atLeastAPoint(handle.travel.width));
  if (handle.y && way.y != 0) move(grip.y, *handle.y, -way.y / atLeastAPoint(handle.travel.height));
  if (handle.x && handle.y && way.x != way.y)
    choose(std::fabs(way.x) > std::fabs(way.y) ? *handle.x : *handle.y);
  tellMoved(changed);
}

void ShapeControl::tellMoved(bool changed) {
  const platform::Weak<ShapeControl> self = this;
  noteActive();
  if (self && changed) sendActions(toolkit::ControlEvent::valueChanged);
}

void ShapeControl::drawTo(int touchId, Point from, Point to) {
  const std::vector<Handle> all = handles();
  const auto first = handleAt(from), last = handleAt(to);
  if (!first || !last || *first >= all.size() || *last >= all.size()) return;
  const Rect area = plot();
  bool changed = false;
  for (std::size_t i = *first;; i = i < *last ? i + 1 : i - 1) {
    Grip* grip = gripOf(touchId);
    if (!grip) return;
    grip->handle = i;
    const double way = to.x != from.x ? (all[i].place.x - from.x) / (to.x - from.x) : 1;
    const double y = i == *last ? to.y : from.y + (to.y - from.y) * std::clamp(way, 0.0, 1.0);
    const std::optional<std::size_t> index = all[i].y;
    if (index && !isGripped(*index)) {
      grip->held.push_back(*index);
      if (!hold({*index})) return;
      grip = gripOf(touchId);
    }
    // What another finger holds stays with that.
    if (index && grip &&
        std::find(grip->held.begin(), grip->held.end(), *index) != grip->held.end()) {
      choose(*index);
      changed = moveTo(*index, (area.maxY() - y) / std::max(1.0, area.height)) || changed;
    }
    if (i == *last) break;
  }
  tellMoved(changed);
}

void ShapeControl::slid(const toolkit::Touch& touch) {
  Grip* const grip = gripOf(touch.id);
  const std::vector<Handle> all = handles();
  if (!grip || grip->handle >= all.size()) return;
  const Handle& handle = all[grip->handle];
  const bool isFine = has(touch.modifiers, platform::Modifiers::shift);
  if (isDrawn() && !isFine)
    return drawTo(touch.id, touch.previousLocationIn(*this), touch.locationIn(*this));
  const Point way = touch.location - touch.previousLocation;
  const double speed = isFine ? 0.1 : 1.0;
  if (isDrawn()) grip->y = DraggedShare(handle.y ? share(*handle.y) : 0);
  dragBy(*grip, handle, {way.x * speed, way.y * speed});
}

void ShapeControl::letGo(int touchId) {
  const Grip* const grip = gripOf(touchId);
  if (!grip) return;
  std::vector<std::size_t> held = grip->held;
  std::erase_if(grips_, [&](const Grip& other) { return other.touchId == touchId; });
  // Another finger may hold the same value by a handle that is linked.
  std::erase_if(held, [this](std::size_t index) { return isGripped(index); });
  free(held);
}

void ShapeControl::doubleTap(const toolkit::Touch& touch) {
  const std::vector<Handle> all = handles();
  const auto found = handleAt(convertFromRoot(touch.startLocation));
  if (found && *found < all.size()) tellDoubleTap(meant(all[*found]), {all[*found]});
}

// Mouse and focus

void ShapeControl::hoverMoved(Point location) {
  const std::optional<std::size_t> found = handleAt(location);
  if (found == hoveredHandle_) return;
  hoveredHandle_ = found;
  setNeedsDisplay();
  noteActive();
}

void ShapeControl::hoverChanged(bool hovered) {
  if (!hovered) hoveredHandle_.reset();
  GestureControl::hoverChanged(hovered);
  noteActive();
}

void ShapeControl::firstResponderChanged() {
  GestureControl::firstResponderChanged();
  noteActive();
}

// Wheel and keys

void ShapeControl::nudge(std::size_t index, double shareBy, bool all) {
  choose(index);
  setNeedsDisplay();
  const double target = share(index) + shareBy;
  changeOnce([this, index, target, all, together = movedWith(index, all)] {
    if (hold(together)) tellMoved(moveTo(index, target, all));
  });
}

bool ShapeControl::wheelTurned(const platform::WheelEvent& event) {
  // Some systems turn a wheel sideways while Shift is held.
  double turned = event.deltaY != 0 ? event.deltaY : event.deltaX;
  if (!isEnabled() || turned == 0) return false;
  const std::optional<std::size_t> found = handleAt(convertFromRoot(event.location));
  const std::vector<Handle> all = handles();
  if (!found || *found >= all.size()) return false;
  const Handle& handle = all[*found];
  const std::optional<std::size_t> index = handle.y ? handle.y : handle.x;
  if (!index) return false;
  if (at(*index) && at(*index)->stepCount > 0) {
    wheelRest_ += turned;
    turned = std::trunc(wheelRest_);
    wheelRest_ -= turned;
  } else if (has(event.modifiers, platform::Modifiers::shift)) {
    turned *= 0.1;
  }
  if (turned != 0) nudge(*index, turned * stepShare(*index), handle.movesAll);
  return true;
}

std::vector<std::size_t> ShapeControl::keyOrder(const std::vector<Handle>& handles) const {
  std::vector<std::size_t> order;
  for (const Handle& handle : handles)
    for (const std::optional<std::size_t>& index : {handle.x, handle.y})
      if (index && std::find(order.begin(), order.end(), *index) == order.end())
        order.push_back(*index);
  return order;
}

bool ShapeControl::keyPressed(const platform::KeyEvent& event) {
  using platform::Key;
  using platform::Modifiers;
  const auto foreign = Modifiers::control | Modifiers::alt | Modifiers::command;
  if (!isEnabled() || has(event.modifiers, foreign)) return false;
  const std::vector<Handle> all = handles();
  const std::vector<std::size_t> order = keyOrder(all);
  if (order.empty()) return false;
  auto chosen = std::find(order.begin(), order.end(), chosen_);
  if (chosen == order.end()) chosen = order.begin();
  if (event.key == Key::returnKey) {
    if (!valueDoubleTapped) return false;
    tellDoubleTap(*chosen, all);
    return true;
  }

  // What goes sideways: the next value, or the value itself where there is nothing to choose.
  const bool isPad = all.size() == 1 && all[0].x && all[0].y;
  const std::size_t upwards = isPad ? *all[0].y : *chosen;
  const std::size_t sideways = isPad ? *all[0].x : *chosen;
  const bool chooses = !isPad && order.size() > 1;
  const bool isFine = has(event.modifiers, Modifiers::shift);
  const auto one = [&](std::size_t index) {
    const bool stepped = at(index) && at(index)->stepCount > 0;
    return stepShare(index) * (isFine && !stepped ? 0.1 : 1.0);
  };
  const auto goTo = [&](std::vector<std::size_t>::const_iterator next) {
    choose(*next);
    setNeedsDisplay();
    noteActive();
  };
  switch (event.key) {
    case Key::left:
      if (chooses)
        goTo(chosen == order.begin() ? chosen : chosen - 1);
      else
        nudge(sideways, -one(sideways));
      return true;
    case Key::right:
      if (chooses)
        goTo(chosen + 1 == order.end() ? chosen : chosen + 1);
      else
        nudge(sideways, one(sideways));
      return true;
    case Key::up:
      nudge(upwards, one(upwards));
      return true;
    case Key::down:
      nudge(upwards, -one(upwards));
      return true;
    case Key::pageUp:
      nudge(upwards, 10 * one(upwards));
      return true;
    case Key::pageDown:
      nudge(upwards, -10 * one(upwards));
      return true;
    case Key::home:
      nudge(upwards, -1);
      return true;
    case Key::end:
      nudge(upwards, 1);
      return true;
    default:
      return false;
  }
}

}  // namespace kestroui
