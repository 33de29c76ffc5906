#pragma once

#include <functional>
#include <string>

namespace foundation {

/// Prints one line for developers, on standard error unless somebody listens. Any thread.
void printToConsole(const std::string& line);

/// Gets the lines of the console as long as it lives, in place of whoever did before. Made and
/// destroyed on the user-interface thread, in the reverse order; `print` is called on any thread,
/// one at a time.
class ConsoleListener {
 public:
  explicit ConsoleListener(std::function<void(const std::string& line)> print);
  ~ConsoleListener();
  ConsoleListener(const ConsoleListener&) = delete;
  ConsoleListener& operator=(const ConsoleListener&) = delete;

 private:
  std::function<void(const std::string&)> previous_;
};

}  // namespace foundation
