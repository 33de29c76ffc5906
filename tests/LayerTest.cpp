// Layers, and the recording that they and their views are painted into.

#include "toolkit/Layer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "tests/support/WindowBench.h"
#include "toolkit/Button.h"
#include "toolkit/ImageView.h"
#include "toolkit/Label.h"
#include "toolkit/Recorder.h"

using namespace platform;
using namespace toolkit;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

Path square() {
  Path path;
  path.addRect({1, 1, 2, 2});
  return path;
}

toolkit::Recorder recorder() {
  return toolkit::Recorder([](std::string_view, const Font&) { return 1.0; });
}

std::vector<std::string> replayed(const toolkit::DisplayList& list) {
  support::LogCanvas canvas;
  list.replay(canvas);
  return canvas.lines;
}

}  // namespace

TEST(LayerTest, PaintsBackgroundContentSublayersAndBorderInThisOrder) {
  View view({0, 0, 100, 50});
  view.setBackgroundColor(Color::black());
  view.layer().setCornerRadius(4);
  view.layer().setBorderColor(Color::white());
  view.layer().setBorderWidth(2);
  GradientLayer gradient;
  gradient.setFrame({10, 5, 20, 20});
  gradient.setColors({Color::white()});
  ShapeLayer shape;
  shape.setPath(square());
  shape.setStrokeColor(Color::white());
  Layer hidden;
  hidden.setHidden(true);
  view.layer().addSublayer(shape);
  view.layer().addSublayer(gradient);
  view.layer().addSublayer(hidden);
  view.layer().addSublayer(shape);
  support::LogCanvas canvas;
  view.layer().render(canvas);
  EXPECT_THAT(canvas.painted(),
              ElementsAre("rounded 0 0 100 50 4", "move 10 5", "move 0 0", "path 1 1 2 2",
                          "stroke 1 1 2 2 1", "border 1 1 98 48 3 2"));
  gradient.setColors({Color::white(), Color::black()});
  canvas.lines.clear();
  view.layer().render(canvas);
  EXPECT_THAT(canvas.painted(), testing::Contains("gradient 0 0 20 20 0"));
}

TEST(LayerTest, RepaintsItsViewOnlyWhenItChanges) {
  support::WindowBench bench;
  std::vector<std::string> journal;
  support::ProbeView view("view", journal, {0, 0, 50, 50});
  auto shape = std::make_unique<ShapeLayer>();
  bench.root().addSubview(view);
  const std::function<void()> changes[] = {
      [&] { view.layer().addSublayer(*shape); }, [&] { shape->setPath(square()); },
      [&] { shape->setFrame({5, 5, 10, 10}); },  [&] { shape->setBackgroundColor(Color::black()); },
      [&] { shape->setHidden(true); },
  };
  for (const auto& change : changes) {
    bench.frame();
    journal.clear();
    change();
    bench.frame();
    EXPECT_THAT(journal, ElementsAre("view paint")) << "no draw: layers are set from within draws";
    change();
    EXPECT_FALSE(bench.window.needsFrame());
  }
  shape.reset();
  EXPECT_TRUE(bench.window.needsFrame());
  EXPECT_TRUE(view.layer().sublayers().empty());
}

TEST(LayerTest, MayOutliveItsSuperlayer) {
  Layer sublayer;
  {
    Layer superlayer;
    superlayer.addSublayer(sublayer);
  }
  sublayer.setHidden(true);
  sublayer.removeFromSuperlayer();
}

TEST(RecorderTest, PlaysBackWhatWasPainted) {
  toolkit::Recorder canvas = recorder();
  canvas.begin({100, 100});
  canvas.save();
  canvas.place({{10, 10}});
  canvas.clip({0, 0, 50, 50});
  canvas.fillEllipse({0, 0, 10, 10}, Color::white());
  canvas.strokePath(square(), {3, StrokeStyle::Cap::butt}, Color::white());
  canvas.restore();
  canvas.strokeRoundedRect({10, 10, 20, 20}, 2, 1, Color::white());
  canvas.drawText("label", {}, {0, 80, 90, 10}, TextAlignment::left, Color::white());
  const auto& list = canvas.finish();
  EXPECT_THAT(replayed(list),
              ElementsAre("save", "move 10 10", "clip 0 0 50 50", "ellipse 0 0 10 10",
                          "stroke 1 1 2 2 3", "restore", "border 10 10 20 20 2 1", "text label"));
  EXPECT_EQ(list.bounds(), (Rect{0, 9.5, 90, 80.5}));
  EXPECT_FALSE(list.exceedsSize());
}

