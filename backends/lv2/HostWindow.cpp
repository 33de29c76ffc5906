#include "backends/lv2/HostWindow.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <stdexcept>
#include <utility>

namespace lv2_backend {
namespace {

/// The window of the host's that a window manager knows: toolkits look for shortcuts only there.
Window outermost(Display* display, Window window) {
  const Atom managed = XInternAtom(display, "WM_STATE", False);
  for (;;) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, window, managed, 0, 0, False, AnyPropertyType, &type, &format,
                       &count, &left, &data);
    if (data) XFree(data);
    if (type != None) return window;

    Window root = None, parent = None;
    Window* children = nullptr;
    unsigned childCount = 0;
    if (!XQueryTree(display, window, &root, &parent, &children, &childCount)) return window;
    if (children) XFree(children);
    // Without a window manager it is the last one before the root.
    if (parent == None || parent == root) return window;
    window = parent;
  }
}

}  // namespace

struct HostWindow::Connection {
  Display* display;
  Window window;
};

HostWindow::HostWindow(unsigned long window, Resized resized)
    : connection_(new Connection{XOpenDisplay(nullptr), window}), resized_(std::move(resized)) {
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

HostWindow::~HostWindow() {
  XCloseDisplay(connection_->display);
  delete connection_;
}

void HostWindow::poll() {
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

void HostWindow::setMinimumSize(unsigned long editor, int width, int height) {
  XSizeHints hints{};
  hints.flags = PMinSize;
  hints.min_width = width;
  hints.min_height = height;
  XSetWMNormalHints(connection_->display, editor, &hints);
  XFlush(connection_->display);
}

bool HostWindow::sendKey(const Key& key) {
  Display* display = connection_->display;
  XEvent event{};
  event.xkey.keycode = XKeysymToKeycode(display, key.symbol);
  if (event.xkey.keycode == 0) return false;
  const Window target = outermost(display, connection_->window);
  event.xkey.display = display;
  event.xkey.window = target;
  event.xkey.root = DefaultRootWindow(display);
  event.xkey.time = CurrentTime;
  event.xkey.same_screen = True;
  event.xkey.state =
      (key.shift ? ShiftMask : 0u) | (key.control ? ControlMask : 0u) | (key.alt ? Mod1Mask : 0u);
  // Without a mask it goes to the program that made the window, whatever the window listens to:
  // toolkits that use the X input extension do not ask for these events, but take them.
  for (const int type : {KeyPress, KeyRelease}) {
    event.type = type;
    XSendEvent(display, target, False, NoEventMask, &event);
  }
  XFlush(display);
  return true;
}

}  // namespace lv2_backend
