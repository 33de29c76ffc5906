#include "toolkit/Window.h"

#include <algorithm>
#include <cmath>

#include "platform/Fatal.h"

namespace toolkit {

using platform::fatal;
using platform::Font;
using platform::Rect;
using platform::Responder;
using platform::Size;
using platform::WindowHost;

Window::Window(WindowHost& host)
    : host_(host), recorder_([&host](std::string_view text, const Font& font) {
        return host.textWidth(text, font);
      }) {}

Window::~Window() {
  // So that the host is not asked for a frame of a window that dies.
  needsFrame_ = true;
  setRootViewController(nullptr);
}

void Window::setRootViewController(ViewController* controller) {
  View* const next = controller ? &controller->view() : nullptr;
  if (next && next == rootView_) return;
  if (next && next->window()) fatal("This view controller is already in a window");
  if (rootView_) rootViewLeaves();
  root_ = controller;
  rootView_ = next;
  if (next) {
    next->removeFromSuperview();
    next->rootOf_ = this;
    next->setFrame({0, 0, size_.width, size_.height});
    next->markNeeds(View::Need::place);
  }
  releaseLost();
}

void Window::rootViewLeaves() {
  damage({0, 0, size_.width, size_.height});
  rootView_->composited_ = {};
  rootView_->rootOf_ = nullptr;
  rootView_ = nullptr;
  root_ = nullptr;
}

void Window::viewLeaves(View& view) {
  if (&view == rootView_) return rootViewLeaves();
  // What is hidden has been, or will be, taken away with whatever hides it.
  if (view.superview_->isShown()) damage(view.composited_.tree);
  view.composited_ = {};
}

void Window::setSize(const Size& size) {
  const auto valid = [](double v) { return std::isfinite(v) && v > 0 ? v : 0.0; };
  const Size next{valid(size.width), valid(size.height)};
  if (next == size_) return;
  size_ = next;
  damage({0, 0, next.width, next.height});
  if (rootView_) rootView_->setFrame({0, 0, next.width, next.height});
}

Responder* Window::nextResponder() const { return host_.application(); }

void Window::wantFrame() {
  if (needsFrame_) return;
  needsFrame_ = true;
  host_.frameWanted();
}

void Window::damage(const Rect& area) {
  const Rect shown = area.intersection({0, 0, size_.width, size_.height});
  if (shown.isEmpty()) return;
  damage_.add(shown);
  wantFrame();
}

}  // namespace toolkit
