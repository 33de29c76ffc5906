#pragma once

#include <array>

#include "examples/Halden/dsp/DelayLine.h"
#include "examples/Halden/dsp/OnePole.h"

namespace halden {

/// A hall: eight delay lines that feed one another, behind a few all-pass filters that blur the
/// first reflections. Two of the lines breathe slowly, which keeps long tails from ringing.
class Reverb {
 public:
  static constexpr float maxPredelay = 0.15f;

  struct Settings {
    /// 0 is off, 1 is on; in between while it is switched.
    Ramp amount;
    Ramp mix;
    /// Seconds before the hall answers; at most longestPredelay.
    float predelay = 0;
    /// Seconds in which the tail falls by 60 dB.
    float decay = 2;
    /// Above it the tail dies faster.
    float toneFrequency = 6000;
  };

  void setSampleRate(float sampleRate);
  void reset();
  void process(const Settings& settings, int begin, int count, float* left, float* right);
  /// The hall has died away, unless it is given something new.
  bool isQuiet() const { return resting_ || quietSamples_ > (maxPredelay + 0.2f) * sampleRate_; }

 private:
  static constexpr std::size_t lineCount = 8;
  struct AllPass {
    float process(float input);

    DelayLine line;
    std::size_t length = 1;
  };

  std::array<DelayLine, lineCount> lines_;
  std::array<float, lineCount> lengths_{};
  std::array<OnePole, lineCount> damping_;
  /// By which each turn of a line is weaker; glides to what the decay asks for.
  std::array<float, lineCount> gains_{};
  std::array<AllPass, 4> blur_;
  std::array<DelayLine, 2> early_;
  OnePole lowCut_[2];
  float sampleRate_ = 48000;
  float phase_ = 0;
  /// Samples; glides to what the settings say.
  float predelay_ = 1;
  float quietSamples_ = 0;
  bool resting_ = true;
};

}  // namespace halden
