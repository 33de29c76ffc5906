#pragma once

#include <span>
#include <utility>

#include "examples/Halden/dsp/Controls.h"
#include "examples/Halden/dsp/Params.h"
#include "examples/Halden/dsp/VoiceAllocator.h"
#include "platform/AudioUnit.h"

namespace halden {

/// The whole sound. The same notes and parameters give the same samples however the time is cut
/// into blocks. `prepare` allocates; everything else is for the audio thread.
class Synth {
 public:
  void prepare(double sampleRate);
  /// Silent at once, as after prepare.
  void reset();
  void render(const ParamValues& params, std::span<const platform::MidiEvent> midi,
              const platform::HostTransport& transport, float* left, float* right, int frames);

  // For the display

  int activeVoices() const { return voices_.activeVoices(); }
  /// Of the newest voice, or 0 when none sounds.
  float newestCutoff() const;
  float lfo1() const { return controls_.lfo1(); }
  float lfo2() const { return controls_.lfo2(); }
  float stepPlace() const { return controls_.stepPlace(); }
  float curvePlace() const { return controls_.curvePlace(); }
  float curveSwing() const { return controls_.curveSwing(); }
  /// Whether the output had to be held back since the last call.
  bool takeClipped() { return std::exchange(clipped_, false); }

 private:
  void handle(const platform::MidiEvent& event);
  void beginFrame(const ParamValues& params);
  void renderPart(float* left, float* right, int count);
  void finish(float* left, float* right, int count);

  Controls controls_;
  VoiceAllocator voices_;
  Drive drive_;
  Chorus chorus_;
  StereoDelay delay_;
  Reverb reverb_;
  OnePole highPass_[2];
  Performance performance_;
  float sampleRate_ = 48000;
  float highPassShare_ = 0;
  int frameLength_ = 16;
  /// Samples of the frame that are rendered; all of them when a new one is due.
  int framePosition_ = 16;
  /// Of the frames since the last in which something could be heard.
  double quietSamples_ = 0;
  bool isFrameHeard_ = false;
  bool asleep_ = false;
  bool panicHeld_ = false;
  bool clipped_ = false;
};

}  // namespace halden
