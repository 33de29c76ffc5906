#include "foundation/UnicodeText.h"

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <algorithm>

#include "foundation/Utf8.h"

namespace foundation {

namespace {

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
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

}  // namespace

bool isUTF8(std::string_view text) { return isUtf8(text); }

// Most texts are ASCII, and ICU is not quick to start.

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

}  // namespace foundation
