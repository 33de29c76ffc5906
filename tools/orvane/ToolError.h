#pragma once

#include <stdexcept>
#include <string>

namespace tool {

/// The command line makes no sense: exit code 2. One line.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Anything else that ends a command: exit code 1. One line that names the file and the place.
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace tool
