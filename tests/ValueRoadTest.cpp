// A value's two ways: from the control to the parameter, and from any thread back to every control
// and section that shows it.

#include <gtest/gtest.h>

#include <thread>

#include "KestroUI/ChoiceContainers.h"
#include "KestroUI/ValueContainers.h"
#include "Orvane/AUFilterViewContainer.h"
#include "Orvane/AUValueContainers.h"
#include "tests/support/KeyedValues.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using kestroui::ControlType;
using platform::AudioUnitParameterUnit;
using support::paramKey;
using toolkit::ControlEvent;

class ValueRoadTest : public testing::Test {
 protected:
  void connect(std::vector<std::shared_ptr<kestroui::ParamKey>> keys) {
    design->givenKeys = std::move(keys);
    controller.setAudioUnit(&unit);
    controller.view();
  }
  /// As when a user has moved the control of `key`.
  void move(const std::string& key, float value) {
    controller.container(key)->setValue(value);
    controller.container(key)->sendActions(ControlEvent::valueChanged);
  }
  float parameter(const std::string& key) { return unit.parameter(key)->value(); }

  support::ManualLoop loop;
  quillon::CommonAudioUnit unit{{
      {.key = "cutoff",
       .address = 1,
       .minValue = 20,
       .maxValue = 20000,
       .defaultValue = 20,
       .unit = AudioUnitParameterUnit::hertz},
      {.key = "level",
       .address = 2,
       .minValue = -60,
       .maxValue = 12,
       .unit = AudioUnitParameterUnit::decibels},
      {.key = "mode",
       .address = 3,
       .maxValue = 7,
       .unit = AudioUnitParameterUnit::indexed,
       .valueStrings = {"a", "b", "c", "d", "e", "f", "g", "h"}},
      {.key = "on", .address = 4, .unit = AudioUnitParameterUnit::boolean},
      {.key = "padOnOff", .address = 5},
      {.key = "padHold", .address = 6},
      {.key = "SidechainLowPassFrequency", .address = 7},
      {.key = "SidechainLowPassResonance",
       .address = 8,
       .minValue = -20,
       .maxValue = 40,
       .unit = AudioUnitParameterUnit::decibels},
  }};
  std::shared_ptr<support::GivenDesign> design = std::make_shared<support::GivenDesign>();
  support::TestController controller{design};
};

TEST_F(ValueRoadTest, AKnobSetsItsParameterAndFollowsIt) {
  connect({paramKey("cutoff", ControlType::knob), paramKey("level", ControlType::knob)});
  move("cutoff", 0.5f);
  EXPECT_NEAR(parameter("cutoff"), 632.5, 0.1);
  loop.settle();
  EXPECT_NEAR(controller.container("cutoff")->value(), 0.5, 1e-5);
  move("level", 0.5f);
  EXPECT_EQ(parameter("level"), -24);

  unit.parameter("cutoff")->setValue(20000);
  EXPECT_NEAR(controller.container("cutoff")->value(), 0.5, 1e-5);
  loop.settle();
  EXPECT_EQ(controller.container("cutoff")->value(), 1);
  EXPECT_EQ(controller.container("cutoff")->valueText(),
            unit.parameter("cutoff")->stringFromValue(20000));
}

TEST_F(ValueRoadTest, KindsThatChooseTakeTheValueItself) {
  for (const ControlType type : {ControlType::dropdownList, ControlType::radioButtons,
                                 ControlType::stepper, ControlType::bitFlagsGroup}) {
    SCOPED_TRACE(static_cast<int>(type));
    unit.parameter("mode")->setValue(0);
    connect({paramKey("mode", type)});
    controller.connectViewWithAU();
    move("mode", 3);
    EXPECT_EQ(parameter("mode"), 3);
    unit.parameter("mode")->setValue(5);
    loop.settle();
    EXPECT_EQ(controller.container("mode")->value(), 5);
  }
}

TEST_F(ValueRoadTest, OneControlOfSeveralParametersSetsThoseThatItMoved) {
  connect({paramKey("cutoff", ControlType::xyControl, {"level", "padOnOff", "padHold"}),
           paramKey("level", ControlType::knob)});
  const auto pad = controller.container("cutoff");
  unit.parameter("level")->setValue(-6.3f);
  unit.parameter("padHold")->setValue(1);
  loop.settle();
  EXPECT_FLOAT_EQ(valueOf(*pad, "level"), (-6.3f + 60) / 72);
  EXPECT_FLOAT_EQ(controller.container("level")->value(), (-6.3f + 60) / 72);
  EXPECT_EQ(valueOf(*pad, "padHold"), 1);
  showValue(*pad, "cutoff", 0.5f);
  showValue(*pad, "padOnOff", 1);
  pad->sendActions(ControlEvent::valueChanged);
  EXPECT_NEAR(parameter("cutoff"), 632.5, 0.1);
  EXPECT_EQ(parameter("padOnOff"), 1);
  EXPECT_EQ(parameter("padHold"), 1);
  EXPECT_EQ(parameter("level"), -6.3f);
}

