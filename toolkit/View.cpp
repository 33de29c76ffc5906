#include "toolkit/View.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "platform/Fatal.h"
#include "toolkit/ViewController.h"
#include "toolkit/Window.h"

namespace toolkit {

using platform::fatal;
using platform::Point;
using platform::Rect;
using platform::Responder;
using platform::Weak;

View::View(const Rect& frame) : View() { setFrame(frame); }

View::~View() {
  // Nobody is called from here: what derives from this view is gone already, and what owns it may
  // be half destroyed. The window tells the views below in its next turn.
  if (Window* shownIn = window()) {
    shownIn->viewLeaves(*this);
    if (!subviews_.empty()) shownIn->releaseLostLater();
  }
  leaveSuperview();
  for (View* subview : subviews_) subview->superview_ = nullptr;
}

// Tree

void View::addSubview(View& view) {
  if (isDescendantOf(view)) fatal("A view cannot be added below itself");
  if (view.superview_ == this) return bringSubviewToFront(view);

  Window* const left = view.window();
  if (left) left->viewLeaves(view);
  view.leaveSuperview();
  subviews_.push_back(&view);
  view.superview_ = this;
  setNeedsLayout();
  view.markNeeds(Need::place);

  const Weak<View> added = &view;
  if (left) left->releaseLost();
  if (added && added->superview_ == this) added->didMoveToSuperview();
}

void View::removeFromSuperview() {
  if (!superview_) return;
  Window* const left = window();
  if (left) left->viewLeaves(*this);
  leaveSuperview();
  const Weak<View> self = this;
  if (left) left->releaseLost();
  if (self && !superview_) didMoveToSuperview();
}

void View::leaveSuperview() {
  if (!superview_) return;
  auto& siblings = superview_->subviews_;
  siblings.erase(std::find(siblings.begin(), siblings.end(), this));
  superview_ = nullptr;
}

void View::bringSubviewToFront(View& view) {
  const auto place = std::find(subviews_.begin(), subviews_.end(), &view);
  if (place == subviews_.end() || place + 1 == subviews_.end()) return;
  std::rotate(place, place + 1, subviews_.end());
  view.markNeeds(Need::place);
}

bool View::isDescendantOf(const View& view) const {
  for (const View* v = this; v; v = v->superview_)
    if (v == &view) return true;
  return false;
}

Window* View::window() const {
  const View* root = this;
  while (root->superview_) root = root->superview_;
  return root->rootOf_;
}

Responder* View::nextResponder() const {
  if (controller_) return controller_;
  if (superview_) return superview_;
  return rootOf_;
}

// Geometry

void View::setFrame(const Rect& frame) {
  const auto finite = [](double v) { return std::isfinite(v) ? v : 0.0; };
  const Rect next{finite(frame.x), finite(frame.y), finite(frame.width), finite(frame.height)};
  if (next == frame_) return;
  const bool sameSize = next.size() == frame_.size();
  frame_ = next;
  markNeeds(sameSize ? Need::place : Need::place | Need::paint);
  if (sameSize) return;
  layer_.frame_ = bounds();
  setNeedsLayout();
  setNeedsDisplay();
}

Point View::convertToRoot(Point point) const {
  for (const View* v = this; v->superview_; v = v->superview_) point = point + v->frame_.origin();
  return point;
}

Point View::convertFromRoot(Point point) const { return point - convertToRoot({}); }

Rect View::frameInRoot() const {
  const Point origin = convertToRoot({});
  return {origin.x, origin.y, frame_.width, frame_.height};
}

// Display

void View::markNeeds(unsigned needs) {
  needs_ |= needs;
  if (hidden_ && !(needs & Need::place)) return;
  const View* root = this;
  while (View* above = root->superview_) {
    // Then all above it know already.
    if (above->needs_ & Need::below) return;
    above->needs_ |= Need::below;
    if (above->hidden_) return;
    root = above;
  }
  if (root->rootOf_) root->rootOf_->wantFrame();
}

void View::setNeedsDisplay() { markNeeds(Need::display); }

void View::setNeedsLayout() { markNeeds(Need::layout); }

void View::setHidden(bool hidden) {
  if (hidden == hidden_) return;
  hidden_ = hidden;
  markNeeds(Need::place);
  if (!hidden) {
    setNeedsLayout();
    setNeedsDisplay();
  } else if (Window* shownIn = window()) {
    shownIn->releaseLost();
  }
}

bool View::isShown() const {
  const View* v = this;
  for (; v->superview_; v = v->superview_)
    if (v->hidden_) return false;
  return !v->hidden_ && v->rootOf_;
}

void View::setClipsToBounds(bool clips) {
  if (clips == clipsToBounds_) return;
  clipsToBounds_ = clips;
  markNeeds(Need::place);
}

// Touches

View* View::hitTest(Point point) {
  if (hidden_ || !userInteractionEnabled_) return nullptr;
  if (clipsToBounds_ && !bounds().contains(point)) return nullptr;
  for (auto i = subviews_.rbegin(); i != subviews_.rend(); ++i)
    if (View* hit = (*i)->hitTest(point - (*i)->frame_.origin())) return hit;
  return pointInside(point) ? this : nullptr;
}

Point Touch::locationIn(const View& view) const { return view.convertFromRoot(location); }

Point Touch::previousLocationIn(const View& view) const {
  return view.convertFromRoot(previousLocation);
}

// Keyboard

bool View::becomeFirstResponder() {
  Window* const shownIn = window();
  if (!shownIn || !isShown() || !canBecomeFirstResponder()) return false;
  return shownIn->giveKeyboard(this);
}

void View::resignFirstResponder() {
  if (isFirstResponder()) window()->giveKeyboard(nullptr);
}

std::vector<View*> View::reachableSubviews() const {
  const auto covers = [](const View* view) { return view->coversSiblings_ && !view->isHidden(); };
  if (std::none_of(subviews_.begin(), subviews_.end(), covers)) return subviews_;
  std::vector<View*> covering;
  std::copy_if(subviews_.begin(), subviews_.end(), std::back_inserter(covering), covers);
  return covering;
}

bool View::isFirstResponder() const {
  const Window* const shownIn = window();
  return shownIn && shownIn->firstResponder() == this;
}

}  // namespace toolkit
