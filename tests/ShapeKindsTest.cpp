// What fingers, mouse, wheel and keys do to the kinds whose values make a shape.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/MultipleContainer.h"
#include "KestroUI/MutableContainer.h"
#include "tests/support/KeyedValues.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/ShapeKinds.h"
#include "tests/support/WindowBench.h"

namespace kestroui {
namespace {

using platform::Key;
using platform::Modifiers;
using platform::Point;
using testing::ElementsAre;

using support::keys;

std::vector<std::string> numbered(int count) {
  std::vector<std::string> result;
  for (int i = 0; i < count; ++i) result.push_back("k" + std::to_string(i));
  return result;
}

std::vector<std::function<std::shared_ptr<Container>()>> makers() {
  std::vector<std::function<std::shared_ptr<Container>()>> all{
      std::make_shared<MutableContainer>, std::make_shared<MultipleContainer>,
      std::make_shared<TimeStopXYContainer>};
  for (const support::ShapeKind& kind : support::shapeKinds()) all.push_back(kind.make);
  return all;
}

class ShapeKindsTest : public testing::Test {
 protected:
  void show(Container& container, const std::vector<std::string>& names,
            const platform::Rect& frame = {0, 0, 300, 200}) {
    container.setParamKeys(keys(names));
    bench.root().addSubview(container);
    container.setFrame(frame);
    owner.listenTo(container);
    bench.frame();
  }
  static Point place(const Container& container, const std::string& key) {
    return container.convertToRoot(handleOf(container, key).value());
  }
  void drag(Point from, Point way, int id = 1) {
    bench.press(from, id);
    bench.drag({from.x + way.x, from.y + way.y}, id);
    bench.lift({from.x + way.x, from.y + way.y}, id);
  }
  void doubleTap(Point at) {
    bench.window.touchBegan(1, toolkit::Touch::Kind::mouse, at, 2);
    bench.lift(at);
  }
  static std::vector<float> values(const Container& container) {
    std::vector<float> result;
    for (const auto& key : container.paramKeys()) result.push_back(valueOf(container, key->key()));
    return result;
  }

