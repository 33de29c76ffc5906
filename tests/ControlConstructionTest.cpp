// One control for each key of the design, of the kind that its settings ask for and bound to its
// parameters.

#include <gtest/gtest.h>

#include <typeindex>

#include "KestroUI/ChoiceContainers.h"
#include "KestroUI/DisplayContainers.h"
#include "KestroUI/MultipleContainer.h"
#include "KestroUI/MutableContainer.h"
#include "KestroUI/ShapeContainers.h"
#include "KestroUI/ValueContainers.h"
#include "KestroUI/XYControlContainer.h"
#include "Orvane/AUFilterViewContainer.h"
#include "Orvane/AUValueContainers.h"
#include "Orvane/ControlFactory.h"
#include "tests/support/KeyedValues.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using kestroui::ControlType;
using support::paramKey;

template <class T>
std::type_index type() {
  return typeid(T);
}

std::type_index typeOf(const kestroui::Container& container) { return typeid(container); }

/// The kind of each ordinal; `void` where nothing is built.
std::vector<std::type_index> kinds() {
  using namespace kestroui;
  return {type<void>(),
          type<AUSliderContainer>(),
          type<AUKnobContainer>(),
          type<AUFilterViewContainer>(),
          type<OnOffContainer>(),
          type<RecContainer>(),
          type<XYControlContainer>(),
          type<TimeStopXYContainer>(),
          type<RadioContainer>(),
          type<StepSequencerContainer>(),
          type<CurveSequencerContainer>(),
          type<StepperContainer>(),
          type<MultipleContainer>(),
          type<WaveformKnobContainer>(),
          type<OscilloscopeContainer>(),
          type<MultiOscilloscopeContainer>(),
          type<RadioContainer>(),
          type<DropDownListContainer>(),
          type<ADSRContainer>(),
          type<SampleViewContainer>(),
          type<SimpleButtonContainer>(),
          type<SimpleLabelContainer>(),
          type<CompressorViewContainer>(),
          type<DoubleCompressorViewContainer>(),
          type<WaveshaperViewContainer>(),
          type<TableWaveshaperContainer>(),
          type<DoubleFilterViewContainer>(),
          type<GranulizerViewContainer>(),
          type<DoubleSliderContainer>(),
          type<MutableContainer>(),
          type<PhaserViewContainer>(),
          type<ZorvaViewContainer>(),
          type<SimpleCurveContainer>(),
          type<WavetableContainer>(),
          type<BandCompressorContainer>(),
          type<ThreeBandCompressorContainer>(),
          type<BitFlagsGroupContainer>(),
          type<LEDViewContainer>()};
}

class ControlConstructionTest : public testing::Test {
 protected:
  /// Connects an editor without pages to `unit`, with `keys`.
  void build(std::vector<std::shared_ptr<kestroui::ParamKey>> keys) {
    design->givenKeys = std::move(keys);
    controller.setAudioUnit(&unit);
    controller.view();
  }
  template <class Container>
  Container& control(const std::string& key) {
    return *controller.control<Container>(key);
  }

  support::ManualLoop loop;
  quillon::CommonAudioUnit unit{{
      {.key = "a",
       .address = 1,
       .displayName = "Alpha",
       .minValue = -1,
       .maxValue = 1,
       .defaultValue = 0.5f,
       .publishesLive = true},
      {.key = "b", .address = 2, .displayName = "Beta"},
      {.key = "shape",
       .address = 3,
       .maxValue = 2,
       .defaultValue = 1,
       .unit = platform::AudioUnitParameterUnit::indexed,
       .valueStrings = {"Sine", "Saw", "Noise"}},
      {.key = "on", .address = 4, .unit = platform::AudioUnitParameterUnit::boolean},
  }};
  std::shared_ptr<support::GivenDesign> design = std::make_shared<support::GivenDesign>();
  support::TestController controller{design};
};

