#pragma once

#include <array>

#include "examples/Halden/dsp/DelayLine.h"
#include "examples/Halden/dsp/OnePole.h"

namespace halden {

/// An echo that swings between left and right and gets darker with each turn. A new time is faded
/// over to, so that moving it neither clicks nor bends the pitch.
class StereoDelay {
 public:
  static constexpr float maxSeconds = 3;

  struct Settings {
    /// 0 is off, 1 is on; in between while it is switched.
    Ramp amount;
    Ramp mix;
    Ramp feedback;
    float seconds = 0.35f;
    /// The echoes lie between these.
    float lowCutFrequency = 110, toneFrequency = 4000;
  };

  /// Until what has entered is 60 dB down at these settings.
  static float tailSeconds(float seconds, float feedback, float lowCutFrequency,
                           float toneFrequency, float sampleRate);

  void setSampleRate(float sampleRate);
  void reset();
  void process(const Settings& settings, int begin, int count, float* left, float* right);

 private:
  void chooseTime(float seconds);

  std::array<DelayLine, 2> lines_;
  std::array<OnePole, 2> highCut_, lowCut_;
  float sampleRate_ = 48000;
  float time_ = 0;
  float nextTime_ = 0;
  /// From 0 at `time_` to 1 at `nextTime_`.
  float fade_ = 0;
  /// Samples since anything was to be heard in the lines.
  float quietSamples_ = 0;
  bool resting_ = true;
};

}  // namespace halden
