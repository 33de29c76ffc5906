#pragma once

#include <optional>
#include <string>

namespace orvane {

/// Told which bank filter was chosen. Held weakly. User-interface thread only.
class FiltersTableViewControllerDelegate {
 public:
  virtual ~FiltersTableViewControllerDelegate() = default;

  virtual void filterSelected(const std::optional<std::string>& filter) = 0;
};

}  // namespace orvane
