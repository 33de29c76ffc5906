#pragma once

#include <string>

#include "Orvane/TextFieldOverlay.h"

namespace orvane {

/// The delegate of a value-entry panel. Held weakly. User-interface thread only.
class EnterValueOverlayDelegate : public TextFieldOverlayDelegate {
 public:
  /// RESET was pressed. The panel stays until the delegate hides it.
  virtual void enterValueOverlayDidReset() = 0;
};

/// Asks for the exact value of a control, or for its default: its delegate is an
/// EnterValueOverlayDelegate. A touch beside the panel closes it. User-interface thread only.
class EnterValueOverlay : public TextFieldOverlay {
 public:
  EnterValueOverlay();

  std::string titleText() const override { return "Please enter a value : "; }
  /// Shown in the field while it is empty: the value that the control has now.
  void setCurrentValueText(const std::string& text);

  toolkit::Control& outside() { return outside_; }
  kestroui::SimpleButton& resetButton() { return resetButton_; }

  void handleTouchDownReset();
  void handleTouchDownOutside();

  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  /// Behind the panel, over all of the editor.
  toolkit::Control outside_;
  /// The panel.
  toolkit::Layer back_;
  kestroui::SimpleButton resetButton_{"RESET"};
};

}  // namespace orvane