TEST_F(ControlConstructionTest, EveryKindHasItsContainer) {
  const auto expected = kinds();
  ASSERT_EQ(expected.size(), static_cast<std::size_t>(kestroui::controlTypeCount));
  std::vector<std::shared_ptr<kestroui::ParamKey>> keys;
  for (int i = 0; i < kestroui::controlTypeCount; ++i)
    keys.push_back(paramKey("k" + std::to_string(i), static_cast<ControlType>(i)));
  build(keys);
  for (int i = 0; i < kestroui::controlTypeCount; ++i) {
    SCOPED_TRACE(i);
    const auto built = controller.container("k" + std::to_string(i));
    if (i == 0) {
      EXPECT_EQ(built, nullptr);
    } else {
      ASSERT_NE(built, nullptr);
      EXPECT_EQ(typeOf(*built), expected[static_cast<std::size_t>(i)]);
      EXPECT_EQ(built->title(), "k" + std::to_string(i));
    }
    const bool leftToTheKey = i == 0 || i == 8 || i == 12 || i == 13 || i == 16 || i == 17;
    EXPECT_EQ(ControlFactory::container(static_cast<ControlType>(i)) == nullptr, leftToTheKey);
  }
  EXPECT_EQ(ControlFactory::container(static_cast<ControlType>(38)), nullptr);
  EXPECT_EQ(controller.controls().count(), 37u);
}

TEST_F(ControlConstructionTest, TheSettingsReachTheControl) {
  const auto red = platform::Color::rgb(0xff0000);
  build({std::make_shared<kestroui::ParamKey>(
             "a", ParameterUISettings("Amount", ControlType::knob, {"b", "nowhere"}, true, {},
                                      {true, false}, {}, red)),
         std::make_shared<kestroui::ParamKey>(
             "shape", ParameterUISettings("Shape", ControlType::radioWaveForm, {}, false,
                                          {"One", "Two", "Three"}, {}, {}, std::nullopt)),
         paramKey("on", ControlType::bitFlagsGroup, {"Low", "High"})});
  auto& knob = control<AUKnobContainer>("a");
  EXPECT_EQ(knob.title(), "Amount");
  EXPECT_TRUE(knob.knob().isInverted());
  EXPECT_EQ(knob.links(), (std::vector<bool>{true, false}));
  EXPECT_EQ(knob.knob().accentColor(), red);
  ASSERT_EQ(knob.paramKeys().size(), 3u);
  EXPECT_EQ(knob.paramKeys()[1]->settings().displayName, "Beta");
  EXPECT_EQ(knob.paramKeys()[2]->key(), "nowhere");
  EXPECT_TRUE(knob.delegate);

  auto& radio = control<kestroui::RadioContainer>("shape");
  EXPECT_TRUE(radio.buttons().isWaveform());
  EXPECT_EQ(radio.buttons().titles(), (std::vector<std::string>{"One", "Two", "Three"}));
  EXPECT_EQ(radio.valueText(), "Two");
  EXPECT_EQ(control<kestroui::BitFlagsGroupContainer>("on").paramKeys().size(), 1u);
}

TEST_F(ControlConstructionTest, ControlsShowThePresentValuesAtOnce) {
  unit.parameter("a")->setValue(0.5f);
  unit.parameter("shape")->setValue(2);
  build({paramKey("a", ControlType::slider), paramKey("shape", ControlType::dropdownList),
         paramKey("b", ControlType::adsr, {"a"})});
  EXPECT_FLOAT_EQ(controller.container("a")->value(), 0.75f);
  EXPECT_EQ(controller.container("a")->valueText(), unit.parameter("a")->stringFromValue(0.5f));
  EXPECT_EQ(controller.container("shape")->value(), 2);
  EXPECT_EQ(controller.container("shape")->valueText(), "Noise");
  EXPECT_FLOAT_EQ(kestroui::valueOf(*controller.container("b"), "a"), 0.75f);
  EXPECT_FLOAT_EQ(controller.container("a")->positionOfValue(0, 0), 0.5f);
}

