#pragma once

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
  /// The longest release, echoes and hall together.
  double tailSeconds() const override { return 30; }
  void allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) override;
  void render(const platform::RenderBlock& block) override;

 private:
  void readParameters();
  void publish(std::uint32_t frames, const float* left, const float* right);
  void publishModulated(Param param, bool modulated, float value);

  Synth synth_;
  ParamValues params_;
  std::vector<float> mono_;
  float peak_ = 0;
  /// Seconds that the clip light stays on, and until the count of voices may change again.
  double clipHold_ = 0, countHold_ = 0;
  bool wasPublishing_ = false;
};

}  // namespace halden
