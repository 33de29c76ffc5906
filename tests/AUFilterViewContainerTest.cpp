// The curve of a filter view: the audio unit computes it, and only when something has changed.

#include "Orvane/AUFilterViewContainer.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using Unit = platform::AudioUnitParameterUnit;

class CountingUnit : public quillon::CommonAudioUnit {
 public:
  CountingUnit()
      : CommonAudioUnit({{.key = "cutoff",
                          .address = 1,
                          .minValue = 20,
                          .maxValue = 20000,
                          .defaultValue = 1000,
                          .unit = Unit::hertz,
                          .publishesLive = true},
                         {.key = "resonance",
                          .address = 2,
                          .minValue = -20,
                          .maxValue = 40,
                          .unit = Unit::decibels,
                          .publishesLive = true},
                         {.key = "SidechainHighPassFrequency", .address = 3, .publishesLive = true},
                         {.key = "SidechainHighPassResonance",
                          .address = 4,
                          .minValue = -20,
                          .maxValue = 40,
                          .unit = Unit::decibels,
                          .publishesLive = true}}) {}
  using CommonAudioUnit::publishLive;
  using CommonAudioUnit::publishModulating;

  std::vector<double> magnitudesForFrequencies(const std::vector<double>& frequencies,
                                               std::string_view filterType,
                                               std::string_view frequencyParameter,
                                               std::string_view resonanceParameter) const override {
    ++byKeys;
    keys = {std::string(frequencyParameter), std::string(resonanceParameter)};
    return CommonAudioUnit::magnitudesForFrequencies(frequencies, filterType, frequencyParameter,
                                                     resonanceParameter);
  }
  std::vector<double> magnitudesForFrequencies(const std::vector<double>& frequencies,
                                               std::string_view filterType, float frequencyValue,
                                               float resonanceValue) const override {
    ++byValues;
    type = filterType;
    frequency = frequencyValue;
    return CommonAudioUnit::magnitudesForFrequencies(frequencies, filterType, frequencyValue,
                                                     resonanceValue);
  }
  using CommonAudioUnit::magnitudesForFrequencies;

  mutable int byKeys = 0, byValues = 0;
  mutable std::vector<std::string> keys;
  mutable std::string type;
  mutable float frequency = 0;
};

class AUFilterViewContainerTest : public testing::Test {
 protected:
  AUFilterViewContainer& build(const std::string& key, std::vector<std::string> attached) {
    design->givenKeys = {support::paramKey(key, kestroui::ControlType::filter, attached)};
    controller.setAudioUnit(unit.get());
    controller.view();
    return *controller.control<AUFilterViewContainer>(key);
  }
  int live() { return std::exchange(unit->byValues, 0); }

  support::ManualLoop loop;
  std::unique_ptr<CountingUnit> unit = std::make_unique<CountingUnit>();
  std::shared_ptr<support::GivenDesign> design = std::make_shared<support::GivenDesign>();
  support::TestController controller{design};
};

TEST_F(AUFilterViewContainerTest, TheCurveFollowsTheParameters) {
  auto& filter = build("cutoff", {"resonance"});
  EXPECT_EQ(unit->keys, (std::vector<std::string>{"cutoff", "resonance"}));
  const auto before = filter.filterView().filterMagnitudes();
  ASSERT_EQ(before.size(), filter.filterView().frequencies().size());
  unit->byKeys = unit->byValues = 0;
  unit->setParameter("resonance", 24);
  loop.advance(0);
  EXPECT_EQ(unit->byKeys, 1);
  EXPECT_NE(filter.filterView().filterMagnitudes(), before);
  unit->setParameter("resonance", 24);
  loop.advance(0);
  EXPECT_EQ(unit->byKeys, 1) << "a value that has not changed needs no new curve";
}

