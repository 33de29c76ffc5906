#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>

namespace platform {

/// A colour in sRGB, every component from 0 to 1, alpha not premultiplied.
struct Color {
  float red = 0, green = 0, blue = 0, alpha = 1;

  static constexpr Color white() { return {1, 1, 1, 1}; }
  static constexpr Color black() { return {0, 0, 0, 1}; }
  static constexpr Color clear() { return {0, 0, 0, 0}; }

  /// From 0xRRGGBB.
  static constexpr Color rgb(std::uint32_t hex) {
    return {static_cast<float>((hex >> 16) & 255) / 255.0f,
            static_cast<float>((hex >> 8) & 255) / 255.0f, static_cast<float>(hex & 255) / 255.0f,
            1};
  }

  /// From "#rrggbb" or "#rrggbbaa"; none when the text has another form.
  static std::optional<Color> parse(std::string_view text) {
    if ((text.size() != 7 && text.size() != 9) || text[0] != '#') return std::nullopt;
    std::uint32_t value = 0;
    for (char c : text.substr(1)) {
      const int digit = c >= '0' && c <= '9'   ? c - '0'
                        : c >= 'a' && c <= 'f' ? c - 'a' + 10
                        : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                               : -1;
      if (digit < 0) return std::nullopt;
      value = value << 4 | static_cast<std::uint32_t>(digit);
    }
    if (text.size() == 7) return rgb(value);
    return rgb(value >> 8).withAlpha(static_cast<float>(value & 255) / 255.0f);
  }

  constexpr Color withAlpha(float newAlpha) const { return {red, green, blue, newAlpha}; }

  /// Part of the way to `other`: 0 is this colour, 1 the other, alpha included.
  constexpr Color mixed(Color other, float part) const {
    return {red + (other.red - red) * part, green + (other.green - green) * part,
            blue + (other.blue - blue) * part, alpha + (other.alpha - alpha) * part};
  }

  /// 0xAARRGGBB, each component rounded to 8 bits.
  std::uint32_t argb() const {
    const auto byte = [](float v) {
      return static_cast<std::uint32_t>(std::lround(std::fmin(std::fmax(v, 0.0f), 1.0f) * 255.0f));
    };
    return byte(alpha) << 24 | byte(red) << 16 | byte(green) << 8 | byte(blue);
  }

  friend constexpr bool operator==(const Color&, const Color&) = default;
};

}  // namespace platform
