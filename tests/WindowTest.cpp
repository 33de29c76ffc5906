// The frames of a window: who is laid out, drawn and painted when, and what has to be composited.

#include "toolkit/Window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "tests/support/WindowBench.h"
#include "toolkit/DamageList.h"
#include "toolkit/Label.h"

using namespace platform;
using namespace toolkit;
using support::only;
using support::ProbeView;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class WindowTest : public testing::Test {
 protected:
  ProbeView& add(View& superview, const std::string& name, const Rect& frame) {
    views.push_back(std::make_unique<ProbeView>(name, journal, frame));
    superview.addSubview(*views.back());
    return *views.back();
  }

  std::vector<std::string> journal;
  support::WindowBench bench;
  std::vector<std::unique_ptr<ProbeView>> views;
};

}  // namespace

TEST_F(WindowTest, OneFrameLaysOutDrawsAndPaintsOnceParentsFirst) {
  ProbeView& parent = add(bench.root(), "parent", {0, 0, 100, 100});
  ProbeView& child = add(parent, "child", {0, 0, 10, 10});
  parent.setNeedsDisplay();
  parent.setNeedsDisplay();
  child.setNeedsLayout();
  bench.frame();
  EXPECT_THAT(journal, ElementsAre("parent layout", "parent draw", "parent paint", "child layout",
                                   "child draw", "child paint"));
}

TEST_F(WindowTest, LaysOutBeforeAnythingIsDrawnUnlessADrawPlacesTheView) {
  ProbeView& a = add(bench.root(), "a", {0, 0, 100, 100});
  ProbeView& b = add(bench.root(), "b", {100, 0, 100, 100});
  bench.frame();
  journal.clear();
  a.setNeedsDisplay();
  b.setNeedsLayout();
  bench.frame();
  EXPECT_THAT(journal, ElementsAre("b layout", "a draw", "a paint"));
}

TEST_F(WindowTest, FramesSetByADrawAreSeenBelowInTheSameFrame) {
  ProbeView& parent = add(bench.root(), "parent", {0, 0, 100, 100});
  ProbeView& child = add(parent, "child", {});
  Size laidOut, drawn;
  parent.onDraw = [&] { child.setFrame({0, 0, parent.frame().width / 2, 30}); };
  child.onLayout = [&] { laidOut = child.frame().size(); };
  child.onDraw = [&] { drawn = child.frame().size(); };
  bench.frame();
  EXPECT_EQ(laidOut, (Size{50, 30}));
  EXPECT_EQ(drawn, (Size{50, 30}));
  EXPECT_FALSE(bench.window.needsFrame());

  journal.clear();
  parent.setFrame({0, 0, 200, 100});
  bench.frame();
  EXPECT_EQ(drawn, (Size{100, 30}));
  EXPECT_THAT(only(journal, {"draw", "paint"}),
              ElementsAre("parent draw", "parent paint", "child draw", "child paint"));
}

TEST_F(WindowTest, IdleWindowWantsNoFrameAndPaintsNothing) {
  ProbeView& view = add(bench.root(), "view", {0, 0, 10, 10});
  bench.frame();
  const auto painted = bench.window.paintedViews();
  const int wanted = bench.framesWanted;
  view.setFrame({0, 0, 10, 10});
  view.setHidden(false);
  view.setBackgroundColor(Color::clear());
  EXPECT_FALSE(bench.window.needsFrame());
  EXPECT_THAT(bench.frame(), IsEmpty());
  EXPECT_EQ(bench.framesWanted, wanted);
  EXPECT_EQ(bench.window.paintedViews(), painted);
}

TEST_F(WindowTest, AsksForAFrameOnceForManyChanges) {
  ProbeView& view = add(bench.root(), "view", {0, 0, 10, 10});
  bench.frame();
  const int wanted = bench.framesWanted;
  view.setNeedsDisplay();
  view.setFrame({5, 5, 20, 20});
  bench.root().setNeedsLayout();
  EXPECT_EQ(bench.framesWanted, wanted + 1);
  bench.frame();
  view.setNeedsDisplay();
  EXPECT_EQ(bench.framesWanted, wanted + 2);
}

TEST_F(WindowTest, OneChangedViewOf200PaintsOneAndDamagesOne) {
  for (int i = 0; i < 200; ++i)
    add(bench.root(), "leaf", {(i % 20) * 20.0, (i - i % 20) * 1.0, 20, 20});
  bench.frame();
  const auto painted = bench.window.paintedViews();
  journal.clear();
  views[21]->setBackgroundColor(Color::black());
  views[22]->setNeedsDisplay();
  EXPECT_THAT(bench.frame(), ElementsAre(Rect{20, 20, 20, 20}));
  EXPECT_EQ(bench.window.paintedViews(), painted + 2);
  EXPECT_THAT(journal, ElementsAre("leaf paint", "leaf draw", "leaf paint"))
      << "a layer only repaints; a repaint that changes nothing damages nothing";
  EXPECT_THAT(bench.painted({20, 20, 20, 20}),
              ElementsAre("move 20 20", "rect 0 0 20 20", "rect 0 0 20 20"));
}

