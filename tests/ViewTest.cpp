// The view tree by itself: links, lives, places and hit testing.

#include "toolkit/View.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>

#include "tests/support/WindowBench.h"
#include "toolkit/Button.h"
#include "toolkit/ImageView.h"
#include "toolkit/Label.h"

using namespace platform;
using namespace toolkit;

TEST(ViewTest, LeavesTheTreeOnBothSidesInAnyOrderOfDestruction) {
  int order[] = {0, 1, 2, 3};
  do {
    support::WindowBench bench;
    std::unique_ptr<View> views[4];
    for (auto& view : views) view = std::make_unique<View>(Rect{0, 0, 50, 50});
    bench.root().addSubview(*views[0]);
    views[0]->addSubview(*views[1]);
    views[1]->addSubview(*views[2]);
    views[0]->addSubview(*views[3]);
    bench.frame();
    for (int i : order) {
      View* const above = views[i]->superview();
      const auto below = views[i]->subviews();
      views[i].reset();
      for (View* subview : below) EXPECT_EQ(subview->superview(), nullptr);
      if (above) {
        EXPECT_EQ(std::count(above->subviews().begin(), above->subviews().end(), nullptr), 0);
      }
      bench.frame();
    }
    EXPECT_TRUE(bench.root().subviews().empty());
  } while (std::next_permutation(std::begin(order), std::end(order)));
}

TEST(ViewTest, AddedAgainMovesToTheTopAndElsewhereLeavesFirst) {
  View a, b, first, second;
  a.addSubview(first);
  a.addSubview(second);
  a.addSubview(first);
  EXPECT_EQ(a.subviews(), (std::vector<View*>{&second, &first}));
  b.addSubview(first);
  EXPECT_EQ(a.subviews(), std::vector<View*>{&second});
  EXPECT_EQ(first.superview(), &b);
  EXPECT_TRUE(first.isDescendantOf(b));
  EXPECT_FALSE(first.isDescendantOf(a));
}

TEST(ViewDeathTest, CannotBeAddedBelowItself) {
  View a, b;
  a.addSubview(b);
  EXPECT_DEATH(b.addSubview(a), "below itself");
}

TEST(ViewTest, OddFramesAreHarmless) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  support::WindowBench bench;
  std::vector<std::string> journal;
  support::ProbeView view("view", journal, {});
  Label label;
  label.setText("text");
  Button button;
  button.setTitle("title");
  bench.root().addSubview(view);
  view.addSubview(label);
  view.addSubview(button);
  for (const Rect& frame : {Rect{0, 0, 0, 0}, Rect{0, 0, 10000, 10}, Rect{nan, nan, nan, nan},
                            Rect{-infinity, 0, infinity, 5}, Rect{5, 5, -20, -20}}) {
    view.setFrame(frame);
    label.setFrame(frame);
    button.setFrame(frame);
    bench.frame();
    bench.painted();
    bench.tap({0, 0});
    bench.tap({nan, infinity});
    bench.window.hovered({nan, nan});
  }
  view.setFrame({nan, 7, 20, infinity});
  EXPECT_EQ(view.frame(), (Rect{0, 7, 20, 0}));
  bench.window.setSize({nan, -3});
  EXPECT_EQ(bench.window.size(), Size{});
  EXPECT_TRUE(bench.frame().empty());
}

TEST(ViewTest, ConvertsToAndFromTheRootOfItsTree) {
  View root({100, 100, 500, 500}), middle({10, 20, 100, 100}), leaf({3, 4, 5, 6});
  root.addSubview(middle);
  middle.addSubview(leaf);
  EXPECT_EQ(leaf.convertToRoot({1, 1}), (Point{14, 25}));
  EXPECT_EQ(leaf.convertFromRoot({14, 25}), (Point{1, 1}));
  EXPECT_EQ(leaf.frameInRoot(), (Rect{13, 24, 5, 6}));
}

TEST(ViewTest, HitTestFindsTheTopmostViewThatWantsTouches) {
  View root({0, 0, 100, 100}), below({0, 0, 50, 50}), above({0, 0, 50, 50}),
      inside({40, 40, 30, 30});
  root.addSubview(below);
  root.addSubview(above);
  above.addSubview(inside);
  struct Case {
    const char* what;
    std::function<void()> change;
    Point point;
    View* hit;
  };
  const Case cases[] = {
      {"topmost", [] {}, {10, 10}, &above},
      {"a subview that sticks out", [] {}, {60, 60}, &inside},
      {"one that clips", [&] { above.setClipsToBounds(true); }, {60, 60}, &root},
      {"within the clip", [] {}, {45, 45}, &inside},
      {"hidden", [&] { inside.setHidden(true); }, {45, 45}, &above},
      {"below what is hidden", [&] { above.setHidden(true); }, {45, 45}, &below},
      {"without interaction", [&] { below.setUserInteractionEnabled(false); }, {45, 45}, &root},
      {"outside of all", [] {}, {100, 100}, nullptr},
  };
  for (const Case& c : cases) {
    c.change();
    EXPECT_EQ(root.hitTest(c.point), c.hit) << c.what;
  }
}

TEST(ViewTest, LabelsAndPicturesAreNotHit) {
  View root({0, 0, 10, 10});
  Label label;
  ImageView picture;
  for (View* view : {static_cast<View*>(&label), static_cast<View*>(&picture)}) {
    view->setFrame({0, 0, 10, 10});
    root.addSubview(*view);
  }
  EXPECT_EQ(root.hitTest({5, 5}), &root);
}

TEST(ViewTest, TellsWhenItsSuperviewChanges) {
  struct Told : View {
    std::vector<View*> superviews;
    void didMoveToSuperview() override { superviews.push_back(superview()); }
  } view;
  View a, b;
  a.addSubview(view);
  a.addSubview(view);
  b.addSubview(view);
  view.removeFromSuperview();
  view.removeFromSuperview();
  EXPECT_EQ(view.superviews, (std::vector<View*>{&a, &b, nullptr}));
}

TEST(ViewControllerTest, LoadsItsViewOnceAndLinksItIntoTheChain) {
  struct Controller : ViewController {
    int loads = 0, appearances = 0;
    std::vector<ViewController*> moves;
    void viewDidLoad() override {
      ++loads;
      view().setHidden(false);  // asking for the view while it loads does not load it again
    }
    void viewDidAppear() override { ++appearances; }
    void viewDidDisappear() override { --appearances; }
    void willMoveToParent(ViewController* parent) override { moves.push_back(parent); }
  };
  support::WindowBench bench;
  Controller host, other;
  std::unique_ptr<Controller> child = std::make_unique<Controller>();
  EXPECT_FALSE(child->isViewLoaded());
  bench.root().addSubview(child->view());
  child->view();
  EXPECT_EQ(child->loads, 1);
  EXPECT_EQ(child->view().nextResponder(), child.get());
  EXPECT_EQ(child->nextResponder(), &bench.root());
  EXPECT_EQ(bench.controller.nextResponder(), &bench.window);

  host.addChild(*child);
  host.addChild(*child);
  host.appear();
  other.addChild(*child);
  host.appear();
  EXPECT_EQ(child->appearances, 1);
  other.disappear();
  EXPECT_EQ(child->appearances, 0);
  EXPECT_EQ(child->moves, (std::vector<ViewController*>{&host, nullptr, &other}));
  child.reset();
  EXPECT_TRUE(other.children().empty());
  EXPECT_TRUE(bench.root().subviews().empty());
}
