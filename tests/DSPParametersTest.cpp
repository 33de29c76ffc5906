// The registry finds parameters and sets them from positions; the mapping is the one that every
// control uses.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "Orvane/DSPParameters.h"
#include "Orvane/MathUtils.h"
#include "Orvane/ParameterMapping.h"
#include "Quillon/CommonAudioUnit.h"

namespace orvane {
namespace {

using platform::AudioUnitParameterUnit;
using Scale = ParameterMapping::Scale;

class Recorder : public DSPParameterObserver {
 public:
  void update(platform::AUParameter& parameter, const std::string& key) override {
    seen.emplace_back(key, parameter.value());
  }
  std::vector<std::pair<std::string, float>> seen;
};

class DSPParametersTest : public testing::Test {
 protected:
  void SetUp() override { parameters.registerParameters(*unit, {"cutoff", "nothing", "gain"}); }

  std::unique_ptr<quillon::CommonAudioUnit> unit =
      std::make_unique<quillon::CommonAudioUnit>(std::vector<quillon::ParameterDescription>{
          {.key = "cutoff",
           .address = 7,
           .minValue = 20,
           .maxValue = 20000,
           .defaultValue = 100,
           .unit = AudioUnitParameterUnit::hertz},
          {.key = "gain", .address = 9, .minValue = -10, .maxValue = 30},
          {.key = "unlisted", .address = 11}});
  DSPParameters parameters;
};

TEST_F(DSPParametersTest, KeysWithoutAParameterAreSkipped) {
  EXPECT_EQ(parameters.keys(), (std::vector<std::string>{"cutoff", "gain"}));
  EXPECT_EQ(parameters["nothing"], nullptr);
  EXPECT_EQ(parameters["unlisted"], nullptr);
  ASSERT_NE(parameters["gain"], nullptr);
  EXPECT_EQ(parameters["gain"]->address(), 9u);
  ASSERT_NE(parameters.key(7), nullptr);
  EXPECT_EQ(*parameters.key(7), "cutoff");
  EXPECT_EQ(parameters.key(11), nullptr);
  parameters.registerParameters(*unit, {"unlisted", "unlisted"});
  EXPECT_EQ(parameters.keys(), std::vector<std::string>{"unlisted"}) << "each once";
  EXPECT_EQ(parameters.key(7), nullptr) << "in place of all it had";
}

TEST_F(DSPParametersTest, SetsFromPositionsAndAsItIs) {
  using Convert = DSPParameters::Convert;
  parameters.set(0.5f, "cutoff", Convert::yes);
  EXPECT_NEAR(parameters["cutoff"]->value(), 632.5, 0.1);
  parameters.set(1, "cutoff", Convert::yes);
  EXPECT_EQ(parameters["cutoff"]->value(), 20000);
  parameters.set(0.25f, "gain", Convert::yes);
  EXPECT_EQ(parameters["gain"]->value(), 0);
  parameters.set(0.25f, "gain", Convert::no);
  EXPECT_EQ(parameters["gain"]->value(), 0.25f);
  parameters.set(std::nanf(""), "gain", Convert::yes);
  EXPECT_EQ(parameters["gain"]->value(), 0.25f);
  parameters.set(1, "unknown", Convert::yes);
}

TEST_F(DSPParametersTest, TheLaterObserverOfAKeyReplacesTheEarlier) {
  const auto first = std::make_shared<Recorder>(), second = std::make_shared<Recorder>();
  parameters.setObserver(first, "gain");
  parameters.setObserver(second, "gain");
  parameters.set(3, "gain", DSPParameters::Convert::no);
  parameters.notify("gain");
  parameters.notify("cutoff");
  EXPECT_TRUE(first->seen.empty());
  EXPECT_EQ(second->seen, (std::vector<std::pair<std::string, float>>{{"gain", 3.0f}}));
  EXPECT_EQ(first.use_count(), 1);
}

TEST_F(DSPParametersTest, AnAudioUnitThatHasGoneHasNoParameters) {
  const auto observer = std::make_shared<Recorder>();
  parameters.setObserver(observer, "gain");
  unit.reset();
  EXPECT_EQ(parameters["gain"], nullptr);
  parameters.set(1, "gain", DSPParameters::Convert::yes);
  parameters.notify("gain");
  EXPECT_TRUE(observer->seen.empty());
}

TEST(MathUtilsTest, PitchAndFrequency) {
  EXPECT_NEAR(MathUtils::toMidi(440), 69, 1e-4);
  EXPECT_NEAR(MathUtils::toFreq(69), 440, 1e-3);
  EXPECT_NEAR(MathUtils::toMidi(20), 15.486819, 1e-4);
  EXPECT_NEAR(MathUtils::toMidi(20000), 135.0762, 1e-3);
  EXPECT_EQ(MathUtils::toMidi(0), -1500);
  EXPECT_EQ(MathUtils::toMidi(-5), -1500);
  EXPECT_NEAR(MathUtils::toFreq(-1500), 0, 1e-30);
}

TEST(MathUtilsTest, ANumberIsReadFromTheFrontOfATextInEveryLanguage) {
  constexpr float largest = std::numeric_limits<float>::max();
  const std::string zeros(400, '0');
  const std::pair<std::string, float> cases[] = {{"12.5 Hz", 12.5f},
                                                 {" \t-3", -3.0f},
                                                 {"+4.", 4.0f},
                                                 {".5", 0.5f},
                                                 {"1e3x", 1000.0f},
                                                 {"12,5", 12.0f},
                                                 {"", 0.0f},
                                                 {"abc", 0.0f},
                                                 {"-", 0.0f},
                                                 {"nan", 0.0f},
                                                 {"inf", 0.0f},
                                                 {"0x10", 0.0f},
                                                 {"--4", 0.0f},
                                                 {"1e-400", 0.0f},
                                                 {"1E-400", 0.0f},
                                                 {"0." + zeros + "1", 0.0f},
                                                 {"0." + zeros + "1e-9 e5", 0.0f},
                                                 {"5e-99999999999999999999", 0.0f},
                                                 {"1e99999999999999999999", largest},
                                                 {"1" + zeros, largest},
                                                 {"1" + zeros + "E-9", largest},
                                                 {"0.01E+400", largest},
                                                 {"- 4", 0.0f},
                                                 {"1e400", largest},
                                                 {"-1e40", -largest}};
  for (const auto& [text, value] : cases) EXPECT_EQ(MathUtils::floatValue(text), value) << text;
}

TEST(ParameterMappingTest, PositionsAndValuesAnswerEachOther) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  struct Case {
    ParameterMapping mapping;
    float position, value;
  };
  for (const Case& c :
       {Case{{20, 20000, Scale::pitch}, 0.5f, 632.4555f}, Case{{20, 20000, Scale::pitch}, 0, 20},
        Case{{20, 20000, Scale::pitch}, 1, 20000}, Case{{0, 1000, Scale::pitch}, 0, 0},
        Case{{-1, 1, Scale::linear}, 0.25f, -0.5f}, Case{{5, 1, Scale::linear}, 0.25f, 4}}) {
    SCOPED_TRACE(c.value);
    EXPECT_NEAR(c.mapping.valueAt(c.position), c.value, std::abs(c.value) * 1e-5);
    EXPECT_NEAR(c.mapping.positionOf(c.value), c.position, 1e-5);
  }
  // A control of pitch shows 20 Hz to 20 kHz, whatever the parameter allows.
  const quillon::CommonAudioUnit narrow({{.key = "cutoff",
                                          .address = 1,
                                          .minValue = 100,
                                          .maxValue = 8000,
                                          .defaultValue = 100,
                                          .unit = AudioUnitParameterUnit::hertz}});
  const ParameterMapping shown(*narrow.parameter("cutoff"), kestroui::Container::ValueForm::pitch);
  EXPECT_NEAR(shown.positionOf(20), 0, 1e-5);
  EXPECT_NEAR(shown.positionOf(20000), 1, 1e-5);
  const ParameterMapping empty(3, 3, Scale::linear), silent(-1, 0, Scale::pitch);
  EXPECT_EQ(empty.positionOf(3), 0);
  EXPECT_EQ(empty.valueAt(0.5f), 3);
  EXPECT_EQ(silent.positionOf(-1), 0);
  EXPECT_EQ(empty.positionOf(nan), 0);
  EXPECT_TRUE(std::isnan(ParameterMapping(0, 1, Scale::linear).valueAt(nan)));
}

}  // namespace
}  // namespace orvane