TEST_F(WindowTest, DamagesWhereAViewWasAndWhereItIs) {
  ProbeView& panel = add(bench.root(), "panel", {0, 0, 40, 40});
  ProbeView& leaf = add(panel, "leaf", {30, 30, 20, 20});
  ProbeView& other = add(bench.root(), "other", {200, 0, 20, 20});
  EXPECT_THAT(bench.frame(), ElementsAre(Rect{0, 0, 400, 300}));
  struct Case {
    const char* what;
    std::function<void()> change;
    std::vector<Rect> damage;
  };
  const Case cases[] = {
      {"moved",
       [&] {
         other.setFrame({300, 0, 20, 20});
       },
       {{200, 0, 20, 20}, {300, 0, 20, 20}}},
      {"partly out of the window",
       [&] {
         other.setFrame({390, 0, 20, 20});
       },
       {{300, 0, 20, 20}, {390, 0, 10, 20}}},
      {"wholly out of the window",
       [&] {
         other.setFrame({400, 0, 20, 20});
       },
       {{390, 0, 10, 20}}},
      {"back",
       [&] {
         other.setFrame({200, 0, 20, 20});
       },
       {{200, 0, 20, 20}}},
      {"larger",
       [&] {
         other.setFrame({200, 0, 20, 30});
       },
       {{200, 0, 20, 30}}},
      {"a parent with what sticks out",
       [&] {
         panel.setFrame({0, 100, 40, 40});
       },
       {{0, 0, 50, 50}, {0, 100, 50, 50}}},
      {"clipped", [&] { panel.setClipsToBounds(true); }, {{0, 100, 50, 50}}},
      {"below a clip",
       [&] {
         leaf.setFrame({0, 35, 10, 10});
       },
       {{30, 130, 10, 10}, {0, 135, 10, 5}}},
      {"hidden", [&] { panel.setHidden(true); }, {{0, 100, 40, 40}}},
      {"changed while hidden",
       [&] {
         leaf.setFrame({0, 0, 10, 10});
       },
       {}},
      {"removed while hidden", [&] { leaf.removeFromSuperview(); }, {}},
      {"shown", [&] { panel.setHidden(false); }, {{0, 100, 40, 40}}},
      {"to the front", [&] { bench.root().bringSubviewToFront(panel); }, {{0, 100, 40, 40}}},
      {"in front already", [&] { bench.root().bringSubviewToFront(panel); }, {}},
      {"removed", [&] { other.removeFromSuperview(); }, {{200, 0, 20, 30}}},
      {"added",
       [&] {
         panel.addSubview(other);
         other.setFrame({0, 0, 5, 5});
       },
       {{0, 100, 5, 5}}},
      {"destroyed", [&] { views.erase(views.begin()); }, {{0, 100, 40, 40}}},
  };
  for (const Case& c : cases) {
    c.change();
    EXPECT_THAT(bench.frame(), testing::UnorderedElementsAreArray(c.damage)) << c.what;
    EXPECT_FALSE(bench.window.needsFrame()) << c.what;
  }
}

TEST_F(WindowTest, HiddenAndLooseViewsRememberAndAskForNothing) {
  ProbeView& panel = add(bench.root(), "panel", {0, 0, 40, 40});
  ProbeView& leaf = add(panel, "leaf", {0, 0, 20, 20});
  bench.frame();
  panel.setHidden(true);
  bench.frame();
  journal.clear();
  const int wanted = bench.framesWanted;
  leaf.setNeedsDisplay();
  panel.setNeedsDisplay();
  EXPECT_EQ(bench.framesWanted, wanted);
  panel.setHidden(false);
  bench.frame();
  EXPECT_THAT(only(journal, {"draw"}), ElementsAre("panel draw", "leaf draw"));
  journal.clear();
  panel.setNeedsLayout();
  leaf.setNeedsLayout();
  panel.setHidden(true);
  bench.frame();
  EXPECT_THAT(journal, IsEmpty()) << "a page that goes does no work any more";
  panel.setHidden(false);
  bench.frame();

  panel.removeFromSuperview();
  bench.frame();
  journal.clear();
  leaf.setNeedsDisplay();
  EXPECT_FALSE(bench.window.needsFrame());
  bench.root().addSubview(panel);
  bench.frame();
  EXPECT_THAT(only(journal, {"draw"}), ElementsAre("leaf draw"))
      << "what nothing has changed in is not drawn again";
}

