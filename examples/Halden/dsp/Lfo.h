#pragma once

#include "examples/Halden/dsp/Math.h"

namespace halden {

enum class LfoWave { sine, triangle, saw, square, pulse, random };
inline constexpr int lfoWaveCount = 6;

/// A slow oscillator, advanced once for each control frame. Its jumps are rounded off over two
/// milliseconds, so that a square may move anything without a click.
class Lfo {
 public:
  void reset(std::uint32_t seed);
  /// Puts the cycle where the song is.
  void setPhase(float phase);
  /// Moves on by `seconds` at `hertz`; `offset` is added to the phase, in cycles.
  void advance(LfoWave wave, float hertz, float offset, float seconds);
  /// From -1 to 1.
  float value() const { return value_; }

 private:
  float shape(LfoWave wave, float phase) const;

  float phase_ = 0;
  float value_ = 0;
  float previousRandom_ = 0;
  float random_ = 0;
  Random generator_;
};

}  // namespace halden
