#include "backends/juce/AccessibleEditor.h"

#include <algorithm>

#include "backends/juce/JuceInput.h"
#include "toolkit/Window.h"

namespace juce_backend {
namespace {

using platform::Accessibility;
using ViewPointer = platform::Weak<toolkit::View>;

Accessibility told(const ViewPointer& view) {
  return view ? view->accessibility() : Accessibility();
}

juce::AccessibilityRole roleOf(Accessibility::Role role) {
  switch (role) {
    case Accessibility::Role::none:
      return juce::AccessibilityRole::ignored;
    case Accessibility::Role::text:
      return juce::AccessibilityRole::staticText;
    case Accessibility::Role::button:
      return juce::AccessibilityRole::button;
    case Accessibility::Role::toggle:
      return juce::AccessibilityRole::toggleButton;
    case Accessibility::Role::tab:
      return juce::AccessibilityRole::radioButton;
    case Accessibility::Role::slider:
      return juce::AccessibilityRole::slider;
    case Accessibility::Role::choice:
      return juce::AccessibilityRole::comboBox;
    case Accessibility::Role::indicator:
      return juce::AccessibilityRole::progressBar;
    case Accessibility::Role::field:
      return juce::AccessibilityRole::editableText;
    case Accessibility::Role::row:
      return juce::AccessibilityRole::listItem;
  }
  return juce::AccessibilityRole::unspecified;
}

class ViewValue : public juce::AccessibilityValueInterface {
 public:
  explicit ViewValue(ViewPointer view) : view_(std::move(view)) {}

  bool isReadOnly() const override {
    const Accessibility::Role role = told(view_).role;
    return role == Accessibility::Role::indicator || role == Accessibility::Role::text;
  }
  double getCurrentValue() const override {
    const auto range = told(view_).range;
    return range ? range->value : 0;
  }
  juce::String getCurrentValueAsString() const override { return toText(told(view_).value); }
  void setValue(double value) override {
    if (view_) view_->setAccessibilityValue(value);
  }
  void setValueAsString(const juce::String& value) override { setValue(value.getDoubleValue()); }
  AccessibleValueRange getRange() const override {
    const auto range = told(view_).range;
    if (!range || !(range->minimum < range->maximum)) return {};
    return {{range->minimum, range->maximum}, range->step};
  }

 private:
  ViewPointer view_;
};

class ViewHandler : public juce::AccessibilityHandler {
 public:
  ViewHandler(juce::Component& component, ViewPointer view, juce::AccessibilityRole role,
              Interfaces interfaces)
      : AccessibilityHandler(component, role, actionsOf(view), std::move(interfaces)),
        view_(std::move(view)) {}

  juce::String getTitle() const override { return toText(told(view_).name); }
  juce::AccessibleState getCurrentState() const override {
    // JUCE passes over what cannot have the focus of a screen reader, which goes to texts too.
    juce::AccessibleState state = juce::AccessibleState().withFocusable();
    if (!view_) return state;
    if (view_->isFirstResponder()) state = state.withFocused();
    const Accessibility now = view_->accessibility();
    if (now.role == Accessibility::Role::toggle)
      state = now.range && now.range->value > 0.5 ? state.withCheckable().withChecked()
                                                  : state.withCheckable();
    return state;
  }

 private:
  static juce::AccessibilityActions actionsOf(const ViewPointer& view) {
    const auto press = [view] {
      if (view) view->keyPressed({platform::Key::space, platform::Modifiers::none, " "});
    };
    juce::AccessibilityActions actions;
    actions.addAction(juce::AccessibilityActionType::focus, [view] {
      if (view) view->becomeFirstResponder();
    });
    switch (told(view).role) {
      case Accessibility::Role::button:
      case Accessibility::Role::tab:
      case Accessibility::Role::row:
      case Accessibility::Role::choice:
        actions.addAction(juce::AccessibilityActionType::press, press);
        break;
      case Accessibility::Role::toggle:
        actions.addAction(juce::AccessibilityActionType::press, press);
        actions.addAction(juce::AccessibilityActionType::toggle, press);
        break;
      default:
        break;
    }
    return actions;
  }

  ViewPointer view_;
};

void collect(toolkit::View& view, std::vector<toolkit::View*>& found) {
  if (view.isHidden()) return;
  const Accessibility now = view.accessibility();
  if (now.role != Accessibility::Role::none && !now.name.empty() && !view.bounds().isEmpty())
    found.push_back(&view);
  // A row's texts are its own name.
  if (now.role == Accessibility::Role::row) return;
  for (toolkit::View* subview : view.reachableSubviews()) collect(*subview, found);
}

/// Adds what assistive technology reaches while a view is modal: that, and what stays in reach above
/// it. `isAbove` once the modal view has been passed.
void collectReachable(toolkit::View& view, const toolkit::View& modal, bool& isAbove,
                      std::vector<toolkit::View*>& found) {
  if (view.isHidden()) return;
  if (&view == &modal || (isAbove && view.isReachableBesideModals())) {
    isAbove = true;
    return collect(view, found);
  }
  for (toolkit::View* subview : view.subviews()) collectReachable(*subview, modal, isAbove, found);
}

}  // namespace

// The element of one view

AccessibleElement::AccessibleElement(toolkit::View& view)
    : view_(&view), announced_(toText(view.accessibility().value)) {
  setInterceptsMouseClicks(false, false);
  setWantsKeyboardFocus(false);
}

void AccessibleElement::announceChanges() {
  const juce::String value = toText(told(view_).value);
  if (value == announced_) return;
  announced_ = value;
  if (auto* handler = getAccessibilityHandler())
    handler->notifyAccessibilityEvent(juce::AccessibilityEvent::valueChanged);
}

std::unique_ptr<juce::AccessibilityHandler> AccessibleElement::createAccessibilityHandler() {
  const Accessibility now = told(view_);
  juce::AccessibilityHandler::Interfaces interfaces;
  if (now.range || !now.value.empty()) interfaces.value = std::make_unique<ViewValue>(view_);
  return std::make_unique<ViewHandler>(*this, view_, roleOf(now.role), std::move(interfaces));
}

// The elements of an editor

AccessibleEditor::AccessibleEditor(juce::Component& component, toolkit::View& root)
    : component_(component), root_(root) {
  // Not at once: whoever asks for the component's handler must have it before it has children.
  look();
}

void AccessibleEditor::timerCallback() {
  stopTimer();
  update();
}

void AccessibleEditor::update() {
  std::vector<toolkit::View*> views;
  const toolkit::Window* const window = root_.window();
  bool isAbove = false;
  if (const toolkit::View* const modal = window ? window->uppermostModal() : nullptr)
    collectReachable(root_, *modal, isAbove, views);
  else
    collect(root_, views);
  const bool same = std::equal(
      views.begin(), views.end(), elements_.begin(), elements_.end(),
      [](const toolkit::View* view, const auto& element) { return element->view() == view; });
  if (!same) {
    elements_.clear();
    for (toolkit::View* view : views) {
      elements_.push_back(std::make_unique<AccessibleElement>(*view));
      component_.addAndMakeVisible(*elements_.back());
      elements_.back()->setExplicitFocusOrder(static_cast<int>(elements_.size()));
    }
  }
  for (const auto& element : elements_) {
    const platform::Rect frame = element->view()->frameInRoot();
    element->setBounds(juce::Rectangle<double>(frame.x, frame.y, frame.width, frame.height)
                           .getSmallestIntegerContainer());
    element->announceChanges();
  }
}

}  // namespace juce_backend
