#include "backends/juce/AccessibleEditor.h"

#include <algorithm>

namespace juce_backend {
namespace {

void collect(toolkit::View& view, std::vector<toolkit::View*>& found) {
  if (view.isHidden()) return;
  const platform::Accessibility told = view.accessibility();
  if (told.role != platform::Accessibility::Role::none && !told.name.empty() &&
      !view.bounds().isEmpty())
    found.push_back(&view);
  // A row's texts are its own name.
  if (told.role == platform::Accessibility::Role::row) return;
  for (toolkit::View* subview : view.subviews()) collect(*subview, found);
}

}  // namespace

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
