#include "foundation/Console.h"

#include <cstdio>

namespace foundation {

void printToConsole(const std::string& line) {
  ConsoleListener::with([&](const std::function<void(const std::string&)>* print) {
    if (print)
      (*print)(line);
    else
      std::fprintf(stderr, "%s\n", line.c_str());
  });
}

}  // namespace foundation
