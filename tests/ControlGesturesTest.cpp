// What fingers, wheel and keys do to the controls that hold a position.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "KestroUI/Knob.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/WindowBench.h"

namespace kestroui {
namespace {

using platform::Key;
using platform::Modifiers;
using toolkit::ControlEvent;

struct Listener : platform::WeakTarget {
  void onBegin() { events += "["; }
  void onChange() {
    events += "v";
    if (then) then();
  }
  void onEnd() { events += "]"; }
  void listenTo(toolkit::Control& control) {
    control.addTarget<&Listener::onBegin>(*this, ControlEvent::editingDidBegin);
    control.addTarget<&Listener::onChange>(*this, ControlEvent::valueChanged);
    control.addTarget<&Listener::onEnd>(*this, ControlEvent::editingDidEnd);
  }

  std::string events;
  std::function<void()> then;
};

class ControlGesturesTest : public testing::Test {
 protected:
  ControlGesturesTest() {
    bench.root().addSubview(*knob);
    knob->setFrame({100, 100, 60, 60});
    knob->setValue(0.5f);
    listener.listenTo(*knob);
    bench.frame();
  }

  /// A turn of the wheel over the knob.
  void wheel(double notches, Modifiers modifiers = Modifiers::none) {
    bench.window.wheelTurned({centre, 0, notches, modifiers});
  }
  void secondPress(platform::Point at) {
    bench.window.touchBegan(1, toolkit::Touch::Kind::mouse, at, 2);
  }

