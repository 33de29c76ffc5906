#pragma once

#include <functional>

namespace lv2_backend {

/// The host's window around the editor. Has its own connection to the display, so that nobody
/// else's events are taken. User-interface thread.
class HostWindow {
 public:
  /// Size in pixels.
  using Resized = std::function<void(int width, int height)>;
  /// A press of a key in X11's terms.
  struct Key {
    unsigned long symbol = 0;
    bool shift = false;
    bool control = false;
    bool alt = false;
  };

  /// `window` is an X11 window. Throws std::runtime_error when there is no display.
  HostWindow(unsigned long window, Resized resized);
  ~HostWindow();
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  /// Calls `resized` when the window's size has changed since the last call: some hosts resize only
  /// that and leave the editor's to the editor. Asks the display nothing, so it costs little.
  void poll();
  /// Says how small the host may make `editor`, an X11 window in the host's, in pixels.
  void setMinimumSize(unsigned long editor, int width, int height);
  /// Gives the host a key that the editor has no use for. False when the keyboard lacks it.
  bool sendKey(const Key& key);

 private:
  struct Connection;

  Connection* connection_;
  Resized resized_;
  int width_ = 0;
  int height_ = 0;
};

}  // namespace lv2_backend
