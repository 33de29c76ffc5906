// The road of a MIDI message: a control is chosen in learn mode, a device sends, and from then on
// the device moves the parameter.

#include "Orvane/MidiLearn.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

#include "KestroUI/MidiMapBadge.h"
#include "KestroUI/MultipleContainer.h"
#include "KestroUI/ValueContainers.h"
#include "Orvane/MidiScale.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

using kestroui::ControlType;
using platform::AudioUnitParameterUnit;
using support::paramKey;
using Message = MidiLearn::Message;

std::vector<quillon::ParameterDescription> parameters() {
  return {
      {.key = "cutoff",
       .address = 1,
       .minValue = 20,
       .maxValue = 20000,
       .defaultValue = 20,
       .unit = AudioUnitParameterUnit::hertz},
      {.key = "mode",
       .address = 2,
       .maxValue = 4,
       .unit = AudioUnitParameterUnit::indexed,
       .valueStrings = {"a", "b", "c", "d", "e"}},
      {.key = "on", .address = 3, .unit = AudioUnitParameterUnit::boolean},
      {.key = "drive", .address = 4, .flags = platform::AudioUnitParameterFlags::displaySquared},
      {.key = "left", .address = 5},
      {.key = "right", .address = 6},
  };
}

class MidiLearnTest : public testing::Test {
 protected:
  MidiLearnTest() {
    design->addPage("", {support::section("ALL", {"cutoff", "mode", "on", "drive", "left"})});
    design->givenKeys = {paramKey("cutoff", ControlType::knob), paramKey("mode", ControlType::knob),
                         paramKey("on", ControlType::onOff), paramKey("drive", ControlType::knob),
                         paramKey("left", ControlType::multiple, {"right"})};
    controller.setAudioUnit(&unit);
    window.show(controller);
    learn.setEditor(&controller);
  }
  kestroui::Container& container(const std::string& key) { return *controller.container(key); }
  kestroui::MultipleContainer& pair() {
    return dynamic_cast<kestroui::MultipleContainer&>(container("left"));
  }
  void tap(toolkit::View& view) {
    window.window.prepareFrame();
    window.tap(view.frameInRoot().centre());
    loop.settle();
  }
  void press(platform::Key key) { window.window.keyPressed({key, platform::Modifiers::none, ""}); }
  void send(Message message) {
    learn.receive(message);
    learn.poll();
    loop.settle();
  }
  float parameter(const std::string& key) { return unit.parameter(key)->value(); }
  std::string waiting() {
    const auto key = controller.lastMidiMapKey();
    return key ? key->key() : "";
  }

  support::ManualLoop loop;
  quillon::CommonAudioUnit unit{parameters()};
  std::shared_ptr<support::GivenDesign> design = std::make_shared<support::GivenDesign>();
  MidiLearn learn{unit};
  support::TestController controller{design};
  support::EditorWindow window{{800, 400}};
};

TEST_F(MidiLearnTest, AMidiValueMovesEachKindOfParameterOverItsRange) {
  const struct {
    const char* key;
    int midi;
    float value;
  } figures[] = {{"cutoff", 0, 20},
                 {"cutoff", 127, 20000},
                 {"mode", 64, 2},
                 {"mode", 127, 4},
                 {"on", 63, 0},
                 {"on", 64, 1},
                 {"drive", 127, 1},
                 {"drive", 64, 0.253953f},
                 {"left", 64, 64 / 127.0f}};
  for (const auto& figure : figures) {
    controller.setMidiValue(static_cast<std::uint8_t>(figure.midi),
                            paramKey(figure.key, ControlType::knob));
    EXPECT_NEAR(parameter(figure.key), figure.value, 1e-5) << figure.key << ' ' << figure.midi;
  }
  loop.settle();
  EXPECT_NEAR(container("cutoff").value(), 1, 1e-6);
  controller.setMidiValue(1, paramKey("nobody", ControlType::knob));
  controller.setMidiValue(1, nullptr);
}

