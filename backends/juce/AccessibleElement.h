#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

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

}  // namespace juce_backend
