#include "examples/Halden/dsp/FilterResponse.h"

#include <algorithm>
#include <cmath>
#include <complex>

#include "examples/Halden/dsp/StateVariableFilter.h"

namespace halden::FilterResponse {

float quality(float resonance, float steep) {
  // Four poles are flat with one pair at Q 1.31 and the other at 0.54, two with Q 0.71.
  const float flat = 0.7071f + steep * (1.3066f - 0.7071f);
  constexpr float maxQ = 32;
  return flat * std::pow(maxQ / flat, resonance);
}

float inputGain(float resonance) { return 1 - 0.4f * resonance; }

float bandGain(float quality) { return 1 / std::sqrt(quality); }

double decibels(FilterType type, double cutoff, double resonance, double hertz, double sampleRate) {
  const auto rate = static_cast<float>(sampleRate);
  const auto amount = static_cast<float>(resonance);
  const float q = quality(amount, type == FilterType::steepLow ? 1.0f : 0.0f);
  const double warped = std::tan(double{pi} * std::min(hertz / sampleRate, 0.499)) /
                        double{StateVariableFilter::warp(static_cast<float>(cutoff), rate)};
  const std::complex<double> s(0, warped);
  const auto poles = [&](double quality) { return 1.0 + s / quality + s * s; };
  const std::complex<double> low = 1.0 / poles(q), band = s / poles(q), high = s * s / poles(q);
  std::complex<double> response = low;
  switch (type) {
    case FilterType::steepLow:
      response = low / poles(calmQuality);
      break;
    case FilterType::low:
      break;
    case FilterType::band:
      response = band * double{bandGain(q)};
      break;
    case FilterType::high:
      response = high;
      break;
    case FilterType::notch:
      response = low + high;
      break;
    case FilterType::peak:
      response = low - high;
      break;
  }
  return 20 * std::log10(std::max(1e-6, double{inputGain(amount)} * std::abs(response)));
}

}  // namespace halden::FilterResponse
