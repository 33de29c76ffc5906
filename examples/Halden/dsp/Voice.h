#pragma once

#include <array>
#include <cstdint>

#include "examples/Halden/dsp/ControlFrame.h"
#include "examples/Halden/dsp/StateVariableFilter.h"

namespace halden {

/// One note: two oscillators of up to five copies each, sub and noise, a stereo filter and two
/// envelopes. The synthesiser calls beginFrame at each control frame and render for its parts;
/// notes start and end at any sample.
class Voice {
 public:
  void prepare(float sampleRate, std::uint32_t seed);
  /// Silent at once.
  void reset();

  /// Starts `note` with `velocity` from 0 to 1, its pitch gliding there from `fromPitch` (the note
  /// itself for none). The voice is idle.
  void start(int note, float velocity, float fromPitch, const ControlFrame& frame);
  /// Goes on as another note, or the same again.
  void continueAs(int note, float velocity, bool retrigger, const ControlFrame& frame);
  void release();
  /// Silent after six milliseconds.
  void fadeOut() { ampEnvelope_.fadeOut(); }

  void beginFrame(const ControlFrame& frame);
  /// Adds `count` samples from sample `begin` of the frame on.
  void render(const ControlFrame& frame, int begin, int count, float* left, float* right);

  bool isIdle() const { return ampEnvelope_.isIdle(); }
  bool isReleased() const { return ampEnvelope_.isReleased(); }
  float level() const { return ampEnvelope_.level() * velocityGain_.end; }
  int note() const { return note_; }
  /// Where the glide is, as a MIDI note.
  float pitch() const { return pitch_; }
  float cutoffHertz() const { return cutoffHertz_; }

 private:
  struct Copy {
    Oscillator oscillator;
    Ramp increment;
  };
  struct Channel {
    StateVariableFilter first, second;
    float previous = 0, beforeThat = 0;
  };

  void advancePitch(const ControlFrame& frame);
  void setIncrements(const ControlFrame& frame);
  void setCutoff(const ControlFrame& frame);
  void settle();
  float wantedVelocityGain(const ControlFrame& frame) const;
  void renderOscillators(const ControlFrame& frame, int begin, int count, float* left,
                         float* right);
  void filter(const ControlFrame& frame, int begin, int count, Channel& channel, float* samples);

  std::array<std::array<Copy, maximumUnison>, 2> oscillators_;
  std::array<Channel, 2> channels_;
  Envelope ampEnvelope_, filterEnvelope_;
  Random random_;
  std::uint32_t seed_ = 1;
  float sampleRate_ = 48000;

  int note_ = 60;
  float velocity_ = 0;
  float pitch_ = 60, glidePerSecond_ = 0;
  float age_ = 0;
  float cutoffHertz_ = 1000;
  Ramp velocityGain_, warpedCutoff_, subIncrement_, fmIncrement_, fmDepth_;
  float subPhase_ = 0, fmPhase_ = 0;
};

}  // namespace halden