TEST_F(WindowTest, WhatIsAskedTooLateComesInTheNextFrame) {
  ProbeView& panel = add(bench.root(), "panel", {0, 0, 100, 100});
  ProbeView& first = add(panel, "first", {0, 0, 20, 20});
  ProbeView& second = add(panel, "second", {20, 0, 20, 20});
  bench.frame();
  second.onDraw = [&] {
    first.setNeedsDisplay();
    second.setNeedsDisplay();
    second.onDraw = {};
  };
  journal.clear();
  second.setNeedsDisplay();
  bench.frame();
  EXPECT_THAT(journal, ElementsAre("second draw", "second paint"));
  EXPECT_TRUE(bench.window.needsFrame());
  journal.clear();
  bench.frame();
  EXPECT_THAT(journal, ElementsAre("first draw", "first paint"))
      << "what a view asks of itself while it draws is done by that draw";
  EXPECT_FALSE(bench.window.needsFrame());
}

TEST_F(WindowTest, DamagesWhatAViewPaintedBeforeAndPaintsNow) {
  struct Bar : View {
    using View::View;
    Rect bar{0, 0, 30, 10};
    void paint(Canvas& canvas) override { canvas.fillRect(bar, Color::white()); }
  } view({100, 100, 50, 50});
  bench.root().addSubview(view);
  bench.frame();
  const std::pair<Rect, Rect> cases[] = {{{0, 0, 10, 10}, {100, 100, 30, 10}},
                                         {{0, 0, 20, 20}, {100, 100, 20, 20}},
                                         {{0, 0, 0, 0}, {100, 100, 20, 20}}};
  for (const auto& [bar, damage] : cases) {
    view.bar = bar;
    view.setNeedsDisplay();
    EXPECT_THAT(bench.frame(), ElementsAre(damage));
  }
}

TEST_F(WindowTest, ViewsMayChangeTheTreeWhileTheyDraw) {
  ProbeView& first = add(bench.root(), "first", {0, 0, 20, 20});
  add(bench.root(), "second", {20, 0, 20, 20});
  add(bench.root(), "third", {40, 0, 20, 20});
  bench.root().bringSubviewToFront(first);
  // second, third, first
  views[1]->onDraw = [&] {
    bench.root().bringSubviewToFront(*views[1]);
    views[2].reset();
    add(first, "new", {0, 0, 5, 5});
  };
  first.onDraw = [&] { first.removeFromSuperview(); };
  bench.frame();
  EXPECT_THAT(only(journal, {"draw"}), ElementsAre("second draw", "first draw"));
  journal.clear();
  views[1]->onDraw = [&] { views[1].reset(); };
  views[1]->setNeedsDisplay();
  bench.frame();
  EXPECT_THAT(journal, ElementsAre("second draw"));
  EXPECT_THAT(bench.painted(), IsEmpty());
}

TEST_F(WindowTest, NoViewIsDrawnTwiceInAFrameEvenWhenItMovesBehindTheTurn) {
  ProbeView& first = add(bench.root(), "first", {0, 0, 20, 20});
  ProbeView& second = add(bench.root(), "second", {20, 0, 20, 20});
  first.onDraw = [&] { bench.root().bringSubviewToFront(first); };
  second.onDraw = [&] {
    first.setNeedsDisplay();
    first.setNeedsLayout();
  };
  bench.frame();
  EXPECT_THAT(only(journal, {"layout", "draw"}),
              ElementsAre("first layout", "first draw", "second layout", "second draw"));
  EXPECT_TRUE(bench.window.needsFrame());
}

TEST_F(WindowTest, ControllersWrapTheLayoutOfTheirViews) {
  struct Controller : ViewController {
    explicit Controller(std::vector<std::string>& lines) : journal(lines) {}
    void viewWillLayoutSubviews() override { journal.push_back("will"); }
    void viewDidLayoutSubviews() override { journal.push_back("did"); }
    std::vector<std::string>& journal;
  } controller(journal);
  ProbeView& leaf = add(controller.view(), "leaf", {0, 0, 10, 10});
  bench.window.setRootViewController(&controller);
  bench.frame();
  EXPECT_THAT(only(journal, {"layout"}), ElementsAre("leaf layout"));
  EXPECT_EQ(journal[0], "will");
  EXPECT_EQ(journal[1], "did");
  journal.clear();
  bench.window.setSize({200, 200});
  EXPECT_THAT(bench.frame(), ElementsAre(Rect{0, 0, 200, 200}));
  EXPECT_THAT(journal, ElementsAre("will", "did"));
  EXPECT_TRUE(leaf.isShown());
}

