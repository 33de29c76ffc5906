#pragma once

#include <array>

#include "examples/Halden/dsp/OnePole.h"

namespace halden {

/// Soft clipping of a stereo sound at twice the sample rate, so that little of what it adds folds
/// back. While it is on its sound is `latency` samples late. Switched off it goes on unheard, so that
/// it begins without a click.
class Drive {
 public:
  static constexpr int latency = 15;

  struct Settings {
    /// 0 is off, 1 is on; in between while it is switched.
    Ramp amount;
    /// Into the clipper, and out of it to bring the loudness back.
    Ramp inputGain, outputGain;
    Ramp mix;
    float toneFrequency = 20000;
  };

  void setSampleRate(float sampleRate);
  void reset();
  void process(const Settings& settings, int begin, int count, float* left, float* right);

 private:
  /// Half-band filter: `taps` of its coefficients are not zero beside the middle one.
  static constexpr int taps = 8;
  static constexpr int historyLength = 32;
  using History = std::array<float, 2 * historyLength>;

  struct Channel {
    float process(float input, float gain);

    History slow{}, fastEven{}, fastOdd{};
    OnePole tone;
    int position = 0;
  };

  std::array<Channel, 2> channels_;
  float sampleRate_ = 48000;
};

}  // namespace halden
