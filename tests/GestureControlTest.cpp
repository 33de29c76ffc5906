// One press, whatever kind of control it is on, and whatever those do who are told of it.

#include "KestroUI/GestureControl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

#include "KestroUI/CurveControls.h"
#include "KestroUI/Stepper.h"
#include "KestroUI/Switches.h"
#include "KestroUI/ValueContainers.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/WindowBench.h"

namespace kestroui {
namespace {

using toolkit::ControlEvent;

/// What happens, a letter each: small ones and brackets for actions, large ones for what the kind
/// is told. Outlives the control, so that nothing it is told after its death is lost.
struct Journal : platform::WeakTarget {
  void note(char what) {
    told += what;
    if (told.size() == stopsAt) then();
  }
  template <char What>
  void on() {
    note(What);
  }
  void listenTo(toolkit::Control& control) {
    control.addTarget<&Journal::on<'d'>>(*this, ControlEvent::touchDown);
    control.addTarget<&Journal::on<'m'>>(*this, ControlEvent::touchDragged);
    control.addTarget<&Journal::on<'u'>>(*this, ControlEvent::touchUpInside);
    control.addTarget<&Journal::on<'o'>>(*this, ControlEvent::touchUpOutside);
    control.addTarget<&Journal::on<'c'>>(*this, ControlEvent::touchCancelled);
    control.addTarget<&Journal::on<'['>>(*this, ControlEvent::editingDidBegin);
    control.addTarget<&Journal::on<'v'>>(*this, ControlEvent::valueChanged);
    control.addTarget<&Journal::on<']'>>(*this, ControlEvent::editingDidEnd);
  }
  std::string take() { return std::exchange(told, ""); }
  auto count(char what) const { return std::count(told.begin(), told.end(), what); }

  std::string told;
  std::size_t stopsAt = 0;
  std::function<void()> then;
};

class ProbeControl : public GestureControl {
 public:
  enum class Kind { shows, drags, isTyped };

  ProbeControl(Journal& journal, Kind kind) : journal_(journal), kind_(kind) {}

 protected:
  Grasp grasp(const toolkit::Touch& touch) override {
    if (kind_ == Kind::shows) return Grasp::nothing;
    return kind_ == Kind::isTyped && touch.tapCount == 2 ? Grasp::secondTap : Grasp::value;
  }
  void pressed(const toolkit::Touch&) override { journal_.note('P'); }
  void slid(const toolkit::Touch&) override { journal_.note('S'); }
  void letGo(int) override { journal_.note('L'); }
  void doubleTap(const toolkit::Touch&) override { journal_.note('T'); }
  void touchedNow() override { journal_.note(isTouched() ? '+' : '-'); }

 private:
  Journal& journal_;
  Kind kind_;
};

class GestureControlTest : public testing::Test {
 protected:
  using Kind = ProbeControl::Kind;

  void show(GestureControl& control) {
    bench.root().addSubview(control);
    control.setFrame({100, 100, 60, 60});
    journal.listenTo(control);
    bench.frame();
  }
  void makeProbe(Kind kind) {
    probe = std::make_unique<ProbeControl>(journal, kind);
    show(*probe);
    journal.told.clear();
  }
  void press(int tapCount = 1) {
    bench.window.touchBegan(1, toolkit::Touch::Kind::finger, {130, 130}, tapCount);
  }

