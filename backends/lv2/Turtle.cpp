#include "backends/lv2/Turtle.h"

#include <charconv>

#include "foundation/UnicodeText.h"

namespace lv2_backend {
namespace {

constexpr char digits[] = "0123456789ABCDEF";

bool isPlainInFileName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '.' || c == '_' || c == '~';
}

}  // namespace

std::string turtleString(std::string_view text) {
  std::string literal = "\"";
  for (const char c : foundation::xmlText(text)) {
    switch (c) {
      case '"':
        literal += "\\\"";
        break;
      case '\\':
        literal += "\\\\";
        break;
      case '\n':
        literal += "\\n";
        break;
      case '\r':
        literal += "\\r";
        break;
      case '\t':
        literal += "\\t";
        break;
      default:
        literal += c;
    }
  }
  return literal + '"';
}

std::string turtleNumber(float value) {
  // The longest float without an exponent has 45 digits.
  char text[80];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed);
  std::string number(text, end.ptr);
  // Without a point it would be an integer.
  if (number.find('.') == std::string::npos) number += ".0";
  return number;
}

std::string turtleNumber(int value) { return std::to_string(value); }

std::string turtleFile(std::string_view name) {
  std::string address = "<";
  for (const char c : name) {
    if (isPlainInFileName(c)) {
      address += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      address += {'%', digits[byte >> 4], digits[byte & 15]};
    }
  }
  return address + '>';
}

}  // namespace lv2_backend
