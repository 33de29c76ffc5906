#pragma once

#include <memory>
#include <string>
#include <vector>

#include "KestroUI/Switches.h"
#include "toolkit/Control.h"

namespace orvane {

/// One value of a MultiSelectable: a text that is on or off. Its owner switches it.
class MultiSelectableButton : public kestroui::OnOffButton {
 public:
  explicit MultiSelectableButton(std::string text);

  /// Its share of the row's width.
  float weight = 1.0f;
  const std::string& text() const { return titles().front(); }

  platform::Accessibility accessibility() const override;
  void paint(platform::Canvas& canvas) override;
};

/// Whoever wants to know what is chosen in a MultiSelectable. Held weakly.
class MultiSelectableDelegate {
 public:
  virtual ~MultiSelectableDelegate() = default;
  /// After every change; the control's `selectedValues` says what is chosen now.
  virtual void selectedValuesChanged() = 0;
};

/// A row of texts of which any number may be chosen at once: a tap switches one. Longer texts get
/// more of the width. User-interface thread only.
class MultiSelectable : public toolkit::Control {
 public:
  MultiSelectable() = default;

  platform::Weak<MultiSelectableDelegate> delegate;

  /// In display order.
  const std::vector<std::string>& values() const { return values_; }
  /// Makes a new button for each text, all off; `selectedValues` stays until the next change.
  void setValues(std::vector<std::string> values);
  /// The texts that are on, in display order whatever the order of the taps.
  const std::vector<std::string>& selectedValues() const { return selectedValues_; }
  /// Switches each button on exactly when its text is among `values`, and tells the delegate.
  void setSelectedValues(const std::vector<std::string>& values);
  const std::vector<std::unique_ptr<MultiSelectableButton>>& buttons() const { return buttons_; }

  /// The action of every button: switches it. A sender that is none of them is ignored.
  void handleTouchDown(toolkit::Control& sender);

  void draw(const platform::Rect& rect) override;
  void setNeedsDisplay() override;

 private:
  void selectionChanged();

  std::vector<std::string> values_;
  std::vector<std::string> selectedValues_;
  std::vector<std::unique_ptr<MultiSelectableButton>> buttons_;
};

}  // namespace orvane
