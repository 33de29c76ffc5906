#pragma once

#include <array>

#include "examples/Halden/dsp/DelayLine.h"
#include "examples/Halden/dsp/OnePole.h"

namespace halden {

/// Three slowly moving copies of the sound, spread over left and right, with the bass kept still.
/// Switched off it goes on listening, so that its copies are there when it begins.
class Chorus {
 public:
  struct Settings {
    /// 0 is off, 1 is on; in between while it is switched.
    Ramp amount;
    Ramp mix;
    /// Share of the widest movement.
    Ramp depth;
    float rate = 0.5f;
  };

  void setSampleRate(float sampleRate);
  void reset();
  void process(const Settings& settings, int begin, int count, float* left, float* right);

 private:
  std::array<DelayLine, 2> lines_;
  std::array<OnePole, 2> lowCut_;
  float sampleRate_ = 48000;
  float phase_ = 0;
};

}  // namespace halden
