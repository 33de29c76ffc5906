#pragma once

namespace orvane {

/// The pitch scale on which every hertz parameter is shown: semitones, with MIDI's note 0 at 0.
struct MathUtils {
  /// -1500, which stands for no pitch, for a frequency of 0 or below.
  static float toMidi(float frequency);
  static float toFreq(float pitch);
};

}  // namespace orvane
