#pragma once

#include "examples/Halden/dsp/Math.h"

namespace halden {

/// A gentle low-pass of 6 dB an octave, by trapezoidal integration.
class OnePole {
 public:
  static float share(float frequency, float sampleRate) {
    const float g = std::tan(pi * std::clamp(frequency / sampleRate, 1e-6f, 0.47f));
    return g / (1 + g);
  }

  void reset() { memory_ = 0; }
  float low(float input, float share) {
    const float difference = (input - memory_) * share;
    const float output = memory_ + difference;
    memory_ = output + difference;
    return output;
  }
  float high(float input, float share) { return input - low(input, share); }

 private:
  float memory_ = 0;
};

}  // namespace halden
