#pragma once

#include <array>

#include "examples/Halden/dsp/OnePole.h"

namespace halden {

/// How the drive bends the sound; in the order of the parameter's names.
enum class DriveShape { soft, tube, hard, fold };
inline constexpr std::size_t driveShapeCount = 4;

/// What a shape makes of a sample; 1 at most.
float driven(DriveShape shape, float in);

/// Bends a stereo sound on a curve at twice the sample rate, so that little of what it adds folds
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
    /// Added to the sound before the gain, from -0.5 to 0.5.
    Ramp bias;
    /// What the shapes make of the bias alone, taken off again.
    Ramp constantPart;
    /// How much of each shape is heard: one of them at 1 but for the few milliseconds of a change.
    std::array<Ramp, driveShapeCount> shapes{Ramp::constant(1)};
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
  using History = std::array<float, std::size_t{2} * historyLength>;

  struct Channel {
    float process(float input, const Settings& settings, int sample);

    History slow{}, fastEven{}, fastOdd{};
    OnePole tone;
    int position = 0;
  };

  std::array<Channel, 2> channels_;
  float sampleRate_ = 48000;
};

}  // namespace halden
