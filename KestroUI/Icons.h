#pragma once

#include <optional>
#include <string_view>

#include "platform/Image.h"
#include "platform/Path.h"

namespace kestroui {

/// The family's icons. They are drawn, so they are sharp at any size. Paths lie in the unit square,
/// y downwards; images are templates that take the tint.
namespace Icons {

enum class Waveform { sine, triangle, saw, ramp, square, pulse, noise, sampleAndHold };

/// By a name as parameters give it, in any case: "Sine", "Saw down", "S&H"; none for other texts.
std::optional<Waveform> waveformNamed(std::string_view name);
/// One period, to be stroked.
platform::Path waveform(Waveform waveform);

/// To be stroked.
platform::Path chevronLeft();
platform::Path chevronRight();
platform::Path chevronDown();
platform::Path cross();
/// To be filled.
platform::Path magnifier();
platform::Path star();

/// A picture by its name, with or without ".png": presets, smallCross, kestro_centered (the mark),
/// help, like, contact, cloud, dice, play, camera, people, chat. Empty for any other.
platform::Image image(std::string_view name);

/// `path`, which lies in the unit square, in `rect`.
platform::Path fitted(const platform::Path& path, const platform::Rect& rect);
/// The largest square in the middle of `rect`.
platform::Rect squareIn(const platform::Rect& rect);

}  // namespace Icons

}  // namespace kestroui
