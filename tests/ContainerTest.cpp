#include "KestroUI/Container.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/ChoiceContainers.h"
#include "KestroUI/MultipleContainer.h"
#include "KestroUI/MutableContainer.h"
#include "KestroUI/ValueContainers.h"
#include "tests/support/KeyedValues.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/ShapeKinds.h"
#include "tests/support/WindowBench.h"

namespace kestroui {
namespace {

using testing::ElementsAre;
using ValueForm = Container::ValueForm;

using support::keys;

/// One of every kind.
std::vector<std::shared_ptr<Container>> everyKind() {
  std::vector<std::shared_ptr<Container>> all = {
      std::make_shared<KnobContainer>(),         std::make_shared<SliderContainer>(),
      std::make_shared<OnOffContainer>(),        std::make_shared<RecContainer>(),
      std::make_shared<RadioContainer>(false),   std::make_shared<RadioContainer>(true),
      std::make_shared<StepperContainer>(),      std::make_shared<DropDownListContainer>(),
      std::make_shared<WaveformKnobContainer>(), std::make_shared<SimpleButtonContainer>(),
      std::make_shared<SimpleLabelContainer>(),  std::make_shared<LEDViewContainer>(),
      std::make_shared<MultipleContainer>(),     std::make_shared<BitFlagsGroupContainer>(),
      std::make_shared<TimeStopXYContainer>(),   std::make_shared<MutableContainer>(),
  };
  for (const support::ShapeKind& kind : support::shapeKinds()) all.push_back(kind.make());
  for (const std::shared_ptr<Container>& container : all) {
    container->setParamKeys(keys({"own", "second", "theHold"}));
    container->setTitle("A rather long title");
    container->setStringValues({"Sine", "Triangle", "A long name of a value"});
    container->setValueRange(0, 2);
  }
  return all;
}

class ContainerTest : public testing::Test {
 protected:
  void show(Container& container, const platform::Rect& frame) {
    bench.root().addSubview(container);
    container.setFrame(frame);
    owner.listenTo(container);
    bench.frame();
  }
  void doubleTap(platform::Point at) {
    bench.tap(at);
    bench.window.touchBegan(1, toolkit::Touch::Kind::finger, at, 2);
    bench.lift(at);
  }
  bool paints(const std::string& line) {
    bench.frame();
    const std::vector<std::string> painted = bench.painted();
    return std::find(painted.begin(), painted.end(), line) != painted.end();
  }

