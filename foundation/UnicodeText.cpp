#include "platform/UnicodeText.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace platform {

std::string lowercased(std::string_view text) {
  // Most texts are ASCII, and ICU is not quick to start.
  std::string result(text);
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::all_of(result.begin(), result.end(), isAscii)) {
    for (char& c : result)
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return result;
  }
  result.clear();
  icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())})
      .toLower(icu::Locale::getRoot())
      .toUTF8String(result);
  return result;
}

}  // namespace platform
