// The controls that switch or choose: their values are raw.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "KestroUI/ButtonGroups.h"
#include "KestroUI/Stepper.h"
#include "KestroUI/Switches.h"
#include "tests/support/Drawing.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/WindowBench.h"

namespace kestroui {
namespace {

using platform::Key;
using toolkit::ControlEvent;

struct Journal : platform::WeakTarget {
  void onChange(toolkit::Control& sender) {
    const float value = static_cast<KestroControl&>(sender).value();
    events += std::to_string(static_cast<int>(value)) + " ";
  }
  void onTouchDown() { events += "down "; }
  void listenTo(toolkit::Control& control) {
    control.addTarget<&Journal::onChange>(*this, ControlEvent::valueChanged);
    control.addTarget<&Journal::onTouchDown>(*this, ControlEvent::touchDown);
  }
  std::string take() { return std::exchange(events, ""); }

  std::string events;
};

class ChoiceControlsTest : public testing::Test {
 protected:
  void show(KestroControl& control, const platform::Rect& frame) {
    bench.root().addSubview(control);
    control.setFrame(frame);
    journal.listenTo(control);
    bench.frame();
  }

  support::ManualLoop loop;
  support::WindowBench bench;
  Journal journal;
};

TEST_F(ChoiceControlsTest, anOnOffButtonSwitchesWhenItIsTouched) {
  OnOffButton button({"Off", "On"});
  show(button, {0, 0, 80, 30});
  bench.press({10, 10});
  EXPECT_TRUE(button.isOn());
  bench.lift({10, 10});
  EXPECT_EQ(journal.take(), "down 1 ");
  bench.tap({10, 10});
  EXPECT_TRUE(bench.key(Key::space));
  EXPECT_EQ(journal.take(), "down 0 1 ");
  button.setOn(false);
  EXPECT_EQ(journal.take(), "");
}

TEST_F(ChoiceControlsTest, anOnOffButtonCanLeaveTheSwitchingToItsOwner) {
  OnOffButton button({"Bass"});
  button.setSwitching(OnOffButton::Switching::byOwner);
  show(button, {0, 0, 80, 30});
  bench.tap({10, 10});
  bench.key(Key::returnKey);
  EXPECT_FALSE(button.isOn());
  EXPECT_EQ(journal.take(), "down down ");
}

TEST_F(ChoiceControlsTest, aMomentaryButtonIsOnWhileItIsPressed) {
  MomentaryButton button;
  show(button, {0, 0, 80, 30});
  bench.press({10, 10});
  EXPECT_EQ(button.value(), 1);
  bench.lift({300, 200});
  EXPECT_EQ(journal.take(), "down 1 0 ");
  bench.press({10, 10});
  button.setHidden(true);
  bench.frame();
  bench.press({200, 200});
  EXPECT_EQ(button.value(), 0) << "a hidden button is let go";
}

TEST_F(ChoiceControlsTest, radioButtonsChooseAtOnceAndFollowTheFinger) {
  RadioButtons radio({"LP", "HP", "BP"});
  show(radio, {0, 0, 180, 30});
  bench.press({90, 10});
  EXPECT_EQ(journal.take(), "down 1 ");
  bench.drag({170, 10});
  bench.drag({171, 10});
  bench.drag({200, 10});
  bench.lift({200, 10});
  EXPECT_EQ(journal.take(), "2 ");
  bench.key(Key::up);
  EXPECT_EQ(radio.selectedIndex(), 1) << "up is the button before";
  bench.key(Key::down);
  EXPECT_EQ(radio.selectedIndex(), 2);
}

TEST_F(ChoiceControlsTest, radioButtonsStandInAColumnWhereItIsTall) {
  RadioButtons radio({"First", "Second", "Third", "Fourth"});
  show(radio, {0, 0, 60, 160});
  bench.tap({30, 150});
  EXPECT_EQ(radio.selectedIndex(), 3);
  bench.tap({30, 66});
  EXPECT_EQ(radio.selectedIndex(), 1);
}

TEST_F(ChoiceControlsTest, radioValuesStartAtTheMinimum) {
  RadioButtons radio;
  radio.setRange(2, 4);
  radio.setTitles({"a", "b", "c"});
  show(radio, {0, 0, 180, 30});
  EXPECT_EQ(radio.selectedIndex(), 0);
  bench.tap({170, 10});
  EXPECT_EQ(radio.value(), 4);
  radio.setSelectedIndex(1);
  EXPECT_EQ(radio.value(), 3);
}

TEST_F(ChoiceControlsTest, aHeldStepperButtonRepeats) {
  Stepper stepper;
  stepper.setRange(-3, 3);
  stepper.setStepCount(6);
  show(stepper, {0, 0, 100, 30});
  bench.tap({95, 10});
  bench.tap({5, 10});
  bench.tap({5, 10});
  EXPECT_EQ(journal.take(), "down 1 down 0 down -1 ");
  bench.press({95, 10});
  loop.advance(2);
  bench.lift({95, 10});
  EXPECT_EQ(stepper.value(), 3);
  journal.take();
  loop.advance(2);
  EXPECT_EQ(journal.take(), "");
  EXPECT_FALSE(stepper.isInGesture());
}

TEST_F(ChoiceControlsTest, aStepperShowsTheTextOfItsValueAndNotOfAnEarlierOne) {
  Stepper stepper;
  stepper.setRange(0, 8);
  stepper.setStepCount(8);
  show(stepper, {0, 0, 100, 30});
  stepper.setValue(4);
  stepper.setText("4 voices");
  bench.frame();
  EXPECT_THAT(bench.painted(), testing::Contains("text 4 voices"));
  bench.tap({95, 10});
  bench.frame();
  EXPECT_THAT(bench.painted(), testing::Contains("text 5"));
}

TEST_F(ChoiceControlsTest, bitFlagsAreSwitchedOneByOneAndByASlide) {
  BitFlagsGroup group;
  group.setTitles({"a", "b", "c", "d"});
  show(group, {0, 0, 160, 30});
  bench.tap({130, 10});
  EXPECT_EQ(group.value(), 8);
  bench.press({10, 10});
  bench.drag({50, 10});
  bench.drag({90, 10});
  bench.lift({90, 10});
  EXPECT_EQ(group.value(), 15);
  bench.press({10, 10});
  bench.drag({50, 10});
  bench.lift({50, 10});
  EXPECT_EQ(group.value(), 12);
  EXPECT_TRUE(group.isOn(2));
  EXPECT_FALSE(group.isOn(0));
}

TEST_F(ChoiceControlsTest, flagsAreOnlyAsManyAsAFloatHoldsExactly) {
  BitFlagsGroup group;
  group.setTitles(std::vector<std::string>(30, "flag"));
  show(group, {0, 0, 400, 200});
  ASSERT_EQ(group.titles().size(), 24u);
  group.setValue(16777215);
  group.becomeFirstResponder();
  bench.key(Key::space);
  EXPECT_EQ(group.value(), 16777214);
}

TEST_F(ChoiceControlsTest, cellsOfSeveralRowsAreReachedByFingerAndArrows) {
  BitFlagsGroup group;
  group.setTitles({"a", "b", "c", "d"});
  show(group, {0, 0, 60, 60});
  group.becomeFirstResponder();
  for (const float value : {4.0f, 0.0f}) {
    bench.key(Key::home);
    bench.key(Key::down);
    bench.key(Key::space);
    EXPECT_EQ(group.value(), value) << "the one below the first, on and off";
  }
  group.setTitles({"a", "b", "c"});
  bench.tap({50, 50});
  EXPECT_EQ(group.value(), 4) << "the last row is filled";
  RadioButtons radio({"LP", "HP", "BP"});
  show(radio, {100, 0, 180, 200});
  bench.tap({190, 2});
  EXPECT_EQ(radio.selectedIndex(), 1) << "above the button is the button too";
}

TEST_F(ChoiceControlsTest, aStepperCountsFromItsMinimumAndTurnsWithItsRange) {
  Stepper stepper;
  stepper.setRange(-1, 1);
  stepper.setStepCount(2);
  stepper.setValueNames({"low", "mid", "high"});
  show(stepper, {0, 0, 100, 30});
  const auto marks = [&] {
    const auto all = support::Drawing(stepper).all(support::Drawing::Kind::rect);
    // The line of the minus, then the two of the plus.
    return std::pair(all[0].color, all[1].color);
  };
  const std::pair<float, std::string> names[] = {{-1, "low"}, {0, "mid"}, {1, "high"}};
  for (const auto& [value, name] : names) {
    stepper.setValue(value);
    EXPECT_TRUE(support::Drawing(stepper).says(name));
    EXPECT_EQ(marks().first == marks().second, value == 0) << "an end is marked at its own side";
  }
  const auto atMaximum = marks().first;
  stepper.setValue(0);
  EXPECT_EQ(marks().first, atMaximum) << "down goes on from the maximum";
  stepper.setText("centre");
  stepper.setValue(0);
  EXPECT_TRUE(support::Drawing(stepper).says("centre")) << "the text of the same value stays";
  stepper.setInverted(true);
  bench.tap({95, 10});
  EXPECT_EQ(stepper.value(), -1);
}

}  // namespace
}  // namespace kestroui
