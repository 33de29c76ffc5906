#include "examples/Halden/dsp/Lfo.h"

namespace halden {

void Lfo::reset(std::uint32_t seed) {
  generator_ = Random(seed);
  phase_ = value_ = 0;
  previousRandom_ = generator_.bipolar();
  random_ = generator_.bipolar();
}

void Lfo::setPhase(float phase) {
  const float wrapped = wrapPhase(phase);
  // Half a cycle back is a new cycle, a little is the rounding of the host's clock.
  if (wrapped < phase_ - 0.5f) {
    previousRandom_ = random_;
    random_ = generator_.bipolar();
  }
  phase_ = wrapped;
}

void Lfo::advance(LfoWave wave, float hertz, float offset, float seconds) {
  const float aim = shape(wave, wrapPhase(phase_ + offset));
  constexpr float roundingSeconds = 0.002f;
  value_ += (aim - value_) * (1 - std::exp(-seconds / roundingSeconds));
  phase_ += hertz * seconds;
  if (phase_ >= 1) {
    phase_ = wrapPhase(phase_);
    previousRandom_ = random_;
    random_ = generator_.bipolar();
  }
}

float Lfo::shape(LfoWave wave, float phase) const {
  switch (wave) {
    case LfoWave::sine:
      return sineOfPhase(phase);
    case LfoWave::triangle:
      return 1 - 4 * std::abs(wrapPhase(phase + 0.25f) - 0.5f);
    case LfoWave::saw:
      return 1 - 2 * phase;
    case LfoWave::square:
      return phase < 0.5f ? 1.0f : -1.0f;
    case LfoWave::pulse:
      return phase < 0.2f ? 1.0f : -1.0f;
    case LfoWave::random: {
      const float blend = phase * phase * (3 - 2 * phase);
      return previousRandom_ + (random_ - previousRandom_) * blend;
    }
  }
  return 0;
}

}  // namespace halden
