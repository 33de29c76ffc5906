#pragma once

#include <functional>
#include <string>

#include "foundation/Override.h"

namespace foundation {

/// Prints one line for developers, on standard error unless somebody listens. Any thread.
void printToConsole(const std::string& line);

/// Gets the lines of the console as long as it lives, in place of whoever did before: on any
/// thread, one at a time.
using ConsoleListener = Override<std::function<void(const std::string& line)>>;

}  // namespace foundation
