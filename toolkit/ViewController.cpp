#include "toolkit/ViewController.h"

#include <algorithm>

#include "platform/Fatal.h"
#include "toolkit/Window.h"

namespace toolkit {

using platform::fatal;
using platform::Responder;
using platform::Weak;

ViewController::ViewController() { view_.controller_ = this; }

ViewController::~ViewController() {
  view_.controller_ = nullptr;
  if (parent_) std::erase(parent_->children_, this);
  for (ViewController* child : children_) child->parent_ = nullptr;
}

View& ViewController::view() {
  if (!loaded_) {
    loaded_ = true;
    viewDidLoad();
  }
  return view_;
}

void ViewController::addChild(ViewController& child) {
  if (child.parent_ == this) return;
  for (const ViewController* above = this; above; above = above->parent_)
    if (above == &child) fatal("A view controller cannot be a child of itself");
  child.removeFromParent();
  child.willMoveToParent(this);
  children_.push_back(&child);
  child.parent_ = this;
}

void ViewController::removeFromParent() {
  if (!parent_) return;
  willMoveToParent(nullptr);
  std::erase(parent_->children_, this);
  parent_ = nullptr;
}

Responder* ViewController::nextResponder() const {
  if (view_.superview_) return view_.superview_;
  return view_.rootOf_;
}

namespace {

/// Calls `tell` for the controller, then `pass` for each child; any of them may go meanwhile.
template <class Tell, class Pass>
void tellTree(ViewController& controller, Tell tell, Pass pass) {
  const Weak<ViewController> self = &controller;
  tell(controller);
  if (!self) return;
  const std::vector<ViewController*>& children = controller.children();
  const std::vector<Weak<ViewController>> toTell(children.begin(), children.end());
  for (const Weak<ViewController>& child : toTell)
    if (child) pass(*child);
}

}  // namespace

void ViewController::appear() {
  tellTree(
      *this, [](ViewController& c) { c.viewDidAppear(); }, [](ViewController& c) { c.appear(); });
}

void ViewController::disappear() {
  tellTree(
      *this, [](ViewController& c) { c.viewDidDisappear(); },
      [](ViewController& c) { c.disappear(); });
}

}  // namespace toolkit
