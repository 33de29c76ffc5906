#include "toolkit/TextBuffer.h"

#include <algorithm>
#include <utility>

namespace toolkit {
namespace {

constexpr std::size_t longestHistory = 200;
constexpr char32_t zeroWidthJoiner = 0x200D;

struct CodePoint {
  char32_t value;
  std::size_t length;
};

/// A byte that begins no valid sequence counts as one code point.
CodePoint codePointAt(std::string_view text, std::size_t place) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
  };
  const unsigned first = byte(place);
  const std::size_t length = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                             : first < 0xF5 ? 4
                                            : 0;
  if (length <= 1) return {length == 1 ? first : 0xFFFD, 1};
  char32_t value = first & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned next = byte(place + i);
    if ((next & 0xC0u) != 0x80) return {0xFFFD, 1};
    value = value << 6 | (next & 0x3Fu);
  }
  return {value, length};
}

bool within(char32_t c, char32_t first, char32_t last) { return c >= first && c <= last; }

/// Belongs to the character before it: combining marks, variation selectors, skin tones, tags.
bool extends(char32_t c) {
  return within(c, 0x300, 0x36F) || within(c, 0x483, 0x489) || within(c, 0x591, 0x5BD) ||
         within(c, 0x610, 0x61A) || within(c, 0x64B, 0x65F) || within(c, 0x93A, 0x94F) ||
         within(c, 0xE31, 0xE3A) || within(c, 0x1AB0, 0x1AFF) || within(c, 0x1DC0, 0x1DFF) ||
         within(c, 0x20D0, 0x20FF) || within(c, 0x3099, 0x309A) || within(c, 0xFE00, 0xFE0F) ||
         within(c, 0xFE20, 0xFE2F) || within(c, 0x1F3FB, 0x1F3FF) || within(c, 0xE0020, 0xE007F) ||
         within(c, 0xE0100, 0xE01EF) || c == zeroWidthJoiner;
}

bool isFlagHalf(char32_t c) { return within(c, 0x1F1E6, 0x1F1FF); }

bool isWord(char32_t c) {
  return within(c, '0', '9') || within(c, 'A', 'Z') || within(c, 'a', 'z') || c == '_' || c >= 0xAA;
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
  const bool word = isWord(codePointAt(text_, start).value);
  const auto isSame = [&](std::size_t at) { return isWord(codePointAt(text_, at).value) == word; };
  while (start > 0 && isSame(previous(start))) start = previous(start);
  std::size_t end = next(start);
  while (end < text_.size() && isSame(end)) end = next(end);
  anchor_ = start;
  caret_ = end;
  lastEdit_ = Edit::none;
}

std::size_t TextBuffer::next(std::size_t place) const {
  if (place >= text_.size()) return text_.size();
  CodePoint before = codePointAt(text_, place);
  place += before.length;
  if (isFlagHalf(before.value) && isFlagHalf(codePointAt(text_, place).value))
    place += codePointAt(text_, place).length;
  while (place < text_.size()) {
    const CodePoint after = codePointAt(text_, place);
    if (!extends(after.value) && before.value != zeroWidthJoiner) break;
    place += after.length;
    before = after;
  }
  return std::min(place, text_.size());
}

std::size_t TextBuffer::previous(std::size_t place) const {
  // Only from the front is it known what belongs together; a line is short.
  std::size_t at = 0;
  while (at < place && next(at) < place) at = next(at);
  return at;
}

std::size_t TextBuffer::previousWord(std::size_t place) const {
  const auto isWordBefore = [&](std::size_t at) {
    return isWord(codePointAt(text_, previous(at)).value);
  };
  while (place > 0 && !isWordBefore(place)) place = previous(place);
  while (place > 0 && isWordBefore(place)) place = previous(place);
  return place;
}

std::size_t TextBuffer::nextWord(std::size_t place) const {
  const auto isWordAt = [&](std::size_t at) { return isWord(codePointAt(text_, at).value); };
  while (place < text_.size() && isWordAt(place)) place = next(place);
  while (place < text_.size() && !isWordAt(place)) place = next(place);
  return place;
}

bool TextBuffer::insert(std::string_view text) {
  const std::string line = oneLine(text);
  if (line.empty() && !hasSelection()) return false;
  const bool typed = !hasSelection() && codePointAt(line, 0).length == line.size();
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
  if (undo_.size() == longestHistory) undo_.erase(undo_.begin());
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
