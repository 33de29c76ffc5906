#include "Orvane/AUFilterViewContainer.h"

#include <array>
#include <utility>

#include "Orvane/MathUtils.h"

namespace orvane {

using platform::AudioUnitParameterUnit;

namespace {

// The pitch of 20 Hz, and how much higher 20 kHz is.
constexpr float lowestPitch = 15.486819f;
constexpr float pitchRange = 119.5894f;

float positionOfFrequency(float hertz) {
  return (MathUtils::toMidi(hertz) - lowestPitch) / pitchRange;
}

}  // namespace

const std::string& AUFilterViewContainer::parameterKey(const std::string& key) {
  static const std::array<std::pair<std::string, std::string>, 4> sidechainKeys{{
      {"LowPassFilterFreq", "SidechainLowPassFrequency"},
      {"LowPassFilterRes", "SidechainLowPassResonance"},
      {"HighPassFilterFreq", "SidechainHighPassFrequency"},
      {"HighPassFilterRes", "SidechainHighPassResonance"},
  }};
  for (const auto& [own, parameter] : sidechainKeys)
    if (own == key) return parameter;
  return key;
}

float AUFilterViewContainer::parameterValue(const std::string& key,
                                            const platform::AUParameter& parameter) const {
  if (parameter.unit() == AudioUnitParameterUnit::decibels) return filterView().resonance();
  if (valueForm(key) == ValueForm::raw) return value(key);
  const float hertz = filterView().frequency();
  return parameter.unit() == AudioUnitParameterUnit::hertz ? hertz : positionOfFrequency(hertz);
}

float AUFilterViewContainer::shownValue(const std::string& key,
                                        const platform::AUParameter& parameter, float value) const {
  const bool isFrequency = valueForm(key) == ValueForm::position;
  return isFrequency && parameter.unit() == AudioUnitParameterUnit::hertz
             ? positionOfFrequency(value)
             : value;
}

}  // namespace orvane
