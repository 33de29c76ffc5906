#pragma once

#include <array>

#include "examples/Halden/dsp/Math.h"

namespace halden {

enum class Wave { sine, triangle, saw, square, pulse, noise };
inline constexpr int waveCount = 6;

/// Control frames are never longer than this.
inline constexpr int maximumFrameLength = 64;

/// How much of each wave is heard: one of them at 1 but for the few milliseconds of a change.
using WaveMix = std::array<Ramp, waveCount>;

/// One band-limited oscillator. Edges and corners are replaced by those of a cubic B-spline, four
/// samples wide, which keeps what folds back some 20 dB lower than the usual two-sample
/// correction does; the treble that this costs is given back by Voice.
class Oscillator {
 public:
  /// How a stretch of samples is made.
  struct Settings {
    /// Cycles per sample.
    Ramp increment;
    /// Share of the cycle that a pulse is high.
    Ramp width;
    const WaveMix* mix = nullptr;
    /// Added to the phase of every sample, in cycles; null for none.
    const float* phaseModulation = nullptr;
  };

  void reset(float phase, std::uint32_t seed);
  /// Writes `count` samples, of a control frame in which the first is sample `begin`.
  void render(const Settings& settings, int begin, int count, float* output);
  float phase() const { return phase_; }

 private:
  float phase_ = 0;
  float lastModulated_ = 0;
  bool modulated_ = false;
  Random random_;
};

}  // namespace halden
