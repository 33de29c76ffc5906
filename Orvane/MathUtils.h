#pragma once

#include <string_view>

namespace orvane {

/// Conversions of numbers.
struct MathUtils {
  // The pitch scale on which every hertz parameter is shown: semitones, with MIDI's note 0 at 0.

  /// -1500, which stands for no pitch, for a frequency of 0 or below.
  static float toMidi(float frequency);
  static float toFreq(float pitch);

  /// The number that `text` begins with, after blanks, with a point for decimals in every language;
  /// whatever follows it does not count. 0 when there is none; beyond a float's range the largest.
  static float floatValue(std::string_view text);
};

}  // namespace orvane