  support::ManualLoop loop;
  support::WindowBench bench;
  support::ContainerOwner owner;
};

TEST_F(ShapeKindsTest, aDragMovesTheNearestHandleFromWhereItIs) {
  ADSRContainer envelope;
  show(envelope, {"a", "d", "s", "r"});
  for (const char* key : {"a", "d", "s", "r"}) showValue(envelope, key, 0.5f);
  const Point bend = place(envelope, "d");
  EXPECT_EQ(bend, place(envelope, "s"));
  const auto all = [&] { return values(envelope); };
  // Pressed beside the handle: it does not jump there.
  bench.press({bend.x + 6, bend.y + 6});
  EXPECT_EQ(all(), (std::vector<float>{0.5f, 0.5f, 0.5f, 0.5f}));
  bench.drag({bend.x + 16, bend.y + 6});
  EXPECT_GT(valueOf(envelope, "d"), 0.5f);
  EXPECT_EQ(valueOf(envelope, "s"), 0.5f);
  bench.drag({bend.x + 16, bend.y + 500});
  EXPECT_EQ(valueOf(envelope, "s"), 0);
  bench.lift({bend.x + 16, bend.y + 500});
  EXPECT_THAT(owner.take(), ElementsAre("[d", "[s", "v", "v", "]d", "]s"));

  drag(place(envelope, "r"), {500, 0});
  EXPECT_EQ(valueOf(envelope, "r"), 1);
  EXPECT_EQ(valueOf(envelope, "a"), 0.5f);
  EXPECT_THAT(owner.take(), ElementsAre("[r", "v", "]r"));
}

TEST_F(ShapeKindsTest, shiftIsTenTimesFiner) {
  FilterViewContainer filter;
  show(filter, {"f", "r"});
  filter.setKeyRange(1, 0, 100);
  showValue(filter, "r", 50);
  const Point at = place(filter, "r");
  bench.press(at);
  bench.window.touchMoved(1, {at.x, at.y - 20}, Modifiers::shift);
  const float fine = valueOf(filter, "r") - 50;
  bench.window.touchMoved(1, {at.x, at.y - 40});
  EXPECT_NEAR(valueOf(filter, "r") - 50, 11 * fine, 0.01);
  bench.lift(at);
  showValue(filter, "r", 50);
  bench.window.wheelTurned({at, 0, 1, Modifiers::none});
  EXPECT_FLOAT_EQ(valueOf(filter, "r"), 51) << "the wheel turns the resonance";
  bench.window.wheelTurned({at, 0, 1, Modifiers::shift});
  EXPECT_FLOAT_EQ(valueOf(filter, "r"), 51.1f);
}

TEST_F(ShapeKindsTest, leftAndRightChooseWhatUpAndDownMove) {
  ADSRContainer envelope;
  show(envelope, {"a", "d", "s", "r"});
  bench.tap(place(envelope, "a"));
  const struct {
    Key key;
    std::vector<float> after;
  } rows[] = {{Key::up, {0.01f, 0, 0, 0}},       {Key::pageUp, {0.11f, 0, 0, 0}},
              {Key::right, {0.11f, 0, 0, 0}},    {Key::end, {0.11f, 1, 0, 0}},
              {Key::down, {0.11f, 0.99f, 0, 0}}, {Key::pageDown, {0.11f, 0.89f, 0, 0}},
              {Key::left, {0.11f, 0.89f, 0, 0}}, {Key::home, {0, 0.89f, 0, 0}},
              {Key::left, {0, 0.89f, 0, 0}}};
  for (const auto& row : rows) {
    EXPECT_TRUE(bench.key(row.key));
    for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(values(envelope)[i], row.after[i], 1e-5) << i;
  }
  EXPECT_FALSE(bench.key(Key::escape)) << "what no control uses goes back to the host";
  EXPECT_FALSE(bench.key(Key::up, Modifiers::command));
  bench.key(Key::right);
  bench.key(Key::returnKey);
  EXPECT_EQ(owner.events.back(), "tap d");
}

TEST_F(ShapeKindsTest, theFourArrowsMoveTheOnePointOfAPad) {
  XYControlContainer pad;
  show(pad, {"x", "y"});
  showValue(pad, "x", 0.5f);
  showValue(pad, "y", 0.5f);
  bench.tap(place(pad, "x"));
  bench.key(Key::right);
  bench.key(Key::up);
  bench.key(Key::up);
  EXPECT_NEAR(valueOf(pad, "x"), 0.51f, 1e-5);
  EXPECT_NEAR(valueOf(pad, "y"), 0.52f, 1e-5);
  bench.key(Key::left);
  bench.key(Key::home);
  EXPECT_NEAR(valueOf(pad, "x"), 0.5f, 1e-5);
  EXPECT_EQ(valueOf(pad, "y"), 0);
}

TEST_F(ShapeKindsTest, aDoubleTapTellsTheKeyBelowTheFinger) {
  ADSRContainer envelope;
  show(envelope, {"a", "d", "s", "r"});
  for (const char* key : {"a", "d", "s", "r"}) showValue(envelope, key, 0.5f);
  doubleTap(place(envelope, "r"));
  EXPECT_THAT(owner.take(), ElementsAre("tap r"));
  StepSequencerContainer steps;
  show(steps, numbered(8));
  doubleTap(place(steps, "k5"));
  EXPECT_THAT(owner.take(), ElementsAre("tap k5"));
  MultipleContainer knobs;
  show(knobs, {"bass", "high"});
  doubleTap(place(knobs, "high"));
  EXPECT_THAT(owner.take(), ElementsAre("tap high"));
  // Of a point with two values, the one that was moved last.
  FilterViewContainer filter;
  show(filter, {"f", "r"});
  drag(place(filter, "f"), {0, -20});
  owner.take();
  doubleTap(place(filter, "f"));
  EXPECT_THAT(owner.take(), ElementsAre("tap r"));
}

TEST_F(ShapeKindsTest, whoeverIsToldOfADoubleTapMayAskWhatElseTheHandleMoves) {
  struct Case {
    std::shared_ptr<Container> container;
    const char* tapped;
    std::vector<std::size_t> handle;
  };
  for (const Case& k : {Case{std::make_shared<FilterViewContainer>(), "k0", {0, 1}},
                        Case{std::make_shared<XYControlContainer>(), "k1", {0, 1}},
                        Case{std::make_shared<DoubleFilterViewContainer>(), "k3", {2, 3}},
                        Case{std::make_shared<ADSRContainer>(), "k0", {0}},
                        Case{std::make_shared<MultipleContainer>(), "k2", {2}}}) {
    Container& container = *k.container;
    const std::string kind = typeid(container).name();
    show(container, numbered(4));
    for (std::size_t i = 0; i < container.paramKeys().size(); ++i)
      container.showValue(i, 0.2f + 0.1f * static_cast<float>(i), "");
    bench.frame();
    bench.tap(place(container, k.tapped));
    owner.take();
    std::vector<std::size_t> handle;
    owner.then = [&] { handle = container.tappedIndices(); };
    doubleTap(place(container, k.tapped));
    EXPECT_EQ(handle, k.handle) << kind;
    handle.clear();
    bench.key(Key::returnKey);
    EXPECT_EQ(handle, k.handle) << kind;
    EXPECT_TRUE(container.tappedIndices().empty()) << kind;
    owner.then = nullptr;
    owner.take();
  }
}

TEST_F(ShapeKindsTest, oneStrokeDrawsEveryStepThatItPasses) {
  StepSequencerContainer steps;
  show(steps, numbered(8), {0, 0, 400, 100});
  const Point first = place(steps, "k0"), last = place(steps, "k7");
  const double bottom = first.y;
  bench.press({first.x, 50});
  const float middle = valueOf(steps, "k0");
  EXPECT_GT(middle, 0.3f) << "a touch draws at once";
  // In one leap, as a fast finger does.
  bench.drag({last.x, bottom});
  bench.lift({last.x, bottom});
  const std::vector<float> drawn = values(steps);
  for (std::size_t i = 1; i < 8; ++i) EXPECT_LT(drawn[i], drawn[i - 1]) << i;
  EXPECT_NEAR(drawn[4], middle * 3 / 7, 0.02);
  EXPECT_EQ(owner.events.front(), "[k0");
  EXPECT_EQ(std::count(owner.events.begin(), owner.events.end(), "]k7"), 1);
  EXPECT_EQ(std::count(owner.events.begin(), owner.events.end(), "v"), 2);
}

TEST_F(ShapeKindsTest, fingersOnSeveralHandlesDoNotFight) {
  SimpleCurveContainer curve;
  show(curve, {"p", "q", "r"});
  const Point p = place(curve, "p"), r = place(curve, "r");
  bench.press(p, 1);
  bench.press(r, 2);
  bench.press({p.x + 1, p.y}, 3);
  bench.drag({p.x, p.y - 30}, 1);
  bench.drag({r.x, r.y - 60}, 2);
  bench.drag({p.x, p.y - 90}, 3);
  EXPECT_NEAR(valueOf(curve, "r"), 2 * valueOf(curve, "p"), 1e-4) << "the third finger has nothing";
  bench.lift(p, 1);
  bench.lift(p, 3);
  bench.drag({r.x, r.y - 500}, 2);
  EXPECT_EQ(valueOf(curve, "r"), 1);
  bench.lift(r, 2);
  EXPECT_THAT(owner.take(), ElementsAre("[p", "[r", "v", "v", "]p", "v", "]r"));
}

TEST_F(ShapeKindsTest, theEndsOfARangeDoNotPassEachOther) {
  DoubleSliderContainer range;
  show(range, {"low", "high"}, {0, 0, 300, 40});
  showValue(range, "low", 0.2f);
  showValue(range, "high", 0.6f);
  drag(place(range, "low"), {500, 0});
  EXPECT_EQ(valueOf(range, "low"), 0.6f);
  showValue(range, "low", 0.2f);
  // Between the ends the whole range moves, as far as it can go.
  const Point low = place(range, "low"), high = place(range, "high");
  owner.take();
  drag({(low.x + high.x) / 2, low.y}, {500, 0});
  EXPECT_NEAR(valueOf(range, "low"), 0.6f, 1e-5);
  EXPECT_EQ(valueOf(range, "high"), 1);
  EXPECT_THAT(owner.take(), ElementsAre("[low", "[high", "v", "]low", "]high"));
  // A linked end takes the other along.
  range.setLinks({true, false});
  drag(place(range, "low"), {-500, 0});
  EXPECT_EQ(valueOf(range, "low"), 0);
  EXPECT_NEAR(valueOf(range, "high"), 0.4f, 1e-5);
  drag(place(range, "high"), {500, 0});
  EXPECT_EQ(valueOf(range, "low"), 0);
  // Both at the upper end: the lower one can still be fetched.
  range.setLinks({false, false});
  showValue(range, "low", 1);
  drag({place(range, "low").x + 1, low.y}, {-100, 0});
  EXPECT_LT(valueOf(range, "low"), 1);
  EXPECT_EQ(valueOf(range, "high"), 1);
}

TEST_F(ShapeKindsTest, aPadGoesToTheFingerAndItsSwitchesHaveTheirKeys) {
  XYControlContainer pad;
  show(pad, {"x", "padOnOff", "y", "padHold"});
  showValue(pad, "x", 0.5f);
  showValue(pad, "y", 0.5f);
  bench.tap({20, 20});
  EXPECT_LT(valueOf(pad, "x"), 0.2f);
  EXPECT_GT(valueOf(pad, "y"), 0.8f);
  EXPECT_EQ(valueOf(pad, "padOnOff"), 0);
  owner.take();
  bench.tap(place(pad, "padOnOff"));
  EXPECT_EQ(valueOf(pad, "padOnOff"), 1);
  EXPECT_EQ(valueOf(pad, "padHold"), 0);
  EXPECT_THAT(owner.take(), ElementsAre("[padOnOff", "v", "]padOnOff"));
}

TEST_F(ShapeKindsTest, timeStandsStillWhileThePadIsTouchedOrHeld) {
  TimeStopXYContainer pad;
  show(pad, {"x", "y", "OnOff", "Hold"});
  const auto isOn = [&] { return valueOf(pad, "OnOff") == 1; };
  const Point at{30, 100};
  bench.press(at);
  EXPECT_TRUE(isOn());
  bench.drag({-50, -50});
  EXPECT_TRUE(isOn()) << "outside the pad the finger still has it";
  bench.lift({-50, -50});
  EXPECT_FALSE(isOn());
  bench.press(at);
  const Point hold = place(pad, "Hold");
  bench.press(hold, 2);
  bench.lift(hold, 2);
  bench.lift(at);
  EXPECT_TRUE(isOn());
  bench.tap(place(pad, "Hold"));
  EXPECT_FALSE(isOn());
  // Let go of the switch while the finger is on the pad, it is the finger that holds.
  bench.press(at);
  for (int i = 0; i < 2; ++i) {
    bench.press(hold, 2);
    bench.lift(hold, 2);
    EXPECT_TRUE(isOn());
  }
  bench.lift(at);
  EXPECT_FALSE(isOn());
  // What the switch has turned on stays on.
  bench.tap(place(pad, "OnOff"));
  bench.tap(at);
  EXPECT_TRUE(isOn());
}

TEST_F(ShapeKindsTest, aMutedValueKeepsItsValue) {
  MutableContainer send;
  show(send, {"send", "mute"});
  showValue(send, "send", 0.5f, "-6 dB");
  showValue(send, "mute", 0, "Off");
  bench.tap(place(send, "mute"));
  EXPECT_EQ(values(send), (std::vector<float>{0.5f, 1}));
  EXPECT_TRUE(send.knob().isInactive());
  const toolkit::View& mute = *send.subviews().back();
  ASSERT_NE(dynamic_cast<const OnOffButton*>(&mute), nullptr);
  EXPECT_EQ(mute.accessibility().value, "On");
  EXPECT_EQ(send.knob().accessibility().value, "-6 dB");
  EXPECT_THAT(owner.take(), ElementsAre("[mute", "v", "]mute"));
  drag(send.knob().frameInRoot().centre(), {0, -20});
  EXPECT_THAT(owner.take(), ElementsAre("[send", "v", "]send"));
}

TEST_F(ShapeKindsTest, hoveringShowsTheValueOfTheHandle) {
  ADSRContainer envelope;
  envelope.setTitle("Envelope");
  show(envelope, {"a", "d", "s", "r"});
  for (const char* key : {"a", "d", "s", "r"})
    showValue(envelope, key, 0.5f, key + std::string("!"));
  bench.window.hovered(place(envelope, "r"));
  EXPECT_EQ(envelope.titleLabel().text(), "r r!");
  bench.window.hovered(place(envelope, "s"));
  EXPECT_EQ(envelope.titleLabel().text(), "d d!  s s!");
  showValue(envelope, "s", 0.5f, "now");
  EXPECT_EQ(envelope.titleLabel().text(), "d d!  s now");
  bench.window.hoverEnded();
  EXPECT_EQ(envelope.titleLabel().text(), "Envelope");
}

TEST_F(ShapeKindsTest, anInvertedValueIsShownReversedAndSetReversed) {
  SimpleCurveContainer curve;
  show(curve, {"p", "q"});
  curve.setInverted(true);
  EXPECT_LT(place(curve, "p").y, place(curve, "q").y);
  drag(place(curve, "p"), {0, 500});
  EXPECT_EQ(values(curve), (std::vector<float>{1, 0}));
}

TEST_F(ShapeKindsTest, namedValuesGoFromStepToStep) {
  StepSequencerContainer steps;
  show(steps, numbered(2));
  steps.setKeyRange(0, 0, 4);
  steps.setKeyStringValues(0, {"a", "b", "c", "d", "e"});
  bench.window.wheelTurned({place(steps, "k0"), 0, 0.6, Modifiers::none});
  EXPECT_EQ(valueOf(steps, "k0"), 0) << "half of a notch";
  bench.window.wheelTurned({place(steps, "k0"), 0, 0.6, Modifiers::none});
  EXPECT_EQ(valueOf(steps, "k0"), 0.25f);
  bench.press({place(steps, "k0").x, 75});
  EXPECT_EQ(std::fmod(valueOf(steps, "k0"), 0.25f), 0);
  bench.lift({0, 0});
}

TEST_F(ShapeKindsTest, aDragGoesOnFromWhereSomebodyElseHasPutTheValue) {
  XYControlContainer pad;
  show(pad, {"x", "y"}, {0, 0, 200, 200});
  for (const char* key : {"x", "y"}) showValue(pad, key, 0.5f);
  const Point at = handleOf(pad, "x").value();
  bench.press(at);
  bench.drag({at.x + 10, at.y});
  const float moved = valueOf(pad, "x") - 0.5f;
  EXPECT_GT(moved, 0.01f);
  showValue(pad, "x", 0.2f);
  bench.drag({at.x + 20, at.y});
  EXPECT_NEAR(valueOf(pad, "x"), 0.2f + moved, 1e-4);
  EXPECT_EQ(valueOf(pad, "y"), 0.5f);
  bench.lift({at.x + 20, at.y});
}

TEST_F(ShapeKindsTest, everyKindTakesAnyNumberOfKeysAndAnyNonsense) {
  for (const auto& maker : makers()) {
    for (const int count : {0, 1, 2, 3, 4, 6, 33}) {
      const std::shared_ptr<Container> container = maker();
      const Container& kind = *container;
      SCOPED_TRACE(testing::Message() << typeid(kind).name() << " with " << count);
      show(*container, numbered(count), {0, 0, 200, 120});
      for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        for (const auto& [low, high] : {std::pair{1.0f, 1.0f}, {NAN, NAN}, {-INFINITY, INFINITY}})
          container->setKeyRange(i, low, high);
        container->setKeyRange(i, -60, 12);
        container->setKeyStringValues(i, std::vector<std::string>(i % 2 ? 0 : 1000, "x"));
        container->setKeyRange(i, 5, 1);
        showValue(*container, "k" + std::to_string(i), i % 2 ? NAN : 1e9f);
      }
      container->setKeyRange(99, 0, 1);
      container->setKeyStringValues(99, {"x"});
      container->showValue(99, 1, "");
      EXPECT_EQ(container->value(99), 0);
      EXPECT_EQ(container->handlePlace(99), std::nullopt);
      container->setLinks(std::vector<bool>(50, true));
      container->updateModulation();
      bench.frame();
      bench.painted();
      for (const Point at : {Point{100, 60}, {1, 1}, {199, 60}}) {
        bench.press(at, 1);
        bench.press({at.x - 20, at.y}, 2);
        bench.drag({at.x + 40, at.y - 40}, 1);
        bench.drag({at.x, NAN}, 2);
        for (const Key key : {Key::up, Key::left, Key::end, Key::returnKey}) bench.key(key);
        bench.window.wheelTurned({at, 0, 3, Modifiers::none});
        bench.lift(at, 1);
        bench.lift(at, 2);
      }
      for (const float value : values(*container)) EXPECT_TRUE(std::isfinite(value));
      // As many holds as there were.
      loop.advance(1);
      int held = 0;
      for (const std::string& event : owner.take())
        held += event[0] == '[' ? 1 : event[0] == ']' ? -1 : 0;
      EXPECT_EQ(held, 0);
      for (const double side : {5.0, 12.0}) {
        container->setFrame({0, 0, side, side});
        bench.frame();
        bench.painted();
      }
      container->setParamKeys({});
      bench.frame();
    }
  }
}

TEST_F(ShapeKindsTest, anOwnerMayDestroyTheContainerAtAnyMoment) {
  for (const auto& maker : makers()) {
    for (int moment = 1; moment < 7; ++moment) {
      std::shared_ptr<Container> container = maker();
      const Container& kind = *container;
      SCOPED_TRACE(testing::Message() << typeid(kind).name() << " at " << moment);
      show(*container, {"k0", "k1", "OnOff", "Hold"}, {0, 0, 200, 120});
      int events = 0;
      owner.then = [&] {
        if (++events == moment) container.reset();
      };
      for (const Point at : {Point{40, 60}, Point{150, 30}}) {
        bench.press(at);
        bench.drag({at.x + 30, at.y - 20});
        bench.lift(at);
        doubleTap(at);
        bench.key(Key::up);
        bench.window.wheelTurned({at, 0, 2, Modifiers::none});
        loop.advance(1);
      }
      owner.then = nullptr;
      owner.take();
    }
  }
}

TEST_F(ShapeKindsTest, aDisabledShapeDoesNothing) {
  SimpleCurveContainer curve;
  show(curve, {"p", "q"});
  const Point at = place(curve, "p");
  bench.press(at);
  static_cast<toolkit::Control&>(*curve.subviews()[1]).setEnabled(false);
  EXPECT_THAT(owner.take(), ElementsAre("[p", "]p")) << "what was held is let go";
  bench.drag({at.x, at.y - 50});
  bench.lift(at);
  drag(at, {0, -50});
  EXPECT_FALSE(bench.window.wheelTurned({at, 0, 1, Modifiers::none}));
  EXPECT_THAT(owner.take(), ElementsAre());
}

TEST_F(ShapeKindsTest, aSmoothWheelTurnsStepsAsFarAsANotchedOne) {
  SimpleCurveContainer curve;
  show(curve, {"p"});
  curve.setKeyRange(0, 0, 10);
  curve.setKeyStringValues(0, std::vector<std::string>(11, "name"));
  const Point at = place(curve, "p");
  for (int i = 0; i < 10; ++i) bench.window.wheelTurned({at, 0, 0.25, {}});
  EXPECT_NEAR(valueOf(curve, "p"), 0.2f, 1e-5);
  EXPECT_NEAR(curve.shape()->accessibility().range->step, 0.1, 1e-6);
}

TEST_F(ShapeKindsTest, whatAnotherFingerHoldsIsNotDrawnOver) {
  StepSequencerContainer steps;
  show(steps, numbered(4), {0, 0, 400, 100});
  const Point second = place(steps, "k1"), last = place(steps, "k3");
  bench.press({second.x, 20}, 1);
  const float held = valueOf(steps, "k1");
  bench.press({last.x, 80}, 2);
  bench.drag({place(steps, "k0").x, 80}, 2);
  EXPECT_EQ(valueOf(steps, "k1"), held);
  EXPECT_LT(valueOf(steps, "k0"), held);
  EXPECT_EQ(std::count(owner.events.begin(), owner.events.end(), "[k1"), 1);
  bench.lift(second, 1);
  bench.lift(last, 2);
  bench.window.wheelTurned({second, 0, 1, {}});
  const float turned = valueOf(steps, "k1");
  bench.press({second.x, 80});
  EXPECT_LT(valueOf(steps, "k1"), turned) << "what the wheel has moved may be drawn";
  bench.lift({second.x, 80});
  // With Shift a step moves finely from where it is.
  bench.window.touchBegan(1, toolkit::Touch::Kind::mouse, {second.x, 50}, 1);
  const float before = valueOf(steps, "k1");
  bench.window.touchMoved(1, {second.x, 40}, Modifiers::shift);
  EXPECT_GT(valueOf(steps, "k1"), before);
  EXPECT_LT(valueOf(steps, "k1"), before + 0.03f);
  bench.lift({second.x, 40});
}

TEST_F(ShapeKindsTest, ofHandlesInOnePlaceTheUpperOneIsTaken) {
  DoubleFilterViewContainer filters;
  show(filters, {"lf", "lr", "hf", "hr"});
  for (const char* key : {"lf", "hf"}) showValue(filters, key, 0.5f);
  drag(place(filters, "lf"), {40, 0});
  EXPECT_EQ(valueOf(filters, "lf"), 0.5f);
  EXPECT_GT(valueOf(filters, "hf"), 0.5f);
  // Inverted, both ends stand at the left: the lower one can go right.
  DoubleSliderContainer range;
  show(range, {"low", "high"}, {0, 0, 300, 40});
  range.setInverted(true);
  for (const char* key : {"low", "high"}) showValue(range, key, 0.5f);
  const Point at = place(range, "low");
  drag({at.x + 1, at.y}, {40, 0});
  EXPECT_LT(valueOf(range, "low"), 0.5f);
  EXPECT_EQ(valueOf(range, "high"), 0.5f);
}

TEST_F(ShapeKindsTest, theWayBeyondAnEndDoesNotCount) {
  XYControlContainer pad;
  show(pad, {"x", "y"});
  for (const char* key : {"x", "y"}) showValue(pad, key, 0.5f);
  const Point at = place(pad, "x");
  bench.press(at);
  bench.drag({at.x + 900, at.y - 900});
  EXPECT_EQ(values(pad), (std::vector<float>{1, 1}));
  bench.drag({at.x + 860, at.y - 860});
  EXPECT_LT(valueOf(pad, "x"), 0.95f);
  EXPECT_LT(valueOf(pad, "y"), 0.95f);
  bench.lift(at);
}

TEST_F(ShapeKindsTest, aTremblingDoubleTapIsNoDrag) {
  SimpleCurveContainer curve;
  show(curve, {"p", "q"});
  const Point at = place(curve, "q");
  bench.window.touchBegan(1, toolkit::Touch::Kind::finger, at, 2);
  bench.drag({at.x + 2, at.y - 2});
  bench.lift({at.x + 2, at.y - 2});
  EXPECT_THAT(owner.take(), ElementsAre("tap q"));
  EXPECT_EQ(valueOf(curve, "q"), 0);
  // A tap means what it began on.
  StepSequencerContainer steps;
  show(steps, numbered(4), {0, 0, 400, 100});
  const double border = (place(steps, "k1").x + place(steps, "k2").x) / 2;
  bench.window.touchBegan(1, toolkit::Touch::Kind::finger, {border - 1, 50}, 2);
  bench.lift({border + 2, 50});
  EXPECT_THAT(owner.take(), ElementsAre("tap k1"));
}

}  // namespace
}  // namespace kestroui
