#include "Orvane/ParameterMapping.h"

#include <cmath>

#include "Orvane/MathUtils.h"
#include "platform/AUParameter.h"

namespace orvane {

namespace {

// What a control of pitch shows, in hertz.
constexpr float minFrequency = 20, maxFrequency = 20000;

}  // namespace

bool takesWholeValues(const platform::AUParameter& parameter) {
  return platform::takesWholeValues(parameter.unit(), parameter.flags());
}

ParameterMapping::ParameterMapping(float minimum, float maximum, Scale scale)
    : minimum_(minimum), maximum_(maximum), scale_(scale) {}

ParameterMapping::ParameterMapping(const platform::AUParameter& parameter)
    : ParameterMapping(parameter.minValue(), parameter.maxValue(),
                       parameter.unit() == platform::AudioUnitParameterUnit::hertz
                           ? Scale::pitch
                           : Scale::linear) {
  isWhole_ = takesWholeValues(parameter);
}

ParameterMapping::ParameterMapping(const platform::AUParameter& parameter,
                                   kestroui::Container::ValueForm form)
    : ParameterMapping(parameter) {
  using Form = kestroui::Container::ValueForm;
  if (form == Form::raw || (form == Form::pitch && scale_ == Scale::linear)) {
    scale_ = Scale::same;
  } else if (form == Form::pitch) {
    minimum_ = minFrequency;
    maximum_ = maxFrequency;
  }
}

float ParameterMapping::positionOf(float value) const {
  if (scale_ == Scale::same) return value;
  float low = minimum_, high = maximum_;
  if (std::isnan(value)) return 0;
  if (scale_ == Scale::pitch) {
    low = MathUtils::toMidi(low);
    high = MathUtils::toMidi(high);
    value = MathUtils::toMidi(value);
  }
  return high == low ? 0 : (value - low) / (high - low);
}

float ParameterMapping::valueAt(float position) const {
  if (scale_ == Scale::same) return isWhole_ ? std::round(position) : position;
  // The pitch scale would miss the ends by a rounding.
  if (position == 0) return minimum_;
  if (position == 1) return maximum_;
  if (scale_ == Scale::linear) {
    const float value = position * (maximum_ - minimum_) + minimum_;
    return isWhole_ ? std::round(value) : value;
  }
  const float low = MathUtils::toMidi(minimum_), high = MathUtils::toMidi(maximum_);
  return MathUtils::toFreq(position * (high - low) + low);
}

}  // namespace orvane
