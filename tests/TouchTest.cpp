// The roads of input: touches, hover, wheel and keyboard.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "tests/support/WindowBench.h"
#include "toolkit/Button.h"

using namespace platform;
using namespace toolkit;
using support::only;
using support::ProbeView;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class TouchTest : public testing::Test {
 protected:
  TouchTest() {
    bench.root().addSubview(*panel);
    panel->addSubview(*leaf);
    bench.root().addSubview(*other);
    bench.frame();
    journal.clear();
  }

  std::vector<std::string> journal;
  support::WindowBench bench;
  std::unique_ptr<ProbeView> panel =
      std::make_unique<ProbeView>("panel", journal, Rect{0, 0, 100, 100});
  std::unique_ptr<ProbeView> leaf =
      std::make_unique<ProbeView>("leaf", journal, Rect{10, 10, 20, 20});
  std::unique_ptr<ProbeView> other =
      std::make_unique<ProbeView>("other", journal, Rect{200, 0, 50, 50});
};

}  // namespace

TEST_F(TouchTest, GoesOnWhereItBegan) {
  bench.press({15, 15});
  bench.drag({220, 20});
  bench.lift({220, 20});
  bench.lift({220, 20});
  EXPECT_THAT(journal, ElementsAre("leaf began", "leaf moved", "leaf ended"));
}

TEST_F(TouchTest, CarriesItsPlacesAndTime) {
  struct Taker : View {
    using View::View;
    Touch last;
    void touchMoved(const Touch& touch) override { last = touch; }
  } taker({300, 100, 50, 50});
  bench.root().addSubview(taker);
  bench.window.touchBegan(7, Touch::Kind::mouse, {310, 110}, 2, Modifiers::shift);
  bench.window.touchMoved(7, {320, 130}, Modifiers::alt);
  EXPECT_EQ(taker.last.id, 7);
  EXPECT_EQ(taker.last.kind, Touch::Kind::mouse);
  EXPECT_EQ(taker.last.tapCount, 2);
  EXPECT_EQ(taker.last.modifiers, Modifiers::alt);
  EXPECT_EQ(taker.last.startLocation, (Point{310, 110}));
  EXPECT_EQ(taker.last.locationIn(taker), (Point{20, 30}));
  EXPECT_EQ(taker.last.previousLocationIn(taker), (Point{10, 10}));
  EXPECT_GT(taker.last.timestamp, 0);
}

TEST_F(TouchTest, TwoFingersMoveTwoViewsButOneViewTakesOne) {
  bench.press({15, 15}, 1);
  bench.press({220, 20}, 2);
  bench.press({16, 16}, 3);
  bench.drag({17, 17}, 3);
  bench.drag({230, 20}, 2);
  bench.lift({15, 15}, 1);
  bench.press({16, 16}, 4);
  EXPECT_THAT(journal,
              ElementsAre("leaf began", "other began", "other moved", "leaf ended", "leaf began"));
  journal.clear();
  other->setMultipleTouchEnabled(true);
  bench.press({221, 21}, 5);
  bench.press({221, 21}, 5);
  bench.window.cancelTouches();
  EXPECT_THAT(journal, ElementsAre("other began", "other cancelled", "other began",
                                   "other cancelled", "leaf cancelled", "other cancelled"));
}

TEST_F(TouchTest, IsCancelledOnceWhenItsViewGoesAway) {
  struct Case {
    const char* what;
    std::function<void()> leave, back;
  };
  const Case cases[] = {
      {"removed", [&] { leaf->removeFromSuperview(); }, [&] { panel->addSubview(*leaf); }},
      {"hidden", [&] { leaf->setHidden(true); }, [&] { leaf->setHidden(false); }},
      {"its parent hidden", [&] { panel->setHidden(true); }, [&] { panel->setHidden(false); }},
      {"its parent removed", [&] { panel->removeFromSuperview(); },
       [&] { bench.root().addSubview(*panel); }},
      {"moved out of the window",
       [&] {
         static View loose;
         loose.addSubview(*leaf);
       },
       [&] { panel->addSubview(*leaf); }},
      {"the tree taken out", [&] { bench.window.setRootViewController(nullptr); },
       [&] { bench.window.setRootViewController(&bench.controller); }},
  };
  for (const Case& c : cases) {
    bench.press({15, 15});
    c.leave();
    c.back();
    bench.drag({16, 16});
    bench.lift({16, 16});
    EXPECT_THAT(only(journal, {"began", "moved", "ended", "cancelled"}),
                ElementsAre("leaf began", "leaf cancelled"))
        << c.what;
    journal.clear();
  }
}

