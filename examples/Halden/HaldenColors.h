#pragma once

#include "platform/Color.h"

namespace halden::Colors {

/// The accents of the sections.
inline constexpr platform::Color sand = platform::Color::rgb(0xe8b66b);
inline constexpr platform::Color coral = platform::Color::rgb(0xe78873);
inline constexpr platform::Color moss = platform::Color::rgb(0x9cc27a);
inline constexpr platform::Color ash = platform::Color::rgb(0xa9b4c4);
inline constexpr platform::Color sky = platform::Color::rgb(0x74b3e8);
inline constexpr platform::Color violet = platform::Color::rgb(0xb394ec);
inline constexpr platform::Color rose = platform::Color::rgb(0xe58bb2);
inline constexpr platform::Color teal = platform::Color::rgb(0x4fc1b6);

}  // namespace halden::Colors
