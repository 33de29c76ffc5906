#include "tools/orvane/Text.h"

#include <charconv>
#include <cmath>
#include <cstddef>

#include "foundation/UnicodeText.h"

namespace tool {

namespace {

constexpr double maxSide = 16384;

}  // namespace

std::string oneLine(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const foundation::CodePoint point = foundation::codePointAt(text, 0);
    if (!point.isWellFormed)
      line += '?';
    else if (point.value < 0x20 || point.value == 0x7F)
      line += ' ';
    else
      line += text.substr(0, point.length);
    text.remove_prefix(point.length);
  }
  return line;
}

std::string inQuotes(std::string_view text) {
  constexpr std::size_t limit = 60;
  // Cut before the characters are looked at: the text may be a whole file.
  const std::string line = oneLine(text.substr(0, limit * 4));
  std::size_t end = 0;
  for (std::size_t count = 0; end < line.size() && count < limit; ++count)
    end += foundation::codePointAt(line, end).length;
  const bool whole = end == line.size() && text.size() <= limit * 4;
  return '"' + line.substr(0, end) + (whole ? "\"" : "...\"");
}

std::optional<double> parseNumber(std::string_view text) {
  if (!text.empty() && text[0] == '+') text.remove_prefix(1);
  double number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end || !std::isfinite(number)) return std::nullopt;
  return number;
}

std::optional<int> parseCount(std::string_view text) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end || number < 0) return std::nullopt;
  return number;
}

std::optional<platform::Size> parseSize(std::string_view text) {
  const std::size_t cross = text.find('x');
  if (cross == std::string_view::npos) return std::nullopt;
  const auto width = parseNumber(text.substr(0, cross));
  const auto height = parseNumber(text.substr(cross + 1));
  if (!width || !height || *width <= 0 || *height <= 0 || *width > maxSide || *height > maxSide)
    return std::nullopt;
  return platform::Size{*width, *height};
}

std::string numberText(double number) {
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, number);
  return std::string(buffer, result.ptr);
}

std::string rangeText(double low, double high) {
  return '[' + numberText(low) + ", " + numberText(high) + ']';
}

std::string sizeText(const platform::Size& size) {
  return numberText(size.width) + 'x' + numberText(size.height);
}

double shortest(float value) {
  if (!std::isfinite(value)) return static_cast<double>(value);
  char buffer[64];
  const auto written = std::to_chars(buffer, buffer + sizeof buffer, value);
  double number = 0;
  std::from_chars(buffer, written.ptr, number);
  return number;
}

double tidy(double points) {
  const double rounded = std::round(points * 1e9) / 1e9;
  // No minus sign on a zero.
  return rounded == 0 ? 0 : rounded;
}

}  // namespace tool