TEST_F(TouchTest, GoesOnWhenItsViewChangesItsSuperview) {
  bench.press({15, 15});
  bench.root().addSubview(*leaf);
  bench.lift({15, 15});
  EXPECT_THAT(journal, ElementsAre("leaf began", "leaf ended"));
}

TEST_F(TouchTest, ViewsMayRemoveOrDestroyThemselvesWhileTapped) {
  leaf->onTouchBegan = [&] { leaf->removeFromSuperview(); };
  bench.tap({15, 15});
  EXPECT_THAT(journal, ElementsAre("leaf began", "leaf cancelled"));
  journal.clear();
  panel->addSubview(*leaf);
  leaf->onTouchBegan = [&] { leaf.reset(); };
  bench.tap({15, 15});
  EXPECT_THAT(journal, ElementsAre("leaf began"));
  panel->onTouchBegan = [&] { panel->setHidden(true); };
  panel->onTouchCancelled = [&] { panel.reset(); };
  bench.tap({15, 15});
  EXPECT_EQ(panel, nullptr);
  bench.frame();
}

TEST_F(TouchTest, ChildrenOfADestroyedViewAreToldInTheNextTurn) {
  leaf->takesKeyboard = true;
  bench.window.hovered({15, 15});
  bench.press({15, 15});
  bench.frame();
  journal.clear();
  panel.reset();
  EXPECT_THAT(journal, IsEmpty()) << "nobody is called while a view is being destroyed";
  EXPECT_TRUE(bench.window.needsFrame());
  bench.frame();
  EXPECT_THAT(journal, ElementsAre("leaf cancelled", "leaf left", "leaf lost keyboard"));
}

TEST_F(TouchTest, ACallbackMayCloseTheWindow) {
  for (const bool byHover : {false, true}) {
    auto closing = std::make_unique<support::WindowBench>();
    ProbeView view("view", journal, {0, 0, 50, 50});
    closing->root().addSubview(view);
    view.onTouchBegan = view.onHover = [&] { closing.reset(); };
    if (byHover)
      closing->window.hovered({5, 5});
    else
      closing->window.touchBegan(1, Touch::Kind::finger, {5, 5}, 1);
    EXPECT_EQ(closing, nullptr);
  }
}

TEST_F(TouchTest, AViewThatComesOrGoesBelowTheRestingMouseIsTold) {
  bench.window.hovered({350, 250});
  ProbeView late("late", journal, {340, 240, 40, 40});
  bench.root().addSubview(late);
  journal.clear();
  bench.frame();
  EXPECT_THAT(only(journal, {"entered", "left"}), ElementsAre("late entered"));
  journal.clear();
  late.setFrame({0, 240, 40, 40});
  bench.frame();
  EXPECT_THAT(only(journal, {"entered", "left"}), ElementsAre("late left"));
  journal.clear();
  bench.window.hoverEnded();
  late.setFrame({340, 240, 40, 40});
  bench.frame();
  EXPECT_THAT(only(journal, {"entered", "left"}), IsEmpty());
}

