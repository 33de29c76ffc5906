// What a screen reader finds in an editor, and what it can do there.

#include "backends/juce/AccessibleEditor.h"

#include <gmock/gmock.h>

#include "backends/juce/EditorComponent.h"
#include "tests/support/OffScreenWindow.h"
#include "toolkit/ModalView.h"

namespace {

using juce::AccessibilityActionType;
using juce::AccessibilityRole;
using juce_backend::AccessibleElement;
using juce_backend::EditorComponent;
using platform::Accessibility;
using Role = Accessibility::Role;

/// A view that tells what it is given and counts what it is asked to do.
struct Teller : toolkit::View {
  Teller(std::string name, Role role, const platform::Rect& frame) : View(frame) {
    setBackgroundColor(platform::Color::white());
    told.role = role;
    told.name = std::move(name);
  }
  Accessibility accessibility() const override { return told; }
  bool setAccessibilityValue(double value) override {
    told.range->value = value;
    return true;
  }
  bool canBecomeFirstResponder() const override { return true; }
  bool keyPressed(const platform::KeyEvent& event) override {
    presses += event.key == platform::Key::space;
    return true;
  }

  Accessibility told;
  int presses = 0;
};

class AccessibleEditorTest : public testing::Test {
 protected:
  AccessibleEditorTest() {
    editor.setSize(200, 100);
    editor.setVisible(true);
  }

  Teller& add(std::string name, Role role, const platform::Rect& frame,
              toolkit::View* parent = nullptr) {
    tellers.push_back(std::make_unique<Teller>(std::move(name), role, frame));
    (parent ? *parent : editor.controller().view()).addSubview(*tellers.back());
    return *tellers.back();
  }
  std::vector<std::string> names() {
    std::vector<std::string> found;
    for (const auto& element : editor.accessibleEditor().elements())
      found.push_back(element->view()->accessibility().name);
    return found;
  }
  AccessibleElement& first() { return *editor.accessibleEditor().elements().front(); }
  std::unique_ptr<juce::AccessibilityHandler> handler() {
    return first().createAccessibilityHandler();
  }

