// What musicians read off the controls: values, live values, what is chosen and what is measured
// stand where they belong.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "KestroUI/ChoiceContainers.h"
#include "KestroUI/KestroButtons.h"
#include "KestroUI/MultipleContainer.h"
#include "KestroUI/MutableContainer.h"
#include "KestroUI/ValueContainers.h"
#include "tests/support/Drawing.h"
#include "tests/support/KeyedValues.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/ShapeKinds.h"

namespace kestroui {
namespace {

using platform::Point;
using platform::Rect;
using support::Drawing;
using Kind = Drawing::Kind;

constexpr double near = 0.01;

using support::Keys;
using support::keys;
using support::ShapeKind;
using support::shapeKinds;

/// The second key is inverted by its own settings.
Keys keysWithAnInvertedOne() {
  Keys result = keys({"first", "second", "third"});
  ParameterUISettings settings("Second name", nullptr);
  settings.inverted = true;
  result[1] = std::make_shared<ParamKey>("second", settings);
  return result;
}

const platform::Color accent = platform::Color::rgb(0x10a0e0);

class ControlPicturesTest : public testing::Test {
 protected:
  template <class Shown>
  Shown& show(Shown& view, const Rect& frame = {0, 0, 300, 200}) {
    bench.root().addSubview(view);
    view.setFrame(frame);
    bench.frame();
    return view;
  }
  void show(ShapeContainer& container, const std::vector<std::string>& names,
            const Rect& frame = {0, 0, 300, 200}) {
    container.setParamKeys(keys(names));
    container.setControlColor(accent);
    show(container, frame);
  }
  static ShapeControl& faceOf(const ShapeContainer& container) {
    return const_cast<ShapeControl&>(*container.shape());
  }
  static Point placeOf(const ShapeContainer& container, const std::string& key) {
    return container.shape()->placeOf(*container.indexOf(key));
  }
  /// A live value for a key, in positions.
  void modulate(Container& container, std::size_t index, float value) {
    live.push_back(std::make_unique<std::atomic<float>>(value));
    container.watch(index, live.back().get(), &modulating);
    container.updateModulation();
  }

