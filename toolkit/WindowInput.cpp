#include <algorithm>
#include <utility>

#include "toolkit/Control.h"
#include "toolkit/Window.h"

namespace toolkit {

using platform::Key;
using platform::KeyEvent;
using platform::Modifiers;
using platform::Point;
using platform::Rect;
using platform::Responder;
using platform::Weak;
using platform::WheelEvent;

namespace {

/// Asks `start` and what follows it, but for `skipped`; any of them may be gone after its answer.
template <class Use>
bool offer(Responder* start, const Responder* skipped, Use use) {
  Weak<Responder> next = start;
  while (Responder* const asked = next.get()) {
    if (asked != skipped && use(*asked)) return true;
    if (!next) return false;
    next = asked->nextResponder();
  }
  return false;
}

void collectKeyboardViews(View& view, std::vector<View*>& found) {
  if (view.isHidden() || !view.isUserInteractionEnabled()) return;
  const auto* control = dynamic_cast<const Control*>(&view);
  if ((!control || control->isEnabled()) && view.canBecomeFirstResponder() &&
      Window::isInSight(view))
    found.push_back(&view);
  for (View* subview : view.reachableSubviews()) collectKeyboardViews(*subview, found);
}

bool holds(const std::vector<Weak<View>>& views, const Weak<View>& view) {
  return std::find(views.begin(), views.end(), view) != views.end();
}

}  // namespace

View* Window::uppermostModal() const {
  const auto found = std::find_if(modals_.rbegin(), modals_.rend(),
                                  [this](const auto& view) { return view && shows(*view); });
  return found == modals_.rend() ? nullptr : found->get();
}

void Window::addModal(View& view) {
  removeModal(view);
  modals_.push_back(&view);
}

void Window::removeModal(View& view) {
  std::erase_if(modals_, [&](const auto& each) { return !each || each == &view; });
}

bool Window::isInSight(const View& view) {
  Rect seen = view.frameInRoot();
  for (const View* above = view.superview(); above; above = above->superview())
    if (above->clipsToBounds()) seen = seen.intersection(above->frameInRoot());
  return !seen.isEmpty();
}

View* Window::hitAt(Point location) const {
  View* const hit = rootView_ ? rootView_->hitTest(location) : nullptr;
  const View* const modal = uppermostModal();
  if (!hit || !modal || hit->isDescendantOf(*modal)) return hit;
  for (const View* view = hit; view; view = view->superview())
    if (view->reachableBesideModals_) return hit;
  return nullptr;
}

bool Window::shows(const View& view) const { return view.isShown() && view.window() == this; }

void Window::releaseLost() {
  std::vector<ActiveTouch> lostTouches;
  std::vector<Weak<View>> lostHover;
  Weak<View> lostKeyboard;

  const auto isLost = [this](const Weak<View>& view) { return !view || !shows(*view); };
  for (const ActiveTouch& active : touches_)
    if (isLost(active.view)) lostTouches.push_back(active);
  std::erase_if(touches_, [&](const ActiveTouch& active) { return isLost(active.view); });
  for (const Weak<View>& view : hoverChain_)
    if (isLost(view)) lostHover.push_back(view);
  std::erase_if(hoverChain_, isLost);
  if (firstResponder_ && isLost(firstResponder_))
    lostKeyboard = std::exchange(firstResponder_, nullptr);

  // Nothing of the window below this line: whoever is told may close it.
  for (const ActiveTouch& lost : lostTouches)
    if (lost.view) lost.view->touchCancelled(lost.touch);
  for (const Weak<View>& view : lostHover)
    if (view) view->hoverChanged(false);
  if (lostKeyboard) lostKeyboard->firstResponderChanged();
}

void Window::releaseLostLater() {
  if (firstResponder_ || !touches_.empty() || !hoverChain_.empty()) wantFrame();
}

// Touches

Window::ActiveTouch* Window::activeTouch(int id) {
  const auto found =
      std::find_if(touches_.begin(), touches_.end(),
                   [id](const ActiveTouch& active) { return active.touch.id == id; });
  return found == touches_.end() ? nullptr : &*found;
}

void Window::touchBegan(int id, Touch::Kind kind, Point location, int tapCount,
                        Modifiers modifiers) {
  const Weak<Window> self = this;
  releaseLost();
  // One whose end was missed.
  if (ActiveTouch* const old = self ? activeTouch(id) : nullptr) {
    const ActiveTouch missed = *old;
    forgetTouch(id);
    if (missed.view) missed.view->touchCancelled(missed.touch);
  }
  if (!self || activeTouch(id) || !rootView_) return;
  const Weak<View> hit = hitAt(location);
  if (!hit) return;
  const bool taken = std::any_of(touches_.begin(), touches_.end(),
                                 [&](const ActiveTouch& active) { return active.view == hit; });
  if (taken && !hit->isMultipleTouchEnabled()) return;

  Touch touch;
  touch.id = id;
  touch.kind = kind;
  touch.tapCount = tapCount;
  touch.modifiers = modifiers;
  touch.location = touch.previousLocation = touch.startLocation = location;
  touch.timestamp = host_.now();
  touches_.push_back({touch, hit});

  for (View* view = hit.get(); view; view = view->superview()) {
    if (!view->canBecomeFirstResponder()) continue;
    view->becomeFirstResponder();
    break;
  }
  // The change of the keyboard may have taken the view away, and the touch with it.
  if (!self || !hit || !activeTouch(id)) return;
  hit->touchBegan(touch);
}

void Window::touchMoved(int id, Point location, Modifiers modifiers) {
  const Weak<Window> self = this;
  releaseLost();
  ActiveTouch* const active = self ? activeTouch(id) : nullptr;
  if (!active) return;
  active->touch.previousLocation = active->touch.location;
  active->touch.location = location;
  active->touch.modifiers = modifiers;
  active->touch.timestamp = host_.now();
  const ActiveTouch moved = *active;
  if (moved.view) moved.view->touchMoved(moved.touch);
}

void Window::touchEnded(int id, Point location, Modifiers modifiers) {
  const Weak<Window> self = this;
  releaseLost();
  ActiveTouch* const active = self ? activeTouch(id) : nullptr;
  if (!active) return;
  ActiveTouch ended = *active;
  forgetTouch(id);
  ended.touch.previousLocation = ended.touch.location;
  ended.touch.location = location;
  ended.touch.modifiers = modifiers;
  ended.touch.timestamp = host_.now();
  if (mouse_ && ended.touch.kind == Touch::Kind::mouse) mouse_ = location;
  if (ended.view) ended.view->touchEnded(ended.touch);
}

void Window::forgetTouch(int id) {
  std::erase_if(touches_, [id](const ActiveTouch& active) { return active.touch.id == id; });
}

void Window::cancelTouches() {
  for (const ActiveTouch& cancelled : std::exchange(touches_, {}))
    if (cancelled.view) cancelled.view->touchCancelled(cancelled.touch);
}

// Hover

void Window::hovered(Point location) {
  const Weak<Window> self = this;
  mouse_ = location;
  releaseLost();
  if (self) refreshHover();
  if (!self || hoverChain_.empty()) return;
  if (View* const hit = hoverChain_.front().get()) hit->hoverMoved(hit->convertFromRoot(location));
}

void Window::hoverEnded() {
  mouse_.reset();
  setHoverChain({});
}

void Window::refreshHover() {
  if (!mouse_) return;
  std::vector<Weak<View>> chain;
  View* view = hitAt(*mouse_);
  for (; view; view = view->superview()) chain.push_back(view);
  setHoverChain(std::move(chain));
}

void Window::setHoverChain(std::vector<Weak<View>> chain) {
  if (chain == hoverChain_) return;
  const std::vector<Weak<View>> before = std::exchange(hoverChain_, chain);
  const Weak<Window> self = this;
  for (const Weak<View>& view : before)
    if (view && !holds(chain, view)) view->hoverChanged(false);
  for (auto view = chain.rbegin(); view != chain.rend(); ++view) {
    // Somebody who was told before may have taken it away.
    if (*view && self && holds(hoverChain_, *view) && !holds(before, *view))
      (*view)->hoverChanged(true);
  }
}

// Wheel and keyboard

bool Window::wheelTurned(const WheelEvent& event) {
  const Weak<Window> self = this;
  releaseLost();
  if (!self || !rootView_) return false;
  return offer(hitAt(event.location), this,
               [&](Responder& responder) { return responder.wheelTurned(event); });
}

namespace {

/// To the controllers below one, the uppermost first, as for a key that no view of theirs has.
bool offerToChildren(ViewController& controller, const KeyEvent& event) {
  std::vector<Weak<ViewController>> children;
  for (ViewController* child : controller.children()) children.emplace_back(child);
  for (auto child = children.rbegin(); child != children.rend(); ++child)
    if (*child && (offerToChildren(**child, event) || (*child && (*child)->keyPressed(event))))
      return true;
  return false;
}

}  // namespace

bool Window::keyPressed(const KeyEvent& event) {
  const Weak<Window> self = this;
  releaseLost();
  if (!self) return false;
  // A modal view without a keyboard holder has the keys itself.
  View* const modal = uppermostModal();
  View* const first = firstResponder_ ? firstResponder_.get() : modal ? modal : rootView_;
  bool used = !firstResponder_ && !modal && root_ && offerToChildren(*root_, event);
  if (!used && self) used = offer(first, this, [&](Responder& r) { return r.keyPressed(event); });
  if (used || !self || event.key != Key::tab) return used;
  if (event.modifiers == Modifiers::none) return moveKeyboard(1);
  if (event.modifiers == Modifiers::shift) return moveKeyboard(-1);
  return false;
}

bool Window::moveKeyboard(int direction) {
  std::vector<View*> views;
  View* const scope = uppermostModal() ? uppermostModal() : rootView_;
  if (scope) collectKeyboardViews(*scope, views);
  if (views.empty()) return false;
  const auto count = static_cast<std::ptrdiff_t>(views.size());
  const auto found = std::find(views.begin(), views.end(), firstResponder_.get());
  std::ptrdiff_t next = direction > 0 ? 0 : count - 1;
  if (found != views.end()) next = (found - views.begin() + direction + count) % count;
  if (views[static_cast<std::size_t>(next)] == firstResponder_) return false;
  return views[static_cast<std::size_t>(next)]->becomeFirstResponder();
}

bool Window::giveKeyboard(View* view) {
  if (firstResponder_ == view) return true;
  // What is behind a modal view waits until that closes.
  if (const View* const modal = uppermostModal(); view && modal && !view->isDescendantOf(*modal))
    return false;
  const Weak<Window> self = this;
  const Weak<View> next = view;
  const Weak<View> before = std::exchange(firstResponder_, next);
  if (before) before->firstResponderChanged();
  // Whoever lost it may have given it to somebody else.
  if (!self || firstResponder_ != next) return false;
  if (next) next->firstResponderChanged();
  return self && next && firstResponder_ == next;
}

}  // namespace toolkit
