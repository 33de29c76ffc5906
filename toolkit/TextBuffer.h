#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace toolkit {

/// A line of UTF-8 text with a caret, a selection and a history. Places are byte offsets between
/// what a reader takes for characters: a letter with its accents, an emoji with its parts.
class TextBuffer {
 public:
  enum class Selection { drop, extend };

  const std::string& text() const { return text_; }
  /// Caret at the end, no selection, no history.
  void setText(std::string_view text);

  std::size_t caret() const { return caret_; }
  /// The end of the selection where the caret is not; equal to the caret without one.
  std::size_t anchor() const { return anchor_; }
  std::size_t selectionStart() const { return caret_ < anchor_ ? caret_ : anchor_; }
  std::size_t selectionEnd() const { return caret_ < anchor_ ? anchor_ : caret_; }
  bool hasSelection() const { return caret_ != anchor_; }
  std::string selectedText() const;
  void moveTo(std::size_t place, Selection selection);
  void selectAll();
  /// The word, or the blanks, around `place`.
  void selectWordAt(std::size_t place);

  // Places around `place`; the ends of the text answer themselves.
  std::size_t previous(std::size_t place) const;
  std::size_t next(std::size_t place) const;
  std::size_t previousWord(std::size_t place) const;
  std::size_t nextWord(std::size_t place) const;

  // Edits; false when nothing changed.

  /// Replaces the selection. Letters typed after each other are undone together.
  bool insert(std::string_view text);
  /// Removes the selection, or what is between the caret and `place`.
  bool eraseTo(std::size_t place);
  bool undo();
  bool redo();

 private:
  struct State {
    std::string text;
    std::size_t caret = 0, anchor = 0;
  };
  enum class Edit { none, typing, erasing, other };

  void remember(Edit edit);
  void replaceSelection(std::string_view text);
  bool restore(std::vector<State>& from, std::vector<State>& to);

  std::string text_;
  std::size_t caret_ = 0;
  std::size_t anchor_ = 0;
  std::vector<State> undo_, redo_;
  Edit lastEdit_ = Edit::none;
};

}  // namespace toolkit
