#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace platform {

/// Stops the process after a programming error, with the message on standard error.
[[noreturn]] inline void fatal(std::string_view message) {
  std::fprintf(stderr, "Fatal error: %.*s\n", static_cast<int>(message.size()), message.data());
  std::fflush(stderr);
  std::abort();
}

}  // namespace platform
