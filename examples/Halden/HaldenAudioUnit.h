#pragma once

#include <atomic>
#include <string_view>
#include <vector>

#include "Quillon/CommonAudioUnit.h"
#include "examples/Halden/dsp/Synth.h"

namespace halden {

/// The instrument as hosts see it: parameters, presets and live values around a Synth.
class HaldenAudioUnit : public quillon::CommonAudioUnit {
 public:
  HaldenAudioUnit();

  bool hasStore() const override { return true; }
  int inputChannels() const override { return 0; }
  bool acceptsMidi() const override { return true; }
  /// Until a released note, its echoes and the hall are 60 dB down, one after the other.
  double tailSeconds() const override;
  void allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) override;
  void render(const platform::RenderBlock& block) override;

  /// Of the voices' filter, whose type is a parameter of its own.
  std::vector<double> magnitudesForFrequencies(const std::vector<double>& frequencies,
                                               std::string_view filterType,
                                               std::string_view frequencyParameter,
                                               std::string_view resonanceParameter) const override;
  std::vector<double> magnitudesForFrequencies(const std::vector<double>& frequencies,
                                               std::string_view filterType, float frequencyValue,
                                               float resonanceValue) const override;
  using CommonAudioUnit::magnitudesForFrequencies;

  /// In hertz; any thread.
  double displayedSampleRate() const { return displayedSampleRate_; }
  /// Entries a second of the second live buffer of "scopeTime", which holds the loudness; the first
  /// holds the sound.
  static constexpr double loudnessRate = 100;

 private:
  void readParameters();
  void publish(std::uint32_t frames, const float* left, const float* right);
  void publishModulated(Param param, bool modulated, float value);
  void publishSound(std::uint32_t frames, const float* left, const float* right);

  Synth synth_;
  ParamValues params_;
  /// The song's, as it was last heard.
  std::atomic<double> tempo_{120};
  std::vector<float> mono_;
  float peak_ = 0;
  /// Seconds that the clip light stays on, and until the count of voices may change again.
  double clipHold_ = 0, countHold_ = 0;
  bool wasPublishing_ = false;
  quillon::LiveRing& sound_;
  quillon::LiveRing& loudness_;
  /// The loudest sample since the last entry of the loudness, and how many samples that is ago.
  float loudest_ = 0;
  double loudestSamples_ = 0;
  std::atomic<double> displayedSampleRate_{44100};
};

}  // namespace halden
