#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace tool {

/// Something that is wrong with a design.
struct Problem {
  /// "pages[0].sections[1].color"; empty for the design as a whole.
  std::string place;
  std::string text;

  /// One line that names the file as well.
  std::string line(const std::string& file) const {
    return file + ": " + (place.empty() ? "" : place + ": ") + text;
  }
};

using Problems = std::vector<Problem>;

/// The command line makes no sense: exit code 2. One line.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Anything else that ends a command: exit code 1. One line that names the file and the place.
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace tool
