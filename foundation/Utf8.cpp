#include "foundation/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace foundation {

namespace {

/// The length of the well-formed character at the start of `text` and the character itself; 0 when
/// there is none.
std::size_t decode(std::string_view text, std::uint32_t& character) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t lead = byte(0);
  if (lead < 0x80) {
    character = lead;
    return 1;
  }
  const std::size_t length = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
  if (lead < 0xc2 || lead > 0xf4 || text.size() < length) return 0;
  character = lead & (0xffu >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xc0) != 0x80) return 0;
    character = character << 6 | (byte(i) & 0x3fu);
  }
  // Longer than need be, half of a UTF-16 pair, or past the last character.
  constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = character >= 0xd800 && character < 0xe000;
  return character < smallest[length] || surrogate || character > 0x10ffff ? 0 : length;
}

bool allowedInXml(std::uint32_t character) {
  if (character < 0x20) return character == '\t' || character == '\n' || character == '\r';
  return character != 0xfffe && character != 0xffff;
}

void append(std::string& text, std::uint32_t character) {
  const auto tail = [&](int shift) {
    text += static_cast<char>(0x80 | (character >> shift & 0x3f));
  };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xc0 | character >> 6);
    tail(0);
  } else if (character < 0x10000) {
    text += static_cast<char>(0xe0 | character >> 12);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xf0 | character >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

}  // namespace

bool isUtf8(std::string_view text) {
  std::uint32_t character = 0;
  while (!text.empty()) {
    const std::size_t length = decode(text, character);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string xmlText(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    std::uint32_t character = 0;
    const std::size_t length = decode(text, character);
    if (length > 0 && allowedInXml(character))
      result += text.substr(0, length);
    else
      result += "\xef\xbf\xbd";
    text.remove_prefix(length > 0 ? length : 1);
  }
  return result;
}

std::u16string utf16FromUtf8(std::string_view text) {
  std::u16string result;
  while (!text.empty()) {
    std::uint32_t character = 0;
    const std::size_t length = decode(text, character);
    if (length == 0) character = 0xfffd;
    if (character < 0x10000) {
      result += static_cast<char16_t>(character);
    } else {
      result += static_cast<char16_t>(0xd800 + ((character - 0x10000) >> 10));
      result += static_cast<char16_t>(0xdc00 + (character & 0x3ff));
    }
    text.remove_prefix(length > 0 ? length : 1);
  }
  return result;
}

std::string utf8FromUtf16(std::span<const std::uint8_t> bytes) {
  std::string result;
  const std::size_t units = bytes.size() / 2;
  const auto unit = [&](std::size_t i) -> std::uint32_t {
    return static_cast<std::uint32_t>(bytes[2 * i] << 8 | bytes[2 * i + 1]);
  };
  for (std::size_t i = 0; i < units; ++i) {
    std::uint32_t character = unit(i);
    if (character >= 0xd800 && character < 0xe000) {
      const std::uint32_t low = i + 1 < units ? unit(i + 1) : 0;
      if (character < 0xdc00 && low >= 0xdc00 && low < 0xe000) {
        character = 0x10000 + ((character - 0xd800) << 10) + (low - 0xdc00);
        ++i;
      } else {
        character = 0xfffd;
      }
    }
    append(result, character);
  }
  return result;
}

}  // namespace foundation
