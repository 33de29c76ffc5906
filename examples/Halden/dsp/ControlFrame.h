#pragma once

#include <array>

#include "examples/Halden/dsp/Chorus.h"
#include "examples/Halden/dsp/Drive.h"
#include "examples/Halden/dsp/Envelope.h"
#include "examples/Halden/dsp/Oscillator.h"
#include "examples/Halden/dsp/Reverb.h"
#include "examples/Halden/dsp/StereoDelay.h"

namespace halden {

inline constexpr std::size_t maximumUnison = 5;

/// What the effects and the output do during one control frame.
struct EffectsFrame {
  Drive::Settings drive;
  Chorus::Settings chorus;
  StereoDelay::Settings delay;
  Reverb::Settings reverb;
  Ramp volume;
};

/// Everything that all voices share during one control frame, a third of a millisecond: parameters
/// smoothed and brought into the form in which they are used.
struct ControlFrame {
  struct OscillatorPart {
    WaveMix mix;
    Ramp width;
    /// Relative to the note, tuning and bend included.
    float semitones = 0;
    /// Level, place and share of each unison copy.
    std::array<Ramp, maximumUnison> left, right;

    bool isSilent() const;
  };

  int length = 16;
  float sampleRate = 48000;

  std::array<OscillatorPart, 2> oscillators;
  /// Frequency ratio of each unison copy.
  std::array<float, maximumUnison> detune{};
  Ramp sub, noise;
  /// Depth of the phase modulation of oscillator 1, in cycles.
  Ramp fmDepth;
  float fmRatio = 1;

  float velocityLevel = 0;
  float glideSeconds = 0;
  /// LFO 2 and the wheel's share of it, as semitones.
  float vibrato = 0, wheelVibrato = 0;
  float vibratoFadeSeconds = 0;

  /// The cutoff as a MIDI note, before what each voice adds.
  float cutoffPitch = 100;
  float keytrack = 0;
  float envelopeSemitones = 0, velocitySemitones = 0;
  Ramp damping;
  /// How much of the filter and of each of its outputs is heard.
  Ramp filterAmount, low, band, high, steep;
  Ramp filterInput, driveAmount, driveInput, driveOutput;
  Envelope::Times ampTimes, filterTimes;

  /// Tremolo and auto-pan, on the sum of all voices.
  Ramp left, right;

  EffectsFrame effects;
};

}  // namespace halden
