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
  /// Its echoes have died away, unless it is given something new.
  bool isQuiet() const { return resting_ || quietSamples_ > std::max(time_, nextTime_) + 4; }
  /// For who does not call it any more while it is quiet: it forgets what it has in store.
  void rest() { resting_ = true; }

 private:
  void chooseTime(float seconds);

  std::array<DelayLine, 2> lines_;
  std::array<OnePole, 2> highCut_, lowCut_;
  float sampleRate_ = 48000;
  float time_ = 0;
  float nextTime_ = 0;
  /// From 0 at `time_` to 1 at `nextTime_`.
  float fade_ = 0;
  /// Samples since anything was to be heard of what the lines will say.
  float quietSamples_ = 0;
  /// Samples in the lines since it woke up: what lies behind them is forgotten, without being wiped.
  float heardSamples_ = 0;
  bool resting_ = true;
};

}  // namespace halden
