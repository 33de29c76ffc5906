// Without eyes and without a mouse: what every control says of itself, and Halden by keyboard alone.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

#include "KestroUI/Switches.h"
#include "examples/Gallery/GalleryPlugin.h"
#include "examples/Halden/HaldenPlugin.h"
#include "tests/support/EditorHands.h"
#include "toolkit/ModalView.h"

namespace {

using platform::Accessibility;
using platform::Key;

class AccessibilityTest : public testing::Test, protected support::EditorHands {
 protected:
  AccessibilityTest() : EditorHands(halden::pluginEntry()) {}
};

TEST_F(AccessibilityTest, EveryControlOfHaldenIsReachedByTabInTheOrderOfTheDesign) {
  for (int page = 0; page < pageCount(); ++page) {
    showPage(page);
    std::vector<toolkit::View*> inTree;
    visitShown(host.rootView(), [&](toolkit::View& view) {
      if (view.canBecomeFirstResponder() && view.isUserInteractionEnabled())
        inTree.push_back(&view);
    });
    ASSERT_GT(inTree.size(), 10u);
    dropFocus();
    EXPECT_EQ(walk(), inTree) << "page " << page;
    dropFocus();
    std::vector<toolkit::View*> backwards = walk(platform::Modifiers::shift);
    std::reverse(backwards.begin(), backwards.end());
    EXPECT_EQ(backwards, inTree) << "page " << page;
  }
}

TEST(Accessibility, EveryControlHasARoleANameAndAValueInItsRange) {
  for (const orvane::PluginEntry* entry : {&halden::pluginEntry(), &gallery::pluginEntry()}) {
    support::EditorHands hands(*entry);
    for (int page = 0; page < hands.pageCount(); ++page) {
      hands.showPage(page);
      hands.visitShown(hands.host.rootView(), [&](toolkit::View& view) {
        if (!view.canBecomeFirstResponder() || !view.isUserInteractionEnabled()) return;
        const Accessibility told = view.accessibility();
        EXPECT_NE(told.role, Accessibility::Role::none) << told.name;
        EXPECT_NE(told.name, "") << "page " << page << " at " << view.frameInRoot().x;
        const bool holdsValue = dynamic_cast<kestroui::KestroControl*>(&view) &&
                                !dynamic_cast<kestroui::MomentaryButton*>(&view);
        EXPECT_TRUE(told.range || !holdsValue) << told.name;
        if (!told.range) return;
        EXPECT_NE(told.value, "") << told.name;
        EXPECT_LT(told.range->minimum, told.range->maximum) << told.name;
        EXPECT_GE(told.range->value, told.range->minimum) << told.name;
        EXPECT_LE(told.range->value, told.range->maximum) << told.name;
        EXPECT_GT(told.range->step, 0) << told.name;
      });
    }
  }
}

TEST_F(AccessibilityTest, EveryControlOfHaldenIsMovedByKeysFromEndToEnd) {
  for (int page = 0; page < pageCount(); ++page) {
    showPage(page);
    for (toolkit::View* view : walk()) {
      auto* control = dynamic_cast<kestroui::KestroControl*>(view);
      if (!control || dynamic_cast<kestroui::MomentaryButton*>(view)) continue;
      const Accessibility told = control->accessibility();
      ASSERT_TRUE(control->becomeFirstResponder()) << told.name;
      const auto valueAfter = [&](Key key) {
        EXPECT_TRUE(press(key)) << told.name;
        return control->value();
      };
      const float first = valueAfter(Key::home), last = valueAfter(Key::end);
      EXPECT_NEAR(std::abs(last - first), told.range->maximum - told.range->minimum, 1e-4)
          << told.name;
      valueAfter(Key::home);
      EXPECT_NE(valueAfter(Key::right), first) << told.name;
      EXPECT_NEAR(valueAfter(Key::left), first, 1e-4) << told.name;
      valueAfter(Key::pageUp);
      valueAfter(Key::pageDown);
      EXPECT_NEAR(control->value(), first, 1e-4) << told.name;
    }
  }
}

TEST_F(AccessibilityTest, WhatLiesUnderAModalViewOrIsHiddenIsNotReached) {
  struct Overlay : toolkit::ModalView {
    bool canBecomeFirstResponder() const override { return true; }
  };
  Overlay overlay;
  overlay.setHidden(true);
  host.rootView().addSubview(overlay);
  overlay.setFrame(host.rootView().bounds());
  overlay.setHidden(false);
  loop.runDue();
  EXPECT_EQ(walk(), std::vector<toolkit::View*>{&overlay});
  overlay.setHidden(true);
  EXPECT_GT(walk().size(), 10u);
  EXPECT_EQ(focused() == &overlay, false);
}

TEST_F(AccessibilityTest, InLearnModeTheKeyboardSelectsAndDeletesInsteadOfMoving) {
  host.midiLearn().setLearning(true);
  loop.runDue();
  press(Key::tab);
  ASSERT_TRUE(focused());
  const Accessibility before = focused()->accessibility();
  EXPECT_EQ(before.role, Accessibility::Role::button);
  EXPECT_EQ(before.value, "Not bound");
  press(Key::space);
  EXPECT_EQ(focused()->accessibility().value, "Waiting");
  const std::uint8_t message[] = {0xb0, 74, 3};
  host.receiveMidi(message);
  EXPECT_EQ(focused()->accessibility().value, "CC 74 ch 1");
  press(Key::backspace);
  EXPECT_TRUE(host.midiLearn().bindings().empty());
}

}  // namespace
