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
  /// In points.
  void setTextSize(double size);

  platform::Accessibility accessibility() const override;
  void paint(platform::Canvas& canvas) override;

 private:
  double textSize_ = 12;
};

/// Whoever wants to know what is chosen in a MultiSelectable. Held weakly.
class MultiSelectableDelegate {
 public:
  virtual ~MultiSelectableDelegate() = default;
  /// After every change; the control's `selectedValues` says what is chosen now.
  virtual void selectedValuesChanged() = 0;
};

/// A row of texts of which any number may be chosen at once: a tap switches one. Longer texts get
/// more of the width. Its owner may let it have several rows, so that many texts stay readable.
/// User-interface thread only.
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

  /// As many rows as it takes for all texts to be read, of which the only one has this size, in
  /// points; answers the height of all. To be called by whoever places it in a window.
  double fitRows(const platform::Size& row);

  /// The action of every button: switches it. A sender that is none of them is ignored.
  void handleTouchDown(toolkit::Control& sender);

  void draw(const platform::Rect& rect) override;
  void setNeedsDisplay() override;

 private:
  /// What the texts of buttons that share `rows` rows of this width can be set in, in points.
  double textSize(std::size_t rows, double width, double wanted) const;
  /// The row of each button, in order: all rows weigh about the same.
  std::vector<std::size_t> rowsOfButtons(std::size_t rows) const;
  std::vector<double> widthsOfButtons(std::size_t rows, double width) const;
  void selectionChanged();

  std::size_t rows_ = 1;
  std::vector<std::string> values_;
  std::vector<std::string> selectedValues_;
  std::vector<std::unique_ptr<MultiSelectableButton>> buttons_;
};

}  // namespace orvane
