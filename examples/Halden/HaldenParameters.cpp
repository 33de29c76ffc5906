#include "examples/Halden/HaldenParameters.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string>
#include <utility>

#include "examples/Halden/dsp/Divisions.h"

namespace halden {
namespace {

using quillon::ParameterDescription;
using Unit = platform::AudioUnitParameterUnit;
namespace Flags = platform::AudioUnitParameterFlags;

constexpr std::uint32_t usual = Flags::readable | Flags::writable;

ParameterDescription number(std::string key, std::string name, Unit unit, float minimum,
                            float maximum, float standard) {
  // Times are finer near zero, so MIDI controllers get to them on a squared scale.
  const bool isTime = unit == Unit::milliseconds || unit == Unit::seconds;
  return {.key = std::move(key),
          .displayName = std::move(name),
          .minValue = minimum,
          .maxValue = maximum,
          .defaultValue = standard,
          .unit = unit,
          .flags = isTime ? usual | Flags::displaySquared : usual};
}

ParameterDescription choice(std::string key, std::string name, std::vector<std::string> values,
                            int standard) {
  const auto last = static_cast<float>(values.size() - 1);
  ParameterDescription description =
      number(std::move(key), std::move(name), Unit::indexed, 0, last, static_cast<float>(standard));
  description.flags |= Flags::nonRealTime;
  description.valueStrings = std::move(values);
  return description;
}

ParameterDescription onOff(std::string key, std::string name, bool standard) {
  return number(std::move(key), std::move(name), Unit::boolean, 0, 1, standard ? 1 : 0);
}

ParameterDescription octave(std::string key, std::string name) {
  ParameterDescription description =
      choice(std::move(key), std::move(name), {"-3", "-2", "-1", "0", "+1", "+2", "+3"}, 0);
  description.minValue = -3;
  description.maxValue = 3;
  return description;
}

/// A count in its unit.
ParameterDescription whole(ParameterDescription description) {
  description.flags |= Flags::wholeValues;
  return description;
}

/// The player's own: not for the dice.
ParameterDescription kept(ParameterDescription description) {
  description.randomizable = false;
  return description;
}

ParameterDescription live(ParameterDescription description) {
  description.publishesLive = true;
  return description;
}

ParameterDescription light(std::string key, std::string name) {
  ParameterDescription description =
      live(kept(number(std::move(key), std::move(name), Unit::generic, 0, 1, 0)));
  description.flags = Flags::readable;
  return description;
}

ParameterDescription voiceCount() {
  std::vector<std::string> texts{"Silent", "1 voice"};
  for (int voices = 2; voices <= 16; ++voices) texts.push_back(std::to_string(voices) + " voices");
  ParameterDescription description = kept(choice("voiceCount", "Voices", std::move(texts), 0));
  description.flags = Flags::readable;
  return description;
}

/// Values of one kind in a row, numbered from 1. The first one's live value is the place that plays.
void addRow(std::vector<ParameterDescription>& all, const std::string& key, const std::string& name,
            float minimum, std::initializer_list<float> standards) {
  int number_ = 0;
  for (const float standard : standards) {
    const std::string place = std::to_string(++number_);
    std::string title = name;
    title.append(" ").append(place);
    all.push_back(number(key + place, title, Unit::percent, minimum, 100, standard));
    all.back().publishesLive = number_ == 1;
  }
}

void add(std::vector<ParameterDescription>& all, std::vector<ParameterDescription> more) {
  std::move(more.begin(), more.end(), std::back_inserter(all));
}

std::vector<std::string> waves() { return {"Sine", "Triangle", "Saw", "Square", "Pulse", "Noise"}; }
std::vector<std::string> lfoWaves() {
  return {"Sine", "Triangle", "Saw", "Square", "Pulse", "Random"};
}

std::vector<std::string> divisionNames() {
  std::vector<std::string> names;
  names.reserve(std::size(divisions));
  for (const Division& division : divisions) names.emplace_back(division.name);
  return names;
}

}  // namespace

std::vector<ParameterDescription> parameterDescriptions() {
  std::vector<ParameterDescription> all{
      choice("osc1Wave", "Osc 1 Wave", waves(), 2),
      octave("osc1Octave", "Osc 1 Octave"),
      number("osc1Fine", "Osc 1 Fine", Unit::cents, -50, 50, 0),
      live(number("osc1Width", "Osc 1 Width", Unit::percent, 5, 95, 50)),
      number("osc1Level", "Osc 1 Level", Unit::decibels, -48, 0, -3),
      number("osc1Pan", "Osc 1 Pan", Unit::pan, -1, 1, -0.25f),
      onOff("osc2On", "Osc 2", true),
      choice("osc2Wave", "Osc 2 Wave", waves(), 2),
      whole(number("osc2Semi", "Osc 2 Semitones", Unit::relativeSemiTones, -24, 24, 0)),
      number("osc2Fine", "Osc 2 Fine", Unit::cents, -50, 50, 7),
      live(number("osc2Width", "Osc 2 Width", Unit::percent, 5, 95, 50)),
      number("osc2Level", "Osc 2 Level", Unit::decibels, -48, 0, -5),
      number("osc2Pan", "Osc 2 Pan", Unit::pan, -1, 1, 0.25f),
      onOff("unisonOn", "Unison", false),
      number("unisonVoices", "Unison Voices", Unit::indexed, 2, 5, 3),
      number("unisonDetune", "Unison Detune", Unit::cents, 0, 80, 18),
      number("unisonSpread", "Unison Spread", Unit::percent, 0, 100, 70),
      number("fmAmount", "FM Amount", Unit::percent, 0, 100, 0),
      number("fmRatio", "FM Ratio", Unit::ratio, 0.5f, 8, 2),
      number("subLevel", "Sub Level", Unit::decibels, -48, 0, -14),
      number("noiseLevel", "Noise Level", Unit::decibels, -48, 0, -48),
      number("velocityLevel", "Velocity to Level", Unit::percent, 0, 100, 50),
      number("velocityCutoff", "Velocity to Cutoff", Unit::relativeSemiTones, 0, 48, 12),
      number("pressureCutoff", "Pressure to Cutoff", Unit::relativeSemiTones, 0, 48, 18),
      number("wheelVibrato", "Wheel to Vibrato", Unit::cents, 0, 200, 50),
      kept(whole(number("bendRange", "Bend Range", Unit::relativeSemiTones, 0, 24, 2))),
      onOff("filterOn", "Filter", true),
      choice("filterType", "Filter Type", {"LP 24", "LP 12", "Band", "High", "Notch", "Peak"}, 0),
      live(number("cutoff", "Cutoff", Unit::hertz, 20, 20000, 900)),
      live(number("resonance", "Resonance", Unit::percent, 0, 100, 18)),
      number("filterDrive", "Filter Drive", Unit::decibels, 0, 24, 3),
      number("keytrack", "Key Tracking", Unit::percent, 0, 100, 40),
      number("filterEnvelope", "Envelope to Cutoff", Unit::relativeSemiTones, -60, 60, 24),
      number("filterAttack", "Filter Attack", Unit::milliseconds, 1, 3000, 4),
      number("filterDecay", "Filter Decay", Unit::milliseconds, 5, 6000, 1400),
      number("filterSustain", "Filter Sustain", Unit::percent, 0, 100, 35),
      number("filterRelease", "Filter Release", Unit::milliseconds, 5, 6000, 900),
      number("ampAttack", "Amp Attack", Unit::milliseconds, 1, 3000, 5),
      number("ampDecay", "Amp Decay", Unit::milliseconds, 5, 6000, 1800),
      number("ampSustain", "Amp Sustain", Unit::percent, 0, 100, 75),
      number("ampRelease", "Amp Release", Unit::milliseconds, 5, 6000, 700),
      onOff("lfo1On", "LFO 1", true),
      choice("lfo1Wave", "LFO 1 Wave", lfoWaves(), 0),
      number("lfo1Rate", "LFO 1 Rate", Unit::hertz, 0.05f, 30, 0.4f),
      onOff("lfo1Sync", "LFO 1 Sync", false),
      choice("lfo1Division", "LFO 1 Division", divisionNames(), 8),
      number("lfo1Phase", "LFO 1 Phase", Unit::degrees, 0, 360, 0),
      number("lfo1Cutoff", "LFO 1 to Cutoff", Unit::relativeSemiTones, -48, 48, 3),
      number("lfo1Width", "LFO 1 to Width", Unit::percent, -100, 100, 0),
      number("lfo1Level", "LFO 1 to Level", Unit::percent, 0, 100, 0),
      onOff("lfo2On", "LFO 2", true),
      choice("lfo2Wave", "LFO 2 Wave", lfoWaves(), 0),
      number("lfo2Rate", "LFO 2 Rate", Unit::hertz, 0.05f, 30, 5.2f),
      onOff("lfo2Sync", "LFO 2 Sync", false),
      whole(number("lfo2Beats", "LFO 2 Beats", Unit::beats, 1, 16, 4)),
      number("lfo2Fade", "LFO 2 Fade-in", Unit::seconds, 0, 4, 0.8f),
      number("lfo2Pitch", "LFO 2 to Pitch", Unit::cents, 0, 100, 4),
      number("lfo2Pan", "LFO 2 to Pan", Unit::percent, 0, 100, 0),
      onOff("driveOn", "Drive", false),
      number("driveAmount", "Drive Amount", Unit::decibels, 0, 30, 12),
      number("driveTone", "Drive Tone", Unit::hertz, 500, 20000, 7000),
      number("driveMix", "Drive Mix", Unit::percent, 0, 100, 100),
      onOff("chorusOn", "Chorus", true),
      number("chorusRate", "Chorus Rate", Unit::hertz, 0.05f, 5, 0.45f),
      number("chorusDepth", "Chorus Depth", Unit::percent, 0, 100, 35),
      number("chorusMix", "Chorus Mix", Unit::percent, 0, 100, 45),
      onOff("delayOn", "Delay", false),
      onOff("delaySync", "Delay Sync", true),
      number("delayTime", "Delay Time", Unit::milliseconds, 20, 1500, 380),
      choice("delayDivision", "Delay Division", divisionNames(), 7),
      number("delayFeedback", "Delay Feedback", Unit::percent, 0, 95, 45),
      number("delayTone", "Delay High Cut", Unit::hertz, 20, 20000, 3500),
      number("delayMix", "Delay Mix", Unit::percent, 0, 100, 30),
      onOff("reverbOn", "Reverb", true),
      number("reverbPredelay", "Reverb Pre-delay", Unit::milliseconds, 0, 150, 15),
      number("reverbDecay", "Reverb Decay", Unit::seconds, 0.3f, 12, 2.2f),
      number("reverbTone", "Reverb Tone", Unit::hertz, 800, 16000, 5500),
      number("reverbMix", "Reverb Mix", Unit::percent, 0, 100, 22),
      kept(number("volume", "Volume", Unit::decibels, -60, 6, -1)),
      kept(choice("voiceMode", "Voice Mode", {"Poly", "Mono", "Legato"}, 0)),
      number("glide", "Glide", Unit::milliseconds, 0, 2000, 0),
      kept(number("tune", "Tune", Unit::cents, -100, 100, 0)),
      kept(onOff("panic", "Panic", false)),
      kept(onOff("subMute", "Sub Mute", false)),
      kept(onOff("noiseMute", "Noise Mute", false)),
  };
  addRow(all, "velocity", "Velocity", 0, {0, 25, 50, 75, 100});
  for (std::size_t i = indexOf(Param::velocity1); i < all.size(); ++i) all[i] = kept(all[i]);
  add(all, {choice("driveShape", "Drive Shape", {"Soft", "Tube", "Hard", "Fold"}, 0),
            number("driveBias", "Drive Bias", Unit::percent, -50, 50, 0),
            number("delayLowCut", "Delay Low Cut", Unit::hertz, 20, 20000, 110),
            kept(number("scopeTime", "Display Time", Unit::milliseconds, 1, 40, 24))});
  add(all,
      {onOff("stepsOn", "Steps", false), choice("stepsDivision", "Steps Rate", divisionNames(), 2),
       number("stepsCount", "Steps Count", Unit::indexed, 2, 16, 16),
       number("stepsGlide", "Steps Glide", Unit::percent, 0, 100, 0),
       number("stepsCutoff", "Steps to Cutoff", Unit::relativeSemiTones, -48, 48, 18),
       number("stepsPitch", "Steps to Pitch", Unit::relativeSemiTones, 0, 24, 0)});
  addRow(all, "step", "Step", -100,
         {100, 0, 50, -50, 75, -25, 25, 0, 100, 0, 50, -75, 75, 25, -25, 0});
  add(all,
      {onOff("curveOn", "Curve", false), choice("curveDivision", "Curve Rate", divisionNames(), 2),
       number("curveCount", "Curve Count", Unit::indexed, 2, 16, 16),
       number("curveLevel", "Curve to Level", Unit::percent, 0, 100, 80),
       number("curveWidth", "Curve to Width", Unit::percent, -100, 100, 0),
       number("curvePan", "Curve to Pan", Unit::percent, 0, 100, 0)});
  addRow(all, "curve", "Curve", 0,
         {100, 85, 60, 30, 90, 70, 40, 10, 100, 75, 50, 25, 80, 95, 55, 20});
  add(all, {light("lfo1Light", "LFO 1 Light"), light("lfo2Light", "LFO 2 Light"),
            light("levelLight", "Level"), light("clipLight", "Clip"), voiceCount()});
  for (std::size_t i = 0; i < all.size(); ++i) all[i].address = i;
  return all;
}

}  // namespace halden
