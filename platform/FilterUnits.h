#pragma once

#include <algorithm>
#include <cmath>

#include "platform/AUParameter.h"

namespace platform {

/// How the value of a filter's parameter is read where its response is computed and drawn, so that
/// the audio unit and the editor agree.
namespace FilterUnits {

/// What a drawn response spans, in hertz.
inline constexpr double minHertz = 20, maxHertz = 20000;

/// The frequency in hertz. A parameter in any other unit holds its place in pitch between `lowest`
/// and `highest`, from 0 to 1.
inline double hertz(const AUParameter& parameter, float value) {
  if (parameter.unit() == AudioUnitParameterUnit::hertz) return value;
  return minHertz * std::pow(maxHertz / minHertz, std::clamp(double{value}, 0.0, 1.0));
}

/// The resonance, or the gain of a peak or shelf, in decibels. A ratio is a factor (as Q is); any
/// other unit is an amount whose range runs from 0 to 30 dB.
inline double decibels(const AUParameter& parameter, float value) {
  switch (parameter.unit()) {
    case AudioUnitParameterUnit::decibels:
      return value;
    case AudioUnitParameterUnit::ratio:
    case AudioUnitParameterUnit::linearGain:
      return 20 * std::log10(std::max(double{value}, 1e-6));
    default: {
      const double range = double{parameter.maxValue()} - parameter.minValue();
      return range > 0 ? 30 * (value - parameter.minValue()) / range : 0;
    }
  }
}

}  // namespace FilterUnits

}  // namespace platform
