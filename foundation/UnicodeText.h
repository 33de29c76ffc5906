#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace foundation {

// All of what the system knows of Unicode. Texts are UTF-8; each run of bytes that is no part of a
// well-formed code point counts as one U+FFFD, however long, overlong or cut off it is.

struct CodePoint {
  char32_t value = U'\uFFFD';
  /// In bytes.
  std::size_t length = 0;
  bool isWellFormed = false;
};

/// What begins at `place`, which must be within `text`.
CodePoint codePointAt(std::string_view text, std::size_t place);
std::size_t countCodePoints(std::string_view text);
bool isUtf8(std::string_view text);
/// UTF-8 without what XML has no form for: control characters and the two that are none.
bool isPlainText(std::string_view text);

// Between what a reader takes for characters: a letter with its accents, a syllable of Hangul or
// of an Indian script, an emoji with its parts. Ends of the text answer themselves.

std::size_t nextCharacter(std::string_view text, std::size_t place);
std::size_t previousCharacter(std::string_view text, std::size_t place);

/// In lower case, by the rules that hold in every language. An accent is one with its letter, in
/// whichever form it was written, so that texts which read the same become the same.
std::string lowercased(std::string_view text);
/// The same in upper case.
std::string uppercased(std::string_view text);
/// Whether two texts are the same to a reader: accents may be one with their letter in the one and
/// follow it in the other, as in the names of files that come from other systems.
bool isSameText(std::string_view a, std::string_view b);

/// `text` with U+FFFD in the place of what is ill-formed, and of every code point that an XML
/// document may not hold.
std::string xmlText(std::string_view text);

std::u16string utf16FromUtf8(std::string_view text);
/// From pairs of bytes, the higher one first; half of a surrogate pair becomes U+FFFD.
std::string utf8FromUtf16(std::span<const std::uint8_t> bytes);

}  // namespace foundation