  juce::ScopedJuceInitialiser_GUI juceIsUp;
  EditorComponent editor{[] { return std::make_unique<toolkit::ViewController>(); }};
  std::vector<std::unique_ptr<Teller>> tellers;
};

TEST_F(AccessibleEditorTest, whatIsShownAndHasANameIsFoundInItsOrderAndPlace) {
  Teller& group = add("", Role::none, {100, 0, 100, 100});
  add("inner", Role::button, {10.4, 10, 20, 20}, &group);
  Teller& later = add("later", Role::slider, {0, 50, 20, 20});
  add("hidden", Role::slider, {0, 50, 20, 20}).setHidden(true);
  add("of no size", Role::slider, {0, 50, 0, 20});
  add("", Role::text, {0, 50, 20, 20});
  Teller& row = add("row", Role::row, {0, 80, 20, 20});
  add("part of its name", Role::text, {0, 0, 20, 20}, &row);
  editor.accessibleEditor().update();
  EXPECT_EQ(names(), (std::vector<std::string>{"inner", "later", "row"}));
  const auto& elements = editor.accessibleEditor().elements();
  EXPECT_EQ(elements[0]->getBounds(), juce::Rectangle<int>(110, 10, 21, 20));
  EXPECT_LT(elements[0]->getExplicitFocusOrder(), elements[1]->getExplicitFocusOrder());
  EXPECT_EQ(editor.getComponentAt(115, 15), &editor) << "the mouse is the editor's all the same";

  later.setHidden(true);
  group.setFrame({90, 0, 100, 100});
  editor.accessibleEditor().update();
  EXPECT_EQ(names(), (std::vector<std::string>{"inner", "row"}));
  EXPECT_EQ(first().getX(), 100);
}

TEST_F(AccessibleEditorTest, aModalViewIsAllThatIsFoundWithWhatStaysInReachAboveIt) {
  add("below", Role::button, {0, 0, 20, 20}).setReachableBesideModals(true);
  toolkit::ModalView modal;
  modal.setHidden(true);
  editor.controller().view().addSubview(modal);
  add("in it", Role::button, {0, 20, 20, 20}, &modal);
  add("beside", Role::button, {0, 40, 20, 20});
  add("above", Role::button, {0, 60, 20, 20}).setReachableBesideModals(true);
  const auto update = [this] {
    editor.accessibleEditor().update();
    return names();
  };
  EXPECT_EQ(update(), (std::vector<std::string>{"below", "beside", "above"}));
  modal.setHidden(false);
  EXPECT_EQ(update(), (std::vector<std::string>{"in it", "above"}));
  modal.setHidden(true);
  EXPECT_EQ(update().size(), 3u);
}

TEST_F(AccessibleEditorTest, eachRoleIsToldInJucesTermsWithWhatItCanDo) {
  Teller& teller = add("it", Role::button, {0, 0, 20, 20});
  editor.accessibleEditor().update();
  const struct {
    Role role;
    AccessibilityRole expected;
    bool presses, toggles, readOnly;
  } cases[] = {
      {Role::none, AccessibilityRole::ignored, false, false, false},
      {Role::text, AccessibilityRole::staticText, false, false, true},
      {Role::button, AccessibilityRole::button, true, false, false},
      {Role::toggle, AccessibilityRole::toggleButton, true, true, false},
      {Role::tab, AccessibilityRole::radioButton, true, false, false},
      {Role::slider, AccessibilityRole::slider, false, false, false},
      {Role::choice, AccessibilityRole::comboBox, true, false, false},
      {Role::indicator, AccessibilityRole::progressBar, false, false, true},
      {Role::field, AccessibilityRole::editableText, false, false, false},
      {Role::row, AccessibilityRole::listItem, true, false, false},
  };
  for (const auto& c : cases) {
    teller.told.role = c.role;
    teller.told.value = "3 dB";
    const auto told = handler();
    const std::string what = "role " + std::to_string(static_cast<int>(c.role));
    EXPECT_EQ(told->getRole(), c.expected) << what;
    EXPECT_EQ(told->getTitle(), "it") << what;
    EXPECT_EQ(told->getActions().contains(AccessibilityActionType::press), c.presses) << what;
    EXPECT_EQ(told->getActions().contains(AccessibilityActionType::toggle), c.toggles) << what;
    ASSERT_TRUE(told->getValueInterface()) << what;
    EXPECT_EQ(told->getValueInterface()->isReadOnly(), c.readOnly) << what;
    EXPECT_EQ(told->getValueInterface()->getCurrentValueAsString(), "3 dB") << what;
    EXPECT_FALSE(told->getValueInterface()->getRange().isValid()) << what;
    teller.presses = 0;
    for (const auto type : {AccessibilityActionType::press, AccessibilityActionType::toggle})
      told->getActions().invoke(type);
    EXPECT_EQ(teller.presses, c.presses + c.toggles) << what;
  }
  teller.told.value.clear();
  EXPECT_FALSE(handler()->getValueInterface()) << "a button has none";
}

TEST_F(AccessibleEditorTest, valuesAreReadAndSetInTheirRange) {
  Teller& teller = add("it", Role::slider, {0, 0, 20, 20});
  teller.told.range = Accessibility::Range{-1, 1, 0.5, 0.25};
  editor.accessibleEditor().update();
  const auto told = handler();
  EXPECT_EQ(told->getValueInterface()->getCurrentValue(), 0.25);
  EXPECT_EQ(told->getValueInterface()->getRange().getMinimumValue(), -1);
  EXPECT_EQ(told->getValueInterface()->getRange().getMaximumValue(), 1);
  EXPECT_EQ(told->getValueInterface()->getRange().getInterval(), 0.5);
  told->getValueInterface()->setValueAsString("0.75");
  EXPECT_EQ(told->getValueInterface()->getCurrentValue(), 0.75);
  teller.told.range = Accessibility::Range{1, 1, 0, 1};
  EXPECT_FALSE(told->getValueInterface()->getRange().isValid());
}

TEST_F(AccessibleEditorTest, focusGoesToTheViewAndComesBackAsItsState) {
  Teller& teller = add("it", Role::slider, {0, 0, 20, 20});
  editor.accessibleEditor().update();
  EXPECT_FALSE(handler()->getCurrentState().isFocused());
  handler()->getActions().invoke(AccessibilityActionType::focus);
  EXPECT_TRUE(teller.isFirstResponder());
  EXPECT_TRUE(handler()->getCurrentState().isFocused());
}

TEST_F(AccessibleEditorTest, aViewThatHasGoneIsSilent) {
  add("it", Role::toggle, {0, 0, 20, 20}).told.range = Accessibility::Range{0, 1, 1, 1};
  editor.accessibleEditor().update();
  const auto told = handler();
  EXPECT_TRUE(told->getCurrentState().isChecked());
  tellers.clear();
  EXPECT_EQ(told->getTitle(), "");
  EXPECT_FALSE(told->getCurrentState().isChecked());
  told->getValueInterface()->setValue(0);
  for (const auto type : {AccessibilityActionType::focus, AccessibilityActionType::press})
    told->getActions().invoke(type);
  EXPECT_EQ(told->getValueInterface()->getCurrentValue(), 0);
}

TEST_F(AccessibleEditorTest, changesAreFoundAMomentAfterTheyShowAlsoInTheMiddleOfADrag) {
  Teller& moving = add("moving", Role::slider, {0, 0, 20, 20});
  support::OffScreenWindow window(editor);
  window.screen();
  editor.accessibleEditor();
  ASSERT_TRUE(support::runUntil([&] { return names().size() == 1; }));
  Teller& other = add("other", Role::button, {50, 0, 20, 20});
  double x = 0;
  EXPECT_TRUE(support::runUntil(
      [&] {
        moving.setFrame({++x / 100, 0, 20, 20});
        return names().size() == 2;
      },
      2));
  other.setHidden(true);
  EXPECT_TRUE(support::runUntil([&] { return names().size() == 1; }));
}

}  // namespace