TEST_F(WindowTest, CompositesBackToFrontWithClipsAndOnlyWhatMeetsTheArea) {
  ProbeView& panel = add(bench.root(), "panel", {10, 10, 40, 40});
  panel.setClipsToBounds(true);
  add(panel, "leaf", {20, 20, 40, 40});
  add(bench.root(), "other", {200, 10, 10, 10});
  bench.frame();
  EXPECT_THAT(bench.painted(),
              ElementsAre("clip 10 10 40 40", "move 10 10", "rect 0 0 40 40", "move 30 30",
                          "rect 0 0 40 40", "move 200 10", "rect 0 0 10 10"));
  EXPECT_THAT(bench.painted({195, 0, 10, 300}), ElementsAre("move 200 10", "rect 0 0 10 10"));
  EXPECT_THAT(bench.painted({11, 11, 5, 5}),
              ElementsAre("clip 10 10 40 40", "move 10 10", "rect 0 0 40 40"));
}

TEST_F(WindowTest, CompositesTheSameUntilTheNextFrame) {
  ProbeView& panel = add(bench.root(), "panel", {10, 10, 40, 40});
  ProbeView& leaf = add(panel, "leaf", {20, 20, 10, 10});
  bench.frame();
  const auto before = bench.painted();
  panel.setFrame({100, 0, 20, 20});
  leaf.setHidden(true);
  leaf.setBackgroundColor(Color::black());
  add(panel, "late", {0, 0, 5, 5});
  EXPECT_EQ(bench.painted(), before);
  bench.frame();
  EXPECT_NE(bench.painted(), before);
}

TEST_F(WindowTest, PaintingOutsideTheBoundsIsClipped) {
  struct Wide : View {
    using View::View;
    void paint(Canvas& canvas) override { canvas.fillRect(bounds().inset(-5, -5), Color::white()); }
  } view({10, 10, 20, 20});
  bench.root().addSubview(view);
  bench.frame();
  EXPECT_THAT(bench.painted(), ElementsAre("clip 10 10 20 20", "move 10 10", "rect -5 -5 30 30"));
  view.setBackgroundColor(Color::black());
  EXPECT_THAT(bench.frame(), ElementsAre(Rect{10, 10, 20, 20}));
}

TEST_F(WindowTest, ManyDamagesAreJoinedToFew) {
  for (int i = 0; i < 100; ++i)
    add(bench.root(), "leaf", {(i % 10) * 40.0, (i - i % 10) * 3.0, 9, 9});
  bench.frame();
  for (auto& view : views) view->setBackgroundColor(Color::black());
  const auto damage = bench.frame();
  EXPECT_LE(damage.size(), 16u);
  for (auto& view : views) {
    const int covering =
        static_cast<int>(std::count_if(damage.begin(), damage.end(), [&](const Rect& r) {
          return r.contains(view->frameInRoot());
        }));
    EXPECT_EQ(covering, 1);
  }
}

TEST(DamageListTest, WhatAUnionReachesIsJoinedToo) {
  toolkit::DamageList damage;
  damage.add({0, 0, 10, 10});
  damage.add({12, 0, 5, 30});
  damage.add({5, 20, 10, 5});
  damage.add({50, 50, 0, 10});
  EXPECT_THAT(damage.take(), ElementsAre(Rect{0, 0, 17, 30}));
  EXPECT_TRUE(damage.isEmpty());
}

TEST_F(WindowTest, OutlivesOrIsOutlivedByItsController) {
  auto controller = std::make_unique<ViewController>();
  bench.window.setRootViewController(controller.get());
  bench.frame();
  controller.reset();
  EXPECT_EQ(bench.window.rootViewController(), nullptr);
  EXPECT_THAT(bench.frame(), ElementsAre(Rect{0, 0, 400, 300}));
  EXPECT_THAT(bench.painted(), IsEmpty());
  bench.tap({5, 5});

  ViewController survivor;
  {
    Window window(bench);
    window.setSize({10, 10});
    window.setRootViewController(&survivor);
    EXPECT_EQ(survivor.view().window(), &window);
  }
  EXPECT_EQ(survivor.view().window(), nullptr);
  survivor.view().setNeedsDisplay();
}

TEST_F(WindowTest, MeasuresTextWithItsHostWhileViewsPaint) {
  struct Measured : View {
    using View::View;
    double width = 0;
    void paint(Canvas& canvas) override { width = canvas.textWidth("mu", {{}, 20, false}); }
  } view({0, 0, 10, 10});
  bench.root().addSubview(view);
  bench.frame();
  EXPECT_DOUBLE_EQ(view.width, 2 * 0.55 * 20);
}
