#include "examples/Halden/dsp/Chorus.h"

namespace halden {
namespace {

constexpr float centreSeconds = 0.011f;
constexpr float depthSeconds = 0.0055f;

}  // namespace

void Chorus::setSampleRate(float sampleRate) {
  sampleRate_ = sampleRate;
  for (DelayLine& line : lines_) {
    line.resize(static_cast<std::size_t>((centreSeconds + depthSeconds) * sampleRate) + 4);
  }
  reset();
}

void Chorus::reset() {
  for (DelayLine& line : lines_) line.clear();
  for (OnePole& filter : lowCut_) filter.reset();
  phase_ = 0;
}

void Chorus::process(const Settings& settings, int begin, int count, float* left, float* right) {
  const bool off = settings.amount.isZero();
  const float lowCut = OnePole::share(140, sampleRate_);
  const float increment = settings.rate / sampleRate_;
  for (int i = 0; i < count; ++i) {
    const int at = begin + i;
    lines_[0].push(lowCut_[0].high(left[i], lowCut));
    lines_[1].push(lowCut_[1].high(right[i], lowCut));
    phase_ += increment;
    if (phase_ >= 1) phase_ -= 1;
    if (off) continue;

    const float depth = depthSeconds * settings.depth.at(at);
    const auto delayAt = [&](float offset) {
      float phase = phase_ + offset;
      if (phase >= 1) phase -= 1;
      return (centreSeconds + depth * sineOfPhase(phase)) * sampleRate_;
    };
    const float first = lines_[0].read(delayAt(0));
    const float second = lines_[1].read(delayAt(1.0f / 3));
    const float delay = delayAt(2.0f / 3);
    const float middle = 0.5f * (lines_[0].read(delay) + lines_[1].read(delay));

    const float wet = settings.amount.at(at) * settings.mix.at(at);
    const float dry = 1 - 0.3f * wet;
    left[i] = dry * left[i] + wet * (0.9f * first + 0.5f * middle);
    right[i] = dry * right[i] + wet * (0.9f * second - 0.5f * middle);
  }
}

}  // namespace halden
