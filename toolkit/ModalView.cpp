#include "toolkit/ModalView.h"

#include "toolkit/Control.h"
#include "toolkit/Window.h"

namespace toolkit {

namespace {

/// Whether its user would find the keyboard there.
bool canTakeKeyboard(const View& view) {
  const auto* control = dynamic_cast<const Control*>(&view);
  return (!control || control->isEnabled()) && view.canBecomeFirstResponder() &&
         Window::isInSight(view);
}

}  // namespace

void ModalScope::opened() {
  Window* const window = view_.window();
  if (!window) return;
  before_ = window->firstResponder();
  window->addModal(view_);
  // What is behind has no keys any more.
  if (before_ && !before_->isDescendantOf(view_)) before_->resignFirstResponder();
}

void ModalScope::closed() {
  Window* const window = view_.window();
  if (!window) return;
  window->removeModal(view_);
  const View* const holder = window->firstResponder();
  if (holder && holder->isShown() && !holder->isDescendantOf(view_)) return;
  for (const platform::Weak<View>& next : {before_, fallback})
    if (next && canTakeKeyboard(*next) && next->becomeFirstResponder()) return;
}

}  // namespace toolkit
