#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>
#include <vector>

#include "backends/juce/AccessibleElement.h"
#include "toolkit/View.h"

namespace juce_backend {

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
