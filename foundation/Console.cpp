#include "foundation/Console.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace foundation {

namespace {

/// Recursive: a listener may print itself.
std::recursive_mutex mutex;
std::function<void(const std::string&)> listener;

}  // namespace

void printToConsole(const std::string& line) {
  const std::lock_guard lock(mutex);
  if (listener)
    listener(line);
  else
    std::fprintf(stderr, "%s\n", line.c_str());
}

ConsoleListener::ConsoleListener(std::function<void(const std::string& line)> print) {
  const std::lock_guard lock(mutex);
  previous_ = std::exchange(listener, std::move(print));
}

ConsoleListener::~ConsoleListener() {
  const std::lock_guard lock(mutex);
  listener = std::move(previous_);
}

}  // namespace foundation
