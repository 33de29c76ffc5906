// The kinds that show what a processor does with the sound: one table of gestures, values and
// nonsense for all of them, then what each draws.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>

#include "KestroUI/ChoiceContainers.h"
#include "tests/support/Drawing.h"
#include "tests/support/KeyedValues.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/ShapeKinds.h"
#include "tests/support/WindowBench.h"

namespace kestroui {
namespace {

using platform::Point;

using support::keys;
using Kind = support::ShapeKind;
using support::Drawing;

std::vector<Kind> kinds() { return support::shapeKinds(); }

class DisplayContainersTest : public testing::Test {
 protected:
  void show(Container& container, const platform::Rect& frame = {0, 0, 300, 200}) {
    bench.root().addSubview(container);
    container.setFrame(frame);
    bench.frame();
  }
  std::shared_ptr<ShapeContainer> shown(const Kind& kind) {
    const auto container = kind.shown(0.4f);
    // Ends stand behind starts.
    for (const char* key : {"end", "loopEnd", "high", "highFreq", "MidHighFrequency"})
      if (container->indexOf(key)) showValue(*container, key, 0.9f);
    show(*container);
    return container;
  }
  static ShapeControl& faceOf(const ShapeContainer& container) {
    return const_cast<ShapeControl&>(*container.shape());
  }
  Point handleOf(const ShapeContainer& container, const std::string& key) {
    const Point at = container.shape()->placeOf(*container.indexOf(key));
    return container.shape()->frameInRoot().origin() + at;
  }

  support::ManualLoop loop;
  support::WindowBench bench;
};

TEST_F(DisplayContainersTest, EveryKeyIsReachedByTheKeyboard) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    const auto container = shown(kind);
    toolkit::View& face = *container->subviews()[1];
    ASSERT_TRUE(face.becomeFirstResponder());
    std::size_t reached = 0;
    for (std::size_t i = 0; i < kind.keys().size() + 1; ++i) {
      std::vector<float> before;
      for (const std::string& key : kind.keys()) before.push_back(valueOf(*container, key));
      EXPECT_TRUE(bench.key(platform::Key::up));
      for (std::size_t k = 0; k < kind.keys().size(); ++k)
        reached += container->value(k) > before[k];
      bench.key(platform::Key::right);
    }
    // Those that only measure are not set.
    std::size_t measured = 0;
    for (const std::string& key : kind.keys())
      measured += key.find("eduction") != std::string::npos || key == "head";
    EXPECT_GE(reached, kind.keys().size() - measured);
    EXPECT_FALSE(bench.window.keyPressed({platform::Key::character, {}, "x"}));
    loop.advance(1);
    container->removeFromSuperview();
  }
}

TEST_F(DisplayContainersTest, LiveValuesThatRestRepaintNothing) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    const auto container = shown(kind);
    std::vector<std::atomic<float>> live(kind.keys().size());
    std::atomic<bool> modulating{true};
    for (std::size_t i = 0; i < live.size(); ++i) {
      live[i] = 0.5f;
      container->watch(i, &live[i], &modulating);
    }
    container->updateModulation();
    EXPECT_FALSE(bench.frame().empty());
    container->updateModulation();
    for (const std::string& key : kind.keys())
      showValue(*container, key, valueOf(*container, key), key + " text");
    bench.frame();
    container->updateModulation();
    EXPECT_TRUE(bench.frame().empty());
    live[0] = 1.7f;
    container->updateModulation();
    EXPECT_FALSE(bench.frame().empty());
    for (std::atomic<float>& value : live) value = std::numeric_limits<float>::quiet_NaN();
    container->updateModulation();
    bench.frame();
    bench.painted();
    container->watchNothing();
    container->removeFromSuperview();
  }
}

TEST_F(DisplayContainersTest, DisabledInactiveAndFocusedLookDifferent) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(kind.name);
    const auto container = shown(kind);
    container->setInactive(true);
    EXPECT_FALSE(bench.frame().empty());
    container->setInactive(false);
    bench.frame();
    auto& face = static_cast<ShapeControl&>(*container->subviews()[1]);
    face.becomeFirstResponder();
    EXPECT_FALSE(bench.frame().empty());
    face.resignFirstResponder();
    bench.frame();
    face.setEnabled(false);
    const std::string key = kind.keys().front();
    const float before = valueOf(*container, key);
    const Point at = handleOf(*container, key);
    bench.press(at);
    bench.drag(at + Point{20, -20});
    bench.lift(at + Point{20, -20});
    EXPECT_EQ(valueOf(*container, key), before);
    container->removeFromSuperview();
  }
}

