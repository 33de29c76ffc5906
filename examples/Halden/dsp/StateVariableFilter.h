#pragma once

#include "examples/Halden/dsp/Math.h"

namespace halden {

/// A two-pole filter by trapezoidal integration: its outputs are right up to half the sample rate
/// and it stays stable however fast its cutoff moves. Loud resonance is held by a soft limit on
/// its memory, so that it can be driven to self-oscillation and no further.
class StateVariableFilter {
 public:
  struct Coefficients {
    Coefficients() = default;
    /// `g` is warp(frequency); `damping` is 1 / Q.
    Coefficients(float g, float damping)
        : k(damping), a1(1 / (1 + g * (g + damping))), a2(g * a1), a3(g * a2) {}

    float k = 2, a1 = 1, a2 = 0, a3 = 0;
  };

  struct Output {
    float low, band, high;
  };

  static float warp(float frequency, float sampleRate) {
    return std::tan(pi * std::clamp(frequency / sampleRate, 1e-5f, 0.46f));
  }

  void reset() { first_ = second_ = 0; }

  Output process(float input, const Coefficients& c) {
    const float difference = input - second_;
    const float band = c.a1 * first_ + c.a2 * difference;
    const float low = second_ + c.a2 * first_ + c.a3 * difference;
    first_ = limited(2 * band - first_);
    second_ = limited(2 * low - second_);
    return {low, band, input - c.k * band - low};
  }

 private:
  /// Leaves what is below 1.5 alone and never passes 6.
  static float limited(float x) {
    constexpr float knee = 1.5f, rest = 4.5f;
    const float size = std::abs(x);
    if (size <= knee) return x;
    return std::copysign(knee + rest * softClip((size - knee) * (1 / rest)), x);
  }

  float first_ = 0;
  float second_ = 0;
};

}  // namespace halden
