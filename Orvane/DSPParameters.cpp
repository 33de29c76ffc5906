#include "Orvane/DSPParameters.h"

#include <array>
#include <utility>

#include "Orvane/ParameterMapping.h"

namespace orvane {

void DSPParameters::registerParameters(platform::AudioUnit& audioUnit,
                                       const std::vector<std::string>& keys) {
  audioUnit_ = &audioUnit;
  keys_.clear();
  parameters_.clear();
  parameterMap_.clear();
  for (const std::string& key : keys) {
    platform::AUParameter* parameter = audioUnit.parameter(key);
    if (!parameter || !parameters_.emplace(key, parameter).second) continue;
    keys_.push_back(key);
    parameterMap_[parameter->address()] = key;
  }
}

platform::AUParameter* DSPParameters::operator[](const std::string& key) const {
  if (!audioUnit_) return nullptr;
  const auto entry = parameters_.find(key);
  return entry == parameters_.end() ? nullptr : entry->second;
}

const std::string* DSPParameters::key(platform::AUParameterAddress address) const {
  const auto entry = parameterMap_.find(address);
  return entry == parameterMap_.end() ? nullptr : &entry->second;
}

const std::string& DSPParameters::parameterKey(const std::string& controlKey) {
  static const std::array<std::pair<std::string, std::string>, 4> sidechainKeys{{
      {"LowPassFilterFreq", "SidechainLowPassFrequency"},
      {"LowPassFilterRes", "SidechainLowPassResonance"},
      {"HighPassFilterFreq", "SidechainHighPassFrequency"},
      {"HighPassFilterRes", "SidechainHighPassResonance"},
  }};
  for (const auto& [own, parameter] : sidechainKeys)
    if (own == controlKey) return parameter;
  return controlKey;
}

void DSPParameters::setObserver(std::shared_ptr<DSPParameterObserver> observer,
                                const std::string& key) {
  if (observer)
    observers_[key] = std::move(observer);
  else
    observers_.erase(key);
}

void DSPParameters::notify(const std::string& key) {
  const auto entry = observers_.find(key);
  if (entry == observers_.end()) return;
  // The observer may replace itself.
  const std::shared_ptr<DSPParameterObserver> observer = entry->second;
  if (platform::AUParameter* parameter = (*this)[key]) observer->update(*parameter, key);
}

void DSPParameters::set(float inValue, const std::string& key, Convert convert) {
  platform::AUParameter* parameter = (*this)[key];
  if (!parameter) return;
  parameter->setValue(convert == Convert::yes ? ParameterMapping(*parameter).valueAt(inValue)
                                              : inValue);
}

}  // namespace orvane