TEST_F(MidiLearnTest, ATapInLearnModeSelectsAndTheNextMessageBinds) {
  std::string waits;
  learn.waitingChanged = [&] { waits += learn.isWaiting() ? "+" : "-"; };
  learn.setLearning(true);
  tap(container("cutoff"));
  EXPECT_EQ(waiting(), "cutoff");
  EXPECT_TRUE(container("cutoff").midiMapSelected());
  EXPECT_EQ(parameter("cutoff"), 20);

  send({0x80, 60, 0});
  EXPECT_TRUE(learn.bindings().empty()) << "the end of a note is not what was meant";
  send({0xb0, 74, 12});
  EXPECT_EQ(container("cutoff").midiMapMessage(), (Message{0xb0, 74}));
  EXPECT_EQ(parameter("cutoff"), 20) << "the message that is learned moves nothing";

  tap(container("on"));
  EXPECT_FALSE(container("cutoff").midiMapSelected());
  send({0x91, 36, 5});
  learn.setLearning(false);
  EXPECT_EQ(waiting(), "on");
  EXPECT_EQ(waits, "+-+-");

  send({0xb0, 74, 127});
  send({0x91, 36, 5});
  EXPECT_EQ(parameter("cutoff"), 20000);
  EXPECT_EQ(parameter("on"), 1) << "a pad switches however softly it is hit";
  send({0x81, 36, 0});
  EXPECT_EQ(parameter("on"), 0);
  send({0xb1, 74, 0});
  EXPECT_EQ(parameter("cutoff"), 20000) << "another channel is another message";
}

TEST_F(MidiLearnTest, BadgesShowOnlyInLearnModeAndTheControlRestsBelowThem) {
  EXPECT_EQ(container("cutoff").midiMapBadge(), nullptr);
  learn.setLearning(true);
  ASSERT_NE(container("cutoff").midiMapBadge(), nullptr);
  EXPECT_FALSE(container("cutoff").midiMapBadge()->isHidden());
  window.window.prepareFrame();
  const platform::Point at = container("cutoff").frameInRoot().centre();
  window.window.wheelTurned({at, 0, 3});
  EXPECT_EQ(container("cutoff").value(), 0);
  learn.setLearning(false);
  EXPECT_TRUE(container("cutoff").midiMapBadge()->isHidden());
  window.window.wheelTurned({at, 0, 3});
  EXPECT_GT(container("cutoff").value(), 0);
}

TEST_F(MidiLearnTest, TheCrossOfABadgeDeletesItsBinding) {
  learn.setLearning(true);
  learn.bind("cutoff", {0xb0, 74});
  int changes = 0;
  learn.bindingsChanged = [&] { ++changes; };
  tap(container("cutoff").midiMapBadge()->deleteButton());
  EXPECT_EQ(changes, 1);
  EXPECT_TRUE(learn.bindings().empty());
  EXPECT_EQ(container("cutoff").midiMapMessage(), std::nullopt);
  EXPECT_EQ(waiting(), "") << "deleting does not select";
  send({0xb0, 74, 127});
  EXPECT_EQ(parameter("cutoff"), 20);
}

TEST_F(MidiLearnTest, EachKnobOfAMultipleContainerIsBoundByItsOwnKey) {
  learn.setLearning(true);
  kestroui::KnobContainer& right = *pair().subContainer("right");
  tap(right);
  EXPECT_EQ(waiting(), "right");
  EXPECT_EQ(controller.lastMidiMapppedContainer(), &pair());
  EXPECT_TRUE(right.midiMapSelected());
  EXPECT_FALSE(pair().subContainer("left")->midiMapSelected());
  send({0xb2, 10, 0});
  EXPECT_EQ(right.midiMapMessage(), (Message{0xb2, 10}));

  tap(container("cutoff"));
  EXPECT_FALSE(right.midiMapSelected());
  learn.bind("left", {0xb0, 1});
  controller.removeAllMap();
  EXPECT_EQ(right.midiMapMessage(), std::nullopt);
  EXPECT_EQ(pair().subContainer("left")->midiMapMessage(), std::nullopt);
}

TEST_F(MidiLearnTest, AnUpdateLeavesWhatItDoesNotName) {
  controller.setMap(Message{0xb0, 1}, paramKey("cutoff", ControlType::knob));
  controller.update({});
  EXPECT_EQ(container("cutoff").midiMapMessage(), (Message{0xb0, 1}));
  controller.update({{paramKey("mode", ControlType::knob), {0x90, 60}}});
  EXPECT_EQ(container("cutoff").midiMapMessage(), (Message{0xb0, 1}));
  EXPECT_EQ(container("mode").midiMapMessage(), (Message{0x90, 60}));
  controller.removeMap(paramKey("cutoff", ControlType::knob));
  EXPECT_EQ(container("cutoff").midiMapMessage(), std::nullopt);
  controller.removeMap(paramKey("nobody", ControlType::knob));
}

