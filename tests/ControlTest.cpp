#include "toolkit/Control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "tests/support/WindowBench.h"
#include "toolkit/Button.h"

using namespace platform;
using namespace toolkit;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr ControlEvent allTouches = ControlEvent::touchDown | ControlEvent::touchDragged |
                                    ControlEvent::touchUpInside | ControlEvent::touchUpOutside |
                                    ControlEvent::touchCancelled;

struct Target : WeakTarget {
  std::function<void()> then;
  int calls = 0, others = 0;
  void act() {
    ++calls;
    if (const auto action = then) action();
  }
  void actWithSender(Control&) { ++others; }
};

/// Writes down which event it got, by one action for each.
struct Listener : WeakTarget {
  std::vector<std::string> heard;
  void down() { heard.push_back("down"); }
  void dragged() { heard.push_back("dragged"); }
  void inside() { heard.push_back("inside"); }
  void outside() { heard.push_back("outside"); }
  void cancelled() { heard.push_back("cancelled"); }

  void listenTo(Control& control) {
    control.addTarget<&Listener::down>(*this, ControlEvent::touchDown);
    control.addTarget<&Listener::dragged>(*this, ControlEvent::touchDragged);
    control.addTarget<&Listener::inside>(*this, ControlEvent::touchUpInside);
    control.addTarget<&Listener::outside>(*this, ControlEvent::touchUpOutside);
    control.addTarget<&Listener::cancelled>(*this, ControlEvent::touchCancelled);
  }
};

class ControlTest : public testing::Test {
 protected:
  ControlTest() {
    bench.root().addSubview(*control);
    control->setFrame({0, 0, 50, 50});
    bench.frame();
  }

  support::WindowBench bench;
  std::unique_ptr<Control> control = std::make_unique<Control>();
};

}  // namespace

TEST_F(ControlTest, ReportsATouchFromDownToUp) {
  Listener listener;
  listener.listenTo(*control);
  bench.press({10, 10});
  EXPECT_TRUE(control->isHighlighted());
  bench.drag({60, 10});
  EXPECT_FALSE(control->isHighlighted());
  bench.drag({20, 10});
  EXPECT_TRUE(control->isHighlighted());
  bench.lift({20, 10});
  EXPECT_FALSE(control->isHighlighted());
  EXPECT_THAT(listener.heard, ElementsAre("down", "dragged", "dragged", "inside"));
  listener.heard.clear();
  bench.press({10, 10});
  bench.lift({10, 60});
  bench.press({10, 10});
  control->setHidden(true);
  EXPECT_FALSE(control->isHighlighted());
  EXPECT_THAT(listener.heard, ElementsAre("down", "outside", "down", "cancelled"));
}

TEST_F(ControlTest, TwoFingersPressTwoControls) {
  Control second({50, 0, 50, 50});
  bench.root().addSubview(second);
  Listener a, b;
  a.listenTo(*control);
  b.listenTo(second);
  bench.press({10, 10}, 1);
  bench.press({60, 10}, 2);
  EXPECT_TRUE(control->isHighlighted() && second.isHighlighted());
  bench.lift({60, 10}, 1);
  bench.lift({60, 10}, 2);
  EXPECT_THAT(a.heard, ElementsAre("down", "outside"));
  EXPECT_THAT(b.heard, ElementsAre("down", "inside"));
}

TEST_F(ControlTest, IsHitButSilentWhileDisabled) {
  Listener behind, listener;
  Control back({0, 0, 50, 50});
  bench.root().addSubview(back);
  bench.root().bringSubviewToFront(*control);
  behind.listenTo(back);
  listener.listenTo(*control);
  control->setEnabled(false);
  bench.press({10, 10});
  control->setEnabled(true);
  bench.lift({10, 10});
  EXPECT_THAT(listener.heard, IsEmpty()) << "a touch that began while it was disabled stays silent";
  bench.press({10, 10});
  control->setEnabled(false);
  EXPECT_FALSE(control->isHighlighted());
  bench.lift({10, 10});
  EXPECT_THAT(listener.heard, ElementsAre("down"));
  EXPECT_THAT(behind.heard, IsEmpty());
}

