// A value's two ways when more than one hand is on them: a finger, the host, and whoever closes or
// connects the editor in the middle of either.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <thread>

#include "KestroUI/ButtonGroups.h"
#include "KestroUI/XYControlContainer.h"
#include "Orvane/PresetManager.h"
#include "tests/support/KeyedValues.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using kestroui::ControlType;
using platform::AudioUnitParameterUnit;
using platform::Point;
using support::paramKey;

class ValueConflictTest : public testing::Test {
 protected:
  void show(std::vector<std::shared_ptr<kestroui::ParamKey>> keys) {
    std::vector<std::string> names;
    for (const auto& key : keys) names.push_back(key->key());
    design->givenKeys = std::move(keys);
    design->addPage("", {support::section("S", names)});
    controller->setAudioUnit(unit.get());
    editor.show(*controller);
    settle();
  }
  void settle() {
    loop.settle();
    editor.window.prepareFrame();
  }
  kestroui::Container& container(const std::string& key) { return *controller->container(key); }
  Point place(const std::string& own, const std::string& key) {
    kestroui::Container& shown = container(own);
    return shown.convertToRoot(handleOf(shown, key).value_or(shown.bounds().centre()));
  }
  void press(Point at) { editor.window.touchBegan(1, toolkit::Touch::Kind::finger, at, 1); }
  void drag(Point to) { editor.window.touchMoved(1, to); }
  void lift(Point at) { editor.window.touchEnded(1, at); }
  /// The host's automation: another thread, nothing delivered yet.
  void automate(const std::string& key, float value) {
    std::thread([&] { unit->parameter(key)->setValue(value); }).join();
  }
  float parameter(const std::string& key) { return unit->parameter(key)->value(); }
  /// Calls `action` once, at the next change of any parameter.
  void atNextChange(std::function<void()> action) {
    unit->parameterTree().tokenByAddingParameterObserver(
        [action = std::move(action), done = false](platform::AUParameterAddress, float) mutable {
          if (!std::exchange(done, true)) action();
        });
  }

  support::ManualLoop loop;
  std::unique_ptr<quillon::CommonAudioUnit> unit =
      std::make_unique<quillon::CommonAudioUnit>(std::vector<quillon::ParameterDescription>{
          {.key = "a", .address = 1, .defaultValue = 0.5f},
          {.key = "b", .address = 2, .defaultValue = 0.5f},
          {.key = "c", .address = 3, .defaultValue = 0.5f},
          {.key = "d", .address = 4, .defaultValue = 0.5f},
          {.key = "OnOff", .address = 5, .unit = AudioUnitParameterUnit::boolean},
          {.key = "twoOnOff", .address = 6, .unit = AudioUnitParameterUnit::boolean},
          {.key = "letter",
           .address = 7,
           .maxValue = 25,
           .unit = AudioUnitParameterUnit::indexed,
           .valueStrings = std::vector<std::string>(26, "x")},
          {.key = "hertz",
           .address = 8,
           .minValue = 20,
           .maxValue = 20000,
           .defaultValue = 440,
           .unit = AudioUnitParameterUnit::hertz}});
  std::shared_ptr<support::GivenDesign> design = std::make_shared<support::GivenDesign>();
  std::unique_ptr<support::TestController> controller =
      std::make_unique<support::TestController>(design);
  support::EditorWindow editor{{600, 400}};
};

TEST_F(ValueConflictTest, EveryStateThatAPadHasKeysForFollowsItsSwitch) {
  show({paramKey("a", ControlType::xyControl, {"b", "OnOff", "twoOnOff"})});
  const Point at = place("a", "OnOff");
  press(at);
  lift(at);
  settle();
  EXPECT_EQ(parameter("OnOff"), 1);
  EXPECT_EQ(parameter("twoOnOff"), 1);
  automate("twoOnOff", 0);
  settle();
  EXPECT_EQ(valueOf(container("a"), "twoOnOff"), 0);
}

TEST_F(ValueConflictTest, AParameterThatCountsGetsWholeNumbersFromEveryControl) {
  for (const ControlType type : {ControlType::knob, ControlType::slider, ControlType::waveformKnob,
                                 ControlType::adsr, ControlType::multiple}) {
    SCOPED_TRACE(kestroui::rawValue(type));
    design->givenPages.clear();
    controller = std::make_unique<support::TestController>(design);
    show({paramKey("letter", type)});
    unit->parameter("letter")->setValue(0);
    settle();
    const Point at = place("letter", "letter");
    for (int letter = 1; letter <= 25; ++letter) {
      editor.window.wheelTurned({.location = at, .deltaY = 1});
      settle();
      EXPECT_EQ(parameter("letter"), static_cast<float>(letter));
    }
  }
}