TEST_F(TouchTest, TheMouseRestsWhereItsDragEndedAndAFingerMovesNoMouse) {
  const auto released = [&](Touch::Kind kind) {
    leaf->setFrame({10, 10, 20, 20});
    bench.frame();
    bench.window.hovered({15, 15});
    bench.window.touchBegan(1, kind, {15, 15}, 1);
    bench.drag({210, 10});
    leaf->setFrame({60, 60, 20, 20});
    bench.frame();
    EXPECT_THAT(only(journal, {"left", "entered"}), ElementsAre("panel entered", "leaf entered"))
        << "whoever is touched keeps the mouse";
    journal.clear();
    bench.lift({210, 10});
    other->setFrame(other->frame().translated(1, 0));
    bench.frame();
    return only(journal, {"left", "entered"});
  };
  EXPECT_THAT(released(Touch::Kind::mouse),
              ElementsAre("leaf left", "panel left", "other entered"));
  bench.window.hoverEnded();
  journal.clear();
  EXPECT_THAT(released(Touch::Kind::finger), ElementsAre("leaf left"));
}

TEST_F(TouchTest, WhereTheMouseMovesIsToldInTheCoordinatesOfTheFrontView) {
  struct Taker : View {
    using View::View;
    std::vector<Point> places;
    void hoverMoved(Point location) override { places.push_back(location); }
  } outer({300, 100, 50, 50}), inner({10, 10, 20, 20});
  bench.root().addSubview(outer);
  outer.addSubview(inner);
  bench.window.hovered({312, 115});
  bench.window.hovered({301, 101});
  EXPECT_THAT(inner.places, ElementsAre(Point{2, 5}));
  EXPECT_THAT(outer.places, ElementsAre(Point{1, 1}));
}

TEST_F(TouchTest, HoverEntersFromOutsideAndLeavesFromInside) {
  bench.window.hovered({15, 15});
  bench.window.hovered({16, 16});
  EXPECT_THAT(journal, ElementsAre("panel entered", "leaf entered"));
  journal.clear();
  bench.window.hovered({50, 50});
  bench.window.hovered({210, 10});
  bench.window.hoverEnded();
  EXPECT_THAT(journal, ElementsAre("leaf left", "panel left", "other entered", "other left"));
  journal.clear();
  panel->onHover = [&] { leaf.reset(); };
  bench.window.hovered({15, 15});
  EXPECT_THAT(journal, ElementsAre("panel entered"));
}

TEST_F(TouchTest, WheelGoesOutwardsFromTheViewThatIsHit) {
  panel->usesEvents = true;
  EXPECT_TRUE(bench.window.wheelTurned({{15, 15}, 0, 1, Modifiers::none}));
  EXPECT_FALSE(bench.window.wheelTurned({{210, 15}, 0, 1, Modifiers::none}));
  EXPECT_THAT(journal, ElementsAre("leaf wheel", "panel wheel", "other wheel"));
}

TEST_F(TouchTest, KeysGoFromTheFirstResponderOutToTheProgram) {
  struct Program : Application {
    int keys = 0;
    bool open(const std::string&) override { return false; }
    bool keyPressed(const KeyEvent&) override { return ++keys > 0; }
  } program;
  EXPECT_FALSE(bench.key(Key::escape));
  bench.programme = &program;
  leaf->takesKeyboard = true;
  EXPECT_TRUE(leaf->becomeFirstResponder());
  journal.clear();
  EXPECT_TRUE(bench.key(Key::escape));
  EXPECT_THAT(journal, ElementsAre("leaf key", "panel key"));
  EXPECT_EQ(program.keys, 1);
}

TEST_F(TouchTest, KeysThatNoViewHasGoToTheControllersTheUppermostFirst) {
  struct Controller : ViewController {
    Controller(const char* given, std::string& all) : name(given), heard(all) {}
    bool keyPressed(const KeyEvent&) override {
      heard += name;
      return uses;
    }
    const char* name;
    std::string& heard;
    bool uses = false;
  };
  std::string heard;
  Controller below("b", heard), above("a", heard), child("c", heard);
  bench.controller.addChild(below);
  bench.controller.addChild(above);
  above.addChild(child);
  EXPECT_FALSE(bench.key(Key::escape));
  EXPECT_EQ(heard, "cab");
  heard.clear();
  above.uses = true;
  EXPECT_TRUE(bench.key(Key::escape));
  EXPECT_EQ(heard, "ca");
  leaf->takesKeyboard = true;
  leaf->becomeFirstResponder();
  EXPECT_FALSE(bench.key(Key::escape));
  EXPECT_EQ(heard, "ca") << "a view that has the keyboard asks its own chain";
}

