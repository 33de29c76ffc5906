#pragma once

#include <cstddef>
#include <span>

#include "examples/Halden/dsp/StereoDelay.h"
#include "examples/Selvik/Ducker.h"

namespace selvik {

/// The whole sound: an echo, and a ducker that turns it down while the sound itself is loud.
/// `setSampleRate` allocates; everything else is for the audio thread.
class DuckedEcho {
 public:
  /// Shares from 0 to 1, levels in decibels.
  struct Settings {
    float seconds = 0.375f;
    float feedback = 0.4f, mix = 0.4f;
    float lowCut = 160, highCut = 5000;
    Ducker::Filter lowPass, highPass;
    float threshold = -30, ratio = 4, releaseSeconds = 0.25f;
    /// 1 is to hear what the ducker hears.
    float listen = 0;
  };

  void setSampleRate(double sampleRate);
  /// Silent at once, as after setSampleRate.
  void reset();
  /// Two of each; outputs may be the inputs, and so may what the ducker listens to. Values glide to the
  /// settings over a few milliseconds.
  void process(const Settings& settings, std::span<const float* const> inputs,
               std::span<const float* const> listened, std::span<float* const> outputs,
               std::size_t frames);
  /// The most that the echo was turned down in the last call.
  float reduction() const { return reduction_; }

 private:
  static constexpr std::size_t frameLength = 16;
  void glide(const Settings& settings, std::size_t count);
  /// `heard` is what the ducker hears, and afterwards what of it passes its filters.
  void processFrame(float* left, float* right, float* heard, std::size_t count);

  halden::StereoDelay delay_;
  halden::StereoDelay::Settings delaySettings_;
  Ducker ducker_;
  Settings now_;
  float sampleRate_ = 48000;
  float reduction_ = 0;
  bool fresh_ = true;
};

}  // namespace selvik
