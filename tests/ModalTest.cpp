// What is modal has the keyboard and the touches to itself, and gives the keyboard back.

#include <gmock/gmock.h>

#include <memory>

#include "tests/support/WindowBench.h"
#include "toolkit/Button.h"
#include "toolkit/ModalView.h"

namespace {

using platform::Key;
using platform::Modifiers;
using toolkit::Button;
using toolkit::ModalView;
using toolkit::View;

/// Counts what it is touched and what keys it is offered.
struct Face : Button {
  void touchBegan(const toolkit::Touch& touch) override {
    ++touches;
    Button::touchBegan(touch);
  }
  bool wheelTurned(const platform::WheelEvent&) override {
    ++wheels;
    return true;
  }
  bool keyPressed(const platform::KeyEvent& event) override {
    ++keys;
    return Button::keyPressed(event);
  }
  int touches = 0, wheels = 0, keys = 0;
};

struct Panel : ModalView {
  explicit Panel(View& root, const platform::Rect& frame) {
    setFrame(frame);
    root.addSubview(*this);
    for (Face* face : {&first, &second}) addSubview(*face);
    first.setFrame({0, 0, 40, 20});
    second.setFrame({50, 0, 40, 20});
    setHidden(true);
  }
  bool keyPressed(const platform::KeyEvent& event) override {
    ++keys;
    return event.key != Key::tab;
  }
  Face first, second;
  int keys = 0;
};

class ModalTest : public testing::Test {
 protected:
  ModalTest() {
    bench.root().addSubview(behind);
    behind.setFrame({0, 0, 100, 50});
    behind.addSubview(inList);
    bench.root().addSubview(bar);
    bar.setFrame({0, 250, 100, 50});
    bar.setReachableBesideModals(true);
    panel = std::make_unique<Panel>(bench.root(), platform::Rect{100, 100, 200, 100});
    question = std::make_unique<Panel>(bench.root(), platform::Rect{150, 120, 100, 50});
    bench.root().bringSubviewToFront(bar);
    bench.window.prepareFrame();
  }
  void press(Key key, Modifiers modifiers = Modifiers::none) {
    bench.window.keyPressed({key, modifiers, ""});
  }

  support::WindowBench bench;
  Face behind, inList, bar;
  std::unique_ptr<Panel> panel, question;
};

TEST_F(ModalTest, TheKeyboardStaysInsideAndGoesBackInTurn) {
  behind.becomeFirstResponder();
  panel->setHidden(false);
  EXPECT_EQ(bench.window.firstResponder(), nullptr) << "what is behind has lost it";
  press(Key::up);
  EXPECT_EQ(panel->keys, 1) << "a panel without focus has the keys itself";
  EXPECT_EQ(behind.keys, 0);
  EXPECT_FALSE(behind.becomeFirstResponder());
  for (View* next : std::initializer_list<View*>{&panel->first, &panel->second, &panel->first}) {
    press(Key::tab);
    EXPECT_EQ(bench.window.firstResponder(), next);
  }
  question->setHidden(false);
  EXPECT_EQ(bench.window.uppermostModal(), question.get());
  EXPECT_FALSE(panel->second.becomeFirstResponder());
  press(Key::tab, Modifiers::shift);
  EXPECT_EQ(bench.window.firstResponder(), &question->second);
  question->setHidden(true);
  EXPECT_EQ(bench.window.firstResponder(), &panel->first);
  panel->setHidden(true);
  EXPECT_EQ(bench.window.firstResponder(), &behind);
}

TEST_F(ModalTest, WhatIsBehindIsNeitherPressedNorHoveredNorTurned) {
  panel->setHidden(false);
  bench.tap({20, 20});
  bench.tap({110, 110});
  bench.tap({20, 270});
  bench.window.wheelTurned({{20, 20}, 0, 1, Modifiers::none});
  bench.window.wheelTurned({{110, 110}, 0, 1, Modifiers::none});
  bench.window.hovered({20, 20});
  EXPECT_EQ(behind.touches + behind.wheels, 0);
  EXPECT_FALSE(behind.isHovered());
  EXPECT_EQ(panel->first.touches, 1);
  EXPECT_EQ(panel->first.wheels, 1);
  EXPECT_EQ(bar.touches, 1) << "what stays in reach";
  EXPECT_EQ(bench.window.firstResponder(), &panel->first) << "without the keyboard";
  question->setHidden(false);
  bench.tap({110, 110});
  EXPECT_EQ(panel->first.touches, 1);
  question->setHidden(true);
  panel->setHidden(true);
  bench.tap({20, 20});
  EXPECT_EQ(behind.touches, 1);
}

TEST_F(ModalTest, WhoCannotHaveTheKeyboardBackLeavesItToTheFallback) {
  const std::function<void()> losses[] = {[&] { inList.setEnabled(false); },
                                          [&] { inList.setHidden(true); },
                                          [&] {
                                            inList.setFrame({0, 60, 20, 20});
                                          },
                                          [&] { inList.removeFromSuperview(); }};
  behind.setClipsToBounds(true);
  panel->setKeyboardFallback(bar);
  for (const auto& lose : losses) {
    inList.setFrame({0, 0, 20, 20});
    inList.setEnabled(true);
    inList.setHidden(false);
    ASSERT_TRUE(inList.becomeFirstResponder());
    panel->setHidden(false);
    lose();
    panel->setHidden(true);
    EXPECT_EQ(bench.window.firstResponder(), &bar);
  }
}

TEST_F(ModalTest, AnyOrderOfClosingAndDyingIsSafe) {
  behind.becomeFirstResponder();
  panel->setHidden(false);
  panel->first.becomeFirstResponder();
  question->setHidden(false);
  question->first.becomeFirstResponder();
  panel->setHidden(true);
  EXPECT_EQ(bench.window.firstResponder(), &question->first) << "the question is still asked";
  EXPECT_EQ(bench.window.uppermostModal(), question.get());
  panel.reset();
  question.reset();
  EXPECT_EQ(bench.window.uppermostModal(), nullptr);
  EXPECT_TRUE(behind.becomeFirstResponder());
}

}  // namespace
