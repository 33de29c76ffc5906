#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "KestroUI/ButtonGroups.h"
#include "Orvane/TextFieldOverlay.h"

namespace orvane {

/// The delegate of a value-entry panel. Held weakly. User-interface thread only.
class EnterValueOverlayDelegate : public TextFieldOverlayDelegate {
 public:
  /// RESET was pressed. The panel stays until the delegate hides it.
  virtual void enterValueOverlayDidReset() = 0;
  /// The user means another of the entries.
  virtual void enterValueOverlayDidChoose(std::size_t index) = 0;
};

/// Asks for the exact value of a control, or for its default: its delegate is an
/// EnterValueOverlayDelegate. Its heading says which value; where a handle moves several it offers
/// them all, for a tap or the up and down keys. A touch beside the panel closes it. User-interface
/// thread only.
class EnterValueOverlay : public TextFieldOverlay {
 public:
  struct Entry {
    std::string name;
    /// Shown in the field while that is empty: what the value is now, as it would be typed.
    std::string present;
  };

  EnterValueOverlay();

  std::string titleText() const override { return "Please enter a value : "; }
  /// What can be entered, `chosen` at first.
  void setEntries(std::vector<Entry> entries, std::size_t chosen);
  const std::vector<Entry>& entries() const { return entries_; }

  /// The name of the one entry.
  toolkit::Label& nameLabel() { return nameLabel_; }
  /// The names of several.
  kestroui::RadioButtons& nameButtons() { return nameButtons_; }
  toolkit::Control& outside() { return outside_; }
  kestroui::SimpleButton& resetButton() { return resetButton_; }

  void handleTouchDownReset();
  void handleTouchDownOutside();

  bool keyPressed(const platform::KeyEvent& event) override;
  void didMoveToSuperview() override;
  void draw(const platform::Rect& rect) override;

 private:
  void onChosen();
  void showPresent(std::size_t index);

  /// Behind the panel, over all of the editor.
  toolkit::Control outside_;
  /// The panel; its face keeps touches from what is outside.
  toolkit::View face_;
  toolkit::Layer back_;
  std::vector<Entry> entries_;
  toolkit::Label nameLabel_;
  kestroui::RadioButtons nameButtons_;
  kestroui::SimpleButton resetButton_{"RESET"};
};

}  // namespace orvane
