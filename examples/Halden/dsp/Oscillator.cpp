#include "examples/Halden/dsp/Oscillator.h"

namespace halden {
namespace {

/// The highest cycles per sample: beyond it two edges would meet in one correction.
constexpr float maximumIncrement = 0.45f;

/// Equal loudness rather than equal peaks.
constexpr float triangleGain = 1.1f;
constexpr float squareGain = 0.72f;
constexpr float noiseGain = 0.8f;

/// What a band-limited step has beyond a plain one, `x` >= 0 samples after it; the mirror image
/// with the other sign before it. The integral of the cubic B-spline less the step.
float stepResidual(float x) {
  if (x >= 2) return 0;
  if (x >= 1) {
    const float rest = 2 - x;
    const float square = rest * rest;
    return square * square * (-1.0f / 24);
  }
  return -0.5f + x * (2.0f / 3 + x * x * (-1.0f / 3 + x * (1.0f / 8)));
}

/// What a band-limited corner has beyond a plain one, `x` >= 0 samples from it on either side.
float cornerResidual(float x) {
  if (x >= 2) return 0;
  if (x >= 1) {
    const float rest = 2 - x;
    const float square = rest * rest;
    return square * square * rest * (1.0f / 120);
  }
  const float square = x * x;
  return 7.0f / 30 - x * 0.5f + square * (1.0f / 3 + square * (-1.0f / 12 + x * (1.0f / 40)));
}

/// The residual of an upward step at phase 0, at a phase from 0 to 1.
float edge(float phase, float samplesPerCycle) {
  return stepResidual(phase * samplesPerCycle) - stepResidual((1 - phase) * samplesPerCycle);
}

float corner(float phase, float samplesPerCycle) {
  return cornerResidual(phase * samplesPerCycle) + cornerResidual((1 - phase) * samplesPerCycle);
}

/// The phase seen from a point `offset` cycles later.
float shifted(float phase, float offset) {
  const float moved = phase - offset;
  return moved < 0 ? moved + 1 : moved;
}

float triangle(float phase, float increment, float samplesPerCycle) {
  const float plain = phase < 0.5f ? 4 * phase - 1 : 3 - 4 * phase;
  const float bend = corner(phase, samplesPerCycle) - corner(shifted(phase, 0.5f), samplesPerCycle);
  return triangleGain * (plain + 8 * increment * bend);
}

float saw(float phase, float samplesPerCycle) {
  return 2 * phase - 1 - 2 * edge(phase, samplesPerCycle);
}

/// Without the constant part that a narrow pulse would have.
float pulse(float phase, float samplesPerCycle, float width) {
  const float plain = phase < width ? 2 - 2 * width : -2 * width;
  return squareGain * (plain + 2 * edge(phase, samplesPerCycle) -
                       2 * edge(shifted(phase, width), samplesPerCycle));
}

}  // namespace

void Oscillator::reset(float phase, std::uint32_t seed) {
  phase_ = wrapPhase(phase);
  modulated_ = false;
  random_ = Random(seed);
}

void Oscillator::render(const Settings& settings, int begin, int count, float* output) {
  std::array<float, maximumFrameLength> phases;
  std::array<float, maximumFrameLength> increments;
  for (int i = 0; i < count; ++i) {
    const float increment = std::min(settings.increment.at(begin + i), maximumIncrement);
    phases[i] = phase_;
    increments[i] = increment;
    phase_ += increment;
    if (phase_ >= 1) phase_ -= 1;
  }
  if (settings.phaseModulation) {
    // Edges have to be as wide as the phase is fast at this very moment, in either direction.
    for (int i = 0; i < count; ++i) {
      const float phase = wrapPhase(phases[i] + settings.phaseModulation[i]);
      const float way = phase - lastModulated_;
      const float speed = std::abs(way - std::round(way));
      if (modulated_) increments[i] = std::clamp(speed, 1e-5f, maximumIncrement);
      modulated_ = true;
      lastModulated_ = phase;
      phases[i] = phase < 1 ? phase : 0;
    }
  } else {
    modulated_ = false;
  }

  std::array<float, maximumFrameLength> lengths;
  for (int i = 0; i < count; ++i) lengths[i] = 1 / std::max(increments[i], 1e-7f);

  std::fill_n(output, count, 0.0f);
  const auto add = [&](Wave wave, auto&& sample) {
    const Ramp& gain = (*settings.mix)[static_cast<std::size_t>(wave)];
    if (gain.isZero()) return;
    for (int i = 0; i < count; ++i) output[i] += gain.at(begin + i) * sample(i);
  };
  add(Wave::sine, [&](int i) { return sineOfPhase(phases[i]); });
  add(Wave::triangle, [&](int i) { return triangle(phases[i], increments[i], lengths[i]); });
  add(Wave::saw, [&](int i) { return saw(phases[i], lengths[i]); });
  add(Wave::square, [&](int i) { return pulse(phases[i], lengths[i], 0.5f); });
  add(Wave::pulse,
      [&](int i) { return pulse(phases[i], lengths[i], settings.width.at(begin + i)); });
  add(Wave::noise, [&](int) { return noiseGain * random_.bipolar(); });
}

}  // namespace halden
