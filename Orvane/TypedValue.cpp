#include "Orvane/TypedValue.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "Orvane/MathUtils.h"
#include "Orvane/ParameterMapping.h"
#include "foundation/UnicodeText.h"
#include "platform/ParameterUnit.h"

namespace orvane {

namespace {

using Names = std::vector<std::string>;

// With nine digits every float comes back.
constexpr int digitsThatRead = 5, digitsThatTell = 9;
constexpr int mostDecimals = 9;

const Names& namesOf(const platform::AUParameter& parameter, const Names& own) {
  static const Names switched{"Off", "On"};
  if (!own.empty()) return own;
  const bool isSwitch = parameter.unit() == platform::AudioUnitParameterUnit::boolean;
  return parameter.valueStrings().empty() && isSwitch ? switched : parameter.valueStrings();
}

/// From one name to the next; a switch has two, at the ends of its range.
float step(const platform::AUParameter& parameter) {
  const bool isSwitch = parameter.unit() == platform::AudioUnitParameterUnit::boolean;
  return isSwitch ? parameter.maxValue() - parameter.minValue() : 1;
}

float valueAt(const platform::AUParameter& parameter, std::size_t index) {
  return parameter.minValue() + static_cast<float>(index) * step(parameter);
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\n\v\f\r";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<std::size_t> named(const Names& names, std::string_view text) {
  const std::string_view wanted = trimmed(text);
  if (wanted.empty()) return std::nullopt;
  const auto place = [&](const auto& isIt) -> std::optional<std::size_t> {
    const auto found = std::find_if(names.begin(), names.end(), isIt);
    if (found == names.end()) return std::nullopt;
    return static_cast<std::size_t>(found - names.begin());
  };
  // Two names may differ in nothing but their case.
  const auto same = place([&](const std::string& name) { return trimmed(name) == wanted; });
  if (same) return same;
  const std::string lowered = foundation::lowercased(wanted);
  return place(
      [&](const std::string& name) { return foundation::lowercased(trimmed(name)) == lowered; });
}

/// Without an exponent, and without zeros at the end.
std::string number(double value, int digits) {
  const double size = std::fabs(value);
  const int before = size > 0 ? static_cast<int>(std::floor(std::log10(size))) + 1 : 1;
  const int decimals = std::clamp(digits - before, 0, mostDecimals);
  char buffer[64];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
  std::string text(buffer, end.ptr);
  if (decimals > 0) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  return text == "-0" ? "0" : text;
}

}  // namespace

std::string TypedValue::text(const platform::AUParameter& parameter, const Names& names,
                             float value) {
  if (!std::isfinite(value)) return {};
  const Names& known = namesOf(parameter, names);
  const double place = std::round((double{value} - parameter.minValue()) / step(parameter));
  if (place >= 0 && place < static_cast<double>(known.size())) {
    const auto index = static_cast<std::size_t>(place);
    const bool isIt = takesWholeValues(parameter) || valueAt(parameter, index) == value;
    if (isIt && named(known, known[index]) == index) return known[index];
  }
  const std::string wanted = parameter.stringFromValue(value);
  std::string text;
  for (int digits = digitsThatRead; digits <= digitsThatTell; ++digits) {
    text = number(value, digits);
    if (parameter.stringFromValue(TypedValue::value(parameter, names, text)) == wanted) break;
  }
  return text + platform::unitSuffix(parameter.unit());
}

float TypedValue::value(const platform::AUParameter& parameter, const Names& names,
                        std::string_view text) {
  if (const auto index = named(namesOf(parameter, names), text)) return valueAt(parameter, *index);
  const float typed = MathUtils::floatValue(text);
  return takesWholeValues(parameter) ? std::round(typed) : typed;
}

}  // namespace orvane
