#pragma once

#include "examples/Halden/dsp/StateVariableFilter.h"

namespace selvik {

/// Says how far to turn a sound down while another one, its side chain, is loud. It hears the side
/// chain through a low-pass and a high-pass filter of 12 dB an octave. Audio thread.
class Ducker {
 public:
  struct Filter {
    float hertz = 1000;
    /// Level at its frequency, in decibels.
    float resonance = -3;
  };

  void setSampleRate(float sampleRate);
  void reset();
  /// Before the samples for which they hold.
  void setFilters(const Filter& lowPass, const Filter& highPass);
  void setRelease(float seconds);
  /// Hears one sample and returns what the filters let through.
  float listen(float sample);
  /// At the level heard last, in decibels from 0 up. The threshold is in decibels; a ratio of 4 is
  /// one decibel out for four above it.
  float reduction(float threshold, float ratio) const;

 private:
  halden::StateVariableFilter lowPass_, highPass_;
  halden::StateVariableFilter::Coefficients low_, high_;
  float sampleRate_ = 48000;
  float attackShare_ = 1, releaseShare_ = 1;
  float level_ = 0;
};

}  // namespace selvik
