#pragma once

#include <cstddef>

namespace halden {

/// In the order of the parameter's names.
enum class FilterType { steepLow, low, band, high, notch, peak };
inline constexpr std::size_t filterTypeCount = 6;

/// What the voices' filter does, as far as it is linear: the numbers that the sound is made with and
/// the response that follows from them.
namespace FilterResponse {

/// Q of the calm pair of poles of the steep filter: with it and no resonance four poles are flat.
inline constexpr float calmQuality = 0.5412f;

/// Q at a resonance from 0 to 1; `steep` is 1 for the four-pole filter, 0 for the others.
float quality(float resonance, float steep);
/// Resonance takes the level down, so that it does not shout.
float inputGain(float resonance);
/// The band's own peak is Q high: brought down so that noise through it stays as loud.
float bandGain(float quality);

/// In decibels, at `hertz`. `resonance` is from 0 to 1. Frequencies are bent towards half the sample
/// rate as the filter bends them.
double decibels(FilterType type, double cutoff, double resonance, double hertz, double sampleRate);

}  // namespace FilterResponse

}  // namespace halden