  support::ManualLoop loop;
  support::WindowBench bench;
  support::ContainerOwner owner;
};

TEST_F(ContainerTest, kindsThatChooseHoldRawValuesAndTheOthersPositions) {
  EXPECT_EQ(RadioContainer().valueForm(0), ValueForm::raw);
  EXPECT_EQ(StepperContainer().valueForm(0), ValueForm::raw);
  EXPECT_EQ(DropDownListContainer().valueForm(0), ValueForm::raw);
  EXPECT_EQ(BitFlagsGroupContainer().valueForm(0), ValueForm::raw);
  EXPECT_EQ(KnobContainer().valueForm(0), ValueForm::position);
  EXPECT_EQ(OnOffContainer().valueForm(0), ValueForm::position);
  OscilloscopeContainer scope;
  scope.setParamKeys(keys({"own", "second"}));
  EXPECT_EQ(scope.valueForm(0), ValueForm::raw);
  EXPECT_EQ(scope.valueForm(1), ValueForm::position);
}

TEST_F(ContainerTest, rawKindsShowTheValueItself) {
  DropDownListContainer list;
  list.setValueRange(0, 7);
  list.setStringValues({"a", "b", "c", "d", "e", "f", "g", "h"});
  list.showValue(0, 3, "d");
  EXPECT_EQ(list.value(), 3);
  StepperContainer stepper;
  stepper.setValueRange(-24, 24);
  stepper.showValue(0, -12, "-12");
  EXPECT_EQ(stepper.value(), -12);
  RadioContainer unnamed;
  unnamed.setValueRange(1, 4);
  EXPECT_EQ(unnamed.buttons().titles(), (std::vector<std::string>{"1", "2", "3", "4"}));
}

TEST_F(ContainerTest, aGestureReachesTheDelegateAroundItsChanges) {
  KnobContainer knob;
  knob.setParamKeys(keys({"cutoff"}));
  knob.setTitle("Cutoff");
  show(knob, {100, 100, 80, 90});
  bench.press({140, 135});
  bench.drag({140, 115});
  bench.lift({140, 115});
  EXPECT_THAT(owner.take(), ElementsAre("[cutoff", "v", "]cutoff"));
  EXPECT_NEAR(knob.value(), 0.1f, 1e-5);
  doubleTap({140, 135});
  EXPECT_THAT(owner.take(), ElementsAre("[cutoff", "]cutoff", "tap cutoff"));
  knob.showValue(0, 0.4f, "40 Hz");
  knob.showValue(1, 0.9f, "90 Hz");
  EXPECT_EQ(knob.value(), 0.4f);
  EXPECT_TRUE(owner.take().empty()) << "showing is not sending";
}

TEST_F(ContainerTest, aDoubleTapMayDestroyTheContainer) {
  auto knob = std::make_unique<KnobContainer>();
  show(*knob, {100, 100, 80, 90});
  owner.then = [&] {
    if (owner.events.back().starts_with("tap")) knob.reset();
  };
  doubleTap({140, 135});
  EXPECT_EQ(knob, nullptr);
  EXPECT_EQ(owner.events.back(), "tap nothing");
}

TEST_F(ContainerTest, theTitleGivesWayToTheValueWhileItIsMovedOrHovered) {
  KnobContainer knob;
  knob.setParamKeys(keys({"cutoff"}));
  knob.setTitle("Cutoff");
  show(knob, {100, 100, 80, 90});
  knob.showValue(0, 0.5f, "632 Hz");
  EXPECT_TRUE(paints("text Cutoff"));
  bench.window.hovered({140, 135});
  EXPECT_TRUE(paints("text 632 Hz"));
  bench.window.hoverEnded();
  EXPECT_TRUE(paints("text Cutoff"));
  bench.press({140, 135});
  EXPECT_TRUE(paints("text 632 Hz"));
  knob.showValue(0, 0.6f, "1.1 kHz");
  EXPECT_TRUE(paints("text 1.1 kHz"));
  bench.lift({140, 135});
  EXPECT_TRUE(paints("text Cutoff"));
  knob.setDisplayTitle(false);
  EXPECT_FALSE(paints("text Cutoff"));
}

TEST_F(ContainerTest, knobsStepThroughNamedValuesAndFillFromTheCentreOfSymmetricalRanges) {
  KnobContainer knob;
  knob.setValueRange(0, 4);
  EXPECT_EQ(knob.knob().stepCount(), 0);
  knob.setStringValues({"a", "b", "c", "d", "e"});
  EXPECT_EQ(knob.knob().stepCount(), 4);
  EXPECT_EQ(knob.knob().origin(), 0);
  knob.setStringValues({});
  knob.setValueRange(-12, 12);
  EXPECT_EQ(knob.knob().stepCount(), 0);
  EXPECT_EQ(knob.knob().origin(), 0.5f);
  knob.setValueRange(-60, 12);
  EXPECT_EQ(knob.knob().origin(), 0);
}

TEST_F(ContainerTest, theKnobsOfAMultipleContainerKeepTheirOwnKeys) {
  MultipleContainer multiple;
  multiple.setParamKeys(keys({"bass", "mid", "high"}));
  show(multiple, {0, 0, 240, 90});
  showValue(multiple, "mid", 0.5f, "0 dB");
  EXPECT_EQ(valueOf(multiple, "mid"), 0.5f);
  EXPECT_EQ(valueOf(multiple, "bass"), 0);
  ASSERT_NE(multiple.subContainer("high"), nullptr);
  const platform::Point at = multiple.subContainer("high")->control()->frameInRoot().centre();
  bench.press(at);
  bench.drag({at.x, at.y - 100});
  bench.lift(at);
  EXPECT_THAT(owner.take(), ElementsAre("[high", "v", "]high"));
  EXPECT_NEAR(valueOf(multiple, "high"), 0.5f, 1e-5);
  doubleTap(at);
  EXPECT_EQ(owner.events.back(), "tap high");
  EXPECT_EQ(multiple.subContainer("low"), nullptr);
}

TEST_F(ContainerTest, aFilterViewPlacesItsFrequencyInPitchAndKeepsItsResonance) {
  FilterViewContainer filter;
  filter.setParamKeys(keys({"frequency", "resonance"}));
  filter.setKeyRange(1, -20, 20);
  showValue(filter, "frequency", 0.5f);
  EXPECT_NEAR(filter.filterView().frequency(), 632.46f, 0.1f);
  filter.filterView().setFrequency(1000);
  EXPECT_NEAR(valueOf(filter, "frequency"), 0.566f, 0.001f);
  showValue(filter, "resonance", -6);
  EXPECT_EQ(valueOf(filter, "resonance"), -6);
  EXPECT_EQ(filter.valueForm(1), ValueForm::raw);
  show(filter, {0, 0, 200, 100});
  bench.press({50, 50});
  bench.drag({50, -300});
  bench.lift({50, -300});
  EXPECT_EQ(filter.filterView().resonance(), 20);
}

TEST_F(ContainerTest, aLightFollowsTheLiveValue) {
  LEDViewContainer led;
  std::atomic<float> live{12};
  led.watchedValues = {&live};
  led.positionOfValue = [](std::size_t, float value) { return value / 24; };
  led.updateModulation();
  EXPECT_EQ(led.value(), 0.5f);
  live = 24;
  led.allowModulation = false;
  led.updateModulation();
  EXPECT_EQ(led.value(), 0.5f);
}

TEST_F(ContainerTest, theControlColourWinsOverTheColours) {
  const auto red = platform::Color::rgb(0xff0000), blue = platform::Color::rgb(0x0000ff);
  KnobContainer knob;
  knob.setColors({blue, red});
  EXPECT_EQ(knob.knob().accentColor(), blue);
  knob.setControlColor(red);
  knob.setColors({blue});
  EXPECT_EQ(knob.knob().accentColor(), red);
}

/// Fails for text that leaves the view that paints it and for shapes that are no numbers.
class StrictCanvas : public support::LogCanvas {
 public:
  explicit StrictCanvas(const platform::Rect& bounds) : bounds_(bounds) {}

