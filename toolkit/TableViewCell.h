#pragma once

#include "toolkit/Label.h"

namespace toolkit {

/// A row of a table: a text, in a content view that a subclass may make narrower to add something
/// beside it. Owned by its table, which shows it now here and now there; what it showed before is
/// to be overwritten by whoever fills it. User-interface thread only.
class TableViewCell : public View {
 public:
  TableViewCell();

  Label& textLabel() { return textLabel_; }
  View& contentView() { return contentView_; }
  /// Free space at both ends of the text, in points.
  void setTextInset(double points);
  /// What its row is drawn on.
  struct Colors {
    platform::Color background = platform::Color::clear();
    platform::Color selected = platform::Color::white().withAlpha(0.16f);
    /// A touch is down on it.
    platform::Color pressed = platform::Color::white().withAlpha(0.1f);
    /// One of several rows that are marked.
    platform::Color marked = platform::Color::white().withAlpha(0.22f);
    /// The outline of the row that the arrow keys have reached.
    platform::Color focused = platform::Color::white().withAlpha(0.5f);
  };
  void setColors(const Colors& colors);

  bool isSelected() const { return selected_; }
  virtual void setSelected(bool selected);
  bool isMarked() const { return marked_; }
  void setMarked(bool marked);
  bool isHighlighted() const { return highlighted_; }
  void setHighlighted(bool highlighted);
  bool isFocused() const { return focused_; }
  void setFocused(bool focused);

  platform::Accessibility accessibility() const override {
    return {platform::Accessibility::Role::row, textLabel_.text(),
            selected_ && marked_ ? "Selected, Marked"
            : selected_          ? "Selected"
            : marked_            ? "Marked"
                                 : ""};
  }
  void draw(const platform::Rect& rect) override;
  void paint(platform::Canvas& canvas) override;

 protected:
  /// Places the text in the content view, after that was made narrower.
  void layoutContent();

 private:
  void set(bool& state, bool value);

  View contentView_;
  Label textLabel_;
  Colors colors_;
  double textInset_ = 10;
  bool selected_ = false;
  bool marked_ = false;
  bool highlighted_ = false;
  bool focused_ = false;
};

}  // namespace toolkit