TEST_F(ValueRoadTest, TheSideChainsKeysStandForOtherParameters) {
  connect({paramKey("LowPassFilterFreq", ControlType::filter, {"LowPassFilterRes"})});
  auto& container = *controller.control<AUFilterViewContainer>("LowPassFilterFreq");
  EXPECT_EQ(container.audioUnit, static_cast<platform::AudioUnit*>(&unit));
  EXPECT_EQ(container.filterView().minimum(1), -20);
  for (const auto& [hertz, value] : {std::pair{20.0f, 0.0f}, {20000.0f, 1.0f}, {1000.0f, 0.566f}}) {
    container.filterView().setFrequency(hertz);
    container.filterView().setValue(1, 12);
    container.sendActions(ControlEvent::valueChanged);
    EXPECT_NEAR(parameter("SidechainLowPassFrequency"), value, 0.001);
    EXPECT_EQ(parameter("SidechainLowPassResonance"), 12);
  }
  unit.parameter("SidechainLowPassFrequency")->setValue(0.566f);
  unit.parameter("SidechainLowPassResonance")->setValue(-3);
  loop.settle();
  EXPECT_NEAR(container.filterView().frequency(), 1000, 5);
  EXPECT_EQ(container.filterView().resonance(), -3);
  EXPECT_EQ(DSPParameters::parameterKey("HighPassFilterRes"), "SidechainHighPassResonance");

  EnterValueOverlay& panel = controller.enterValueOverlay();
  container.filterView().valueDoubleTapped(1, {0, 1});
  EXPECT_EQ(panel.textField().placeholder(), "-3 dB");
  panel.textField().setText("6 dB");
  panel.handleTouchDown(panel.okButton());
  EXPECT_EQ(parameter("SidechainLowPassResonance"), 6);
  controller.reset();
  EXPECT_EQ(parameter("SidechainLowPassResonance"), 0);
}

TEST_F(ValueRoadTest, AFilterOfAHertzParameterSetsHertz) {
  connect({paramKey("cutoff", ControlType::filter, {"level"})});
  auto& container = *controller.control<AUFilterViewContainer>("cutoff");
  container.filterView().setFrequency(440);
  container.sendActions(ControlEvent::valueChanged);
  EXPECT_NEAR(parameter("cutoff"), 440, 0.001);
  unit.parameter("cutoff")->setValue(880);
  loop.settle();
  EXPECT_NEAR(container.filterView().frequency(), 880, 0.01);
}

TEST_F(ValueRoadTest, SectionsOfEveryPageFollowTheirStateParameter) {
  design->addPage("One", {support::section("A", {"cutoff"}, "on")});
  design->addPage("Two", {support::section("B", {"level"}, "on")});
  connect({});
  unit.parameter("on")->setValue(1);
  loop.settle();
  EXPECT_FALSE(controller.container("cutoff")->isInactive());
  EXPECT_FALSE(controller.container("level")->isInactive());
  unit.parameter("on")->setValue(0);
  loop.settle();
  EXPECT_TRUE(controller.container("cutoff")->isInactive());
  EXPECT_TRUE(controller.container("level")->isInactive());
  EXPECT_FALSE(controller.container("on")->isInactive());
}

TEST_F(ValueRoadTest, ChangesOfAnyThreadArriveAndTheLastOneStays) {
  connect({paramKey("cutoff", ControlType::knob), paramKey("level", ControlType::knob)});
  // More than the road holds: what did not fit is read anew.
  std::thread audio([this] {
    for (int i = 0; i < 20000; ++i) {
      unit.parameter("cutoff")->setValue(20.0f + static_cast<float>(i % 100));
      if (i == 19990) unit.parameter("level")->setValue(12);
    }
    unit.parameter("cutoff")->setValue(20000);
  });
  audio.join();
  loop.settle();
  EXPECT_EQ(controller.container("cutoff")->value(), 1);
  EXPECT_EQ(controller.container("level")->value(), 1);
}

TEST_F(ValueRoadTest, WhatIsNobodysIsIgnored) {
  connect({paramKey("unknown", ControlType::knob)});
  move("unknown", 0.5f);
  toolkit::Control stranger;
  controller.handleValueChanged(stranger);
  controller.updateParameter(999);
}

TEST_F(ValueRoadTest, LiveValuesShowWhileThePageIsShown) {
  std::atomic<float> live{-24};
  std::atomic<bool> flag{true};
  design->addPage("One", {support::section("A", {"level"})});
  connect({});
  auto& knob = *controller.control<AUKnobContainer>("level");
  knob.watchedValues.push_back(&live);
  knob.isModulating.push_back(&flag);
  const auto shows = [&] {
    controller.updateUI();
    return knob.knob().isModulated();
  };
  ASSERT_FALSE(controller.settingsViewController().pageViews().empty());
  EXPECT_TRUE(shows());
  EXPECT_FLOAT_EQ(knob.knob().modulatedValue(), 0.5f);
  flag = false;
  EXPECT_FALSE(shows());
  flag = true;
  knob.allowModulation = false;
  EXPECT_FALSE(shows());
  knob.allowModulation = true;
  knob.setIsVisible(false);
  EXPECT_FALSE(shows());
  knob.setIsVisible(true);
  knob.isModulating.clear();
  EXPECT_FALSE(shows());
  knob.isModulating.push_back(&flag);
  knob.watchedValues.clear();
  EXPECT_FALSE(shows());
}

}  // namespace
}  // namespace orvane
