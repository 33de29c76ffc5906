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

std::string turtlePrefixes() {
  return "@prefix atom: <http://lv2plug.in/ns/ext/atom#> .\n"
         "@prefix bufsz: <http://lv2plug.in/ns/ext/buf-size#> .\n"
         "@prefix doap: <http://usefulinc.com/ns/doap#> .\n"
         "@prefix foaf: <http://xmlns.com/foaf/0.1/> .\n"
         "@prefix lv2: <http://lv2plug.in/ns/lv2core#> .\n"
         "@prefix midi: <http://lv2plug.in/ns/ext/midi#> .\n"
         "@prefix opts: <http://lv2plug.in/ns/ext/options#> .\n"
         "@prefix pg: <http://lv2plug.in/ns/ext/port-groups#> .\n"
         "@prefix pprops: <http://lv2plug.in/ns/ext/port-props#> .\n"
         "@prefix pset: <http://lv2plug.in/ns/ext/presets#> .\n"
         "@prefix rdf: <http://www.w3.org/1999/02/22-rdf-syntax-ns#> .\n"
         "@prefix rdfs: <http://www.w3.org/2000/01/rdf-schema#> .\n"
         "@prefix rsz: <http://lv2plug.in/ns/ext/resize-port#> .\n"
         "@prefix state: <http://lv2plug.in/ns/ext/state#> .\n"
         "@prefix time: <http://lv2plug.in/ns/ext/time#> .\n"
         "@prefix ui: <http://lv2plug.in/ns/extensions/ui#> .\n"
         "@prefix units: <http://lv2plug.in/ns/extensions/units#> .\n"
         "@prefix urid: <http://lv2plug.in/ns/ext/urid#> .\n"
         "@prefix work: <http://lv2plug.in/ns/ext/worker#> .\n"
         "\n";
}

}  // namespace lv2_backend