// What keys say

TEST(KeyParts, AreReadFromKeysAndNamesWhateverTheirCase) {
  const std::vector<KeyPart> parts = {
      {"thresh", true}, {"ratio|slope", true}, {"low gain"}, {"thresh", true}};
  using Played = std::vector<std::optional<std::size_t>>;
  EXPECT_EQ(playedParts(keys({"RATIO", "compThreshold", "Threshold2"}), parts),
            (Played{1, 0, std::nullopt, 2}));
  EXPECT_EQ(playedParts(keys({"x", "y"}), parts), (Played{0, 1, std::nullopt, std::nullopt}));
  EXPECT_EQ(playedParts(keys({"x", "y", "z", "u"}), parts), (Played{0, 1, std::nullopt, 2}));
  EXPECT_EQ(playedParts(keys({"x", "gainLow"}), parts), (Played{0, std::nullopt, 1, std::nullopt}));
  const auto named = std::make_shared<ParamKey>("p12", ParameterUISettings("Slope", nullptr));
  EXPECT_EQ(playedParts({named}, parts), (Played{std::nullopt, 0, std::nullopt, std::nullopt}));
  EXPECT_EQ(playedParts({}, parts), Played(4));
}

// What is drawn

TEST(TransferCurve, BendsAtItsThreshold) {
  struct Case {
    TransferCurve curve;
    double in, out;
  };
  const double infinity = std::numeric_limits<double>::infinity();
  const Case cases[] = {
      {{-20, 4, 0}, -40, -40},
      {{-20, 4, 0}, 0, -15},
      {{-20, infinity, 0}, 0, -20},
      {{-20, 1, 0}, 0, 0},
      {{-20, 4, 12}, -26, -26},
      {{-20, 4, 12}, -14, -18.5},
      // In the middle of the knee a quarter of it is lost, times half of the slope's change.
      {{-20, 4, 12}, -20, -20 - 12.0 / 8 * 0.75},
      {{-20, 0.2, 0}, 0, 0},
  };
  for (const Case& c : cases) EXPECT_NEAR(c.curve.at(c.in), c.out, 1e-9) << c.in;
  const TransferCurve curve{-30, 3, 6};
  EXPECT_NEAR(curve.levelOf(curve.reductionAt(-12), 0), -12, 1e-3);
}

TEST(PhaserView, CutsHalfAsManyNotchesAsItHasStages) {
  for (int stages : {2, 4, 8}) {
    int notches = 0;
    double before = 0, beforeThat = 0;
    for (double share = 0; share <= 1; share += 0.0005) {
      const double now = PhaserView::decibelsAt(Plot::hertzAt(share), 632, stages, 0);
      notches += before < -30 && before < now && before <= beforeThat;
      beforeThat = before;
      before = now;
    }
    EXPECT_EQ(notches, stages / 2);
  }
  EXPECT_NEAR(PhaserView::decibelsAt(0, 1000, 4, 0), 0, 1e-6);
  // Two stages turn by half a circle at their centre.
  EXPECT_LT(PhaserView::decibelsAt(1000, 1000, 2, 0), -100);
}

TEST(WaveshaperView, DrawsTheShapeThatANameMeans) {
  using Shape = WaveshaperView::Shape;
  EXPECT_EQ(WaveshaperView::shapeNamed("Soft Clip"), Shape::soft);
  EXPECT_EQ(WaveshaperView::shapeNamed("HARD"), Shape::hard);
  EXPECT_EQ(WaveshaperView::shapeNamed("Wavefolder"), Shape::fold);
  EXPECT_EQ(WaveshaperView::shapeNamed("Sparkle"), Shape::soft);
  EXPECT_EQ(WaveshaperView::shaped(Shape::hard, 3), 1);
  EXPECT_NEAR(WaveshaperView::shaped(Shape::fold, 2), 0, 1e-9);
  EXPECT_EQ(WaveshaperView::shaped(Shape::rectify, -1), 1);
  for (int shape = 0; shape <= static_cast<int>(Shape::tube); ++shape)
    for (double in = -8; in <= 8; in += 0.25)
      EXPECT_LE(std::fabs(WaveshaperView::shaped(static_cast<Shape>(shape), in)), 1);
}