TEST_F(ControlTest, TheSameTargetAndActionIsCalledOnce) {
  Target target;
  for (int i = 0; i < 3; ++i) control->addTarget<&Target::act>(target, ControlEvent::valueChanged);
  control->addTarget<&Target::act>(target, ControlEvent::touchDown);
  control->addTarget<&Target::actWithSender>(target, ControlEvent::valueChanged);
  control->sendActions(ControlEvent::valueChanged);
  EXPECT_EQ(target.calls, 1);
  EXPECT_EQ(target.others, 1);
  control->removeTarget<&Target::act>(target, ControlEvent::valueChanged);
  control->sendActions(ControlEvent::valueChanged);
  control->sendActions(ControlEvent::touchDown);
  EXPECT_EQ(target.calls, 2);
  EXPECT_EQ(target.others, 2);
}

TEST_F(ControlTest, TargetsMayComeGoAndDieWithinAnAction) {
  auto first = std::make_unique<Target>();
  auto second = std::make_unique<Target>();
  Target third, late;
  const auto event = ControlEvent::valueChanged;
  control->addTarget<&Target::act>(*first, event);
  control->addTarget<&Target::act>(*second, event);
  control->addTarget<&Target::act>(third, event);
  first->then = [&] {
    control->removeTarget<&Target::act>(third, event);
    control->addTarget<&Target::act>(late, event);
    second.reset();
    first.reset();
  };
  control->sendActions(event);
  EXPECT_EQ(third.calls, 0) << "removed before its turn";
  EXPECT_EQ(late.calls, 0) << "added too late for this event";
  control->sendActions(event);
  EXPECT_EQ(third.calls, 0);
  EXPECT_EQ(late.calls, 1);
}

TEST_F(ControlTest, MayBeDestroyedByAnyOfItsActions) {
  const Point inside{10, 10}, outside{60, 60};
  const std::function<void()> roads[] = {
      [&] { bench.press(inside); },
      [&] { bench.press(inside), bench.drag(inside); },
      [&] { bench.press(inside), bench.lift(inside); },
      [&] { bench.press(inside), bench.lift(outside); },
      [&] { bench.press(inside), bench.window.cancelTouches(); },
  };
  const ControlEvent events[] = {ControlEvent::touchDown, ControlEvent::touchDragged,
                                 ControlEvent::touchUpInside, ControlEvent::touchUpOutside,
                                 ControlEvent::touchCancelled};
  for (std::size_t i = 0; i < std::size(roads); ++i) {
    control = std::make_unique<Control>(Rect{0, 0, 50, 50});
    bench.root().addSubview(*control);
    Target killer, next;
    killer.then = [&] { control.reset(); };
    control->addTarget<&Target::act>(killer, events[i]);
    control->addTarget<&Target::act>(next, allTouches);
    roads[i]();
    EXPECT_EQ(control, nullptr) << i;
    EXPECT_EQ(killer.calls, 1) << i;
    bench.window.cancelTouches();
    bench.frame();
  }
}

TEST_F(ControlTest, ButtonsArePressedBySpaceAndReturn) {
  Button button;
  Listener listener;
  listener.listenTo(button);
  bench.root().addSubview(button);
  EXPECT_TRUE(button.becomeFirstResponder());
  EXPECT_TRUE(bench.key(Key::space));
  EXPECT_TRUE(bench.key(Key::returnKey));
  EXPECT_FALSE(bench.key(Key::returnKey, Modifiers::command));
  EXPECT_THAT(listener.heard, ElementsAre("down", "inside", "down", "inside"));
  button.setEnabled(false);
  EXPECT_FALSE(button.isFirstResponder());
}
