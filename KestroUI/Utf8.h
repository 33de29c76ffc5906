#pragma once

#include <cstddef>
#include <string_view>

namespace kestroui {

/// Code points in `text`: enough to estimate how wide it is before a canvas can measure it.
inline std::size_t utf8Length(std::string_view text) {
  std::size_t length = 0;
  for (char c : text) length += (static_cast<unsigned char>(c) & 0xC0u) != 0x80u;
  return length;
}

}  // namespace kestroui