TEST(WaveformOverview, ShowsTheExtremesAndIsKept) {
  auto data = std::make_shared<platform::SampleData>();
  data->channels = {std::vector<float>(10000, 0), std::vector<float>(10000, 0)};
  data->channels[0][20] = 1;
  data->channels[1][9980] = -1;
  WaveformOverview overview;
  EXPECT_TRUE(overview.outline({0, 0, 100, 50}).isEmpty());
  EXPECT_TRUE(overview.setData(data));
  EXPECT_FALSE(overview.setData(data));
  const platform::Path& outline = overview.outline({0, 0, 100, 50});
  const platform::Rect bounds = outline.bounds();
  EXPECT_EQ(bounds, (platform::Rect{0, 0, 100, 50}));
  EXPECT_EQ(outline.points().front().y, 0);
  EXPECT_EQ(&overview.outline({0, 0, 100, 50}), &outline);
  data = std::make_shared<platform::SampleData>();
  data->channels = {{std::numeric_limits<float>::quiet_NaN()}};
  overview.setData(data);
  EXPECT_FALSE(overview.outline({0, 0, 100, 50}).isEmpty());
}

/// A sound that a test writes.
struct Sound : platform::LiveBuffer {
  std::uint64_t written() const override { return count; }
  std::size_t newest(std::span<float> out) const override {
    const std::size_t given = std::min(out.size(), samples.size());
    std::copy_n(samples.end() - static_cast<std::ptrdiff_t>(given), given, out.begin());
    ++reads;
    return given;
  }
  void play(double phase) {
    samples.resize(OscilloscopeView::longest);
    for (std::size_t i = 0; i < samples.size(); ++i)
      samples[i] = static_cast<float>(std::sin(phase + 0.01 * static_cast<double>(i)));
    count += samples.size();
  }
  std::vector<float> samples;
  std::uint64_t count = 0;
  mutable int reads = 0;
};

TEST_F(DisplayContainersTest, AnOscilloscopeStandsStillAndRepaintsOnlyForNewSound) {
  Sound left, right;
  OscilloscopeContainer scope;
  MultiOscilloscopeContainer both;
  EXPECT_FALSE(scope.hasModulation());
  scope.setBuffers({&left, &right});
  both.setBuffers({&left, nullptr, &right});
  EXPECT_EQ(scope.bufferCount(), 1u);
  EXPECT_EQ(both.bufferCount(), 2u);
  EXPECT_TRUE(scope.hasModulation());
  show(scope);
  left.play(1);
  scope.updateModulation();
  EXPECT_FALSE(bench.frame().empty());
  EXPECT_EQ(left.reads, 1);
  const auto picture = bench.painted();
  scope.updateModulation();
  EXPECT_TRUE(bench.frame().empty());
  EXPECT_EQ(left.reads, 1);
  left.play(1);
  scope.updateModulation();
  EXPECT_TRUE(bench.frame().empty()) << "the same sound is the same picture";
  left.samples.assign(OscilloscopeView::longest, std::numeric_limits<float>::quiet_NaN());
  left.count += 1;
  scope.updateModulation();
  bench.frame();
  EXPECT_NE(bench.painted(), picture);
  // The value is the parameter's own.
  scope.setParamKeys(keys({"time", "other"}));
  scope.setKeyRange(0, 1, 8);
  showValue(scope, "time", 3, "3 ms");
  EXPECT_EQ(valueOf(scope, "time"), 3);
  EXPECT_EQ(scope.valueForm(0), Container::ValueForm::raw);
  EXPECT_EQ(scope.valueForm(1), Container::ValueForm::position);
}

