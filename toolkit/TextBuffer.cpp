#include "toolkit/TextBuffer.h"

#include <algorithm>
#include <utility>

#include "foundation/UnicodeText.h"

namespace toolkit {
namespace {

constexpr std::size_t maxHistory = 200;
bool within(char32_t c, char32_t first, char32_t last) { return c >= first && c <= last; }

bool isWord(char32_t c) {
  return within(c, '0', '9') || within(c, 'A', 'Z') || within(c, 'a', 'z') || c == '_' || c >= 0xAA;
}

bool isWordAt(std::string_view text, std::size_t place) {
  return isWord(foundation::codePointAt(text, place).value);
}

/// Line breaks and other control characters cannot be shown in a line.
std::string oneLine(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    result += byte < 0x20 || byte == 0x7F ? ' ' : text[i];
  }
  return result;
}

}  // namespace

void TextBuffer::setText(std::string_view text) {
  text_ = oneLine(text);
  caret_ = anchor_ = text_.size();
  undo_.clear();
  redo_.clear();
  lastEdit_ = Edit::none;
}

std::string TextBuffer::selectedText() const {
  return text_.substr(selectionStart(), selectionEnd() - selectionStart());
}

void TextBuffer::moveTo(std::size_t place, Selection selection) {
  caret_ = std::min(place, text_.size());
  if (selection == Selection::drop) anchor_ = caret_;
  lastEdit_ = Edit::none;
}

void TextBuffer::selectAll() {
  anchor_ = 0;
  caret_ = text_.size();
  lastEdit_ = Edit::none;
}

void TextBuffer::selectWordAt(std::size_t place) {
  if (text_.empty()) return;
  std::size_t start = std::min(place, previous(text_.size()));
  const bool word = isWordAt(text_, start);
  const auto isSame = [&](std::size_t at) { return isWordAt(text_, at) == word; };
  while (start > 0 && isSame(previous(start))) start = previous(start);
  std::size_t end = next(start);
  while (end < text_.size() && isSame(end)) end = next(end);
  anchor_ = start;
  caret_ = end;
  lastEdit_ = Edit::none;
}

std::size_t TextBuffer::next(std::size_t place) const {
  return foundation::nextCharacter(text_, place);
}

std::size_t TextBuffer::previous(std::size_t place) const {
  return foundation::previousCharacter(text_, place);
}

std::size_t TextBuffer::previousWord(std::size_t place) const {
  const auto isWordBefore = [&](std::size_t at) { return isWordAt(text_, previous(at)); };
  while (place > 0 && !isWordBefore(place)) place = previous(place);
  while (place > 0 && isWordBefore(place)) place = previous(place);
  return place;
}

std::size_t TextBuffer::nextWord(std::size_t place) const {
  while (place < text_.size() && isWordAt(text_, place)) place = next(place);
  while (place < text_.size() && !isWordAt(text_, place)) place = next(place);
  return place;
}

bool TextBuffer::insert(std::string_view text) {
  const std::string line = oneLine(text);
  if (line.empty() && !hasSelection()) return false;
  const bool typed = !hasSelection() && foundation::nextCharacter(line, 0) == line.size();
  remember(typed ? Edit::typing : Edit::other);
  replaceSelection(line);
  return true;
}

bool TextBuffer::eraseTo(std::size_t place) {
  const bool one = !hasSelection();
  if (one && place == caret_) return false;
  remember(one ? Edit::erasing : Edit::other);
  if (one) anchor_ = std::min(place, text_.size());
  replaceSelection({});
  return true;
}

void TextBuffer::replaceSelection(std::string_view text) {
  const std::size_t start = selectionStart();
  text_.replace(start, selectionEnd() - start, text);
  caret_ = anchor_ = start + text.size();
}

void TextBuffer::remember(Edit edit) {
  redo_.clear();
  const bool continues = edit == lastEdit_ && edit != Edit::other;
  lastEdit_ = edit;
  if (continues) return;
  if (undo_.size() == maxHistory) undo_.erase(undo_.begin());
  undo_.push_back({text_, caret_, anchor_});
}

bool TextBuffer::undo() { return restore(undo_, redo_); }
bool TextBuffer::redo() { return restore(redo_, undo_); }

bool TextBuffer::restore(std::vector<State>& from, std::vector<State>& to) {
  if (from.empty()) return false;
  to.push_back({std::move(text_), caret_, anchor_});
  text_ = std::move(from.back().text);
  caret_ = from.back().caret;
  anchor_ = from.back().anchor;
  from.pop_back();
  lastEdit_ = Edit::none;
  return true;
}

}  // namespace toolkit