TEST(RecorderTest, LeavesOutWhatCannotShow) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Path broken;
  broken.moveTo({0, 0});
  broken.lineTo({nan, 5});
  toolkit::Recorder canvas = recorder();
  canvas.begin({100, 100});
  canvas.fillRect({0, 0, 10, 10}, Color::clear());
  canvas.fillRect({0, 0, 10, 0}, Color::white());
  canvas.fillRect({nan, 0, 10, 10}, Color::white());
  canvas.fillRect({100, 0, 10, 10}, Color::white());
  canvas.strokePath(broken, {}, Color::white());
  canvas.drawText("", {}, {0, 0, 10, 10}, TextAlignment::left, Color::white());
  canvas.save();
  canvas.restore();
  canvas.restore();
  canvas.save();
  canvas.clip({50, 50, nan, 10});
  EXPECT_FALSE(canvas.intersectsClip({0, 0, 100, 100}));
  canvas.fillRect({0, 0, 100, 100}, Color::white());
  EXPECT_TRUE(canvas.finish().isEmpty());

  canvas.begin({100, 100});
  canvas.save();
  canvas.fillRect({90, 90, 20, 20}, Color::white());
  EXPECT_THAT(replayed(canvas.finish()), ElementsAre("save", "rect 90 90 20 20", "restore"));
  EXPECT_TRUE(canvas.finish().exceedsSize());
  EXPECT_EQ(canvas.finish().bounds(), (Rect{90, 90, 10, 10}));
}

TEST(RecorderTest, TextsThatStayKeepWhatABackendLeftInThem) {
  struct Backend : support::LogCanvas {
    int laidOut = 0;
    void drawTextRun(const TextRun& run) override {
      if (!run.cache) run.cache = std::make_shared<int>(++laidOut);
    }
  } backend;
  support::WindowBench bench;
  struct TwoTexts : View {
    using View::View;
    std::string second = "a";
    void paint(Canvas& canvas) override {
      canvas.drawText("title", {}, bounds(), TextAlignment::left, Color::white());
      canvas.drawText(second, {}, bounds(), TextAlignment::left, Color::white());
    }
  } view({0, 0, 50, 50});
  bench.root().addSubview(view);
  const auto show = [&] {
    bench.frame();
    bench.window.composite(backend, {0, 0, 400, 300});
    return backend.laidOut;
  };
  EXPECT_EQ(show(), 2);
  EXPECT_EQ(show(), 2);
  view.second = "b";
  view.setNeedsDisplay();
  EXPECT_EQ(show(), 3);
}

TEST(LabelTest, RepaintsOnlyWhenSomethingChanges) {
  support::WindowBench bench;
  Label label;
  Button button;
  ImageView picture;
  for (View* view :
       {static_cast<View*>(&label), static_cast<View*>(&button), static_cast<View*>(&picture)}) {
    view->setFrame({0, 0, 50, 20});
    bench.root().addSubview(*view);
  }
  const Image image({10, 10}, [](Canvas& canvas, Color tint) {
    canvas.fillEllipse({0, 0, 10, 10}, tint);
  });
  const auto set = [&] {
    label.setText("text");
    label.setFont({FontWeight::medium, 9, true});
    label.setTextColor(Color::black());
    label.setTextAlignment(TextAlignment::right);
    button.setTitle("press");
    picture.setImage(image);
    picture.setTintColor(Color::black());
  };
  set();
  bench.frame();
  EXPECT_THAT(bench.painted(),
              ElementsAre("text text", "text press", "move 15 0", "ellipse 0 0 10 10"));
  set();
  EXPECT_FALSE(bench.window.needsFrame());
}