TEST_F(DisplayContainersTest, AScopeStandsStillOnTheRiseOfItsSoundAndZoomsIntoIt) {
  Sound sound;
  for (std::size_t i = 0; i < OscilloscopeView::longest; ++i)
    sound.samples.push_back(static_cast<float>(std::sin(1 + 0.02 * static_cast<double>(i))));
  sound.count = 1;
  OscilloscopeContainer scope;
  scope.setParamKeys(keys({"time"}));
  show(scope);
  scope.setBuffers({&sound});
  const auto curve = [&](float zoom) {
    showValue(scope, "time", zoom);
    return Drawing(faceOf(scope)).curve();
  };
  const platform::Rect place = faceOf(scope).bounds();
  scope.setKeyRange(0, 0, 1);
  const auto close = curve(0);
  ASSERT_GT(close.size(), 8u);
  EXPECT_NEAR(close.front().y, place.midY(), 3) << "it begins where the sound is zero";
  EXPECT_LT(close[close.size() / 2].y, close.front().y) << "and rises";
  EXPECT_GT(close.back().x - close.front().x, place.width * 0.9);
  // What is no number is silence, and nothing that reaches a canvas.
  sound.samples.assign(OscilloscopeView::longest, NAN);
  ++sound.count;
  scope.updateModulation();
  for (const auto& shape : Drawing(faceOf(scope)).shapes)
    for (const Point& point : shape.points) EXPECT_TRUE(std::isfinite(point.y));
  // More than two sounds have a lane each.
  Sound more[3];
  for (Sound& each : more) {
    each.samples.assign(OscilloscopeView::longest, 0.1f);
    each.count = 1;
  }
  MultiOscilloscopeContainer lanes;
  lanes.setParamKeys(keys({"time"}));
  show(lanes);
  lanes.setBuffers({&more[0], &more[1], &more[2]});
  std::vector<double> heights;
  for (const auto& shape : Drawing(faceOf(lanes)).shapes)
    if (shape.area.width > 200 && (shape.kind == Drawing::Kind::fill || shape.points.size() > 8))
      heights.push_back(shape.area.midY());
  std::sort(heights.begin(), heights.end());
  ASSERT_EQ(heights.size(), 3u);
  EXPECT_NEAR(heights[2] - heights[1], place.height / 3, 8);
}

TEST_F(DisplayContainersTest, ARecordingIsShownAsSoonAsThereIsOne) {
  std::shared_ptr<const platform::SampleData> data;
  SampleViewContainer sample;
  GranulizerViewContainer grains;
  show(sample);
  show(grains);
  EXPECT_FALSE(sample.hasModulation());
  sample.setDataSource([&] { return data; });
  grains.setDataSource([&] { return data; });
  EXPECT_TRUE(sample.hasModulation());
  sample.updateModulation();
  grains.updateModulation();
  bench.frame();
  EXPECT_TRUE(bench.frame().empty());
  data = std::make_shared<platform::SampleData>(
      platform::SampleData{{std::vector<float>(100, 0.5f)}, 48000});
  sample.updateModulation();
  grains.updateModulation();
  EXPECT_FALSE(bench.frame().empty());
  sample.updateModulation();
  grains.updateModulation();
  EXPECT_TRUE(bench.frame().empty());
}

TEST_F(DisplayContainersTest, ARecordingSwitchIsStoppedArmedOrRunning) {
  using State = RecButton::State;
  RecContainer rec;
  rec.setParamKeys(keys({"rec"}));
  show(rec, {0, 0, 80, 60});
  const auto at = rec.button().frameInRoot().centre();
  bench.tap(at);
  EXPECT_EQ(rec.button().state(), State::running);
  std::atomic<float> live{0};
  rec.watch(0, &live, nullptr);
  rec.updateModulation();
  EXPECT_EQ(rec.button().state(), State::armed);
  live = 1;
  rec.updateModulation();
  EXPECT_EQ(rec.button().state(), State::running);
  bench.tap(at);
  EXPECT_EQ(rec.button().state(), State::stopped);

  rec.setValueRange(0, 2);
  rec.setStringValues({"Stop", "Arm", "Run"});
  bench.tap(at);
  EXPECT_EQ(rec.button().state(), State::armed);
  EXPECT_FLOAT_EQ(rec.value(), 0.5f);
  showValue(rec, "rec", 1, "Run");
  EXPECT_EQ(rec.button().state(), State::running);
  bench.tap(at);
  EXPECT_EQ(rec.value(), 0);
}

}  // namespace
}  // namespace kestroui
