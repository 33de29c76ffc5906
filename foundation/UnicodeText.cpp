#include "foundation/UnicodeText.h"

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <memory>

namespace foundation {

namespace {

// Most texts are ASCII, and ICU is not quick to start.

bool isAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return isAscii(c); });
}

icu::UnicodeString unicode(std::string_view text) {
  return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

icu::UnicodeString composed(const icu::UnicodeString& text) {
  UErrorCode error = U_ZERO_ERROR;
  const icu::Normalizer2* const form = icu::Normalizer2::getNFCInstance(error);
  if (U_FAILURE(error)) return text;
  icu::UnicodeString result = form->normalize(text, error);
  return U_FAILURE(error) ? text : result;
}

/// Moves the letters from `first` to `last` by `distance`.
std::string shifted(std::string_view text, char first, char last, int distance) {
  std::string result(text);
  for (char& c : result)
    if (c >= first && c <= last) c = static_cast<char>(c + distance);
  return result;
}

/// Calls `find` with an iterator over the characters of `text`, and answers its place; `otherwise`
/// when there is none.
template <typename Find>
std::size_t characterPlace(std::string_view text, std::size_t otherwise, Find find) {
  UErrorCode error = U_ZERO_ERROR;
  // Only the first in a process takes long.
  const std::unique_ptr<icu::BreakIterator> characters(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), error));
  UText bytes = UTEXT_INITIALIZER;
  utext_openUTF8(&bytes, text.data(), static_cast<std::int64_t>(text.size()), &error);
  std::int32_t place = icu::BreakIterator::DONE;
  if (U_SUCCESS(error)) characters->setText(&bytes, error);
  if (U_SUCCESS(error)) place = find(*characters);
  utext_close(&bytes);
  return place == icu::BreakIterator::DONE ? otherwise : static_cast<std::size_t>(place);
}

bool isAllowedInXml(const CodePoint& point) {
  if (point.value < 0x20) return point.value == '\t' || point.value == '\n' || point.value == '\r';
  return point.isWellFormed && point.value != 0xfffe && point.value != 0xffff;
}

}  // namespace

CodePoint codePointAt(std::string_view text, std::size_t place) {
  const std::string_view rest = text.substr(place);
  std::size_t length = 0;
  UChar32 value = 0;
  U8_NEXT(rest.data(), length, rest.size(), value);
  if (value < 0) return {U'\uFFFD', length, false};
  return {static_cast<char32_t>(value), length, true};
}

std::size_t countCodePoints(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); at += codePointAt(text, at).length) ++count;
  return count;
}

bool isUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const CodePoint point = codePointAt(text, at);
    if (!point.isWellFormed) return false;
    at += point.length;
  }
  return true;
}

bool isPlainText(std::string_view text) {
  const bool hasControls = std::any_of(text.begin(), text.end(),
                                       [](char c) { return static_cast<unsigned char>(c) < 0x20; });
  return isUtf8(text) && !hasControls && text.find("\xef\xbf\xbe") == text.npos &&
         text.find("\xef\xbf\xbf") == text.npos;
}

// Between two ASCII characters there is always a boundary, but for the two of a line's end.

std::size_t nextCharacter(std::string_view text, std::size_t place) {
  if (place >= text.size()) return text.size();
  const std::size_t next = place + 1;
  if (isAscii(text[place]) && text[place] != '\r' && (next == text.size() || isAscii(text[next])))
    return next;
  return characterPlace(text, text.size(), [&](icu::BreakIterator& characters) {
    return characters.following(static_cast<std::int32_t>(place));
  });
}

std::size_t previousCharacter(std::string_view text, std::size_t place) {
  if (place == 0) return 0;
  place = std::min(place, text.size());
  const std::size_t before = place - 1;
  if (isAscii(text[before]) && text[before] != '\n' && (before == 0 || isAscii(text[before - 1])))
    return before;
  return characterPlace(text, 0, [&](icu::BreakIterator& characters) {
    return characters.preceding(static_cast<std::int32_t>(place));
  });
}

std::string lowercased(std::string_view text) {
  if (isAscii(text)) return shifted(text, 'A', 'Z', 'a' - 'A');
  std::string result;
  return composed(unicode(text).toLower(icu::Locale::getRoot())).toUTF8String(result);
}

std::string uppercased(std::string_view text) {
  if (isAscii(text)) return shifted(text, 'a', 'z', 'A' - 'a');
  std::string result;
  return composed(unicode(text).toUpper(icu::Locale::getRoot())).toUTF8String(result);
}

bool isSameText(std::string_view a, std::string_view b) {
  if (a == b) return true;
  if (isAscii(a) && isAscii(b)) return false;
  return composed(unicode(a)) == composed(unicode(b));
}

std::string xmlText(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const CodePoint point = codePointAt(text, at);
    result += isAllowedInXml(point) ? text.substr(at, point.length) : "\xef\xbf\xbd";
    at += point.length;
  }
  return result;
}

std::u16string utf16FromUtf8(std::string_view text) {
  const icu::UnicodeString units = unicode(text);
  return {units.getBuffer(), static_cast<std::size_t>(units.length())};
}

std::string utf8FromUtf16(std::span<const std::uint8_t> bytes) {
  icu::UnicodeString units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
    units += static_cast<char16_t>(bytes[i] << 8 | bytes[i + 1]);
  std::string result;
  return units.toUTF8String(result);
}

}  // namespace foundation