  support::ManualLoop loop;
  support::WindowBench bench;
  std::unique_ptr<Knob> knob = std::make_unique<Knob>();
  Listener listener;
  const platform::Point centre{130, 130};
};

TEST_F(ControlGesturesTest, aDragMovesTheValueFromWhereItIs) {
  bench.press({110, 150});
  EXPECT_EQ(knob->value(), 0.5f) << "a touch alone moves nothing";
  bench.drag({110, 110});
  EXPECT_NEAR(knob->value(), 0.7f, 1e-5) << "40 of 200 points";
  bench.drag({180, 110});
  EXPECT_NEAR(knob->value(), 0.7f, 1e-5) << "sideways is no direction of a knob";
  bench.drag({110, -400});
  EXPECT_EQ(knob->value(), 1);
  bench.drag({110, -380});
  EXPECT_NEAR(knob->value(), 0.9f, 1e-5) << "the way beyond the end does not count";
  bench.lift({110, -380});
  EXPECT_EQ(listener.events, "[vvv]");
}

TEST_F(ControlGesturesTest, aDragGoesOnFromWhereSomebodyElseHasPutTheValue) {
  bench.press(centre);
  bench.drag({130, 110});
  knob->setValue(0.2f);
  bench.drag({130, 100});
  EXPECT_NEAR(knob->value(), 0.25f, 1e-5);
  knob->setValue(0.25f);
  bench.drag({130, 90});
  EXPECT_NEAR(knob->value(), 0.3f, 1e-5) << "its own value, come back, is nobody else's";
}

TEST_F(ControlGesturesTest, shiftMakesADragAndAWheelTenTimesFiner) {
  bench.press(centre);
  bench.window.touchMoved(1, {130, 110}, Modifiers::shift);
  EXPECT_NEAR(knob->value(), 0.51f, 1e-5);
  bench.lift({130, 110});
  wheel(1, Modifiers::shift);
  EXPECT_NEAR(knob->value(), 0.511f, 1e-5);
}

TEST_F(ControlGesturesTest, setValueShowsAndSendsNothing) {
  knob->setValue(0.25f);
  knob->setValue(NAN);
  EXPECT_EQ(knob->value(), 0.25f);
  knob->setValue(7);
  EXPECT_EQ(knob->value(), 1);
  EXPECT_EQ(listener.events, "");
}

TEST_F(ControlGesturesTest, aBurstOfTheWheelIsOneGesture) {
  wheel(1);
  wheel(2);
  EXPECT_NEAR(knob->value(), 0.53f, 1e-5);
  EXPECT_EQ(listener.events, "[vv");
  loop.advance(1);
  EXPECT_EQ(listener.events, "[vv]");
  wheel(-1);
  loop.advance(1);
  EXPECT_EQ(listener.events, "[vv][v]");
}

TEST_F(ControlGesturesTest, aDragTakesTheGestureOfABurstOver) {
  wheel(1);
  bench.press(centre);
  loop.advance(1);
  bench.drag({130, 120});
  bench.lift({130, 120});
  EXPECT_EQ(listener.events, "[vv]");
}

TEST_F(ControlGesturesTest, keysMoveTheControlThatWasTouchedLast) {
  bench.tap(centre);
  const struct {
    Key key;
    Modifiers modifiers;
    float value;
  } cases[] = {
      {Key::up, Modifiers::none, 0.51f},    {Key::right, Modifiers::none, 0.51f},
      {Key::down, Modifiers::none, 0.49f},  {Key::left, Modifiers::shift, 0.499f},
      {Key::pageUp, Modifiers::none, 0.6f}, {Key::pageDown, Modifiers::none, 0.4f},
      {Key::home, Modifiers::none, 0},      {Key::end, Modifiers::none, 1},
  };
  for (const auto& c : cases) {
    knob->setValue(0.5f);
    EXPECT_TRUE(bench.key(c.key, c.modifiers));
    EXPECT_NEAR(knob->value(), c.value, 1e-5);
  }
  EXPECT_FALSE(bench.key(Key::up, Modifiers::command)) << "shortcuts belong to the host";
  EXPECT_FALSE(bench.window.keyPressed({Key::character, Modifiers::none, "a"}));
}

TEST_F(ControlGesturesTest, stepsAreTakenWholeByDragWheelAndKeys) {
  knob->setStepCount(4);
  bench.press(centre);
  bench.drag({130, 112});
  EXPECT_EQ(knob->value(), 0.5f) << "18 points are less than half a step";
  bench.drag({130, 100});
  EXPECT_EQ(knob->value(), 0.75f);
  bench.drag({130, 70});
  EXPECT_EQ(knob->value(), 0.75f) << "60 points are nearer to one step than to two";
  bench.lift({130, 70});
  wheel(-1);
  EXPECT_EQ(knob->value(), 0.5f);
  wheel(0.6);
  EXPECT_EQ(knob->value(), 0.5f);
  wheel(0.6);
  EXPECT_EQ(knob->value(), 0.75f) << "smooth wheels add up";
}

TEST_F(ControlGesturesTest, invertedControlsMoveTheOtherWay) {
  knob->setInverted(true);
  bench.press(centre);
  bench.drag({130, 90});
  bench.lift({130, 90});
  EXPECT_NEAR(knob->value(), 0.3f, 1e-5);
  wheel(1);
  EXPECT_NEAR(knob->value(), 0.29f, 1e-5);
  bench.key(Key::home);
  EXPECT_EQ(knob->value(), 1);
}

TEST_F(ControlGesturesTest, onlyTheSecondTapOfADoubleTapCountsAndMovesNothing) {
  int doubleTaps = 0;
  knob->doubleTapped = [&] { ++doubleTaps; };
  bench.tap(centre);
  EXPECT_EQ(doubleTaps, 0);
  secondPress(centre);
  bench.drag({130, 127});
  EXPECT_EQ(knob->value(), 0.5f);
  bench.lift({130, 127});
  EXPECT_EQ(doubleTaps, 1);
  EXPECT_EQ(listener.events, "[]") << "the second tap is no gesture";

  secondPress(centre);
  bench.drag({130, 110});
  bench.drag({130, 90});
  bench.lift({130, 90});
  EXPECT_EQ(doubleTaps, 1) << "one that is drawn away is a drag";
  EXPECT_NEAR(knob->value(), 0.6f, 1e-5);
  bench.key(Key::returnKey);
  EXPECT_EQ(doubleTaps, 2);
}

TEST_F(ControlGesturesTest, aSecondFingerDoesNotDisturbTheFirst) {
  bench.press(centre, 1);
  bench.press({120, 120}, 2);
  bench.drag({120, 20}, 2);
  EXPECT_EQ(knob->value(), 0.5f);
  bench.lift({120, 20}, 2);
  bench.drag({130, 110}, 1);
  EXPECT_NEAR(knob->value(), 0.6f, 1e-5);
  bench.window.cancelTouches();
  EXPECT_EQ(listener.events, "[v]");
}

TEST_F(ControlGesturesTest, aDisabledControlDoesNothing) {
  bench.press(centre);
  knob->setEnabled(false);
  EXPECT_EQ(listener.events, "[]") << "being disabled ends the gesture";
  bench.drag({130, 20});
  bench.lift({130, 20});
  bench.tap(centre);
  wheel(1);
  EXPECT_FALSE(bench.key(Key::up));
  EXPECT_EQ(knob->value(), 0.5f);
  EXPECT_EQ(listener.events, "[]");
}

TEST_F(ControlGesturesTest, aControlMayBeDestroyedByItsOwnChange) {
  listener.then = [this] { knob.reset(); };
  bench.press(centre);
  bench.drag({130, 100});
  EXPECT_EQ(knob, nullptr);
  bench.lift({130, 100});

  knob = std::make_unique<Knob>();
  bench.root().addSubview(*knob);
  knob->setFrame({100, 100, 60, 60});
  listener.listenTo(*knob);
  wheel(1);
  EXPECT_EQ(knob, nullptr);
  loop.advance(1);
}

TEST_F(ControlGesturesTest, nothingIsPaintedWhereNothingChanged) {
  knob->setModulated(true);
  knob->setModulatedValue(0.4f);
  bench.frame();
  const auto painted = bench.window.paintedViews();
  knob->setValue(0.5f);
  knob->setModulated(true);
  knob->setModulatedValue(0.4f);
  knob->setInverted(false);
  knob->setInactive(false);
  knob->setAccentColor(knob->accentColor());
  EXPECT_TRUE(bench.frame().empty());
  EXPECT_EQ(bench.window.paintedViews(), painted);
  knob->setModulatedValue(NAN);
  EXPECT_FALSE(knob->isModulated());
  knob->setModulatedValue(0.6f);
  EXPECT_TRUE(knob->isModulated());
  EXPECT_FALSE(bench.frame().empty());
  EXPECT_EQ(bench.window.paintedViews(), painted + 1);
}

TEST_F(ControlGesturesTest, stepsCountFromTheMinimum) {
  knob->setRange(0.5f, 4.5f);
  knob->setStepCount(4);
  knob->setValue(0.5f);
  bench.tap(centre);
  bench.key(Key::right);
  EXPECT_EQ(knob->value(), 1.5f);
  const auto range = knob->accessibility().range;
  ASSERT_TRUE(range.has_value());
  EXPECT_EQ(range->minimum, 0.5);
  EXPECT_EQ(range->maximum, 4.5);
  EXPECT_EQ(range->step, 1);
}

TEST_F(ControlGesturesTest, aQuickSecondPressDragsWhereADoubleTapMeansNothing) {
  bench.tap(centre);
  secondPress(centre);
  bench.drag({130, 129});
  bench.drag({130, 110});
  EXPECT_NEAR(knob->value(), 0.6f, 1e-5);
  wheel(5);
  EXPECT_NEAR(knob->value(), 0.6f, 1e-5) << "whoever drags has the control to themselves";
  bench.lift({130, 110});
}

}  // namespace
}  // namespace kestroui
