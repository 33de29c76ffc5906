// The part of ShapeControl that answers the wheel and the keys.

#include <algorithm>
#include <cmath>

#include "KestroUI/ShapeControl.h"

namespace kestroui {

void ShapeControl::nudge(std::size_t index, double shareBy, bool all) {
  choose(index);
  setNeedsDisplay();
  const double target = share(index) + shareBy;
  changeOnce([this, index, target, all] {
    const platform::Weak<ShapeControl> alive = this;
    for (const std::size_t moved : movedWith(index, all))
      if (alive && !isHeld(moved)) hold(moved);
    if (!alive) return;
    const bool changed = moveTo(index, target, all);
    noteActive();
    if (alive && changed) sendActions(toolkit::ControlEvent::valueChanged);
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
    tellDoubleTap(*chosen);
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