TEST_F(ControlConstructionTest, OnlyPublishedLiveValuesAreWatched) {
  build(
      {paramKey("a", ControlType::waveformKnob, {"b"}), paramKey("b", ControlType::waveformKnob)});
  const auto a = controller.container("a"), b = controller.container("b");
  EXPECT_EQ(a->watchedValues, std::vector{unit.getOutputValues("a")});
  EXPECT_EQ(a->isModulating, std::vector{unit.isModulating("a")});
  EXPECT_FALSE(b->hasModulation());
  EXPECT_EQ(typeOf(*a), type<AUWaveformKnobContainer>());
  EXPECT_EQ(typeOf(*b), type<kestroui::WaveformKnobContainer>());
}

TEST_F(ControlConstructionTest, AReadyMadeControlIsBoundAnewByEachConnection) {
  const auto own = std::make_shared<kestroui::KnobContainer>();
  build({std::make_shared<kestroui::ParamKey>("a", ParameterUISettings("Mine", own))});
  controller.connectViewWithAU();
  EXPECT_EQ(controller.container("a"), own);
  EXPECT_EQ(own->watchedValues.size(), 1u);
  EXPECT_EQ(own->title(), "Mine");
  EXPECT_FLOAT_EQ(own->value(), 0.75f);
  // It does not keep itself alive through its key: the editor and the design go before it.
  controller.controls().clear();
  design->givenKeys.clear();
  EXPECT_EQ(own.use_count(), 1);
}

TEST_F(ControlConstructionTest, AKnobOfASwitchHasTwoPlaces) {
  build({paramKey("on", ControlType::knob), paramKey("a", ControlType::multiple, {"on"})});
  EXPECT_EQ(control<AUKnobContainer>("on").knob().stepCount(), 1);
  EXPECT_EQ(control<kestroui::MultipleContainer>("a").subContainer("on")->control()->stepCount(),
            1);
}

TEST_F(ControlConstructionTest, KeysThatThePagesUseNeedNoSettings) {
  const auto section = support::section("S", {"a", "shape"}, "on");
  section->feedbackParameter = "b";
  design->addPage("P", {section});
  build({});
  EXPECT_EQ(controller.container("b")->title(), "Beta") << "which only a corner names";
  EXPECT_EQ(typeOf(*controller.container("a")), type<AUKnobContainer>());
  EXPECT_EQ(controller.container("a")->title(), "Alpha");
  EXPECT_EQ(typeOf(*controller.container("shape")), type<kestroui::DropDownListContainer>());
  EXPECT_EQ(typeOf(*controller.container("on")), type<kestroui::OnOffContainer>());
}

TEST_F(ControlConstructionTest, UnknownKeysAreFatal) {
  build({paramKey("a", ControlType::none)});
  EXPECT_EQ(controller.container("a"), nullptr);
  EXPECT_DEATH(controller.container("zzz"), "No parameter of the design has the key");
  EXPECT_DEATH(controller.controls().container("zzz"), "zzz");
}

TEST(ControlCollection, HoldsControlsByTheStringOfTheirKey) {
  ControlCollection controls;
  const auto key = paramKey("a", ControlType::knob), same = paramKey("a", ControlType::slider);
  const auto container = std::make_shared<kestroui::Container>();
  controls.addKey(key);
  EXPECT_EQ(controls.container("a"), nullptr);
  controls.set(key, container);
  EXPECT_EQ(controls[same], container);
  EXPECT_EQ(controls.container("a"), container);
  EXPECT_EQ(controls.count(), 1u);
  const auto before = controls.generation();
  controls.set(same, nullptr);
  EXPECT_EQ(controls.count(), 0u);
  EXPECT_NE(controls.generation(), before);
}

}  // namespace
}  // namespace orvane