TEST_F(ValueConflictTest, AControlWithoutAParameterStaysStill) {
  for (const ControlType type :
       {ControlType::knob, ControlType::onOff, ControlType::xyControl, ControlType::multiple}) {
    SCOPED_TRACE(kestroui::rawValue(type));
    design->givenPages.clear();
    controller = std::make_unique<support::TestController>(design);
    show({paramKey("ghost", type, {"phantom"})});
    const float before = valueOf(container("ghost"), "ghost");
    const Point at = place("ghost", "ghost");
    press(at);
    drag({at.x + 20, at.y - 20});
    lift({at.x + 20, at.y - 20});
    EXPECT_EQ(valueOf(container("ghost"), "ghost"), before);
  }
}

TEST_F(ValueConflictTest, FlagsThatNoSwitchShowsStayAsTheyAre) {
  unit = std::make_unique<quillon::CommonAudioUnit>(std::vector<quillon::ParameterDescription>{
      {.key = "flags", .address = 1, .maxValue = 255, .defaultValue = 240}});
  show({paramKey("flags", ControlType::bitFlagsGroup, {"w", "x", "y", "z"})});
  auto& group = *dynamic_cast<kestroui::BitFlagsGroup*>(container("flags").control());
  for (int flag = 0; flag < 4; ++flag) EXPECT_FALSE(group.isOn(flag));
  const platform::Rect frame = group.frameInRoot();
  const Point first{frame.x + 4, frame.y + 4};
  press(first);
  lift(first);
  settle();
  EXPECT_EQ(parameter("flags"), 241);
}

TEST_F(ValueConflictTest, AnObserverMayCloseTheEditorInTheMiddleOfAChange) {
  for (const ControlType type : {ControlType::knob, ControlType::xyControl, ControlType::adsr,
                                 ControlType::multiple, ControlType::onOff}) {
    SCOPED_TRACE(kestroui::rawValue(type));
    design->givenPages.clear();
    controller = std::make_unique<support::TestController>(design);
    show({paramKey("a", type, {"b", "c"})});
    atNextChange([this] { controller.reset(); });
    const Point at = place("a", "a");
    press(at);
    drag({at.x + 9, at.y - 9});
    lift({at.x + 9, at.y - 9});
    loop.settle();
    EXPECT_EQ(controller, nullptr);
  }
}

TEST_F(ValueConflictTest, AnObserverOfGesturesMayCloseTheEditorAtTheirBeginAndEnd) {
  for (const bool atBegin : {true, false})
    for (const ControlType type : {ControlType::knob, ControlType::xyControl, ControlType::onOff}) {
      SCOPED_TRACE(kestroui::rawValue(type));
      design->givenPages.clear();
      controller = std::make_unique<support::TestController>(design);
      show({paramKey("a", type, {"b"})});
      int open = 0;
      unit->parameterTree().setGestureObserver([&](platform::AUParameterAddress, bool began) {
        open += began ? 1 : -1;
        if (began == atBegin) controller.reset();
      });
      const Point at = place("a", "a");
      press(at);
      drag({at.x + 9, at.y - 9});
      lift({at.x + 9, at.y - 9});
      loop.settle();
      unit->parameterTree().setGestureObserver({});
      EXPECT_EQ(controller, nullptr);
      EXPECT_EQ(open, 0);
    }
}

TEST_F(ValueConflictTest, ATypedValueMayCloseTheEditor) {
  show({paramKey("a", ControlType::knob)});
  container("a").delegate->didDoubleTap(container("a").key());
  atNextChange([this] { controller.reset(); });
  controller->enterValueOverlay().delegate->textFieldOverlayDidConfirm(
      controller->enterValueOverlay(), "0.25");
  EXPECT_EQ(controller, nullptr);
  EXPECT_FLOAT_EQ(parameter("a"), 0.25f);
}

TEST_F(ValueConflictTest, ATypedNumberOfAChoiceIsWholeAndAGestureOfItsOwn) {
  show({paramKey("letter", ControlType::knob)});
  std::string journal;
  unit->parameterTree().setGestureObserver(
      [&](platform::AUParameterAddress, bool began) { journal += began ? "began " : "ended "; });
  unit->parameterTree().tokenByAddingParameterObserver(
      [&](platform::AUParameterAddress, float) { journal += "set "; });
  container("letter").delegate->didDoubleTap(container("letter").key());
  controller->enterValueOverlay().delegate->textFieldOverlayDidConfirm(
      controller->enterValueOverlay(), "1.6");
  EXPECT_EQ(parameter("letter"), 2);
  controller->reset();
  EXPECT_EQ(journal, "began set ended began set ended ");
  unit->parameterTree().setGestureObserver({});
}

