#pragma once

#include <optional>
#include <string>

namespace orvane {

class TextFieldOverlay;

/// Gets what a text-entry panel collected. Held weakly. User-interface thread only.
class TextFieldOverlayDelegate {
 public:
  virtual ~TextFieldOverlayDelegate() = default;

  /// OK was pressed. The panel stays until the delegate hides it; nothing has checked the text.
  virtual void textFieldOverlayDidConfirm(TextFieldOverlay& overlay,
                                          const std::optional<std::string>& text) = 0;
};

}  // namespace orvane
