#include "backends/juce/AudioUnitParameter.h"

#include <algorithm>
#include <cmath>

namespace juce_backend {
namespace {

using Unit = platform::AudioUnitParameterUnit;

bool isStepped(const platform::AUParameter& parameter) {
  return parameter.unit() == Unit::indexed || parameter.unit() == Unit::boolean;
}

bool isEvenInPitch(const platform::AUParameter& parameter) {
  const bool isLogarithmic =
      (parameter.flags() & platform::AudioUnitParameterFlags::displayLogarithmic) != 0;
  return (parameter.unit() == Unit::hertz || isLogarithmic) && parameter.minValue() > 0 &&
         parameter.maxValue() > parameter.minValue();
}

}  // namespace

AudioUnitParameter::AudioUnitParameter(platform::AUParameter& parameter, float defaultValue)
    : juce::AudioProcessorParameterWithID(
          // Formats that number parameters need to know since when one exists.
          juce::ParameterID(juce::String::fromUTF8(parameter.key().c_str()), 1),
          juce::String::fromUTF8(parameter.displayName().c_str())),
      parameter_(parameter),
      isStepped_(juce_backend::isStepped(parameter)),
      isEvenInPitch_(juce_backend::isEvenInPitch(parameter)) {
  defaultValue_ = toNormalised(defaultValue);
}

float AudioUnitParameter::toNormalised(float value) const {
  const double low = parameter_.minValue(), high = parameter_.maxValue();
  if (!(high > low) || std::isnan(value)) return 0;
  const double clamped = std::clamp(static_cast<double>(value), low, high);
  return static_cast<float>(isEvenInPitch_ ? std::log(clamped / low) / std::log(high / low)
                                           : (clamped - low) / (high - low));
}

float AudioUnitParameter::fromNormalised(float normalised) const {
  const double low = parameter_.minValue(), high = parameter_.maxValue();
  const double position = std::clamp(static_cast<double>(normalised), 0.0, 1.0);
  const double value =
      isEvenInPitch_ ? low * std::pow(high / low, position) : low + (high - low) * position;
  return static_cast<float>(isStepped_ ? std::round(value) : value);
}

void AudioUnitParameter::valueChanged(float value) {
  if (juce::MessageManager::existsAndIsCurrentThread())
    sendValueChangedMessageToListeners(toNormalised(value));
  else
    isChangePending_.store(true, std::memory_order_release);
}

void AudioUnitParameter::reportPendingChange() {
  if (isChangePending_.load(std::memory_order_relaxed) &&
      isChangePending_.exchange(false, std::memory_order_acquire))
    sendValueChangedMessageToListeners(getValue());
}

float AudioUnitParameter::getValue() const { return toNormalised(parameter_.value()); }

void AudioUnitParameter::setValue(float normalised) {
  // Going to and fro rounds; a value that is there already must not drift.
  if (normalised == getValue()) return;
  parameter_.setValue(fromNormalised(normalised), originator_);
}

juce::String AudioUnitParameter::getText(float normalised, int maximumLength) const {
  const auto text =
      juce::String::fromUTF8(parameter_.stringFromValue(fromNormalised(normalised)).c_str());
  return maximumLength > 0 ? text.substring(0, maximumLength) : text;
}

float AudioUnitParameter::getValueForText(const juce::String& text) const {
  const juce::String wanted = text.trim();
  if (isStepped_) {
    for (int step = 0; step < getNumSteps(); ++step) {
      const float value = parameter_.minValue() + static_cast<float>(step);
      if (wanted.equalsIgnoreCase(
              juce::String::fromUTF8(parameter_.stringFromValue(value).c_str())))
        return toNormalised(value);
    }
  }
  if (!wanted.containsAnyOf("0123456789")) return getValue();
  double value = wanted.getDoubleValue();
  const juce::String unit = wanted.trimCharactersAtStart("+-.,0123456789 ");
  if (unit.startsWithChar('k')) value *= 1000;
  if (parameter_.unit() == Unit::seconds && unit.startsWith("ms")) value /= 1000;
  if (parameter_.unit() == Unit::milliseconds && unit == "s") value *= 1000;
  return toNormalised(static_cast<float>(value));
}

int AudioUnitParameter::getNumSteps() const {
  if (!isStepped_) return juce::AudioProcessorParameterWithID::getNumSteps();
  return std::max(2,
                  static_cast<int>(std::lround(parameter_.maxValue() - parameter_.minValue())) + 1);
}

bool AudioUnitParameter::isBoolean() const { return parameter_.unit() == Unit::boolean; }

juce::StringArray AudioUnitParameter::getAllValueStrings() const {
  juce::StringArray strings;
  for (const std::string& string : parameter_.valueStrings())
    strings.add(juce::String::fromUTF8(string.c_str()));
  return strings;
}

}  // namespace juce_backend
