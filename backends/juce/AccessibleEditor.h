#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>
#include <vector>

#include "toolkit/View.h"

namespace juce_backend {

/// Stands for one view of an editor before JUCE's accessibility, which knows only components: it
/// has the view's place, paints nothing and takes no input. What it tells is read from the view
/// whenever it is asked. Message thread only.
class AccessibleElement : public juce::Component {
 public:
  explicit AccessibleElement(toolkit::View& view);

  /// Null once it has gone.
  toolkit::View* view() const { return view_.get(); }
  /// Tells assistive technology when the value is another than at the last call.
  void announceChanges();

  std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

 private:
  platform::Weak<toolkit::View> view_;
  juce::String announced_;
};

/// The elements that stand for the shown views of an editor, as children of its component, in the
/// order of the design. It exists only once somebody has asked for the component's accessibility,
/// and looks again a moment after the editor has painted. Message thread only.
class AccessibleEditor : private juce::Timer {
 public:
  /// Both outlive it.
  AccessibleEditor(juce::Component& component, toolkit::View& root);

  const std::vector<std::unique_ptr<AccessibleElement>>& elements() const { return elements_; }
  /// Something may have changed.
  void look() {
    if (!isTimerRunning()) startTimer(lookDelay);
  }
  /// Brings the elements up to date.
  void update();

 private:
  /// In milliseconds: no need to keep up with a drag.
  static constexpr int lookDelay = 200;

  void timerCallback() override;

  juce::Component& component_;
  toolkit::View& root_;
  std::vector<std::unique_ptr<AccessibleElement>> elements_;
};

}  // namespace juce_backend
