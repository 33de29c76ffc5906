#pragma once

#include <string>
#include <string_view>

namespace lv2_backend {

/// What every file begins with.
std::string turtlePrefixes();
/// A string literal with its quotes. What is not UTF-8, or no character, is replaced.
std::string turtleString(std::string_view text);
/// A decimal literal that reads back as exactly this value, which is finite.
std::string turtleNumber(float value);
std::string turtleNumber(int value);
/// A relative address of a file, with its angle brackets.
std::string turtleFile(std::string_view name);

}  // namespace lv2_backend
