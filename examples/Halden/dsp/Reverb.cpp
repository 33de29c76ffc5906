#include "examples/Halden/dsp/Reverb.h"

namespace halden {
namespace {

/// Milliseconds, with no common measure.
constexpr std::array<float, 8> lineMilliseconds = {31.71f, 37.11f, 40.23f, 44.14f,
                                                   48.37f, 53.09f, 58.79f, 64.31f};
constexpr std::array<float, 4> blurMilliseconds = {4.77f, 3.59f, 12.73f, 9.31f};
constexpr float breathMilliseconds = 0.35f;

/// Every output hears every input, and the energy stays the same.
void mixLines(std::array<float, 8>& x) {
  for (std::size_t half = 1; half < 8; half *= 2) {
    for (std::size_t i = 0; i < 8; ++i) {
      if (i & half) continue;
      const float a = x[i], b = x[i + half];
      x[i] = a + b;
      x[i + half] = a - b;
    }
  }
  for (float& value : x) value *= 0.35355339f;
}

}  // namespace

float Reverb::AllPass::process(float input) {
  constexpr float gain = 0.62f;
  const float past = line.tap(length - 1);
  const float fed = input - gain * past;
  line.push(fed);
  return past + gain * fed;
}

void Reverb::setSampleRate(float sampleRate) {
  sampleRate_ = sampleRate;
  for (std::size_t i = 0; i < lineCount; ++i) {
    lengths_[i] = lineMilliseconds[i] * 0.001f * sampleRate;
    lines_[i].resize(static_cast<std::size_t>(lengths_[i] + 0.001f * sampleRate) + 4);
  }
  for (std::size_t i = 0; i < blur_.size(); ++i) {
    blur_[i].length = static_cast<std::size_t>(blurMilliseconds[i] * 0.001f * sampleRate) + 1;
    blur_[i].line.resize(blur_[i].length);
  }
  for (DelayLine& line : early_) {
    line.resize(static_cast<std::size_t>(maxPredelay * sampleRate) + 4);
  }
  reset();
}

void Reverb::reset() {
  for (DelayLine& line : lines_) line.clear();
  for (AllPass& blur : blur_) blur.line.clear();
  for (DelayLine& line : early_) line.clear();
  for (OnePole& filter : damping_) filter.reset();
  for (OnePole& filter : lowCut_) filter.reset();
  phase_ = quietSamples_ = 0;
  resting_ = true;
}

void Reverb::process(const Settings& settings, int begin, int count, float* left, float* right) {
  const bool off = settings.amount.isZero();
  if (off && resting_) return;
  const float predelay = std::clamp(settings.predelay, 0.0f, maxPredelay) * sampleRate_ + 1;
  std::array<float, lineCount> gains;
  for (std::size_t i = 0; i < lineCount; ++i) {
    gains[i] = decibelsToGain(-60 * lengths_[i] / (std::max(settings.decay, 0.05f) * sampleRate_));
  }
  if (resting_) {
    predelay_ = predelay;
    gains_ = gains;
  }
  resting_ = false;
  const float tone = OnePole::share(settings.toneFrequency, sampleRate_);
  const float lowCut = OnePole::share(90, sampleRate_);
  const float breath = breathMilliseconds * 0.001f * sampleRate_;
  const float increment = 0.37f / sampleRate_;
  const float glide = smoothingShare(0.08f, sampleRate_);
  for (int i = 0; i < count; ++i) {
    const int at = begin + i;
    const float amount = settings.amount.at(at);
    predelay_ += (predelay - predelay_) * glide;
    early_[0].push(lowCut_[0].high(left[i], lowCut) * amount);
    early_[1].push(lowCut_[1].high(right[i], lowCut) * amount);
    float inputs[2] = {early_[0].read(predelay_), early_[1].read(predelay_)};
    inputs[0] = blur_[2].process(blur_[0].process(inputs[0]));
    inputs[1] = blur_[3].process(blur_[1].process(inputs[1]));

    phase_ += increment;
    if (phase_ >= 1) phase_ -= 1;
    const float swing = breath * (1 + sineOfPhase(phase_));
    std::array<float, lineCount> x;
    for (std::size_t n = 0; n < lineCount; ++n) {
      const bool breathing = n == 2 || n == 5;
      const float raw = breathing
                            ? lines_[n].read(lengths_[n] - (n == 2 ? swing : 2 * breath - swing))
                            : lines_[n].tap(static_cast<std::size_t>(lengths_[n]));
      gains_[n] += (gains[n] - gains_[n]) * glide;
      x[n] = damping_[n].low(raw, tone) * gains_[n];
    }
    const float wetLeft = x[0] + x[2] - x[4] + x[6];
    const float wetRight = x[1] - x[3] + x[5] + x[7];
    const float loudest =
        std::max({std::abs(wetLeft), std::abs(wetRight), std::abs(inputs[0]), std::abs(inputs[1])});
    quietSamples_ = loudest > inaudible ? 0 : quietSamples_ + 1;
    mixLines(x);
    for (std::size_t n = 0; n < lineCount; ++n) lines_[n].push(x[n] + inputs[n & 1] * 0.5f);

    const float wet = amount * settings.mix.at(at);
    left[i] += wet * (wetLeft - left[i] * 0.4f);
    right[i] += wet * (wetRight - right[i] * 0.4f);
  }

  resting_ = off && isQuiet();
}

}  // namespace halden