TEST_F(AUFilterViewContainerTest, OneKeyDrawsNoCurve) {
  auto& filter = build("cutoff", {});
  filter.updateViewData();
  EXPECT_EQ(unit->byKeys, 0);
  EXPECT_TRUE(filter.filterView().filterMagnitudes().empty());
  filter.updateModulation();
  EXPECT_EQ(live(), 0);
}

TEST_F(AUFilterViewContainerTest, UnchangedLiveValuesComputeNothing) {
  auto& filter = build("cutoff", {"resonance"});
  live();
  filter.updateModulation();
  EXPECT_EQ(live(), 1);
  EXPECT_EQ(unit->type, "lowPass");
  EXPECT_EQ(filter.previousFreq, 1000);
  filter.updateModulation();
  EXPECT_EQ(live(), 0);
  unit->publishLive(0, 2000);
  filter.updateModulation();
  filter.updateModulation();
  EXPECT_EQ(live(), 1);
  EXPECT_EQ(unit->frequency, 2000);
  unit->publishLive(1, std::numeric_limits<float>::quiet_NaN());
  filter.updateModulation();
  EXPECT_EQ(live(), 0) << "what is no number is not drawn";
  unit->publishLive(1, 0);
  unit->publishModulating(0, true);
  filter.updateModulation();
  EXPECT_TRUE(filter.filterView().isModulated());
  EXPECT_EQ(live(), 1);
  unit->setParameter("cutoff", 500);
  loop.advance(0);
  EXPECT_EQ(unit->frequency, 2000) << "while it is modulated the live values stay";
}

TEST_F(AUFilterViewContainerTest, TheCurveIsTheParametersAgainWhenModulationEnds) {
  auto& filter = build("cutoff", {"resonance"});
  const auto plain = filter.filterView().filterMagnitudes();
  const auto modulate = [&](float hertz) {
    filter.allowModulation = true;
    unit->publishModulating(0, true);
    unit->publishLive(0, hertz);
    filter.updateModulation();
    EXPECT_NE(filter.filterView().filterMagnitudes(), plain);
  };
  modulate(4000);
  unit->publishModulating(0, false);
  filter.updateModulation();
  EXPECT_EQ(filter.filterView().filterMagnitudes(), plain);
  filter.updateModulation();
  EXPECT_EQ(filter.filterView().filterMagnitudes(), plain) << "the live value has not moved since";
  modulate(5000);
  unit->publishLive(0, 6000);
  unit->publishModulating(0, false);
  filter.updateModulation();
  EXPECT_EQ(filter.filterView().filterMagnitudes(), plain) << "it moved with the last of it";

  modulate(7000);
  filter.allowModulation = false;
  filter.updateModulation();
  EXPECT_FALSE(filter.filterView().isModulated());
  EXPECT_EQ(filter.filterView().filterMagnitudes(), plain);
  unit->setParameter("cutoff", 300);
  loop.advance(0);
  EXPECT_NE(filter.filterView().filterMagnitudes(), plain) << "it follows its parameters";
}

TEST_F(AUFilterViewContainerTest, TheSideChainsKeysStandForItsParameters) {
  auto& filter = build("HighPassFilterFreq", {"HighPassFilterRes"});
  EXPECT_EQ(unit->keys,
            (std::vector<std::string>{"SidechainHighPassFrequency", "SidechainHighPassResonance"}));
  EXPECT_EQ(filter.filterView().typeName(), "hiPass");
  unit->publishLive(2, 0.5f);
  filter.updateModulation();
  EXPECT_NEAR(unit->frequency, 632.5f, 0.1f) << "a place in pitch is a frequency in hertz";
}

TEST_F(AUFilterViewContainerTest, OutlivesItsAudioUnit) {
  auto& filter = build("cutoff", {"resonance"});
  unit->publishModulating(0, true);
  filter.updateModulation();
  unit.reset();
  filter.updateViewData();
  filter.updateModulation();
  EXPECT_FALSE(filter.filterView().isModulated());
  EXPECT_FALSE(filter.filterView().filterMagnitudes().empty());
}

}  // namespace
}  // namespace orvane
