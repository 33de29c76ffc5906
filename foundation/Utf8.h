#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace foundation {

/// Whether `text` is UTF-8 from its first byte to its last.
bool isUtf8(std::string_view text);

/// `text` with U+FFFD in the place of every byte that is not part of a well-formed UTF-8 character,
/// and of every character that an XML document may not hold.
std::string xmlText(std::string_view text);

/// Bytes that are not part of a well-formed character become U+FFFD.
std::u16string utf16FromUtf8(std::string_view text);

/// From pairs of bytes, the higher one first; half of a surrogate pair becomes U+FFFD.
std::string utf8FromUtf16(std::span<const std::uint8_t> bytes);

}  // namespace foundation
