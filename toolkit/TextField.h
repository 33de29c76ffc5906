#pragma once

#include <memory>
#include <string>

#include "foundation/RunLoop.h"
#include "toolkit/Control.h"

namespace toolkit {

class TextField;

/// Told about the Return key of a text field. Held weakly: the implementer is a WeakTarget.
class TextFieldDelegate {
 public:
  virtual ~TextFieldDelegate() = default;
  /// Return was pressed; true keeps the key from whoever else might use it. May destroy the field.
  virtual bool textFieldShouldReturn(TextField& field) = 0;
};

/// One line of text that its user edits: caret, selection, clipboard, undo and redo, placeholder
/// and a button that clears. Control characters and line breaks of what is typed, pasted or set
/// become blanks. Every change by the user sends editingChanged; getting and losing the keyboard
/// send editingDidBegin and editingDidEnd. Escape and Tab are left to whoever is around the field.
/// User-interface thread only.
class TextField : public Control {
 public:
  TextField();
  ~TextField() override;

  /// UTF-8.
  const std::string& text() const;
  /// Puts the caret at its end and forgets what could be undone. Sends nothing.
  void setText(const std::string& text);
  void selectAll();
  /// The selected part of the text; empty without a selection.
  std::string selectedText() const;

  const std::string& placeholder() const { return placeholder_; }
  /// Shown while the text is empty.
  void setPlaceholder(std::string text, platform::Color color);
  const platform::Font& font() const { return font_; }
  void setFont(const platform::Font& font);
  platform::Color textColor() const { return textColor_; }
  void setTextColor(platform::Color color);
  /// Of the caret, of the outline while the field has the keyboard and, paler, of the selection.
  void setTintColor(platform::Color color);
  /// Free space before the text, in points.
  void setLeftInset(double points);
  /// A round button at the right end that empties the text; shown while there is one and the field
  /// has the keyboard. Off at first.
  void setClearButtonShown(bool shown);

  platform::Weak<TextFieldDelegate> delegate;

  bool canBecomeFirstResponder() const override { return isEnabled(); }
  void firstResponderChanged() override;
  bool keyPressed(const platform::KeyEvent& event) override;
  void touchBegan(const Touch& touch) override;
  void touchMoved(const Touch& touch) override;
  void touchEnded(const Touch& touch) override;
  void touchCancelled(const Touch& touch) override;
  platform::Accessibility accessibility() const override {
    return {platform::Accessibility::Role::field,
            accessibilityLabel().empty() ? placeholder_ : accessibilityLabel(), text()};
  }
  void draw(const platform::Rect& rect) override;
  void paint(platform::Canvas& canvas) override;

 private:
  class Buffer;

  bool isClearButtonVisible() const;
  /// Where the text may show.
  platform::Rect textRect() const;
  double widthOf(std::size_t from, std::size_t to) const;
  /// The place in the text nearest to `x` in this view's coordinates.
  std::size_t placeAt(double x) const;
  bool useShortcut(const std::string& letter, platform::Modifiers modifiers);
  bool moveCaret(const platform::KeyEvent& event);
  /// The caret is at a new place: it is lit, and kept in sight.
  void caretMoved();
  void changedByUser();

  std::unique_ptr<Buffer> buffer_;
  std::string placeholder_;
  platform::Color placeholderColor_ = platform::Color::white().withAlpha(0.4f);
  platform::Font font_;
  platform::Color textColor_ = platform::Color::white();
  platform::Color tintColor_ = platform::Color::white();
  double leftInset_ = 0;
  /// How far the text is pushed to the left so that the caret shows, in points.
  double scroll_ = 0;
  foundation::Timer blink_;
  bool caretLit_ = false;
  bool clearButtonShown_ = false;
  bool pressesClearButton_ = false;
};

}  // namespace toolkit
