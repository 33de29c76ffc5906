#pragma once

#include <string>

namespace orvane {

/// What the menu bar asks of its owner. Held weakly. User-interface thread only.
class MenuBarDelegate {
 public:
  virtual ~MenuBarDelegate() = default;

  virtual void menuBarDidRequestRandomize() = 0;
  /// The user chose a display mode.
  virtual void menuBarDidChangeDisplay(int index) = 0;
  virtual void menuBarOpenURL(const std::string& url) = 0;
};

}  // namespace orvane
