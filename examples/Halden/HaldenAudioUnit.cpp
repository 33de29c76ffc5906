#include "examples/Halden/HaldenAudioUnit.h"

#include <algorithm>
#include <cmath>

#include "examples/Halden/HaldenParameters.h"
#include "examples/Halden/HaldenPresets.h"
#include "examples/Halden/dsp/Divisions.h"
#include "examples/Halden/dsp/FilterResponse.h"

namespace halden {
namespace {

/// What the editor takes the whole range of a resonance in percent for.
constexpr float resonanceDecibels = 30;
/// Some more than the middle of left and right: a chord of usual loudness fills the display.
constexpr float shownGain = 0.8f;

}  // namespace

HaldenAudioUnit::HaldenAudioUnit()
    : CommonAudioUnit(parameterDescriptions(), presetDescriptions()),
      sound_(addLiveBuffer("scopeTime", 4096)),
      loudness_(addLiveBuffer("scopeTime", 512)) {
  setCurrentPreset(0);
}

void HaldenAudioUnit::allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) {
  CommonAudioUnit::allocateRenderResources(sampleRate, maximumFrames);
  mono_.assign(maximumFrames, 0.0f);
  peak_ = 0;
  clipHold_ = countHold_ = 0;
  displayedSampleRate_ = sampleRate;
  loudest_ = 0;
  loudestSamples_ = 0;
  synth_.prepare(sampleRate);
}

std::vector<double> HaldenAudioUnit::magnitudesForFrequencies(
    const std::vector<double>& frequencies, std::string_view filterType, std::string_view,
    std::string_view) const {
  const float share = value(indexOf(Param::resonance)) / 100;
  return magnitudesForFrequencies(frequencies, filterType, value(indexOf(Param::cutoff)),
                                  share * resonanceDecibels);
}

std::vector<double> HaldenAudioUnit::magnitudesForFrequencies(
    const std::vector<double>& frequencies, std::string_view, float frequencyValue,
    float resonanceValue) const {
  const auto type = static_cast<FilterType>(value(indexOf(Param::filterType)));
  std::vector<double> decibels;
  decibels.reserve(frequencies.size());
  for (const double frequency : frequencies)
    decibels.push_back(FilterResponse::decibels(type, double{frequencyValue},
                                                double{resonanceValue} / resonanceDecibels,
                                                frequency, displayedSampleRate_));
  return decibels;
}

double HaldenAudioUnit::tailSeconds() const {
  const auto now = [this](Param param) { return value(indexOf(param)); };
  const auto sounds = [&](Param on, Param mix) { return now(on) >= 0.5f && now(mix) > 0; };
  // The voices' own fade, and what is short in every effect.
  float seconds = now(Param::ampRelease) / 1000 + 0.1f;
  if (sounds(Param::delayOn, Param::delayMix)) {
    const float echo = now(Param::delaySync) >= 0.5f
                           ? divisionSeconds(static_cast<int>(now(Param::delayDivision)), tempo_)
                           : now(Param::delayTime) / 1000;
    seconds +=
        StereoDelay::tailSeconds(echo, now(Param::delayFeedback) / 100, now(Param::delayLowCut),
                                 now(Param::delayTone), static_cast<float>(sampleRate()));
  }
  if (sounds(Param::reverbOn, Param::reverbMix))
    seconds += now(Param::reverbPredelay) / 1000 + now(Param::reverbDecay);
  return double{seconds};
}

void HaldenAudioUnit::readParameters() {
  for (std::size_t i = 0; i < paramCount; ++i) params_.at(i) = value(i);
}

void HaldenAudioUnit::render(const platform::RenderBlock& block) {
  if (block.outputs.empty()) return;
  tempo_ = block.transport.tempo;
  readParameters();
  float* left = block.outputs[0];
  float* right = block.outputs.size() > 1 ? block.outputs[1] : mono_.data();
  synth_.render(params_, block.midi, block.transport, left, right, static_cast<int>(block.frames));
  publish(block.frames, left, right);
  if (block.outputs.size() == 1) {
    for (std::uint32_t i = 0; i < block.frames; ++i) left[i] = 0.5f * (left[i] + right[i]);
  }
}

