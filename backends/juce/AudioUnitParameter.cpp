#include "backends/juce/AudioUnitParameter.h"

#include <algorithm>
#include <cmath>

#include "backends/juce/JuceInput.h"

namespace juce_backend {
namespace {

using Unit = platform::AudioUnitParameterUnit;

bool isEvenInPitch(const platform::AUParameter& parameter) {
  const bool isLogarithmic =
      (parameter.flags() & platform::AudioUnitParameterFlags::displayLogarithmic) != 0;
  return (parameter.unit() == Unit::hertz || isLogarithmic) && parameter.minValue() > 0 &&
         parameter.maxValue() > parameter.minValue();
}

/// Hosts show it, and neither set nor record it.
bool isMeter(const platform::AUParameter& parameter) {
  namespace Flags = platform::AudioUnitParameterFlags;
  return (parameter.flags() & (Flags::readable | Flags::writable)) == Flags::readable;
}

juce::AudioProcessorParameterWithIDAttributes attributesOf(const platform::AUParameter& parameter) {
  juce::AudioProcessorParameterWithIDAttributes attributes;
  if (!isMeter(parameter)) return attributes;
  return attributes.withAutomatable(false).withCategory(juce::AudioProcessorParameter::outputMeter);
}

/// What the number of a text stands for in the parameter's own unit; `rest` is the text without it.
double inOwnUnit(const platform::AUParameter& parameter, double number, const juce::String& rest) {
  if (rest.startsWithChar('k')) number *= 1000;
  switch (parameter.unit()) {
    case Unit::seconds:
      return rest.startsWith("ms") ? number / 1000 : number;
    case Unit::milliseconds:
      return rest == "s" ? number * 1000 : number;
    case Unit::equalPowerCrossfade:
    case Unit::mixerFaderCurve1:
      return number / 100;
    case Unit::pan: {
      const float reach = std::max(std::abs(parameter.minValue()), std::abs(parameter.maxValue()));
      return number / 100 * static_cast<double>(rest.startsWithChar('l') ? -reach : reach);
    }
    default:
      return number;
  }
}

}  // namespace

AudioUnitParameter::AudioUnitParameter(platform::AUParameter& parameter, float defaultValue)
    : juce::AudioProcessorParameterWithID(
          // Formats that number parameters need to know since when one exists.
          juce::ParameterID(toText(parameter.key()), 1), toText(parameter.displayName()),
          attributesOf(parameter)),
      parameter_(parameter),
      isStepped_(platform::takesWholeValues(parameter.unit(), parameter.flags())),
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
  const juce::String text = toText(parameter_.stringFromValue(fromNormalised(normalised)));
  return maximumLength > 0 ? text.substring(0, maximumLength) : text;
}

float AudioUnitParameter::getValueForText(const juce::String& text) const {
  const juce::String wanted = text.trim().toLowerCase();
  // Names before numbers: a choice may be called "2".
  if (isStepped_ || parameter_.unit() == Unit::midiNoteNumber) {
    for (int step = 0; step < stepCount(); ++step) {
      const float value = parameter_.minValue() + static_cast<float>(step);
      if (wanted == toText(parameter_.stringFromValue(value)).toLowerCase())
        return toNormalised(value);
    }
  }
  if (parameter_.unit() == Unit::pan && wanted == "c") return toNormalised(0);
  constexpr const char* figures = "+-.,0123456789";
  if (!wanted.containsAnyOf("0123456789")) return getValue();
  const double number = wanted.substring(wanted.indexOfAnyOf(figures)).getDoubleValue();
  const juce::String rest = wanted.removeCharacters(figures).trim();
  return toNormalised(static_cast<float>(inOwnUnit(parameter_, number, rest)));
}

int AudioUnitParameter::stepCount() const {
  return std::max(2,
                  static_cast<int>(std::lround(parameter_.maxValue() - parameter_.minValue())) + 1);
}

int AudioUnitParameter::getNumSteps() const {
  return isStepped_ ? stepCount() : juce::AudioProcessorParameterWithID::getNumSteps();
}

bool AudioUnitParameter::isBoolean() const { return parameter_.unit() == Unit::boolean; }

juce::StringArray AudioUnitParameter::getAllValueStrings() const {
  juce::StringArray strings;
  for (const std::string& string : parameter_.valueStrings()) strings.add(toText(string));
  return strings;
}

}  // namespace juce_backend
