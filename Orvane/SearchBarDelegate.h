#pragma once

#include <string>

namespace orvane {

/// Told what to search for. Held weakly. User-interface thread only.
class SearchBarDelegate {
 public:
  virtual ~SearchBarDelegate() = default;

  /// As typed; empty after the field was cleared.
  virtual void searchTextChanged(const std::string& text) = 0;
  /// Return was pressed, and the field has given the keyboard away.
  virtual void searchBarDidReturn() {}
};

}  // namespace orvane
