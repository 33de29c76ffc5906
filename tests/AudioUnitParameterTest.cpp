// What hosts make of a parameter: its place between 0 and 1, its texts, and what they may do with it.

#include "backends/juce/AudioUnitParameter.h"

#include <gtest/gtest.h>

#include "Quillon/CommonAudioUnit.h"

namespace {

using juce_backend::AudioUnitParameter;
using Unit = platform::AudioUnitParameterUnit;

class ParameterTest : public testing::Test {
 protected:
  AudioUnitParameter& make(quillon::ParameterDescription description) {
    description.key = "value";
    const float start = description.defaultValue;
    unit_ = std::make_unique<quillon::CommonAudioUnit>(std::vector{std::move(description)});
    parameter_ = std::make_unique<AudioUnitParameter>(*unit_->parameter("value"), start);
    return *parameter_;
  }
  AudioUnitParameter& make(Unit unit, float low, float high) {
    return make({.minValue = low, .maxValue = high, .defaultValue = low, .unit = unit});
  }
  float typed(const char* text) {
    return parameter_->fromNormalised(parameter_->getValueForText(juce::String::fromUTF8(text)));
  }

 private:
  juce::ScopedJuceInitialiser_GUI juceIsUp_;
  std::unique_ptr<quillon::CommonAudioUnit> unit_;
  std::unique_ptr<AudioUnitParameter> parameter_;
};

TEST_F(ParameterTest, aTextThatAHostShowsLeadsBackToItsValueWhateverTheUnit) {
  for (std::uint32_t number = 0; number <= 26; ++number) {
    const auto unit = static_cast<Unit>(number);
    const bool isNote = unit == Unit::midiNoteNumber || unit == Unit::midiController;
    const bool isShare = unit == Unit::equalPowerCrossfade || unit == Unit::mixerFaderCurve1;
    AudioUnitParameter& parameter = unit == Unit::hertz      ? make(unit, 20, 20000)
                                    : unit == Unit::seconds  ? make(unit, 0, 12)
                                    : unit == Unit::pan      ? make(unit, -1, 1)
                                    : unit == Unit::boolean  ? make(unit, 0, 1)
                                    : unit == Unit::decibels ? make(unit, -60, 12)
                                    : isNote                 ? make(unit, 0, 127)
                                    : isShare                ? make(unit, 0, 1)
                                                             : make(unit, -3, 2500);
    for (const float place : {0.0f, 0.11f, 0.37f, 0.5f, 0.62f, 0.9f, 1.0f}) {
      const juce::String text = parameter.getText(place, 0);
      EXPECT_EQ(parameter.getText(parameter.getValueForText(text), 0), text) << "unit " << number;
    }
  }
}

TEST_F(ParameterTest, typedTextsAreTakenAsPeopleWriteThem) {
  const struct {
    Unit unit;
    float low, high;
    const char* text;
    float value;
  } cases[] = {
      {Unit::hertz, 20, 20000, "1.5k", 1500},
      {Unit::hertz, 20, 20000, " 2 KHZ ", 2000},
      {Unit::hertz, 20, 20000, "440", 440},
      {Unit::hertz, 20, 20000, "1 Hz", 20},
      {Unit::seconds, 0, 10, "250 ms", 0.25f},
      {Unit::seconds, 0, 10, "2.5", 2.5f},
      {Unit::seconds, 0, 10, "3 s", 3},
      {Unit::milliseconds, 0, 5000, "1.5 s", 1500},
      {Unit::milliseconds, 0, 5000, "20", 20},
      {Unit::milliseconds, 0, 5000, "20ms", 20},
      {Unit::decibels, -60, 12, "-6.5 dB", -6.5f},
      {Unit::decibels, -60, 12, "+3", 3},
      {Unit::pan, -1, 1, "l 50", -0.5f},
      {Unit::pan, -1, 1, "25R", 0.25f},
      {Unit::pan, -1, 1, "c", 0},
      {Unit::midiNoteNumber, 0, 127, "a4", 69},
      {Unit::midiNoteNumber, 0, 127, "61", 61},
      {Unit::equalPowerCrossfade, 0, 1, "30", 0.3f},
      {Unit::boolean, 0, 1, "on", 1},
  };
  for (const auto& c : cases) {
    make(c.unit, c.low, c.high);
    EXPECT_NEAR(typed(c.text), c.value, 1e-3) << c.text;
  }
}

TEST_F(ParameterTest, aTextWithoutMeaningLeavesTheValueAlone) {
  AudioUnitParameter& parameter = make(Unit::percent, 0, 100);
  parameter.setValue(0.25f);
  EXPECT_EQ(typed("nonsense"), 25);
  EXPECT_EQ(typed(""), 25);
}

TEST_F(ParameterTest, choicesAreNamedWhereverTheirNumbersBegin) {
  AudioUnitParameter& parameter = make({.minValue = 1,
                                        .maxValue = 3,
                                        .defaultValue = 2,
                                        .unit = Unit::indexed,
                                        .valueStrings = {"Säge", "Noise", "Sine"}});
  EXPECT_EQ(parameter.getNumSteps(), 3);
  EXPECT_TRUE(parameter.isDiscrete());
  EXPECT_FLOAT_EQ(parameter.getDefaultValue(), 0.5f);
  EXPECT_EQ(parameter.getText(0, 0), juce::String::fromUTF8("Säge"));
  EXPECT_EQ(parameter.getAllValueStrings()[0], juce::String::fromUTF8("Säge"));
  EXPECT_EQ(typed("säge"), 1);
  EXPECT_EQ(typed("Sine"), 3);
  EXPECT_EQ(parameter.fromNormalised(0.3f), 2) << "hosts automate between the choices, too";
}

TEST_F(ParameterTest, hostsGetNoMoreLettersThanTheyHaveRoomFor) {
  const AudioUnitParameter& parameter = make(Unit::decibels, -60, 12);
  EXPECT_EQ(parameter.getText(0, 3), "-60");
  EXPECT_EQ(parameter.getText(0, 100), "-60.0 dB");
}

TEST_F(ParameterTest, aValueThatIsThereAlreadyDoesNotDrift) {
  AudioUnitParameter& parameter = make(Unit::hertz, 20, 20000);
  for (const float exact : {33.3f, 441.7f, 523.251f, 1234.5f, 7777.7f, 19999.0f}) {
    parameter.parameter().setValue(exact);
    parameter.setValue(parameter.getValue());
    EXPECT_EQ(parameter.parameter().value(), exact);
  }
}

TEST_F(ParameterTest, automationIsEvenInPitchWhereTheParameterSaysSo) {
  EXPECT_NEAR(make({.minValue = 1,
                    .maxValue = 100,
                    .defaultValue = 1,
                    .flags = platform::AudioUnitParameterFlags::readable |
                             platform::AudioUnitParameterFlags::writable |
                             platform::AudioUnitParameterFlags::displayLogarithmic})
                  .fromNormalised(0.5f),
              10, 1e-4);
  EXPECT_NEAR(make(Unit::hertz, 0, 100).fromNormalised(0.5f), 50, 1e-4) << "no pitch begins at 0";
}

TEST_F(ParameterTest, valuesOutsideOfTheRangeStayInside) {
  const AudioUnitParameter& parameter = make(Unit::percent, 0, 100);
  EXPECT_EQ(parameter.toNormalised(150), 1);
  EXPECT_EQ(parameter.toNormalised(-1), 0);
  EXPECT_EQ(parameter.toNormalised(std::numeric_limits<float>::quiet_NaN()), 0);
  EXPECT_EQ(parameter.fromNormalised(7), 100);
  EXPECT_EQ(make(Unit::percent, 5, 5).toNormalised(5), 0) << "a range of nothing";
}

TEST_F(ParameterTest, whatOnlyTheSoundSetsIsAMeterAndNoAutomation) {
  const AudioUnitParameter& meter =
      make({.unit = Unit::generic, .flags = platform::AudioUnitParameterFlags::readable});
  EXPECT_FALSE(meter.isAutomatable());
  EXPECT_EQ(meter.getCategory(), juce::AudioProcessorParameter::outputMeter);
  const AudioUnitParameter& usual = make(Unit::generic, 0, 1);
  EXPECT_TRUE(usual.isAutomatable());
  EXPECT_EQ(usual.getCategory(), juce::AudioProcessorParameter::genericParameter);
}

}  // namespace