TEST_F(MidiLearnTest, BindingsSurviveAsAStateAndNonsenseIsSkipped) {
  learn.bind("cutoff", {0xb0, 74});
  learn.bind("on", {0x91, 36});
  const platform::PropertyList state = learn.state();

  MidiLearn restored(unit);
  restored.setState(&state);
  EXPECT_EQ(restored.bindings(), learn.bindings());
  restored.receive(Message{0xb0, 74, 127});
  EXPECT_EQ(parameter("cutoff"), 20000);

  using List = platform::PropertyList;
  const List broken = List::Dictionary{{"cutoff", List::Array{5000, 1}},
                                       {"mode", "CC 7"},
                                       {"ghost", List::Array{0xb0, 7}},
                                       {"drive", List::Array{0xb0, 7}}};
  restored.setState(&broken);
  EXPECT_EQ(restored.bindings(), (MidiLearn::Bindings{{"drive", {0xb0, 7}}}));
  restored.setState(nullptr);
  EXPECT_TRUE(restored.bindings().empty());
  EXPECT_FALSE(restored.bind("cutoff", {0xb0, 123})) << "all notes off moves nothing";
  EXPECT_FALSE(restored.bind("cutoff", {}));
}

TEST_F(MidiLearnTest, AnEditorThatOpensLaterShowsTheBindingsAndOneThatClosesEndsLearning) {
  learn.bind("mode", {0xe0});
  learn.setLearning(true);
  tap(container("cutoff"));
  learn.setEditor(nullptr);
  EXPECT_FALSE(controller.midiMappingEnabled());
  send({0xb0, 74, 1});
  EXPECT_FALSE(learn.bindings().count("cutoff"));
  send({0xe0, 0, 127});
  EXPECT_EQ(parameter("mode"), 4);

  support::TestController second{design};
  second.setAudioUnit(&unit);
  second.view();
  learn.setEditor(&second);
  EXPECT_EQ(second.container("mode")->midiMapMessage(), Message{0xe0});
}

TEST_F(MidiLearnTest, AStreamOfMessagesIsOneGestureThatEndsWhenItRests) {
  std::vector<std::string> told;
  unit.parameterTree().setGestureObserver([&](platform::AUParameterAddress at, bool began) {
    told.push_back((began ? "begin " : "end ") + std::to_string(at));
  });
  learn.bind("cutoff", {0xb0, 74});
  learn.receive(Message{0xb0, 74, 1});
  for (double now = 10; now < 11; now += 0.1) {
    learn.receive(Message{0xb0, 74, 2});
    learn.poll(now);
  }
  EXPECT_EQ(told, std::vector<std::string>{"begin 1"});
  // A finger takes hold of it meanwhile.
  unit.parameter("cutoff")->beginGesture();
  learn.poll(11.6);
  EXPECT_EQ(told, std::vector<std::string>{"begin 1"}) << "the finger is still on it";
  unit.parameter("cutoff")->endGesture();
  EXPECT_EQ(told, (std::vector<std::string>{"begin 1", "end 1"}));
  learn.receive(Message{0xb0, 73, 2});
  learn.poll(12);
  EXPECT_EQ(told.size(), 2u) << "what moves nothing is no gesture";
  unit.parameterTree().setGestureObserver({});
}

TEST_F(MidiLearnTest, OneControlWaitsAtATimeInWhateverOrderTheyAreTapped) {
  const auto selected = [&] {
    std::string names;
    for (const auto& [key, shown] : controller.controls().controls())
      if (shown->midiMapSelected()) names += key->key() + ' ';
    for (const auto& part : pair().subContainers())
      if (part->midiMapSelected()) names += '/' + part->key()->key() + ' ';
    return names;
  };
  learn.setLearning(true);
  tap(*pair().subContainer("right"));
  EXPECT_EQ(selected(), "/right ");
  tap(container("cutoff"));
  EXPECT_EQ(selected(), "cutoff ");
  tap(*pair().subContainer("left"));
  EXPECT_EQ(selected(), "/left ");
  learn.setLearning(false);
  EXPECT_EQ(selected(), "");
  EXPECT_EQ(waiting(), "left") << "who waited last is still known";
}

