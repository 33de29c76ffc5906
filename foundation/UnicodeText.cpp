#include "platform/UnicodeText.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>

#include "foundation/Utf8.h"

namespace platform {

namespace {

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

icu::UnicodeString unicode(std::string_view text) {
  return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

/// Moves the letters from `first` to `last` by `distance`.
std::string shifted(std::string_view text, char first, char last, int distance) {
  std::string result(text);
  for (char& c : result)
    if (c >= first && c <= last) c = static_cast<char>(c + distance);
  return result;
}

}  // namespace

bool isUTF8(std::string_view text) { return foundation::isUtf8(text); }

// Most texts are ASCII, and ICU is not quick to start.

std::string lowercased(std::string_view text) {
  if (isAscii(text)) return shifted(text, 'A', 'Z', 'a' - 'A');
  std::string result;
  return unicode(text).toLower(icu::Locale::getRoot()).toUTF8String(result);
}

std::string uppercased(std::string_view text) {
  if (isAscii(text)) return shifted(text, 'a', 'z', 'A' - 'a');
  std::string result;
  return unicode(text).toUpper(icu::Locale::getRoot()).toUTF8String(result);
}

}  // namespace platform
