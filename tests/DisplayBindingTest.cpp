// What the displays get from the audio unit: band parameters, sounds, recordings and responses.

#include <gtest/gtest.h>

#include "KestroUI/DisplayContainers.h"
#include "KestroUI/ShapeContainers.h"
#include "tests/support/KeyedValues.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using kestroui::ControlType;
using Unit = platform::AudioUnitParameterUnit;

quillon::ParameterDescription describe(std::string key, platform::AUParameterAddress address,
                                       float minimum = 0, float maximum = 1,
                                       Unit unit = Unit::generic) {
  return {.key = std::move(key),
          .address = address,
          .minValue = minimum,
          .maxValue = maximum,
          .defaultValue = minimum,
          .unit = unit};
}

class Processor : public quillon::CommonAudioUnit {
 public:
  Processor()
      : CommonAudioUnit({describe("bands", 0), describe("LowThreshold", 1, -60, 0, Unit::decibels),
                         describe("bandsMidThreshold", 2, -60, 0, Unit::decibels),
                         describe("scope", 3, 1, 8), describe("sample", 4),
                         describe("lowFrequency", 5, 20, 20000, Unit::hertz),
                         describe("lowResonance", 6, -20, 40, Unit::decibels),
                         describe("highFrequency", 7, 20, 20000, Unit::hertz),
                         describe("highResonance", 8, -20, 40, Unit::decibels)}) {
    addLiveBuffer("scope", 1024);
    addLiveBuffer("scope", 1024);
  }
  using CommonAudioUnit::setSampleData;

  std::vector<double> magnitudesForFrequencies(
      const std::vector<double>& frequencies, const platform::FilterPairKeys& keys) const override {
    ++pairs;
    return CommonAudioUnit::magnitudesForFrequencies(frequencies, keys);
  }
  using CommonAudioUnit::magnitudesForFrequencies;
  mutable int pairs = 0;
};

class DisplayBindingTest : public testing::Test {
 protected:
  void build(std::vector<std::shared_ptr<kestroui::ParamKey>> keys) {
    design->givenKeys = std::move(keys);
    controller.setAudioUnit(unit.get());
    controller.view();
  }

  support::ManualLoop loop;
  std::unique_ptr<Processor> unit = std::make_unique<Processor>();
  std::shared_ptr<support::GivenDesign> design = std::make_shared<support::GivenDesign>();
  support::TestController controller{design};
};

TEST_F(DisplayBindingTest, TheBandsOfACompressorComeFromTheRegistry) {
  build({support::paramKey("bands", ControlType::threeBandCompressor)});
  const auto bands = controller.container("bands");
  ASSERT_EQ(bands->paramKeys().size(), 3u);
  EXPECT_EQ(bands->paramKeys()[1]->key(), "LowThreshold");
  EXPECT_EQ(bands->paramKeys()[2]->key(), "bandsMidThreshold");
  unit->setParameter("LowThreshold", -30);
  loop.advance(0);
  EXPECT_FLOAT_EQ(valueOf(*bands, "LowThreshold"), 0.5f);
}

TEST_F(DisplayBindingTest, OscilloscopesGetTheSoundsOfTheirKeys) {
  build({support::paramKey("scope", ControlType::multiOscilloscope),
         support::paramKey("sample", ControlType::oscilloscope, {"scope"})});
  EXPECT_EQ(controller.control<kestroui::OscilloscopeContainer>("scope")->bufferCount(), 2u);
  EXPECT_EQ(controller.control<kestroui::OscilloscopeContainer>("sample")->bufferCount(), 1u);
  EXPECT_TRUE(controller.container("scope")->hasModulation());
  unit.reset();
  controller.updateUI();
  for (const char* key : {"scope", "sample"})
    EXPECT_EQ(controller.control<kestroui::OscilloscopeContainer>(key)->bufferCount(), 0u)
        << "they have gone with it";
}

TEST_F(DisplayBindingTest, SamplesGrainsAndWavesFollowTheAudioUnitAndOutliveIt) {
  build({support::paramKey("sample", ControlType::sampleView),
         support::paramKey("scope", ControlType::granulizer),
         support::paramKey("bands", ControlType::wavetable)});
  const auto data = std::make_shared<platform::SampleData>();
  for (const char* key : {"sample", "scope", "bands"}) {
    unit->setSampleData(key, data);
    EXPECT_TRUE(controller.container(key)->hasModulation());
    controller.container(key)->updateModulation();
  }
  EXPECT_EQ(data.use_count(), 7) << "here, and thrice in the audio unit and in a view";
  unit.reset();
  for (const char* key : {"sample", "scope", "bands"})
    controller.container(key)->updateModulation();
  EXPECT_EQ(data.use_count(), 1);
}

TEST_F(DisplayBindingTest, ADoubleFilterViewShowsThePairsResponse) {
  build({support::paramKey("lowFrequency", ControlType::doubleFilter,
                           {"lowResonance", "highFrequency", "highResonance"}),
         support::paramKey("scope", ControlType::knob)});
  auto& view =
      controller.control<kestroui::DoubleFilterViewContainer>("lowFrequency")->filterView();
  ASSERT_EQ(view.filterMagnitudes().size(), view.frequencies().size());
  const auto before = view.filterMagnitudes();
  unit->pairs = 0;
  unit->setParameter("highFrequency", 400);
  loop.advance(0);
  EXPECT_EQ(unit->pairs, 1);
  EXPECT_NE(view.filterMagnitudes(), before);
  unit->setParameter("scope", 4);
  loop.advance(0);
  EXPECT_EQ(unit->pairs, 1) << "another parameter computes nothing";

  controller.updateDoubleFilterViewFrequencyAndMagnitudes(view, "lowFrequency", "lowResonance",
                                                          "highFrequency", "nothing", "", "");
  EXPECT_EQ(view.value(kestroui::DoubleFilterView::lowPassFrequency), 0);
  EXPECT_EQ(view.filterMagnitudes().size(), view.frequencies().size());
}

}  // namespace
}  // namespace orvane