void HaldenAudioUnit::publishModulated(Param param, bool modulated, float value) {
  if (modulated) publishLive(indexOf(param), value);
  publishModulating(indexOf(param), modulated);
}

void HaldenAudioUnit::publish(std::uint32_t frames, const float* left, const float* right) {
  const bool visible = isUIVisible();
  if (!visible && !wasPublishing_) return;
  wasPublishing_ = visible;

  const float cutoff = synth_.newestCutoff();
  const bool sounds = visible && cutoff > 0;
  const auto isUsed = [this](Param param) { return params_[param] != 0; };
  const bool lfo1 = params_.isOn(Param::lfo1On);
  const bool steps = params_.isOn(Param::stepsOn), curve = params_.isOn(Param::curveOn);
  publishModulated(
      Param::cutoff,
      sounds && (isUsed(Param::filterEnvelope) || (lfo1 && isUsed(Param::lfo1Cutoff)) ||
                 (steps && isUsed(Param::stepsCutoff))),
      std::clamp(cutoff, 20.0f, 20000.0f));
  publishLive(indexOf(Param::resonance), params_[Param::resonance]);
  const float swing = 0.5f * ((lfo1 ? params_[Param::lfo1Width] * synth_.lfo1() : 0) +
                              (curve ? params_[Param::curveWidth] * synth_.curveSwing() : 0));
  const bool swings = (lfo1 && isUsed(Param::lfo1Width)) || (curve && isUsed(Param::curveWidth));
  for (Param width : {Param::osc1Width, Param::osc2Width})
    publishModulated(width, sounds && swings, std::clamp(params_[width] + swing, 5.0f, 95.0f));
  publishModulated(Param::step1, sounds && steps, synth_.stepPlace());
  publishModulated(Param::curve1, sounds && curve, synth_.curvePlace());
  if (visible) publishSound(frames, left, right);

  const double seconds = frames / sampleRate();
  if (synth_.takeClipped()) clipHold_ = 0.4;
  clipHold_ = std::max(0.0, clipHold_ - seconds);
  for (std::uint32_t i = 0; i < frames; ++i) {
    peak_ = std::max({peak_, std::abs(left[i]), std::abs(right[i])});
  }
  const auto light = [&](Meter meter, float brightness) {
    publishLive(indexOf(meter), brightness);
    publishModulating(indexOf(meter), visible);
  };
  light(Meter::lfo1Light, lfo1 ? 0.5f + 0.5f * synth_.lfo1() : 0);
  light(Meter::lfo2Light, params_.isOn(Param::lfo2On) ? 0.5f + 0.5f * synth_.lfo2() : 0);
  light(Meter::levelLight, std::min(1.0f, 2 * peak_));
  light(Meter::clipLight, clipHold_ > 0 ? 1 : 0);
  peak_ *= static_cast<float>(std::exp(-seconds / 0.12));

  // A number that people read may change ten times a second.
  countHold_ -= seconds;
  const auto voices = static_cast<float>(synth_.activeVoices());
  if (countHold_ <= 0 && voices != value(indexOf(Meter::voiceCount))) {
    parameterTree().at(indexOf(Meter::voiceCount)).setValue(voices);
    countHold_ = 0.1;
  }
}

void HaldenAudioUnit::publishSound(std::uint32_t frames, const float* left, const float* right) {
  const double samplesPerEntry = sampleRate() / loudnessRate;
  for (std::uint32_t i = 0; i < frames; ++i) {
    sound_.append(shownGain * (left[i] + right[i]));
    loudest_ = std::max({loudest_, std::abs(left[i]), std::abs(right[i])});
    if (++loudestSamples_ < samplesPerEntry) continue;
    loudness_.append(loudest_);
    loudest_ = 0;
    loudestSamples_ -= samplesPerEntry;
  }
}

}  // namespace halden
