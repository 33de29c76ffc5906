#pragma once

#include <string>
#include <string_view>

#include "platform/Font.h"
#include "platform/Responder.h"

namespace platform {

/// What the window of an editor asks of the backend that shows it. User-interface thread.
class WindowHost {
 public:
  virtual ~WindowHost() = default;
  /// Something has asked for a frame: the backend prepares one soon, once for any number of calls.
  virtual void frameWanted() = 0;
  /// The end of the responder chain; null when there is none.
  virtual Application* application() = 0;
  /// The width of a line of UTF-8 text in points, as the backend will draw it.
  virtual double textWidth(std::string_view text, const Font& font) = 0;
  /// The time stamp of touches: seconds on the run loop's clock.
  virtual double now() const = 0;
  /// The text that other programs have cut or copied; at first there is no clipboard.
  virtual std::string clipboardText() { return {}; }
  /// Hands text to other programs; at first nobody gets it.
  virtual void setClipboardText(const std::string& /*text*/) {}
};

}  // namespace platform
