// The way of the values of every kind with a shape: from the audio unit onto the control, and from
// the user's hand back into the audio unit, key by key.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "KestroUI/Container.h"
#include "tests/support/KeyedValues.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using kestroui::ControlType;
using platform::AudioUnitParameterUnit;

struct Row {
  ControlType type;
  std::vector<std::string> keys;
};

const std::vector<Row>& rows() {
  static const std::vector<Row> all = {
      {ControlType::filter, {"hertz", "decibels"}},
      {ControlType::doubleFilter, {"hertz", "decibels", "hertz2", "decibels2", "share", "share2"}},
      {ControlType::adsr, {"share", "share2", "share3", "milliseconds"}},
      {ControlType::stepSequencer, {"share", "semitones", "share2", "share3"}},
      {ControlType::curveSequencer, {"share", "semitones", "share2"}},
      {ControlType::simpleCurve, {"share", "share2", "share3"}},
      {ControlType::xyControl, {"hertz", "share", "OnOff", "Hold"}},
      {ControlType::timeStopXY, {"share", "hertz", "OnOff", "Hold"}},
      {ControlType::doubleSlider, {"hertz", "hertz2"}},
      {ControlType::mutableControl, {"decibels", "OnOff"}},
      {ControlType::wavetable, {"share", "share2"}},
      {ControlType::multiple, {"hertz", "share", "semitones"}},
  };
  return all;
}

class ShapeRoadTest : public testing::TestWithParam<Row> {
 protected:
  ShapeRoadTest() {
    design->givenKeys = {support::paramKey(own(), GetParam().type,
                                           {GetParam().keys.begin() + 1, GetParam().keys.end()})};
    design->addPage("", {support::section("", {own()})});
    controller.setAudioUnit(&unit);
    editor.show(controller);
  }
  const std::string& own() const { return GetParam().keys.front(); }
  kestroui::Container& container() { return *controller.container(own()); }
  std::map<std::string, float> parameters() {
    std::map<std::string, float> result;
    for (const std::string& key : unit.parametersKeys()) result[key] = unit.parameter(key)->value();
    return result;
  }
  platform::Point place(const std::string& key) {
    const auto own = handleOf(container(), key);
    return own ? container().convertToRoot(*own) : container().control()->frameInRoot().centre();
  }
  void settle() {
    loop.settle();
    editor.window.prepareFrame();
  }

  support::ManualLoop loop;
  quillon::CommonAudioUnit unit{{
      {.key = "hertz",
       .address = 1,
       .minValue = 20,
       .maxValue = 20000,
       .defaultValue = 300,
       .unit = AudioUnitParameterUnit::hertz},
      {.key = "hertz2",
       .address = 2,
       .minValue = 20,
       .maxValue = 20000,
       .defaultValue = 3000,
       .unit = AudioUnitParameterUnit::hertz},
      {.key = "decibels",
       .address = 3,
       .minValue = -20,
       .maxValue = 40,
       .defaultValue = 3,
       .unit = AudioUnitParameterUnit::decibels},
      {.key = "decibels2",
       .address = 4,
       .minValue = -60,
       .maxValue = 12,
       .defaultValue = -7,
       .unit = AudioUnitParameterUnit::decibels},
      {.key = "share", .address = 5, .defaultValue = 0.3f},
      {.key = "share2", .address = 6, .defaultValue = 0.7f},
      {.key = "share3", .address = 7, .defaultValue = 0.5f},
      {.key = "semitones",
       .address = 8,
       .minValue = -12,
       .maxValue = 12,
       .defaultValue = 5,
       .unit = AudioUnitParameterUnit::relativeSemiTones},
      {.key = "milliseconds",
       .address = 9,
       .maxValue = 2000,
       .defaultValue = 700,
       .unit = AudioUnitParameterUnit::milliseconds},
      {.key = "OnOff", .address = 10, .unit = AudioUnitParameterUnit::boolean},
      {.key = "Hold", .address = 11, .unit = AudioUnitParameterUnit::boolean},
  }};
  std::shared_ptr<support::GivenDesign> design = std::make_shared<support::GivenDesign>();
  support::TestController controller{design};
  support::EditorWindow editor{{600, 400}};
};

TEST_P(ShapeRoadTest, WhatTheHostSetsIsShownAndNotSentBack) {
  settle();
  for (const std::string& key : GetParam().keys) {
    SCOPED_TRACE(key);
    auto& parameter = *unit.parameter(key);
    const float before = valueOf(container(), key);
    const auto others = parameters();
    const bool isSwitch = parameter.unit() == AudioUnitParameterUnit::boolean;
    const float target = parameter.minValue() +
                         (isSwitch ? 1 : 0.9f) * (parameter.maxValue() - parameter.minValue());
    parameter.setValue(target);
    settle();
    EXPECT_NE(valueOf(container(), key), before);
    // Nothing that the user has not moved is sent.
    container().sendActions(toolkit::ControlEvent::valueChanged);
    auto expected = others;
    expected[key] = target;
    EXPECT_EQ(parameters(), expected);
    parameter.setValue(others.at(key));
    settle();
  }
}

TEST_P(ShapeRoadTest, AHandleMovesItsOwnParametersAndNoOther) {
  settle();
  for (const std::string& key : GetParam().keys) {
    SCOPED_TRACE(key);
    const auto before = parameters();
    std::vector<platform::AUParameterAddress> held;
    unit.parameterTree().setGestureObserver([&](platform::AUParameterAddress address, bool began) {
      if (began) held.push_back(address);
    });
    const platform::Point at = place(key);
    editor.window.touchBegan(1, toolkit::Touch::Kind::finger, at, 1);
    editor.window.touchMoved(1, {at.x + 9, at.y - 7});
    editor.window.touchEnded(1, {at.x + 9, at.y - 7});
    settle();
    unit.parameterTree().setGestureObserver({});
    EXPECT_NE(unit.parameter(key)->value(), before.at(key));
    for (const auto& [name, value] : parameters()) {
      const bool wasHeld =
          std::find(held.begin(), held.end(), unit.parameter(name)->address()) != held.end();
      EXPECT_TRUE(wasHeld || value == before.at(name)) << name << " was not held";
    }
    // The echo has put the control where the parameter is.
    const auto after = parameters();
    container().sendActions(toolkit::ControlEvent::valueChanged);
    EXPECT_EQ(parameters(), after);
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, ShapeRoadTest, testing::ValuesIn(rows()), [](const auto& info) {
  return std::string(kestroui::rawValue(info.param.type));
});

}  // namespace
}  // namespace orvane
