#pragma once

#include <string>

namespace orvane {

/// Opens links for views. Held weakly. User-interface thread only.
class ResponderViewDelegate {
 public:
  virtual ~ResponderViewDelegate() = default;

  /// Opens a link outside the editor.
  virtual void openURL(const std::string& url) = 0;
};

}  // namespace orvane