  support::ManualLoop loop;
  support::WindowBench bench;
  Journal journal;
  std::unique_ptr<ProbeControl> probe;
};

TEST_F(GestureControlTest, tellsOfAPressInOneOrder) {
  const auto slide = [this] { bench.drag({130, 120}); };
  const auto tremble = [this] { bench.drag({130, 128}); };
  const auto drift = [this] { bench.drag({130, 125}); };
  const auto lift = [this] { bench.lift({130, 130}); };
  const auto liftOutside = [this] { bench.lift({300, 130}); };
  const auto cancel = [this] { bench.window.cancelTouches(); };
  const auto hide = [this] {
    probe->setHidden(true);
    bench.frame();
    bench.window.touchMoved(1, {130, 130});
  };
  const auto disable = [this] { probe->setEnabled(false); };
  const struct {
    const char* name;
    Kind kind;
    int tapCount;
    std::vector<std::function<void()>> steps;
    const char* told;
  } cases[] = {
      {"a tap", Kind::drags, 1, {lift}, "d[P+uL]-"},
      {"a drag", Kind::drags, 1, {slide, slide, lift}, "d[P+mSmSuL]-"},
      {"lifted outside", Kind::drags, 1, {liftOutside}, "d[P+oL]-"},
      {"taken away", Kind::drags, 1, {slide, cancel, slide, lift}, "d[P+mScL]-"},
      {"hidden", Kind::drags, 1, {hide, slide, lift}, "d[P+cL]-"},
      {"disabled", Kind::drags, 1, {disable, slide, lift}, "d[P+L]--"},
      {"nothing to take hold of", Kind::shows, 1, {slide, lift}, "d-mu-"},
      {"double tap", Kind::isTyped, 2, {tremble, lift}, "d+muL-T"},
      {"double tap taken away", Kind::isTyped, 2, {cancel}, "d+cL-"},
      {"double tap that is disabled", Kind::isTyped, 2, {disable, lift}, "d+L--"},
      {"double tap that drifts", Kind::isTyped, 2, {tremble, drift, lift}, "d+mm[PuL]-"},
      {"double tap that moves", Kind::isTyped, 2, {tremble, slide, slide, lift}, "d+mm[PmSuL]-"},
      {"second tap where it means nothing", Kind::drags, 2, {tremble, lift}, "d[P+mSuL]-"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    makeProbe(c.kind);
    press(c.tapCount);
    for (const auto& step : c.steps) step();
    EXPECT_EQ(journal.take(), c.told);
    EXPECT_FALSE(probe->isHighlighted());
    EXPECT_FALSE(probe->isInGesture());
  }
}

TEST_F(GestureControlTest, isToldNothingAfterItsDeath) {
  for (const int tapCount : {1, 2})
    for (const bool isCancelled : {false, true})
      for (journal.stopsAt = 1;; ++journal.stopsAt) {
        journal.then = [this] { probe.reset(); };
        makeProbe(Kind::isTyped);
        press(tapCount);
        if (tapCount == 1) bench.drag({130, 120});
        if (isCancelled)
          bench.window.cancelTouches();
        else
          bench.lift({130, 120});
        if (probe) break;
        EXPECT_EQ(journal.told.size(), journal.stopsAt) << journal.told;
      }
}

TEST_F(GestureControlTest, aShapeTellsNothingAfterItsDeath) {
  for (const bool isKeyed : {false, true})
    for (journal.stopsAt = 1;; ++journal.stopsAt) {
      auto curve = std::make_unique<SimpleCurveControl>();
      journal.then = [&] { curve.reset(); };
      curve->setValueCount(3);
      curve->setLinks({true, true, true});
      curve->holdChanged = [this](std::size_t, bool held) { journal.note(held ? '+' : '-'); };
      show(*curve);
      journal.told.clear();
      if (isKeyed) {
        bench.window.wheelTurned({{130, 130}, 0, 1, platform::Modifiers::none});
        loop.advance(1);
      } else {
        press();
        bench.drag({130, 120});
        bench.lift({130, 120});
      }
      if (curve) {
        EXPECT_EQ(journal.take(), isKeyed ? "[+++v---]" : "d[+++mvu---]");
        break;
      }
      EXPECT_EQ(journal.told.size(), journal.stopsAt) << journal.told;
    }
}

TEST_F(GestureControlTest, whoeverIsToldMayDisableIt) {
  for (const int tapCount : {1, 2})
    for (journal.stopsAt = 1;; ++journal.stopsAt) {
      bool isDisabled = false;
      journal.then = [&] {
        isDisabled = true;
        probe->setEnabled(false);
      };
      makeProbe(Kind::isTyped);
      press(tapCount);
      bench.drag({130, 120});
      bench.drag({130, 110});
      bench.lift({130, 120});
      if (!isDisabled) break;
      const std::string after = journal.told.substr(journal.stopsAt);
      EXPECT_EQ(after.find_first_of("PST"), std::string::npos) << journal.told;
      EXPECT_EQ(journal.count('L'), 1) << journal.told;
      EXPECT_EQ(journal.count('['), journal.count(']')) << journal.told;
      EXPECT_FALSE(probe->isHighlighted() || probe->isInGesture()) << journal.told;
      journal.told.clear();
      journal.then = [] {};
      probe->setEnabled(true);
      press();
      bench.lift({130, 130});
      EXPECT_EQ(journal.take(), "d[P+uL]-") << "the next press is as any other";
    }
}

TEST_F(GestureControlTest, aPressThatWasEndedStaysEndedWhileTheFingerIsDown) {
  Stepper stepper;
  stepper.setRange(0, 10);
  stepper.setStepCount(10);
  MomentaryButton button;
  for (KestroControl* const control :
       {static_cast<KestroControl*>(&stepper), static_cast<KestroControl*>(&button)}) {
    show(*control);
    bench.press({155, 130});
    EXPECT_EQ(control->value(), 1);
    control->setEnabled(false);
    control->setEnabled(true);
    const float left = control->value();
    loop.advance(2);
    bench.drag({130, 110});
    EXPECT_EQ(control->value(), left);
    bench.lift({130, 110});
    control->removeFromSuperview();
    control->setEnabled(false);
  }
  EXPECT_EQ(button.value(), 0) << "what is on while it is pressed goes off";
}

TEST_F(GestureControlTest, aKeyOnAButtonThatIsHeldLeavesItOn) {
  MomentaryButton button;
  show(button);
  bench.press({130, 130});
  bench.key(platform::Key::space);
  EXPECT_EQ(button.value(), 1);
  bench.lift({130, 130});
  EXPECT_EQ(journal.take(), "d[vuv]");
}

TEST_F(GestureControlTest, aGestureOfSeveralFingersEndsWithTheLast) {
  SimpleCurveControl curve;
  curve.setValueCount(3);
  curve.setLinks({true, true, false});
  show(curve);
  std::string holds;
  curve.holdChanged = [&](std::size_t index, bool held) {
    holds += (held ? '+' : '-') + std::to_string(index);
  };
  const platform::Point first = curve.convertToRoot(curve.placeOf(0));
  const platform::Point last = curve.convertToRoot(curve.placeOf(2));
  bench.press(first, 1);
  EXPECT_EQ(holds, "+0+1+2") << "a linked value holds all";
  bench.press(last, 2);
  bench.press(first, 3);
  bench.lift(first, 3);
  bench.lift(first, 1);
  EXPECT_EQ(holds, "+0+1+2-0-1") << "what the second finger has as well stays held";
  EXPECT_TRUE(curve.isInGesture());
  bench.lift(last, 2);
  EXPECT_EQ(holds, "+0+1+2-0-1-2");
  EXPECT_EQ(journal.count('['), 1);
  EXPECT_EQ(journal.count(']'), 1);

  holds.clear();
  curve.setLinks({});
  bench.window.wheelTurned({first, 0, 1, platform::Modifiers::none});
  bench.press(last);
  EXPECT_EQ(holds, "+0+2");
  bench.lift(last);
  EXPECT_EQ(holds, "+0+2-2-0") << "a press ends the burst of the wheel that it takes over";
}

TEST_F(GestureControlTest, handlesThatAreGoneAreNotHeld) {
  SimpleCurveControl curve;
  curve.setValueCount(3);
  show(curve);
  std::string holds;
  curve.holdChanged = [&](std::size_t index, bool held) {
    holds += (held ? '+' : '-') + std::to_string(index);
  };
  const auto end = [&](const std::function<void()>& ends) {
    curve.setValueCount(3);
    curve.setEnabled(true);
    holds.clear();
    const platform::Point at[] = {curve.convertToRoot(curve.placeOf(0)),
                                  curve.convertToRoot(curve.placeOf(2))};
    for (const int id : {0, 1}) bench.press(at[id], id);
    ends();
    curve.setEnabled(true);
    EXPECT_FALSE(curve.isInGesture());
    for (const int id : {0, 1}) bench.drag({at[id].x, at[id].y - 30}, id);
    EXPECT_EQ(curve.value(0) + curve.value(1) + curve.value(2), 0) << "nothing without a gesture";
    for (const int id : {0, 1}) bench.lift(at[id], id);
    return holds;
  };
  EXPECT_EQ(end([&] { curve.setValueCount(2); }), "+0+2-0-2");
  EXPECT_EQ(end([&] { curve.setEnabled(false); }), "+0+2-0-2");
  curve.setValueCount(3);
  curve.setLinks({true, true, true});
  holds.clear();
  curve.holdChanged = [&](std::size_t index, bool held) {
    holds += (held ? '+' : '-') + std::to_string(index);
    curve.setValueCount(1);
  };
  press();
  EXPECT_EQ(holds, "+0-0") << "cut by whoever is told of the first of three";
}

TEST_F(GestureControlTest, aDisabledControlEndsTheBurstOfItsWheel) {
  Stepper stepper;
  show(stepper);
  bench.window.wheelTurned({{130, 130}, 0, 1, platform::Modifiers::none});
  stepper.setEnabled(false);
  EXPECT_EQ(journal.take(), "[v]");
}

TEST_F(GestureControlTest, aPressOfASignIsNeitherADragNorADoubleTap) {
  Stepper stepper;
  stepper.setRange(0, 10);
  stepper.setStepCount(10);
  stepper.doubleTapped = [] { FAIL(); };
  show(stepper);
  for (const int tapCount : {1, 2}) {
    bench.window.touchBegan(1, toolkit::Touch::Kind::finger, {155, 130}, tapCount);
    if (tapCount == 1) bench.drag({155, 30});
    EXPECT_EQ(stepper.value(), static_cast<float>(tapCount));
    bench.lift({155, 130});
  }
}

TEST_F(GestureControlTest, isNamedByItsContainerUnlessItHasAName) {
  KnobContainer container;
  container.setTitle("Cutoff");
  container.showValue(0, 0.5f, "632 Hz");
  EXPECT_EQ(container.knob().accessibility().name, "Cutoff");
  EXPECT_EQ(container.knob().accessibility().value, "632 Hz");
  container.knob().setAccessibilityLabel("Own");
  EXPECT_EQ(container.knob().accessibility().name, "Own");
}

TEST_F(GestureControlTest, aShapeMayBeDestroyedByWhoeverShowsWhatIsActive) {
  auto curve = std::make_unique<SimpleCurveControl>();
  curve->setValueCount(1);
  show(*curve);
  curve->setText(0, "0.1");
  curve->activeChanged = [&] { curve.reset(); };
  bench.window.wheelTurned({{130, 130}, 0, 1, platform::Modifiers::none});
  EXPECT_EQ(curve, nullptr);
  EXPECT_EQ(journal.take(), "[");
}

}  // namespace
}  // namespace kestroui