TEST_F(ValueConflictTest, AnObserverMayConnectAnewWhileAChangeIsShown) {
  show({paramKey("hertz", ControlType::doubleFilter, {"a", "b", "c"})});
  struct Reconnects : DSPParameterObserver {
    explicit Reconnects(KestroAUViewController& given) : editor(given) {}
    void update(platform::AUParameter&, const std::string&) override {
      if (!std::exchange(done, true)) editor.connectViewWithAU();
    }
    KestroAUViewController& editor;
    bool done = false;
  };
  controller->parameters().setObserver(std::make_shared<Reconnects>(*controller), "hertz");
  automate("hertz", 2000);
  settle();
  EXPECT_NE(valueOf(container("hertz"), "hertz"), 0);
}

TEST_F(ValueConflictTest, ChangesOfAnAudioUnitThatIsGoneAreDropped) {
  struct Editor : support::TestController {
    using TestController::TestController;
    void updateParameter(platform::AUParameterAddress address) override {
      EXPECT_NE(audioUnit(), nullptr);
      TestController::updateParameter(address);
    }
  };
  controller = std::make_unique<Editor>(design);
  show({paramKey("a", ControlType::knob)});
  automate("a", 0.7f);
  unit.reset();
  loop.settle();
  // What a finger does now reaches nobody.
  const Point at = place("a", "a");
  press(at);
  drag({at.x, at.y - 9});
  lift(at);
}

TEST_F(ValueConflictTest, WhatIsHeldIsLetGoWhenTheEditorGoes) {
  const std::vector<std::pair<const char*, std::function<void()>>> ways{
      {"closed", [this] { controller.reset(); }},
      {"hidden", [this] { editor.host.disappear(); }},
      {"connected anew", [this] { controller->connectViewWithAU(); }},
  };
  for (const auto& [name, leave] : ways)
    for (const ControlType type : {ControlType::simpleButton, ControlType::timeStopXY}) {
      SCOPED_TRACE(name);
      SCOPED_TRACE(kestroui::rawValue(type));
      design->givenPages.clear();
      controller = std::make_unique<support::TestController>(design);
      show({paramKey("a", type, {"b", "OnOff"})});
      unit->parameter("a")->setValue(0);
      settle();
      int open = 0;
      unit->parameterTree().setGestureObserver(
          [&](platform::AUParameterAddress, bool began) { open += began ? 1 : -1; });
      press(place("a", "a"));
      settle();
      leave();
      loop.settle();
      unit->parameterTree().setGestureObserver({});
      if (type == ControlType::simpleButton) {
        EXPECT_EQ(parameter("a"), 0);
      }
      EXPECT_EQ(parameter("OnOff"), 0);
      EXPECT_EQ(open, 0);
    }
}

TEST_F(ValueConflictTest, APresetManagerMayBeReplacedOrTakenAway) {
  unit = std::make_unique<quillon::CommonAudioUnit>(
      std::vector<quillon::ParameterDescription>{{.key = "a", .address = 1}},
      std::vector<quillon::PresetDescription>{{{.number = 3, .name = "Full"}, {{"a", 1}}}});
  show({paramKey("a", ControlType::knob)});
  controller->setPresetManager(
      std::make_unique<PresetManager>("group.test", std::vector<std::string>{}));
  controller->rebuildPresetList();
  controller->setPresetManager(nullptr);
  controller->rebuildPresetList();
  // Factory presets are the audio unit's and need no store.
  const auto preset = std::make_shared<Preset>(unit->factoryPresets().front());
  controller->load(preset);
  EXPECT_EQ(parameter("a"), 1);
}

TEST_F(ValueConflictTest, ConnectingAnewKeepsBindingsAndLabelsAndShowsEachControlOnce) {
  show({paramKey("hertz", ControlType::doubleFilter, {"a"}), paramKey("b", ControlType::knob)});
  controller->setMap(kestroui::Container::MidiMessage{176, 7}, container("b").key());
  const double labels = container("b").labelHRatio();
  controller->setupControls(design->givenKeys);
  settle();
  EXPECT_EQ(container("b").labelHRatio(), labels);
  EXPECT_EQ(container("hertz").superview()->subviews().size(),
            container("b").superview()->subviews().size());
  controller->connectViewWithAU();
  settle();
  EXPECT_EQ(container("b").midiMapMessage(), (kestroui::Container::MidiMessage{176, 7}));
  EXPECT_EQ(container("b").labelHRatio(), labels);
  controller->removeAllMap();
  controller->connectViewWithAU();
  EXPECT_EQ(container("b").midiMapMessage(), std::nullopt);
}

}  // namespace
}  // namespace orvane
