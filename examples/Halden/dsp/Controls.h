#pragma once

#include <array>

#include "examples/Halden/dsp/ControlFrame.h"
#include "examples/Halden/dsp/FilterResponse.h"
#include "examples/Halden/dsp/Lfo.h"
#include "examples/Halden/dsp/Params.h"
#include "examples/Halden/dsp/Sequencer.h"

namespace halden {

/// What the player does beside the notes.
struct Performance {
  /// From -1 to 1.
  float bend = 0;
  /// From 0 to 1.
  float wheel = 0, pressure = 0;
};

/// Turns parameters, LFOs and the player's hands into one ControlFrame after another. Every value
/// glides there over a few milliseconds: switches and choices as a crossfade of what they choose
/// between.
class Controls {
 public:
  void setSampleRate(float sampleRate);
  /// The next frame stands where `target` is.
  void reset();
  /// Where the song is, at the sample at which the next frame begins.
  void setTransport(float tempo, double beat, bool playing);
  /// Makes the next frame, of `length` samples.
  const ControlFrame& advance(const ParamValues& target, const Performance& performance,
                              int length);

  /// Both begin with their first step, unless they follow a song.
  void restartSequencers();
  /// What the velocity curve makes of how hard a key was struck; both from 0 to 1.
  float velocity(float played) const;

  const ControlFrame& frame() const { return frame_; }
  float lfo1() const { return lfo1Value_; }
  float lfo2() const { return lfo2Value_; }
  /// Where the sequencers play, in steps.
  float stepPlace() const { return steps_.place(); }
  float curvePlace() const { return curve_.place(); }
  /// What the curve moves things by, from -1 to 1.
  float curveSwing() const { return 2 * curveValue_ - 1; }

 private:
  /// Crossfades between the choices of a parameter.
  template <std::size_t count>
  struct Choice {
    std::array<float, count> shares{};
    void moveTo(int chosen, float share);
  };
  static constexpr std::size_t velocityPoints = 5;

  void smooth(const ParamValues& target, const Performance& performance);
  void advanceLfos();
  void advanceSequencers();
  void oscillatorFrame(std::size_t index, int wave, float width, float level, float pan,
                       float semitones);
  void unisonFrame();
  void filterFrame();
  void voiceFrame();
  void effectsFrame();
  float divisionSeconds(int division) const;

  ControlFrame frame_;
  /// Smoothed once and twice; levels as gains, the cutoff as pitch.
  ParamValues early_, now_;
  Performance hands_;
  std::array<Choice<static_cast<std::size_t>(waveCount)>, 2> waves_;
  Choice<filterTypeCount> filterType_;
  Choice<driveShapeCount> driveShape_;
  struct Copy {
    float place = 0, gain = 0;
  };
  std::array<Copy, maximumUnison> copies_;
  Lfo lfo1_, lfo2_;
  float lfo1Value_ = 0, lfo2Value_ = 0;
  float lfo1Depth_ = 0, lfo2Depth_ = 0;
  Sequencer steps_, curve_;
  /// Of the steps from -1 to 1 and in semitones, both 0 while they are off; of the curve from 0 to 1.
  float stepValue_ = 0, stepPitch_ = 0, curveValue_ = 0;
  float sampleRate_ = 48000;
  float share_ = 1;
  int length_ = 16;
  float tempo_ = 120;
  double beat_ = 0;
  bool playing_ = false;
  bool fresh_ = true;
};

}  // namespace halden
