// What the value panel offers, and what it makes of what is typed.

#include "Orvane/TypedValue.h"

#include <gtest/gtest.h>

#include <limits>

#include "Quillon/CommonAudioUnit.h"

namespace orvane {
namespace {

using Unit = platform::AudioUnitParameterUnit;
using Names = std::vector<std::string>;

const Names waves{"Sine", "Saw", "saw", "2 up", "1"};

/// All of one range and unit; what they count has names.
class OneParameter : public quillon::CommonAudioUnit {
 public:
  OneParameter(Unit unit, float minimum, float maximum, Names names = {})
      : CommonAudioUnit({{.key = "p",
                          .address = 1,
                          .minValue = minimum,
                          .maxValue = maximum,
                          .defaultValue = minimum,
                          .unit = unit,
                          .valueStrings = std::move(names)}}) {}
  const platform::AUParameter& operator*() { return *parameter("p"); }
};

TEST(TypedValueTest, ThePresentValueIsANumberInTheParametersOwnUnit) {
  struct Case {
    Unit unit;
    float value;
    const char* text;
  };
  for (const Case& k : {Case{Unit::hertz, 1200, "1200 Hz"},
                        {Unit::hertz, 632.4555f, "632.46 Hz"},
                        {Unit::hertz, 17238.45f, "17238 Hz"},
                        {Unit::seconds, 0.25f, "0.25 s"},
                        {Unit::milliseconds, 250, "250 ms"},
                        {Unit::milliseconds, 1500, "1500 ms"},
                        {Unit::decibels, -6.3f, "-6.3 dB"},
                        {Unit::percent, 12.5f, "12.5 %"},
                        {Unit::relativeSemiTones, 7, "7 st"},
                        {Unit::equalPowerCrossfade, 0.35f, "0.35"},
                        {Unit::pan, -0.3f, "-0.3"},
                        {Unit::midiNoteNumber, 60, "60"},
                        {Unit::generic, 1.0f / 3, "0.33333"},
                        {Unit::generic, -0.0f, "0"},
                        {Unit::generic, 1e-12f, "0"},
                        {Unit::generic, 1e9f, "1000000000"},
                        {Unit::generic, std::numeric_limits<float>::quiet_NaN(), ""},
                        {Unit::generic, std::numeric_limits<float>::infinity(), ""},
                        // Five digits would be read as the next higher one.
                        {Unit::decibels, 12.34999f, "12.34999 dB"}}) {
    OneParameter unit(k.unit, -1e10f, 1e10f);
    EXPECT_EQ(TypedValue::text(*unit, {}, k.value), k.text);
  }
}

TEST(TypedValueTest, NamesAndWholeNumbersSelectWhatIsCounted) {
  struct Case {
    const char* typed;
    float value;
  };
  OneParameter wave(Unit::indexed, 10, 14, waves);
  for (const Case& k : {Case{"Saw", 11},
                        {"saw", 12},
                        {" SAW\t", 11},
                        {"sine", 10},
                        {"2 UP", 13},
                        {"1", 14},
                        {"2", 2},
                        {"13", 13},
                        {"12.6 or so", 13},
                        {"square", 0},
                        {"", 0},
                        {" ", 0}})
    EXPECT_EQ(TypedValue::value(*wave, {}, k.typed), k.value) << k.typed;
  EXPECT_EQ(TypedValue::text(*wave, {}, 12), "saw");
  EXPECT_EQ(TypedValue::text(*wave, {}, 10.4f), "Sine");

  // The design's own hold over the parameter's, which are then no names any more.
  const Names own{"One", "Same", "Same", "", "\u00c4cht"};
  EXPECT_EQ(TypedValue::value(*wave, own, "one"), 10);
  EXPECT_EQ(TypedValue::value(*wave, own, "Sine"), 0);
  EXPECT_EQ(TypedValue::value(*wave, own, "\u00e4CHT"), 14);
  EXPECT_EQ(TypedValue::text(*wave, own, 11), "Same");
  EXPECT_EQ(TypedValue::text(*wave, own, 12), "12") << "the name would be the other one";
  EXPECT_EQ(TypedValue::text(*wave, own, 13), "13") << "has no name";

  OneParameter power(Unit::boolean, 0, 127);
  EXPECT_EQ(TypedValue::value(*power, {}, "on"), 127);
  EXPECT_EQ(TypedValue::value(*power, {}, "Off"), 0);
  EXPECT_EQ(TypedValue::text(*power, {}, 127), "On");

  // Names that a design gives to some of many values.
  OneParameter time(Unit::seconds, 0, 10);
  EXPECT_EQ(TypedValue::value(*time, {"Short", "Long"}, "long"), 1);
  EXPECT_EQ(TypedValue::text(*time, {"Short", "Long"}, 1), "Long");
  EXPECT_EQ(TypedValue::text(*time, {"Short", "Long"}, 0.75f), "0.75 s");
  EXPECT_EQ(TypedValue::value(*time, {"Short", "Long"}, "0.75 s"), 0.75f);
}

}  // namespace
}  // namespace orvane
