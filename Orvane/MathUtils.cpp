#include "Orvane/MathUtils.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

namespace orvane {

namespace {

constexpr float noPitch = -1500.0f;

/// Whether a number that no double holds is too near to 0, rather than too large.
bool isTooSmall(std::string_view number) {
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const auto point = static_cast<std::int64_t>(std::min(number.find('.'), mark));
  // The power of ten of the first digit that counts, without the exponent.
  const std::int64_t order = point - static_cast<std::int64_t>(number.find_first_of("123456789"));
  std::string_view exponent = number.substr(std::min(mark + 1, number.size()));
  const bool isNegative = exponent.starts_with('-');
  if (isNegative || exponent.starts_with('+')) exponent.remove_prefix(1);
  std::int64_t power = 0;
  const auto result = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
  if (result.ec == std::errc::result_out_of_range) return isNegative;
  return order + (isNegative ? -power : power) < 0;
}

}  // namespace

float MathUtils::toMidi(float frequency) {
  // 1 / 8.175799, the frequency of note 0, and 12 / ln 2.
  return frequency > 0 ? std::log(frequency * 0.1223122f) * 17.31234f : noPitch;
}

float MathUtils::toFreq(float pitch) {
  // ln 2 / 12.
  return std::exp(pitch * 0.057762265f) * 8.175799f;
}

float MathUtils::floatValue(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  const bool isNegative = text.front() == '-';
  if (isNegative || text.front() == '+') text.remove_prefix(1);
  // Which leaves out the words for infinity and for no number.
  const std::size_t digit = text.starts_with('.') ? 1 : 0;
  if (text.size() <= digit || text[digit] < '0' || text[digit] > '9') return 0;
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  constexpr float largest = std::numeric_limits<float>::max();
  if (result.ec == std::errc::result_out_of_range)
    value = isTooSmall(text.substr(0, static_cast<std::size_t>(result.ptr - text.data())))
                ? 0
                : largest;
  const float number = value > largest ? largest : static_cast<float>(value);
  return isNegative ? -number : number;
}

}  // namespace orvane
