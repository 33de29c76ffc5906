#include "examples/Halden/dsp/Voice.h"

#include "examples/Halden/dsp/FilterResponse.h"

namespace halden {
namespace {

/// Leaves headroom in the filter, whose soft limit is at 6, and in the sum of voices.
constexpr float oscillatorGain = 0.5f;
constexpr float voiceGain = 0.8f;
constexpr float subGain = 0.9f;
constexpr float noiseGain = 0.7f;
constexpr float calmDamping = 1 / FilterResponse::calmQuality;

float hertz(float pitch) { return 440 * semitonesToRatio(pitch - 69); }

}  // namespace

void Voice::prepare(float sampleRate, std::uint32_t seed) {
  sampleRate_ = sampleRate;
  seed_ = seed;
  ampEnvelope_.setSampleRate(sampleRate);
  filterEnvelope_.setSampleRate(sampleRate);
  reset();
}

void Voice::reset() {
  random_ = Random(seed_);
  ampEnvelope_.reset();
  filterEnvelope_.reset();
  channels_ = {};
  subPhase_ = fmPhase_ = 0;
  for (auto& copies : oscillators_) {
    for (Copy& copy : copies) copy.oscillator.reset(random_.unipolar(), ++seed_);
  }
}

float Voice::wantedVelocityGain(const ControlFrame& frame) const {
  const float curve = velocity_ * (0.4f + 0.6f * velocity_);
  return 1 - frame.velocityLevel * (1 - curve);
}

void Voice::start(int note, float velocity, float fromPitch, const ControlFrame& frame) {
  channels_ = {};
  note_ = note;
  velocity_ = velocity;
  pitch_ = fromPitch;
  age_ = 0;
  const float way = static_cast<float>(note) - fromPitch;
  glidePerSecond_ = frame.glideSeconds > 0.001f ? way / frame.glideSeconds : 0;
  if (glidePerSecond_ == 0) pitch_ = static_cast<float>(note);

  filterEnvelope_.reset();
  ampEnvelope_.setTimes(frame.ampTimes);
  filterEnvelope_.setTimes(frame.filterTimes);
  ampEnvelope_.start();
  filterEnvelope_.start();
  velocityGain_ = Ramp::constant(wantedVelocityGain(frame));
  setIncrements(frame);
  setCutoff(frame);
  settle();
}

void Voice::continueAs(int note, float velocity, bool retrigger, const ControlFrame& frame) {
  const float way = static_cast<float>(note) - pitch_;
  note_ = note;
  glidePerSecond_ = frame.glideSeconds > 0.001f ? way / frame.glideSeconds : 0;
  if (glidePerSecond_ == 0) pitch_ = static_cast<float>(note);
  if (!retrigger) return;
  velocity_ = velocity;
  age_ = 0;
  ampEnvelope_.start();
  filterEnvelope_.start();
}

void Voice::release() {
  ampEnvelope_.release();
  filterEnvelope_.release();
}

void Voice::advancePitch(const ControlFrame& frame) {
  const float seconds = static_cast<float>(frame.length) / sampleRate_;
  age_ += seconds;
  if (glidePerSecond_ == 0) return;
  const float target = static_cast<float>(note_);
  pitch_ += glidePerSecond_ * seconds;
  if ((glidePerSecond_ > 0) == (pitch_ >= target)) {
    pitch_ = target;
    glidePerSecond_ = 0;
  }
}

void Voice::setIncrements(const ControlFrame& frame) {
  const float fade =
      frame.vibratoFadeSeconds > 0.001f ? std::min(age_ / frame.vibratoFadeSeconds, 1.0f) : 1.0f;
  const float pitch = pitch_ + frame.vibrato * fade + frame.wheelVibrato;
  for (std::size_t i = 0; i < oscillators_.size(); ++i) {
    const float base = hertz(pitch + frame.oscillators[i].semitones) / sampleRate_;
    for (std::size_t n = 0; n < maximumUnison; ++n) {
      const float increment = base * frame.detune[n];
      oscillators_[i][n].increment.moveTo(std::min(increment, 0.45f), frame.length);
    }
  }
  const float first = hertz(pitch + frame.oscillators[0].semitones) / sampleRate_;
  subIncrement_.moveTo(std::min(first * 0.5f, 0.45f), frame.length);
  fmIncrement_.moveTo(std::min(first * frame.fmRatio, 0.45f), frame.length);
  // No deeper than what keeps the fastest swing of the phase below half the sample rate.
  const float room = std::max(0.0f, 0.4f - first) / (2 * pi * std::max(fmIncrement_.end, 1e-6f));
  fmDepth_.moveTo(std::min(frame.fmDepth.end, room), frame.length);
}

void Voice::setCutoff(const ControlFrame& frame) {
  const float pitch = frame.cutoffPitch + frame.keytrack * (pitch_ - 60) +
                      frame.envelopeSemitones * filterEnvelope_.level() +
                      frame.velocitySemitones * (velocity_ - 0.5f);
  cutoffHertz_ = hertz(std::clamp(pitch, 12.0f, 136.0f));
  warpedCutoff_.moveTo(StateVariableFilter::warp(cutoffHertz_, sampleRate_), frame.length);
}

/// The values of a note that begins within a frame stand still until the next one.
void Voice::settle() {
  const auto hold = [](Ramp& ramp) { ramp = Ramp::constant(ramp.end); };
  for (auto& copies : oscillators_) {
    for (Copy& copy : copies) hold(copy.increment);
  }
  hold(subIncrement_);
  hold(fmIncrement_);
  hold(fmDepth_);
  hold(warpedCutoff_);
}

void Voice::beginFrame(const ControlFrame& frame) {
  ampEnvelope_.setTimes(frame.ampTimes);
  filterEnvelope_.setTimes(frame.filterTimes);
  for (int i = 0; i < frame.length; ++i) filterEnvelope_.process();
  advancePitch(frame);
  setIncrements(frame);
  setCutoff(frame);
  const float share = smoothingShare(0.004f, sampleRate_, static_cast<float>(frame.length));
  const float gain = velocityGain_.end;
  velocityGain_.moveTo(gain + share * (wantedVelocityGain(frame) - gain), frame.length);
}

void Voice::renderOscillators(const ControlFrame& frame, int begin, int count, float* left,
                              float* right) {
  std::array<float, maximumFrameLength> modulation;
  const bool modulated = !fmDepth_.isZero();
  for (int i = 0; i < count && modulated; ++i) {
    modulation[static_cast<std::size_t>(i)] = fmDepth_.at(begin + i) * sineOfPhase(fmPhase_);
    fmPhase_ += fmIncrement_.at(begin + i);
    if (fmPhase_ >= 1) fmPhase_ -= 1;
  }

  std::array<float, maximumFrameLength> samples;
  for (std::size_t n = 0; n < oscillators_.size(); ++n) {
    const ControlFrame::OscillatorPart& part = frame.oscillators[n];
    if (part.isSilent()) continue;
    for (std::size_t copy = 0; copy < maximumUnison; ++copy) {
      const Ramp& leftGain = part.left[copy];
      const Ramp& rightGain = part.right[copy];
      if (leftGain.isZero() && rightGain.isZero()) continue;
      Oscillator::Settings settings;
      settings.increment = oscillators_[n][copy].increment;
      settings.width = part.width;
      settings.mix = &part.mix;
      settings.phaseModulation = n == 0 && modulated ? modulation.data() : nullptr;
      oscillators_[n][copy].oscillator.render(settings, begin, count, samples.data());
      for (int i = 0; i < count; ++i) {
        const float sample = samples[static_cast<std::size_t>(i)];
        left[i] += leftGain.at(begin + i) * sample;
        right[i] += rightGain.at(begin + i) * sample;
      }
    }
  }

  const bool hasSub = !frame.sub.isZero();
  const bool hasNoise = !frame.noise.isZero();
  for (int i = 0; i < count; ++i) {
    if (hasSub) {
      const float sub = subGain * frame.sub.at(begin + i) * sineOfPhase(subPhase_);
      left[i] += sub;
      right[i] += sub;
    }
    subPhase_ += subIncrement_.at(begin + i);
    if (subPhase_ >= 1) subPhase_ -= 1;
    if (hasNoise) {
      const float gain = noiseGain * frame.noise.at(begin + i);
      left[i] += gain * random_.bipolar();
      right[i] += gain * random_.bipolar();
    }
  }
}

void Voice::filter(const ControlFrame& frame, int begin, int count, Channel& channel,
                   float* samples) {
  const bool driven = !frame.driveAmount.isZero();
  const bool steep = !frame.steep.isZero();
  for (int i = 0; i < count; ++i) {
    const int at = begin + i;
    // Gives back the treble that the oscillators' band-limiting takes.
    const float newest = samples[i];
    constexpr float treble = 0.2f;
    float x = (1 + 2 * treble) * channel.previous - treble * (newest + channel.beforeThat);
    channel.beforeThat = channel.previous;
    channel.previous = newest;

    x *= oscillatorGain;
    if (driven) {
      const float clipped = softClip(x * frame.driveInput.at(at)) * frame.driveOutput.at(at);
      x += frame.driveAmount.at(at) * (clipped - x);
    }
    const float g = warpedCutoff_.at(at);
    const StateVariableFilter::Output first = channel.first.process(
        x * frame.filterInput.at(at), StateVariableFilter::Coefficients(g, frame.damping.at(at)));
    float y = frame.low.at(at) * first.low + frame.band.at(at) * first.band +
              frame.high.at(at) * first.high;
    if (steep) {
      const StateVariableFilter::Coefficients calm(g, calmDamping);
      y += frame.steep.at(at) * channel.second.process(first.low, calm).low;
    }
    samples[i] = x + frame.filterAmount.at(at) * (y - x);
  }
  if (!steep) channel.second.reset();
}

void Voice::render(const ControlFrame& frame, int begin, int count, float* left, float* right) {
  std::array<float, maximumFrameLength> sides[2];
  for (auto& side : sides) std::fill_n(side.begin(), count, 0.0f);
  renderOscillators(frame, begin, count, sides[0].data(), sides[1].data());
  filter(frame, begin, count, channels_[0], sides[0].data());
  filter(frame, begin, count, channels_[1], sides[1].data());
  for (int i = 0; i < count; ++i) {
    const float gain = voiceGain * ampEnvelope_.process() * velocityGain_.at(begin + i);
    left[i] += gain * sides[0][static_cast<std::size_t>(i)];
    right[i] += gain * sides[1][static_cast<std::size_t>(i)];
  }
}

}  // namespace halden
