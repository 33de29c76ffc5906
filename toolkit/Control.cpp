#include "toolkit/Control.h"

#include <algorithm>

namespace toolkit {

using platform::Weak;

void Control::addRegistration(WeakTarget* target, const void* action, Call call,
                              ControlEvent events) {
  for (Registration& r : registrations_) {
    if (r.target == target && r.action == action) {
      r.events |= static_cast<unsigned>(events);
      return;
    }
  }
  std::erase_if(registrations_, [](const Registration& r) { return !r.target; });
  registrations_.push_back({target, action, call, static_cast<unsigned>(events)});
}

void Control::removeRegistration(WeakTarget* target, const void* action, ControlEvent events) {
  for (Registration& r : registrations_)
    if (r.target == target && r.action == action) r.events &= ~static_cast<unsigned>(events);
  std::erase_if(registrations_, [](const Registration& r) { return r.events == 0; });
}

void Control::sendActions(ControlEvent event) {
  const unsigned bit = static_cast<unsigned>(event);
  std::vector<Registration> due;
  for (const Registration& r : registrations_)
    if (r.events & bit) due.push_back(r);

  const Weak<Control> self = this;
  for (const Registration& r : due) {
    WeakTarget* const target = r.target.get();
    if (!target) continue;
    const bool stillRegistered =
        std::any_of(registrations_.begin(), registrations_.end(), [&](const Registration& now) {
          return now.target == target && now.action == r.action && (now.events & bit);
        });
    if (!stillRegistered) continue;
    r.call(*target, *this);
    if (!self) return;
  }
}

void Control::setEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  setNeedsDisplay();
  if (enabled) return;
  tracking_ = false;
  setHighlighted(false);
  resignFirstResponder();
}

void Control::setSelected(bool selected) {
  if (selected == selected_) return;
  selected_ = selected;
  setNeedsDisplay();
}

void Control::setHighlighted(bool highlighted) {
  if (highlighted == highlighted_) return;
  highlighted_ = highlighted;
  setNeedsDisplay();
}

void Control::touchBegan(const Touch&) {
  if (!enabled_) return;
  tracking_ = true;
  setHighlighted(true);
  sendActions(ControlEvent::touchDown);
}

void Control::touchMoved(const Touch& touch) {
  if (!tracking_) return;
  setHighlighted(pointInside(touch.locationIn(*this)));
  sendActions(ControlEvent::touchDragged);
}

void Control::touchEnded(const Touch& touch) {
  if (!tracking_) return;
  const bool inside = pointInside(touch.locationIn(*this));
  tracking_ = false;
  setHighlighted(false);
  sendActions(inside ? ControlEvent::touchUpInside : ControlEvent::touchUpOutside);
}

void Control::touchCancelled(const Touch&) {
  if (!tracking_) return;
  tracking_ = false;
  setHighlighted(false);
  sendActions(ControlEvent::touchCancelled);
}

void Control::hoverChanged(bool hovered) {
  if (hovered == hovered_) return;
  hovered_ = hovered;
  setNeedsDisplay();
}

}  // namespace toolkit
