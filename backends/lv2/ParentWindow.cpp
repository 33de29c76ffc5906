#include "backends/lv2/ParentWindow.h"

#include <X11/Xlib.h>

#include <stdexcept>
#include <utility>

namespace lv2_backend {

struct ParentWindow::Connection {
  Display* display;
};

ParentWindow::ParentWindow(unsigned long window, Resized resized)
    : connection_(new Connection{XOpenDisplay(nullptr)}), resized_(std::move(resized)) {
  if (!connection_->display) {
    delete connection_;
    throw std::runtime_error("There is no display");
  }
  XWindowAttributes attributes{};
  if (XGetWindowAttributes(connection_->display, window, &attributes)) {
    width_ = attributes.width;
    height_ = attributes.height;
  }
  XSelectInput(connection_->display, window, StructureNotifyMask);
  XFlush(connection_->display);
}

ParentWindow::~ParentWindow() {
  XCloseDisplay(connection_->display);
  delete connection_;
}

void ParentWindow::poll() {
  int width = width_;
  int height = height_;
  while (XPending(connection_->display) > 0) {
    XEvent event;
    XNextEvent(connection_->display, &event);
    if (event.type != ConfigureNotify) continue;
    width = event.xconfigure.width;
    height = event.xconfigure.height;
  }
  if (width == width_ && height == height_) return;
  width_ = width;
  height_ = height;
  resized_(width, height);
}

}  // namespace lv2_backend