  void fillRoundedRect(const platform::Rect& r, double, const platform::Paint&) override {
    check(r);
  }
  void fillEllipse(const platform::Rect& r, const platform::Paint&) override { check(r); }
  void drawText(std::string_view text, const platform::Font& font, const platform::Rect& r,
                platform::TextAlignment, platform::Color, double) override {
    check(r);
    EXPECT_TRUE(bounds_.inset(-0.01, -0.01).contains(r)) << text;
    EXPECT_GE(r.width, 0) << text;
    EXPECT_GT(font.pointSize, 0) << text;
    EXPECT_LE(font.pointSize, bounds_.height + 0.01) << text;
  }

 private:
  void check(const platform::Rect& r) {
    EXPECT_TRUE(std::isfinite(r.x + r.y + r.width + r.height));
  }

  platform::Rect bounds_;
};

void paintAll(toolkit::View& view) {
  StrictCanvas canvas(view.bounds());
  view.paint(canvas);
  for (toolkit::View* subview : view.subviews()) {
    if (subview->isHidden() || subview->bounds().isEmpty()) continue;
    EXPECT_TRUE(view.bounds().inset(-0.01, -0.01).contains(subview->frame()));
    paintAll(*subview);
  }
}

TEST_F(ContainerTest, everyKindFitsIntoEverySize) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double sides[] = {0, 1, 5, 12, 20, 40, 80, 160, 400};
  for (const std::shared_ptr<Container>& container : everyKind()) {
    bench.root().addSubview(*container);
    for (double ratio : {1.0, 2.5, 5.0}) {
      container->setLabelHRatio(ratio);
      for (double width : sides) {
        for (double height : sides) {
          const Container& kind = *container;
          SCOPED_TRACE(testing::Message() << typeid(kind).name() << ' ' << width << " x " << height
                                          << " at " << ratio);
          container->setFrame({0, 0, width, height});
          bench.frame();
          if (width > 0 && height > 0) paintAll(*container);
        }
      }
    }
    container->setFrame({0, 0, nan, nan});
    bench.frame();
    container->setFrame({nan, 0, 50, nan});
    bench.frame();
    bench.painted();
    container->removeFromSuperview();
  }
}

TEST_F(ContainerTest, smallSquaresShowTheirControlAlone) {
  OnOffContainer light;
  light.setTitle("On");
  show(light, {0, 0, 26, 26});
  EXPECT_FALSE(paints("text On"));
  EXPECT_TRUE(light.titleLabel().isHidden());
  EXPECT_GT(light.button().bounds().height, 22);
  light.setFrame({0, 0, 60, 60});
  EXPECT_TRUE(paints("text On"));
}

TEST_F(ContainerTest, anIdleEditorRepaintsNothing) {
  auto all = everyKind();
  for (const std::shared_ptr<Container>& container : all) show(*container, {0, 0, 100, 80});
  bench.frame();
  for (const std::shared_ptr<Container>& container : all) {
    container->showValue(0, container->value(), "text");
    container->setInactive(false);
    container->setLabelHRatio(1);
    container->updateModulation();
  }
  bench.frame();
  const auto painted = bench.window.paintedViews();
  for (const std::shared_ptr<Container>& container : all)
    container->showValue(0, container->value(), "text");
  EXPECT_TRUE(bench.frame().empty());
  EXPECT_EQ(bench.window.paintedViews(), painted);
}

TEST_F(ContainerTest, aPluginsOwnControlMayHaveMarginsAndAnIcon) {
  DropDownListContainer list;
  list.setTitle("List");
  show(list, {0, 0, 100, 120});
  const double line = list.titleLabel().frame().midY();
  list.setMargins(30, 20);
  bench.frame();
  EXPECT_NEAR(list.titleLabel().frame().midY(), line - 20, 0.01);
  const auto face = [&] { return list.control()->frame(); };
  EXPECT_GE(face().y, 30);
  EXPECT_LE(face().maxY(), list.titleLabel().frame().y);
  EXPECT_NEAR(face().midY(), (30 + list.titleLabel().frame().y) / 2, 4) << "in the middle";
  platform::Path icon;
  icon.addRect({0, 0, 1, 1});
  list.setIconPath(icon);
  EXPECT_FALSE(paints("text List"));
  EXPECT_FALSE(list.iconLayer().isHidden());
  list.showValue(0, 0, "Zero");
  bench.window.hovered({50, 60});
  EXPECT_TRUE(paints("text Zero")) << "the value takes its place";
  EXPECT_TRUE(list.iconLayer().isHidden());
}

TEST_F(ContainerTest, namesThatAreGivenStay) {
  RadioContainer radio;
  radio.setStringValues({"Sine", "Saw"});
  radio.setValueRange(0, 1);
  EXPECT_EQ(radio.buttons().titles(), (std::vector<std::string>{"Sine", "Saw"}));
  SimpleLabelContainer label;
  show(label, {0, 0, 100, 40});
  label.setTitle("Tempo");
  EXPECT_TRUE(paints("text Tempo"));
  label.showValue(0, 0.5f, "120 bpm");
  label.setTitle("Speed");
  EXPECT_TRUE(paints("text 120 bpm"));
  RecContainer rec;
  rec.setValueRange(0, 1);
  EXPECT_EQ(rec.button().stepCount(), 1);
  rec.setValueRange(1, 3);
  EXPECT_EQ(rec.button().stepCount(), 2);
}

TEST_F(ContainerTest, textsGrowWithTheEditorOnlyWhereItIsLargeBothWays) {
  toolkit::View root;
  const std::pair<platform::Size, bool> cases[] = {
      {{1024, 720}, false}, {{2560, 720}, false}, {{480, 1440}, false}, {{2560, 1600}, true}};
  for (const auto& [size, grows] : cases) {
    root.setFrame({0, 0, size.width, size.height});
    EXPECT_EQ(textScaleIn(root) > 1, grows) << size.width << " x " << size.height;
  }
}

}  // namespace
}  // namespace kestroui