  support::ManualLoop loop;
  support::WindowBench bench;
  std::vector<std::unique_ptr<std::atomic<float>>> live;
  std::atomic<bool> modulating{true};
};

// Knobs and sliders

/// Where the white line of a slider's handle is; `mark` is the last shape of its picture.
Point handleOf(Slider& slider) { return Drawing(slider).shapes.back().area.centre(); }

/// The direction of a knob's pointer from its centre, clockwise from twelve o'clock.
double angleOf(Point point, Point centre) {
  return std::atan2(point.x - centre.x, centre.y - point.y);
}

TEST_F(ControlPicturesTest, AKnobTurnsClockwiseUnlessItIsInverted) {
  for (const bool inverted : {false, true}) {
    Knob knob;
    show(knob, {0, 0, 60, 60});
    knob.setInverted(inverted);
    std::vector<double> angles;
    for (const float value : {0.2f, 0.6f}) {
      knob.setValue(value);
      const Drawing picture(knob);
      angles.push_back(angleOf(picture.shapes.back().points.back(),
                               picture.all(Kind::ellipse).front().area.centre()));
    }
    EXPECT_EQ(angles[1] > angles[0], !inverted);
  }
}

TEST_F(ControlPicturesTest, TheLiveMarkStandsWhereTheHandleWouldAtThatValue) {
  for (const bool inverted : {false, true}) {
    Slider slider;
    show(slider, {0, 0, 30, 200});
    slider.setInverted(inverted);
    slider.setValue(0.7f);
    const Point there = handleOf(slider);
    slider.setValue(0.2f);
    slider.setModulated(true);
    slider.setModulatedValue(0.7f);
    const auto marks = Drawing(slider).all(Kind::rounded, Theme::white);
    ASSERT_EQ(marks.size(), 1u);
    EXPECT_NEAR(marks[0].area.midY(), there.y, near);

    Knob knob;
    show(knob, {0, 200, 60, 60});
    knob.setInverted(inverted);
    knob.setValue(0.7f);
    const Drawing turned(knob);
    const Point centre = turned.all(Kind::ellipse).front().area.centre();
    const double angle = angleOf(turned.shapes.back().points.back(), centre);
    knob.setValue(0.2f);
    knob.setModulated(true);
    knob.setModulatedValue(0.7f);
    const auto dots = Drawing(knob).all(Kind::ellipse, Theme::white);
    ASSERT_EQ(dots.size(), 1u);
    EXPECT_NEAR(angleOf(dots[0].area.centre(), centre), angle, near);
  }
}

TEST_F(ControlPicturesTest, NothingIsFilledAtTheValueThatFillsStartFrom) {
  for (const bool inverted : {false, true})
    for (const float origin : {0.0f, 0.25f, 0.5f}) {
      Slider slider;
      Knob knob;
      for (DragControl* const control : std::vector<DragControl*>{&slider, &knob}) {
        control->setFrame({0, 0, 40, 120});
        control->setAccentColor(accent);
        control->setInverted(inverted);
        control->setOrigin(origin);
        control->setValue(origin);
      }
      EXPECT_TRUE(Drawing(slider).all(Kind::rounded, accent).empty()) << origin << inverted;
      EXPECT_TRUE(Drawing(knob).all(Kind::stroke, accent).empty()) << origin << inverted;
      slider.setValue(origin + 0.5f);
      knob.setValue(origin + 0.5f);
      EXPECT_EQ(Drawing(slider).all(Kind::rounded, accent).size(), 1u);
      EXPECT_EQ(Drawing(knob).all(Kind::stroke, accent).size(), 1u);
    }
}

TEST_F(ControlPicturesTest, TheHandleOfASliderFollowsTheFingerExactly) {
  for (const bool inverted : {false, true})
    for (const bool upright : {false, true}) {
      Slider slider;
      show(slider, upright ? Rect{0, 0, 40, 250} : Rect{0, 0, 250, 40});
      slider.setRange(-1, 3);
      slider.setInverted(inverted);
      slider.setValue(0.5f);
      const Point at = handleOf(slider), way = upright ? Point{0, 60} : Point{60, 0};
      bench.press(at);
      bench.drag(at + way);
      const Point there = handleOf(slider);
      // The track keeps a point free at each end.
      EXPECT_NEAR(there.x, (at + way).x, 1) << inverted << upright;
      EXPECT_NEAR(there.y, (at + way).y, 1) << inverted << upright;
      bench.lift(at + way);
      slider.removeFromSuperview();
    }
}

TEST_F(ControlPicturesTest, AWaveformKnobShowsTheWaveOfItsValueHoweverItIsTurned) {
  WaveformKnobContainer container;
  container.setValueRange(0, 3);
  container.setStringValues({"Sine", "Vocal", "Square", "Other"});
  show(container, {0, 0, 80, 80});
  WaveformKnob& knob = container.knob();
  knob.setInverted(true);
  const std::pair<float, std::string> cases[] = {{0.4f, "Vocal"}, {0.9f, "Other"}};
  for (const auto& [value, text] : cases) {
    knob.setValue(value);
    EXPECT_TRUE(Drawing(knob).says(text));
  }
  knob.setValue(0);
  EXPECT_TRUE(Drawing(knob).all(Kind::text).empty()) << "a sine is drawn";
}

TEST_F(ControlPicturesTest, EveryKnobOfAGroupIsAControlOfItsOwn) {
  MultipleContainer group;
  group.setParamKeys(keysWithAnInvertedOne());
  show(group, {0, 0, 300, 100});
  const auto& knobs = group.subContainers();
  modulate(group, 1, 0.25f);
  EXPECT_FALSE(knobs[0]->knob().isModulated());
  EXPECT_TRUE(knobs[1]->knob().isModulated());
  EXPECT_EQ(knobs[1]->knob().modulatedValue(), 0.25f);
  EXPECT_EQ(knobs[0]->title(), "first");
  EXPECT_EQ(knobs[1]->title(), "Second name");
  for (const bool inverted : {false, true}) {
    group.setInverted(inverted);
    EXPECT_EQ(knobs[0]->knob().isInverted(), inverted);
    EXPECT_TRUE(knobs[1]->knob().isInverted()) << "by its own settings";
    EXPECT_FALSE(knobs[2]->knob().isInverted());
  }
  group.setKeyRange(2, -12, 12);
  group.setKeyStringValues(1, {"a", "b", "c"});
  EXPECT_EQ(knobs[0]->knob().origin(), 0);
  EXPECT_EQ(knobs[2]->knob().origin(), 0.5f);
  EXPECT_EQ(knobs[1]->knob().stepCount(), 2);
  EXPECT_EQ(knobs[0]->knob().stepCount(), 0);
}

TEST_F(ControlPicturesTest, ALightGetsQuiteDarkAndQuiteBright) {
  LED led;
  led.setFrame({0, 0, 40, 40});
  for (const float end : {0.0f, 1.0f}) {
    led.setValue(end == 0 ? 0.003f : 0.997f);
    led.setValue(end);
    EXPECT_EQ(led.value(), end);
  }
}

// Switches, buttons, lists

TEST_F(ControlPicturesTest, ASwitchShowsWhichWayItIs) {
  OnOffButton named({"Free", "Sync"}), pill;
  named.setFrame({0, 0, 80, 30});
  pill.setFrame({0, 0, 80, 30});
  const auto thumb = [&] { return Drawing(pill).all(Kind::ellipse).back().area.midX(); };
  EXPECT_TRUE(Drawing(named).says("Free"));
  EXPECT_LT(thumb(), 40);
  named.setOn(true);
  pill.setOn(true);
  EXPECT_TRUE(Drawing(named).says("Sync"));
  EXPECT_GT(thumb(), 40);

  RecButton rec;
  rec.setStepCount(2);
  rec.setTitles({"Stop", "Arm", "Run"});
  rec.setFrame({0, 0, 120, 30});
  const std::pair<float, std::string> states[] = {{0, "Stop"}, {0.5f, "Arm"}, {1, "Run"}};
  for (const auto& [value, text] : states) {
    rec.setValue(value);
    EXPECT_TRUE(Drawing(rec).says(text)) << text;
  }
}

TEST_F(ControlPicturesTest, TheChosenButtonIsTheLitOne) {
  RadioButtons radio({"a", "b", "c"});
  radio.setRange(4, 6);
  radio.setFrame({0, 0, 180, 22});
  radio.setAccentColor(accent);
  BitFlagsGroup flags;
  flags.setTitles({"a", "b", "c"});
  flags.setFrame({0, 0, 180, 22});
  flags.setAccentColor(accent);
  const auto lit = [](toolkit::View& view) {
    std::string result;
    const Drawing picture(view);
    const auto cells = picture.all(Kind::rounded);
    const auto texts = picture.all(Kind::text);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      EXPECT_TRUE(cells[i].area.contains(texts[i].area.centre()));
      if (!(cells[i].color == cells[(i + 1) % 3].color) &&
          !(cells[i].color == cells[(i + 2) % 3].color))
        result += texts[i].text;
    }
    return result;
  };
  radio.setValue(5);
  EXPECT_EQ(lit(radio), "b");
  radio.setValue(6);
  EXPECT_EQ(lit(radio), "c");
  flags.setValue(4);
  EXPECT_EQ(lit(flags), "c");
  flags.setValue(6);
  EXPECT_EQ(lit(flags), "a") << "the one that is off";
}

// Shapes

TEST_F(ControlPicturesTest, EveryHandleStaysOnItsFace) {
  for (const ShapeKind& kind : shapeKinds())
    for (const float value : {0.0f, 0.3f, 0.6f, 0.8f, 1.0f})
      for (const bool inverted : {false, true}) {
        SCOPED_TRACE(testing::Message() << kind.name << " at " << value);
        const auto container = kind.shown(value);
        container->setInverted(inverted);
        show(*container);
        const Rect face = container->shape()->bounds();
        for (const std::string& key : kind.keys())
          EXPECT_TRUE(face.inset(-near, -near).contains(placeOf(*container, key))) << key;
      }
}

TEST_F(ControlPicturesTest, ADragMovesTheKeyUnderTheFingerAlone) {
  for (const ShapeKind& kind : shapeKinds())
    for (std::size_t i = 0; i < kind.keys().size(); ++i) {
      const char does = kind.drags[i];
      const std::string key = kind.keys()[i];
      if (does == '-') continue;
      SCOPED_TRACE(kind.name + (" " + key));
      const auto container = kind.shown(0.4f);
      // In the order that limits ask for.
      for (const char* last :
           {"end", "loopEnd", "high", "highFreq", "MidHighFrequency", "lf", "threshold2", "ratio2"})
        if (container->indexOf(last)) showValue(*container, last, 0.8f);
      show(*container);
      support::ContainerOwner owner;
      owner.listenTo(*container);
      std::vector<float> before;
      for (std::size_t k = 0; k < kind.keys().size(); ++k) before.push_back(container->value(k));
      const bool sideways = does == 'x' || does == 'r';
      const Point way = sideways ? Point{12, 0} : Point{0, does == 'd' ? 12.0 : -12.0};
      const Point at = placeOf(*container, key),
                  origin = container->shape()->frameInRoot().origin();
      bench.press(origin + at);
      bench.drag(origin + at + way);
      if (does == 'x' || does == 'y') {
        const Point moved = placeOf(*container, key) - at;
        EXPECT_NEAR(sideways ? moved.x - way.x : moved.y - way.y, 0, 0.1);
      }
      bench.lift(origin + at + way);
      for (std::size_t k = 0; k < before.size(); ++k) {
        const float value = container->value(k);
        if (k == i)
          EXPECT_GT(value, before[k] + 0.02f);
        else
          EXPECT_EQ(value, before[k]) << kind.keys()[k];
      }
      EXPECT_THAT(owner.take(), testing::IsSupersetOf({"[" + key, std::string("v"), "]" + key}));
      container->removeFromSuperview();
      loop.advance(1);
    }
}

TEST_F(ControlPicturesTest, ALiveValueIsShownWhereItsHandleWouldStand) {
  for (const ShapeKind& kind : shapeKinds())
    for (std::size_t i = 0; i < kind.keys().size(); ++i) {
      // Where a handle does not follow its own value alone, the dot cannot either.
      if ((kind.drags[i] != 'x' && kind.drags[i] != 'y') || !kind.showsLive) continue;
      const std::string key = kind.keys()[i];
      SCOPED_TRACE(kind.name + (" " + key));
      const auto container = kind.shown(0.4f);
      show(*container);
      showValue(*container, key, 0.7f);
      const Point there = placeOf(*container, key);
      showValue(*container, key, 0.4f);
      modulate(*container, i, 0.7f);
      bool found = false;
      for (const auto& dot : Drawing(faceOf(*container)).all(Kind::ellipse, Theme::white))
        found = found || std::fabs(kind.drags[i] == 'x' ? dot.area.midX() - there.x
                                                        : dot.area.midY() - there.y) < 0.1;
      EXPECT_TRUE(found);
      container->watchNothing();
      container->removeFromSuperview();
    }
}

TEST(Plot, ASmoothCurveNeverLeavesTheRangeOfItsPoints) {
  const auto curve = Plot::smoothCurve({{0, 0}, {10, 10}, {20, 10}, {30, 2}, {40, 10}});
  EXPECT_EQ(curve.bounds(), (Rect{0, 0, 40, 10}));
}

/// How high the curve stands over the middle of the face, upwards, and how long half the face is.
double heightAt(const std::vector<Point>& curve, double x, const Rect& face) {
  for (std::size_t i = 1; i < curve.size(); ++i)
    if (curve[i - 1].x <= x && x <= curve[i].x) {
      const double way = curve[i].x - curve[i - 1].x;
      const double share = way > 0 ? (x - curve[i - 1].x) / way : 0;
      return face.midY() - std::lerp(curve[i - 1].y, curve[i].y, share);
    }
  ADD_FAILURE() << "no curve at " << x;
  return 0;
}

TEST_F(ControlPicturesTest, AWaveshaperWithoutWetSoundIsAStraightLine) {
  WaveshaperViewContainer shaper;
  show(shaper, {"drive", "shape", "bias", "mix"});
  showValue(shaper, "drive", 0.8f);
  showValue(shaper, "bias", 0.5f);
  shaper.setKeyStringValues(1, {"Soft", "Hard Clip", "Rectify"});
  shaper.setKeyRange(1, 0, 2);
  ShapeControl& face = faceOf(shaper);
  const Rect place = face.bounds();
  // The middle of the picture is that of the grid's cross.
  const auto at = [&](double in) {
    const auto curve = Drawing(face).curve();
    const double left = curve.front().x, right = curve.back().x;
    return heightAt(curve, (left + right) / 2 + in * (right - left) / 2, place) -
           heightAt(curve, (left + right) / 2, place);
  };
  showValue(shaper, "mix", 0);
  EXPECT_NEAR(at(0.5) * 2, at(0.99) / 0.99, 1);
  EXPECT_NEAR(at(0.25), -at(-0.25), 0.5);
  showValue(shaper, "mix", 1);
  EXPECT_NEAR(at(0.5), at(0.9), 1) << "driven far, it is flat";
  EXPECT_NEAR(at(0.5), -at(-0.5), 1) << "an unbiased curve is the same for both signs";
  showValue(shaper, "shape", 1);
  EXPECT_NEAR(at(0.5), at(-0.5), 1) << "a rectifier turns the lower half up";
}

TEST_F(ControlPicturesTest, AWavetableFadesFromWaveToWave) {
  WavetableContainer table;
  show(table, {"place"});
  table.setDataSource([] {
    return std::make_shared<platform::SampleData>(platform::SampleData{
        {std::vector<float>(8, 1.0f), std::vector<float>(8, -1.0f), std::vector<float>(8, -1.0f)}});
  });
  // How far the wave that sounds lies over the middle of its place, which is the handle's height.
  const auto level = [&](float place) {
    showValue(table, "place", place);
    const auto waves = Drawing(faceOf(table)).all(Kind::stroke, accent);
    EXPECT_EQ(waves.size(), 1u);
    return placeOf(table, "place").y - waves[0].area.y;
  };
  const double whole = level(0);
  EXPECT_GT(whole, 5);
  EXPECT_NEAR(level(0.125f), whole / 2, near);
  EXPECT_NEAR(level(0.25f), 0, near);
  EXPECT_NEAR(level(0.5f), -whole, near);
  table.setParamKeys(keys({"place", "level"}));
  EXPECT_NEAR(level(0), whole / 4, near) << "a low level is a low wave";
  showValue(table, "level", 1);
  EXPECT_NEAR(level(0), whole, near);
  table.setParamKeys(keys({"place"}));
  modulate(table, 0, 0);
  EXPECT_GT(std::fabs(level(0.5f) + whole), 1) << "the live place is the one to see";
}

TEST_F(ControlPicturesTest, ARangeIsFilledBetweenItsEnds) {
  DoubleSliderContainer range;
  show(range, {"low", "high"}, {0, 0, 300, 40});
  showValue(range, "low", 0.3f);
  showValue(range, "high", 0.7f);
  const auto fills = Drawing(faceOf(range)).all(Kind::rounded, accent);
  ASSERT_EQ(fills.size(), 1u);
  EXPECT_NEAR(fills[0].area.x, placeOf(range, "low").x, 4);
  EXPECT_NEAR(fills[0].area.maxX(), placeOf(range, "high").x, 4);
}

TEST_F(ControlPicturesTest, AnEnvelopeRisesToTheHandleOfItsAttackAndFallsToThatOfItsRelease) {
  for (const std::vector<std::string>& names :
       {std::vector<std::string>{"attack", "release"}, {"attack", "decay", "sustain", "release"}}) {
    ADSRContainer envelope;
    show(envelope, names);
    for (const std::string& key : names) showValue(envelope, key, 0.6f);
    const auto curve = Drawing(faceOf(envelope)).curve();
    // Each stage has a start, a control and an end.
    EXPECT_EQ(curve[2], placeOf(envelope, "attack"));
    EXPECT_EQ(curve.back(), placeOf(envelope, "release"));
  }
}

TEST_F(ControlPicturesTest, ThePlayheadStandsAtTheStepThatPlays) {
  StepSequencerContainer bars;
  CurveSequencerContainer glides;
  for (ShapeContainer* const steps : std::vector<ShapeContainer*>{&bars, &glides}) {
    show(*steps, {"a", "b", "c", "d"});
    for (const char* key : {"a", "b", "c", "d"}) showValue(*steps, key, 0.5f);
  }
  const auto lines = [&] { return Drawing(faceOf(glides)).all(Kind::rect, Theme::white); };
  const auto columns = [&](ShapeContainer& steps) {
    // The ground of the column that plays is the strongest.
    double best = 0, x = -1;
    for (const auto& ground : Drawing(faceOf(steps)).all(Kind::rounded, Theme::surface))
      if (ground.color.alpha > best) {
        best = ground.color.alpha;
        x = ground.area.midX();
      }
    return x;
  };
  EXPECT_TRUE(lines().empty());
  modulate(bars, 0, 2.75f);
  modulate(glides, 0, 2.75f);
  EXPECT_NEAR(columns(bars), placeOf(bars, "c").x, near);
  EXPECT_NEAR(columns(glides), placeOf(glides, "c").x, near);
  ASSERT_EQ(lines().size(), 1u);
  const double step = placeOf(glides, "d").x - placeOf(glides, "c").x;
  EXPECT_NEAR(lines()[0].area.x, placeOf(glides, "c").x + step / 4, 1);
  for (const float nowhere : {4.0f, 7.0f, -1.0f, NAN}) {
    *live.back() = nowhere;
    glides.updateModulation();
    EXPECT_TRUE(lines().empty()) << nowhere;
  }
  *live.back() = 1;
  modulating = false;
  glides.updateModulation();
  EXPECT_TRUE(lines().empty()) << "while its flag is down";
}

TEST_F(ControlPicturesTest, StepsAroundACentreGrowFromIt) {
  StepSequencerContainer steps;
  show(steps, {"a", "b"});
  steps.setKeyRange(0, -12, 12);
  steps.setKeyRange(1, -12, 12);
  showValue(steps, "a", 0.5f);
  showValue(steps, "b", 0.75f);
  const auto bars = [&] {
    std::vector<double> heights;
    for (const auto& shape : Drawing(faceOf(steps)).all(Kind::rounded, accent))
      heights.push_back(shape.area.height);
    std::sort(heights.begin(), heights.end());
    return heights;
  };
  // Two edges, and one bar of a quarter of the height.
  ASSERT_EQ(bars().size(), 3u);
  EXPECT_NEAR(bars()[2], 0.25 * placeOf(steps, "a").y * 2, 8);
  steps.setKeyRange(0, 0, 1);
  steps.setInverted(true);
  showValue(steps, "a", 0);
  EXPECT_EQ(bars().size(), 3u) << "reversed too, the lowest value has no bar";
}

TEST_F(ControlPicturesTest, APhaserIsDrawnAsItSounds) {
  PhaserViewContainer phaser;
  show(phaser, {"frequency", "feedback", "depth", "stages"});
  showValue(phaser, "frequency", 0.5f);
  showValue(phaser, "feedback", 0);
  const auto curve = [&] { return Drawing(faceOf(phaser)).curve(); };
  const auto notches = [&] {
    const auto points = curve();
    int count = 0;
    for (std::size_t i = 1; i + 1 < points.size(); ++i)
      count += points[i].y > points[i - 1].y && points[i].y >= points[i + 1].y;
    return count;
  };
  const auto none = curve();
  phaser.setKeyRange(1, -1, 1);
  showValue(phaser, "feedback", 0.5f);
  EXPECT_EQ(curve(), none) << "the middle of a symmetrical range is no feedback";
  showValue(phaser, "feedback", 0);
  EXPECT_NE(curve(), none) << "negative feedback is drawn as such";
  showValue(phaser, "feedback", 0.5f);
  phaser.setKeyRange(3, 0, 2);
  phaser.setKeyStringValues(3, {"4 stages", "8 stages", "2 stages"});
  showValue(phaser, "stages", 0.5f);
  EXPECT_EQ(notches(), 4) << "a name says how many";
  // The band that it sweeps lies evenly around the handle.
  showValue(phaser, "depth", 0.5f);
  bool found = false;
  for (const auto& band : Drawing(faceOf(phaser)).all(Kind::rect, accent))
    found = found || (band.area.width > 5 &&
                      std::fabs(band.area.midX() - placeOf(phaser, "frequency").x) < near);
  EXPECT_TRUE(found);
}

TEST_F(ControlPicturesTest, WhatACompressorMeasuresHangsFromTheTop) {
  CompressorViewContainer compressor;
  show(compressor, {"threshold", "ratio", "gainReduction", "makeup"});
  compressor.setKeyRange(0, -60, 0);
  compressor.setKeyRange(2, -48, 0);
  showValue(compressor, "threshold", 0.5f);
  showValue(compressor, "ratio", 0.2f);
  const Point without = placeOf(compressor, "ratio");
  showValue(compressor, "makeup", 0.5f);
  EXPECT_LT(placeOf(compressor, "ratio").y, without.y) << "make-up lifts the end of the curve too";
  const auto bar = [&](float decibels) {
    std::atomic<float> other{-40}, measured{decibels};
    compressor.watchNothing();
    compressor.watch(0, &other, nullptr);
    compressor.watch(2, &measured, nullptr);
    compressor.updateModulation();
    compressor.watchNothing();
    double longest = 0;
    const auto shapes =
        Drawing(faceOf(compressor)).all(Kind::rounded, accent.mixed(Theme::white, 0.3f));
    for (const auto& shape : shapes) longest = std::max(longest, shape.area.height);
    return longest;
  };
  const double six = bar(-6);
  EXPECT_GT(six, 5);
  EXPECT_NEAR(bar(-12), 2 * six, 0.5);
  EXPECT_EQ(bar(0), 0);
}

TEST_F(ControlPicturesTest, EachOfTwoCompressorsHasItsOwnColour) {
  DoubleCompressorViewContainer two;
  show(two, {"threshold", "ratio", "threshold2", "ratio2"});
  const auto second = platform::Color::rgb(0xe0a010);
  EXPECT_TRUE(Drawing(faceOf(two)).all(Kind::stroke, second).empty());
  two.setColors({accent, second});
  EXPECT_EQ(Drawing(faceOf(two)).all(Kind::stroke, second).size(), 1u);
  // And a bar of its own for what it measures, beside the curves.
  two.setParamKeys(keys({"threshold", "gainReduction", "threshold2", "gainReduction2"}));
  std::atomic<float> measured{-6};
  for (const std::size_t index : {1u, 3u}) two.watch(index, &measured, nullptr);
  two.updateModulation();
  two.watchNothing();
  const Drawing picture(faceOf(two));
  std::vector<Drawing::Shape> bars;
  for (const auto& shape : picture.all(Kind::rounded, Theme::surface))
    if (shape.area.width < 5) bars.insert(bars.begin(), shape);
  ASSERT_EQ(bars.size(), 2u);
  EXPECT_LT(bars[0].area.maxX(), bars[1].area.x);
  EXPECT_GT(bars[0].area.x, picture.curve().back().x);
  EXPECT_LE(bars[1].area.maxX(), faceOf(two).bounds().width - picture.curve().front().x + 1.5);
}

TEST_F(ControlPicturesTest, TheBandsOfACompressorStandSideBySideAndTheirEdgesDoNotPass) {
  ThreeBandCompressorContainer bands;
  show(bands, ThreeBandCompressorContainer::bandKeys());
  showValue(bands, "LowMidFrequency", 0.3f);
  showValue(bands, "MidHighFrequency", 0.6f);
  const double low = placeOf(bands, "LowMidFrequency").x,
               high = placeOf(bands, "MidHighFrequency").x;
  EXPECT_LT(placeOf(bands, "LowThreshold").x, low);
  EXPECT_GT(placeOf(bands, "MidThreshold").x, low);
  EXPECT_LT(placeOf(bands, "MidThreshold").x, high);
  EXPECT_GT(placeOf(bands, "HighThreshold").x, high);
  const Point origin = bands.shape()->frameInRoot().origin();
  for (const auto& [key, way] :
       {std::pair{"LowMidFrequency", 300.0}, {"MidHighFrequency", -300.0}}) {
    const Point at = origin + placeOf(bands, key);
    bench.press(at);
    bench.drag(at + Point{way, 0});
    bench.lift(at + Point{way, 0});
    EXPECT_EQ(valueOf(bands, "LowMidFrequency"), valueOf(bands, "MidHighFrequency"));
    showValue(bands, "LowMidFrequency", 0.3f);
  }
}

TEST_F(ControlPicturesTest, ASampleShowsWhatIsPlayedOfItAndWhere) {
  SampleViewContainer sample;
  show(sample, {"start", "end", "head"});
  ShapeControl& face = faceOf(sample);
  const auto played = [&] {
    double left = 0, right = 0;
    for (const auto& shape : Drawing(face).all(Kind::rect, accent))
      if (shape.area.width > 5) {
        left = shape.area.x;
        right = shape.area.maxX();
      }
    return std::pair(left, right);
  };
  sample.setParamKeys(keys({"start"}));
  EXPECT_GT(played().second - played().first, 200) << "without an end, all that follows";
  sample.setParamKeys(keys({"start", "end", "head"}));
  showValue(sample, "end", 1);
  const double all = played().second - played().first;
  EXPECT_GT(all, 200);
  showValue(sample, "start", 0.25f);
  showValue(sample, "end", 0.5f);
  EXPECT_NEAR(played().second - played().first, all / 4, near);
  EXPECT_NEAR(played().first, placeOf(sample, "start").x, near);
  // Neither end passes the other.
  for (const auto& [key, way] : {std::pair{"end", -300.0}, {"start", 300.0}}) {
    const Point at = face.frameInRoot().origin() + placeOf(sample, key);
    bench.press(at);
    bench.drag(at + Point{way, 0});
    bench.lift(at + Point{way, 0});
    EXPECT_EQ(valueOf(sample, key), key == std::string("end") ? 0.25f : 0.5f);
    showValue(sample, "start", 0.25f);
    showValue(sample, "end", 0.5f);
  }
  sample.setKeyRange(2, 0, 8);
  std::atomic<float> head{2};
  sample.watch(2, &head, nullptr);
  sample.updateModulation();
  const auto lines = Drawing(face).all(Kind::rect, Theme::white);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_NEAR(lines[0].area.midX(), placeOf(sample, "start").x, near) << "2 of 8 is a quarter";
}

TEST_F(ControlPicturesTest, AFilterIsDrawnAsItsTypeAndByWhoeverComputesIt) {
  using Type = FilterView::Type;
  FilterViewContainer filter;
  show(filter, {"frequency", "gain"});
  filter.setKeyRange(1, -24, 24);
  showValue(filter, "frequency", 0.5f);
  showValue(filter, "gain", -24);
  FilterView& view = filter.filterView();
  const auto level = [&](double share) {
    const auto curve = Drawing(view).curve();
    return heightAt(curve, std::lerp(curve.front().x, curve.back().x, share), view.bounds());
  };
  // What passes: low, middle and high frequencies; peak and shelves cut.
  const std::pair<Type, const char*> cases[] = {{Type::lowPass, "+--"},  {Type::hiPass, "--+"},
                                                {Type::bandPass, "-+-"}, {Type::notch, "+-+"},
                                                {Type::peak, "+-+"},     {Type::lowShelf, "--+"},
                                                {Type::hiShelf, "+--"}};
  for (const auto& [type, passes] : cases) {
    view.setType(type);
    std::string passed;
    for (const double share : {0.02, 0.5, 0.98})
      passed += level(share) > -0.05 * view.bounds().height ? '+' : '-';
    EXPECT_EQ(passed, passes) << view.typeName();
  }
  view.setType(Type::lowPass);
  const double before = level(0.7);
  modulate(filter, 0, 0.9f);
  EXPECT_GT(level(0.7), before + 10) << "what is live is drawn";
  view.setFilterMagnitudes(std::vector<double>(view.frequencies().size(), 12));
  EXPECT_NEAR(level(0.1), level(0.9), near) << "what the audio unit computes wins";
  EXPECT_GT(level(0.1), 10);

  DoubleFilterViewContainer both;
  show(both, {"lf", "lr", "hf", "hr", "lg", "hg"});
  showValue(both, "lf", 0.8f);
  showValue(both, "hf", 0.3f);
  EXPECT_LT(placeOf(both, "lg").x, placeOf(both, "hf").x);
  EXPECT_GT(placeOf(both, "hg").x, placeOf(both, "lf").x);
  const auto curve = Drawing(both.filterView()).curve();
  const auto height = [&](double share) {
    return heightAt(curve, std::lerp(curve.front().x, curve.back().x, share),
                    both.filterView().bounds());
  };
  EXPECT_GT(height(0.55), height(0.1) + 10);
  EXPECT_GT(height(0.55), height(0.98) + 10);
}

TEST_F(ControlPicturesTest, StripsFillFromTheCentreOfTheirRange) {
  CompressorViewContainer compressor;
  show(compressor, {"threshold", "ratio", "balance"});
  compressor.setKeyRange(2, -1, 1);
  const auto fills = [&](float value) {
    showValue(compressor, "balance", value);
    return Drawing(faceOf(compressor)).all(Kind::rounded, accent).size();
  };
  EXPECT_EQ(fills(0.5f), 0u);
  EXPECT_EQ(fills(0.25f), 1u);
}

TEST_F(ControlPicturesTest, FrequenciesStandInPitch) {
  BandCompressorContainer band;
  show(band, {"thresh", "ratio", "lowFreq", "highFreq"});
  band.setKeyRange(2, 20, 20000);
  band.setKeyRange(3, 20, 20000);
  const auto x = [&](float value) {
    showValue(band, "highFreq", value);
    return placeOf(band, "highFreq").x;
  };
  EXPECT_NEAR(x(0.5f), (x(0) + x(1)) / 2, near);
  PhaserViewContainer phaser;
  show(phaser, {"frequency", "feedback"});
  const std::pair<ShapeContainer*, const char*> moved[] = {{&phaser, "frequency"},
                                                           {&band, "highFreq"}};
  for (const auto& [container, key] : moved) {
    container->setKeyRange(*container->indexOf(key), 200, 5000);
    showValue(*container, key, 0.5f);
    show(*container);
    const Point at = placeOf(*container, key), origin = container->shape()->frameInRoot().origin();
    bench.press(origin + at);
    bench.drag(origin + at + Point{12, 0});
    bench.lift(origin + at + Point{12, 0});
    EXPECT_NEAR(placeOf(*container, key).x, at.x + 12, 0.1) << key;
    container->removeFromSuperview();
  }
}

TEST_F(ControlPicturesTest, ALivePointOfATableBendsTheLiveCurveThere) {
  TableWaveshaperContainer table;
  show(table, {"a", "b", "c", "d", "e"});
  for (const char* key : {"a", "b", "c", "d", "e"}) showValue(table, key, 0.5f);
  modulate(table, 3, 0.9f);
  // The live curve is drawn over the one that is set.
  const auto curves = Drawing(faceOf(table))
                          .all(Kind::stroke, faceOf(table).accentColor().mixed(Theme::white, 0.5f));
  ASSERT_EQ(curves.size(), 1u);
  const Rect face = faceOf(table).bounds();
  const auto height = [&](const char* key) {
    return heightAt(curves[0].points, placeOf(table, key).x, face);
  };
  EXPECT_GT(height("d"), height("b") + 20);
  EXPECT_NEAR(height("a"), height("b"), near);
}

TEST_F(ControlPicturesTest, AFaceWithoutTitleSaysWhatItMoves) {
  ADSRContainer envelope;
  show(envelope, {"a", "d", "s", "r"});
  envelope.setTitle("Envelope");
  showValue(envelope, "r", 0.5f, "80 ms");
  bench.frame();
  bench.window.hovered(envelope.shape()->frameInRoot().origin() + placeOf(envelope, "r"));
  EXPECT_FALSE(Drawing(faceOf(envelope)).says("r 80 ms"));
  EXPECT_EQ(envelope.titleLabel().text(), "r 80 ms");
  envelope.setDisplayTitle(false);
  bench.frame();
  EXPECT_TRUE(Drawing(faceOf(envelope)).says("r 80 ms"));
}

TEST_F(ControlPicturesTest, APadGlowsWhileItIsOn) {
  XYControlContainer pad;
  show(pad, {"x", "y", "OnOff", "Hold"});
  const auto glow = [&] {
    float strongest = 0;
    for (const auto& hair : Drawing(faceOf(pad)).all(Kind::rect, accent))
      strongest = std::max(strongest, hair.color.alpha);
    return strongest;
  };
  const float off = glow();
  showValue(pad, "OnOff", 1);
  EXPECT_GT(glow(), off);
  showValue(pad, "Hold", 1);
  showValue(pad, "OnOff", 0);
  EXPECT_EQ(glow(), off);
  EXPECT_EQ(valueOf(pad, "Hold"), 1);
  EXPECT_EQ(valueOf(pad, "OnOff"), 0);
}

TEST_F(ControlPicturesTest, TheSelectedTabIsTheUnderlinedOne) {
  SelectableButton tab;
  tab.setFrame({0, 0, 100, 30});
  tab.setAccentColor(accent);
  EXPECT_TRUE(Drawing(tab).all(Kind::rect, accent).empty());
  tab.setSelected(true);
  EXPECT_FALSE(Drawing(tab).all(Kind::rect, accent).empty());
}

}  // namespace
}  // namespace kestroui