TEST_F(MidiLearnTest, TheFirstMessageBindsAndOfSeveralThatBelongTogetherTheCoarseOne) {
  const struct {
    std::vector<Message> sent;
    Message bound;
  } rows[] = {
      {{{0xb0, 1, 5}, {0xb0, 2, 5}}, {0xb0, 1}},
      {{{0xb0, 1, 5}, {0xb0, 33, 99}}, {0xb0, 1}},
      {{{0xb0, 33, 99}, {0xb0, 1, 5}}, {0xb0, 1}},
      {{{0xb0, 33, 99}, {0xb1, 1, 5}}, {0xb0, 33}},
      {{{0xb0, 33, 99}}, {0xb0, 33}},
      {{{0xb0, 99, 1}, {0xb0, 98, 7}, {0xb0, 6, 64}, {0xb0, 38, 12}}, {0xb0, 6}},
      {{{0x90, 60, 100}, {0x80, 60, 0}, {0x90, 62, 100}}, {0x90, 60}},
  };
  learn.setLearning(true);
  for (const auto& row : rows) {
    learn.removeAll();
    tap(container("cutoff"));
    for (const Message& message : row.sent) learn.receive(message);
    learn.poll();
    EXPECT_EQ(learn.bindings(), (MidiLearn::Bindings{{"cutoff", row.bound}}));
    // It has what it waited for: what comes now moves it.
    EXPECT_FALSE(learn.isWaiting());
  }
}

TEST_F(MidiLearnTest, LearningAgainBindsNothingUntilAControlIsChosen) {
  learn.setLearning(true);
  tap(container("cutoff"));
  send({0xb0, 74, 0});
  learn.setLearning(false);
  learn.setLearning(true);
  EXPECT_FALSE(learn.isWaiting());
  send({0xb0, 64, 127});
  EXPECT_EQ(learn.bindings(), (MidiLearn::Bindings{{"cutoff", {0xb0, 74}}}));
}

TEST_F(MidiLearnTest, MidiGoesOnHoweverLearnModeEnds) {
  const std::vector<std::function<void()>> ways{[&] { controller.setMidiMappingEnabled(false); },
                                                [&] { press(platform::Key::escape); },
                                                [&] { learn.setLearning(false); }};
  learn.bind("on", {0xb0, 20});
  int told = 0;
  learn.learningChanged = [&] { ++told; };
  for (const auto& leave : ways) {
    unit.setParameter("on", 0);
    learn.setLearning(true);
    tap(container("cutoff"));
    leave();
    EXPECT_FALSE(learn.isLearning());
    EXPECT_FALSE(learn.isWaiting());
    send({0xb0, 20, 127});
    EXPECT_EQ(parameter("on"), 1);
  }
  EXPECT_EQ(told, 6);
}

TEST_F(MidiLearnTest, AnEditorThatGoesWithoutAWordDoesNotKeepTheMessages) {
  auto second = std::make_unique<support::TestController>(design);
  second->setAudioUnit(&unit);
  second->view();
  learn.setEditor(second.get());
  learn.bind("on", {0xb0, 20});
  learn.setLearning(true);
  const auto waiting = second->container("cutoff");
  waiting->delegate->didSelectMidiMap(waiting->key(), waiting.get());
  second.reset();
  send({0xb0, 20, 127});
  send({0xb0, 20, 127});
  EXPECT_EQ(parameter("on"), 1);
}

TEST_F(MidiLearnTest, WhatIsBoundAlreadyIsNotToldAgain) {
  int changes = 0;
  learn.bindingsChanged = [&] { ++changes; };
  for (int i = 0; i < 3; ++i) learn.bind("cutoff", {0xb0, 74});
  EXPECT_EQ(changes, 1);
}

TEST_F(MidiLearnTest, KeysMoveNothingBelowTheBadges) {
  container("cutoff").control()->becomeFirstResponder();
  learn.setLearning(true);
  for (const auto key : {platform::Key::up, platform::Key::pageUp, platform::Key::end}) press(key);
  loop.settle();
  EXPECT_EQ(parameter("cutoff"), 20);
  learn.setLearning(false);
  press(platform::Key::end);
  loop.settle();
  EXPECT_EQ(parameter("cutoff"), 20000) << "the control has the keyboard back";
}

}  // namespace
}  // namespace orvane
