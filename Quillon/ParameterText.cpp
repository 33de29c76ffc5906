#include "Quillon/ParameterText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "platform/ParameterUnit.h"

namespace quillon {

namespace {

using platform::unitSuffix;
using Unit = platform::AudioUnitParameterUnit;

/// With so many decimals, a point in every locale, and never "-0".
std::string fixed(double value, int decimals) {
  const double scale = std::pow(10, decimals);
  if (std::abs(value) * scale < 0.5) value = 0;
  char text[400];
  const auto end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals);
  return std::string(text, end.ptr);
}

/// Decimals that show about three digits of `value` once it is rounded: 1.23, 12.3, 123.
int decimalsFor(double value) {
  const double size = std::abs(value);
  return size < 9.995 ? 2 : size < 99.95 ? 1 : 0;
}

std::string threeDigits(double value) { return fixed(value, decimalsFor(value)); }

/// Whole numbers without decimals.
std::string plain(double value, int decimals) {
  return fixed(value,
               std::abs(value - std::round(value)) < 0.5 * std::pow(10, -decimals) ? 0 : decimals);
}

std::string withSign(double value, int decimals) {
  const std::string text = plain(value, decimals);
  return text[0] == '-' || text == "0" ? text : "+" + text;
}

std::string hertzText(double value) {
  const double size = std::abs(value);
  if (size >= 9995) return fixed(value / 1000, 1) + " kHz";
  if (size >= 999.5) return fixed(value / 1000, 2) + " kHz";
  return fixed(value, size < 9.995 ? 2 : size < 99.95 ? 1 : 0) + " Hz";
}

std::string timeText(double seconds) {
  const double size = std::abs(seconds);
  if (size >= 0.9995) return fixed(seconds, size < 9.995 ? 2 : 1) + " s";
  const double milliseconds = seconds * 1000;
  return plain(milliseconds, decimalsFor(milliseconds)) + " ms";
}

/// The share of the way to one side, in percent.
std::string panText(const ParameterDescription& parameter, double value) {
  const double reach = std::max(std::abs(parameter.minValue), std::abs(parameter.maxValue));
  const double percent = reach > 0 ? std::round(100 * value / reach) : 0;
  if (percent == 0) return "C";
  return (percent < 0 ? "L " : "R ") + fixed(std::abs(percent), 0);
}

std::string indexedText(const ParameterDescription& parameter, double value) {
  const double index = std::round(value) - std::round(parameter.minValue);
  if (index >= 0 && index < static_cast<double>(parameter.valueStrings.size()))
    return parameter.valueStrings[static_cast<std::size_t>(index)];
  return fixed(value, 0);
}

std::string noteText(double value) {
  static constexpr const char* names[] = {"C",  "C#", "D",  "D#", "E",  "F",
                                          "F#", "G",  "G#", "A",  "A#", "B"};
  const double note = std::round(value);
  if (note < 0 || note > 127) return fixed(value, 0);
  const int number = static_cast<int>(note);
  return names[number % 12] + std::to_string(number / 12 - 1);
}

}  // namespace

std::string parameterText(const ParameterDescription& parameter, float single) {
  const Unit unit = parameter.unit;
  if (std::isnan(single)) return "--";
  if (std::isinf(single)) return std::string(single < 0 ? "-inf" : "inf") + unitSuffix(unit);
  const double value = single;
  switch (unit) {
    case Unit::boolean:
      return value >= 0.5 * (double{parameter.minValue} + parameter.maxValue) &&
                     value > parameter.minValue
                 ? "On"
                 : "Off";
    case Unit::indexed:
      return indexedText(parameter, value);
    case Unit::hertz:
      return hertzText(value);
    case Unit::seconds:
      return timeText(value);
    case Unit::milliseconds:
      return timeText(value / 1000);
    case Unit::pan:
      return panText(parameter, value);
    case Unit::midiNoteNumber:
      return noteText(value);
    case Unit::decibels:
      return fixed(value, 1) + unitSuffix(unit);
    case Unit::percent:
      return plain(value, 1) + unitSuffix(unit);
    case Unit::equalPowerCrossfade:
    case Unit::mixerFaderCurve1:
      return plain(value * 100, 1) + unitSuffix(Unit::percent);
    case Unit::relativeSemiTones:
    case Unit::octaves:
      return withSign(value, 2) + unitSuffix(unit);
    case Unit::cents:
      return withSign(value, 1) + unitSuffix(unit);
    case Unit::degrees:
    case Unit::phase:
    case Unit::absoluteCents:
      return plain(value, 1) + unitSuffix(unit);
    case Unit::bpm:
      return fixed(value, 1) + unitSuffix(unit);
    case Unit::beats:
      return plain(value, 3) + (std::abs(value - 1) < 0.0005 ? " beat" : unitSuffix(unit));
    case Unit::sampleFrames:
      return fixed(value, 0) + unitSuffix(unit);
    case Unit::midiController:
      return fixed(value, 0);
    case Unit::linearGain:
      return fixed(value, 2);
    case Unit::rate:
    case Unit::ratio:
    case Unit::meters:
      return plain(value, 2) + unitSuffix(unit);
    case Unit::generic:
    case Unit::customUnit:
      break;
  }
  return threeDigits(value);
}

}  // namespace quillon
