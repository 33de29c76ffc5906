// Values as a musician reads them.

#include "Quillon/ParameterText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using quillon::ParameterDescription;
using quillon::parameterText;
using Unit = platform::AudioUnitParameterUnit;

TEST(ParameterTextTest, EveryUnitReadsAsExpected) {
  const struct {
    Unit unit;
    float value;
    const char* text;
  } cases[] = {
      {Unit::hertz, 632.5f, "632 Hz"},
      {Unit::hertz, 1200, "1.20 kHz"},
      {Unit::hertz, 999.4f, "999 Hz"},
      {Unit::hertz, 999.6f, "1.00 kHz"},
      {Unit::hertz, 9994, "9.99 kHz"},
      {Unit::hertz, 9996, "10.0 kHz"},
      {Unit::hertz, 20000, "20.0 kHz"},
      {Unit::hertz, 20, "20.0 Hz"},
      {Unit::hertz, 0.5f, "0.50 Hz"},
      {Unit::hertz, 0, "0.00 Hz"},
      {Unit::decibels, -6, "-6.0 dB"},
      {Unit::decibels, -0.04f, "0.0 dB"},
      {Unit::decibels, 12.34f, "12.3 dB"},
      {Unit::percent, 35, "35 %"},
      {Unit::percent, 12.5f, "12.5 %"},
      {Unit::percent, -0.01f, "0 %"},
      {Unit::seconds, 0.012f, "12 ms"},
      {Unit::seconds, 0.0125f, "12.5 ms"},
      {Unit::seconds, 0.0012f, "1.20 ms"},
      {Unit::seconds, 0.25f, "250 ms"},
      {Unit::seconds, 0.9996f, "1.00 s"},
      {Unit::seconds, 1.5f, "1.50 s"},
      {Unit::seconds, 12.34f, "12.3 s"},
      {Unit::seconds, 0, "0 ms"},
      {Unit::milliseconds, 12, "12 ms"},
      {Unit::milliseconds, 1500, "1.50 s"},
      {Unit::relativeSemiTones, 7, "+7 st"},
      {Unit::relativeSemiTones, -12, "-12 st"},
      {Unit::relativeSemiTones, 0, "0 st"},
      {Unit::relativeSemiTones, 0.5f, "+0.50 st"},
      {Unit::cents, -3.5f, "-3.5 ct"},
      {Unit::pan, -0.3f, "L 30"},
      {Unit::pan, 0.001f, "C"},
      {Unit::pan, 0.3f, "R 30"},
      {Unit::pan, 1, "R 100"},
      {Unit::beats, 1, "1 beat"},
      {Unit::beats, 0.25f, "0.250 beats"},
      {Unit::beats, 4, "4 beats"},
      {Unit::bpm, 120, "120.0 bpm"},
      {Unit::ratio, 4, "4:1"},
      {Unit::ratio, 2.5f, "2.50:1"},
      {Unit::degrees, 90, "90\u00b0"},
      {Unit::boolean, 0, "Off"},
      {Unit::boolean, 1, "On"},
      {Unit::midiNoteNumber, 60, "C4"},
      {Unit::midiNoteNumber, 127, "G9"},
      {Unit::midiNoteNumber, 128, "128"},
      {Unit::midiNoteNumber, -1, "-1"},
      {Unit::linearGain, 0.5f, "0.50"},
      {Unit::generic, 0.123f, "0.12"},
      {Unit::generic, 12.34f, "12.3"},
      {Unit::generic, -0.001f, "0.00"},
  };
  for (const auto& [unit, value, text] : cases) {
    ParameterDescription parameter;
    parameter.unit = unit;
    parameter.minValue = unit == Unit::pan ? -1 : 0;
    EXPECT_EQ(parameterText(parameter, value), text);
  }
}

TEST(ParameterTextTest, IndexedValuesReadFromTheMinimumUp) {
  ParameterDescription parameter;
  parameter.unit = Unit::indexed;
  parameter.minValue = 1;
  parameter.maxValue = 4;
  parameter.valueStrings = {"Saw", "Square", "Sine"};
  EXPECT_EQ(parameterText(parameter, 1), "Saw");
  EXPECT_EQ(parameterText(parameter, 2.6f), "Sine");
  EXPECT_EQ(parameterText(parameter, 4), "4");
  EXPECT_EQ(parameterText(parameter, 0), "0");
}

TEST(ParameterTextTest, NoValueBreaksTheText) {
  constexpr float huge = std::numeric_limits<float>::max();
  constexpr float infinite = std::numeric_limits<float>::infinity();
  for (std::uint32_t unit = 0; unit <= 26; ++unit) {
    ParameterDescription parameter;
    parameter.unit = static_cast<Unit>(unit);
    EXPECT_EQ(parameterText(parameter, std::nanf("")), "--");
    for (float value : {infinite, -infinite, huge, -huge, 1e-40f})
      EXPECT_FALSE(parameterText(parameter, value).empty()) << unit;
  }
  ParameterDescription gain;
  gain.unit = Unit::decibels;
  EXPECT_EQ(parameterText(gain, -infinite), "-inf dB");
}

}  // namespace
