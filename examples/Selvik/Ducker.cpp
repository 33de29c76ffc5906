#include "examples/Selvik/Ducker.h"

namespace selvik {

using halden::StateVariableFilter;

void Ducker::setSampleRate(float sampleRate) {
  sampleRate_ = sampleRate;
  attackShare_ = halden::smoothingShare(0.002f, sampleRate);
  reset();
}

void Ducker::reset() {
  lowPass_.reset();
  highPass_.reset();
  level_ = 0;
}

void Ducker::setFilters(const Filter& lowPass, const Filter& highPass) {
  const auto coefficients = [this](const Filter& filter) {
    return StateVariableFilter::Coefficients(StateVariableFilter::warp(filter.hertz, sampleRate_),
                                             halden::decibelsToGain(-filter.resonance));
  };
  low_ = coefficients(lowPass);
  high_ = coefficients(highPass);
}

void Ducker::setRelease(float seconds) {
  releaseShare_ = halden::smoothingShare(seconds, sampleRate_);
}

float Ducker::listen(float sample) {
  const float heard = highPass_.process(lowPass_.process(sample, low_).low, high_).high;
  const float size = std::abs(heard);
  level_ += (size > level_ ? attackShare_ : releaseShare_) * (size - level_);
  // What would never end, or spread, ends here.
  if (!(level_ > 1e-6f && level_ < 1e6f)) level_ = 0;
  return heard;
}

float Ducker::reduction(float threshold, float ratio) const {
  if (level_ <= 0) return 0;
  const float above = 20 * std::log10(level_) - threshold;
  return std::max(0.0f, above * (1 - 1 / std::max(ratio, 1.0f)));
}

}  // namespace selvik