TEST_F(TouchTest, TheKeyboardGoesToWhatIsTouchedOrAsksForIt) {
  panel->takesKeyboard = true;
  other->takesKeyboard = true;
  bench.tap({15, 15});
  EXPECT_TRUE(panel->isFirstResponder()) << "the nearest view outwards that takes it";
  bench.tap({210, 10});
  EXPECT_THAT(only(journal, {"keyboard"}),
              ElementsAre("panel got keyboard", "panel lost keyboard", "other got keyboard"));
  EXPECT_FALSE(leaf->becomeFirstResponder());
  other->setHidden(true);
  EXPECT_EQ(bench.window.firstResponder(), nullptr);
  EXPECT_FALSE(other->becomeFirstResponder());
  EXPECT_TRUE(panel->becomeFirstResponder());
  panel->resignFirstResponder();
  EXPECT_EQ(bench.window.firstResponder(), nullptr);
}

TEST_F(TouchTest, WhoeverGetsOrLosesTheKeyboardMayChangeTheTree) {
  struct Holder : View {
    using View::View;
    std::function<void()> onChange;
    bool canBecomeFirstResponder() const override { return true; }
    void firstResponderChanged() override { onChange(); }
  } holder({0, 0, 100, 100}), second({100, 0, 50, 50});
  bench.root().addSubview(holder);
  bench.root().addSubview(second);
  holder.addSubview(*leaf);
  holder.onChange = [&] { leaf->setHidden(true); };
  bench.tap({15, 15});
  EXPECT_THAT(journal, ElementsAre("leaf cancelled")) << "nothing begins after its end";
  int told = 0;
  second.onChange = [&] { ++told; };
  other->takesKeyboard = true;
  holder.onChange = [&] { other->becomeFirstResponder(); };
  EXPECT_FALSE(second.becomeFirstResponder());
  EXPECT_TRUE(other->isFirstResponder());
  EXPECT_EQ(told, 1) << "of its loss alone";
}

TEST_F(TouchTest, TabGoesThroughTheTreeInOrder) {
  Button disabled, unseen, last;
  disabled.setEnabled(false);
  unseen.setHidden(true);
  for (Button* button : {&disabled, &unseen, &last}) {
    button->setFrame({300, 250, 40, 20});
    bench.root().addSubview(*button);
  }
  leaf->takesKeyboard = panel->takesKeyboard = true;
  const auto first = [&] { return bench.window.firstResponder(); };
  std::vector<View*> forward, backward;
  for (int i = 0; i < 4; ++i) {
    EXPECT_TRUE(bench.key(Key::tab));
    forward.push_back(first());
  }
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(bench.key(Key::tab, Modifiers::shift));
    backward.push_back(first());
  }
  EXPECT_THAT(forward, ElementsAre(panel.get(), leaf.get(), &last, panel.get()));
  EXPECT_THAT(backward, ElementsAre(&last, leaf.get(), panel.get()));
  EXPECT_FALSE(bench.key(Key::tab, Modifiers::control));
  View shelf({300, 200, 60, 20});
  shelf.setClipsToBounds(true);
  bench.root().addSubview(shelf);
  shelf.addSubview(last);
  panel->takesKeyboard = leaf->takesKeyboard = false;
  EXPECT_FALSE(bench.key(Key::tab)) << "what is clipped away is not reached";
  panel->takesKeyboard = leaf->takesKeyboard = true;
  panel->becomeFirstResponder();
  panel->usesEvents = true;
  EXPECT_TRUE(bench.key(Key::tab));
  EXPECT_EQ(first(), panel.get()) << "who uses the Tab itself keeps the keyboard";
  panel->usesEvents = panel->takesKeyboard = leaf->takesKeyboard = false;
  last.setEnabled(false);
  EXPECT_FALSE(bench.key(Key::tab)) << "nowhere to go: the host gets it";
}
