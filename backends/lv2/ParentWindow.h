#pragma once

#include <functional>

namespace lv2_backend {

/// Watches the size of the host's window around the editor: some hosts resize only that. Has its
/// own connection to the display, so that nobody else's events are taken. User-interface thread.
class ParentWindow {
 public:
  /// Size in pixels.
  using Resized = std::function<void(int width, int height)>;

  /// `window` is an X11 window. Throws std::runtime_error when there is no display.
  ParentWindow(unsigned long window, Resized resized);
  ~ParentWindow();
  ParentWindow(const ParentWindow&) = delete;
  ParentWindow& operator=(const ParentWindow&) = delete;

  /// Calls `resized` when the size has changed since the last call. Asks the display nothing, so it
  /// costs little; the host calls it all the time.
  void poll();

 private:
  struct Connection;

  Connection* connection_;
  Resized resized_;
  int width_ = 0;
  int height_ = 0;
};

}  // namespace lv2_backend
