// The state of an audio unit, for hosts and presets.

#include <algorithm>
#include <cmath>
#include <utility>

#include "Quillon/CommonAudioUnit.h"
#include "Quillon/FullState.h"
#include "foundation/Console.h"
#include "foundation/KeyedArchive.h"

namespace quillon {

using platform::PropertyList;
using Dictionary = PropertyList::Dictionary;

namespace {

bool isNumber(const PropertyList& list) {
  return list.as<double>() || list.as<std::int64_t>() || list.as<bool>();
}

}  // namespace

PropertyList CommonAudioUnit::fullState() const {
  const std::lock_guard lock(loading_);
  Dictionary state{{dataEntry, foundation::writeKeyedArchive(stateDictionary())}};
  if (!currentPresetName_.empty()) state[presetNameEntry] = currentPresetName_;
  if (currentPreset_ >= 0) state[presetNumberEntry] = currentPreset_;
  return state;
}

bool CommonAudioUnit::setFullState(const PropertyList& state) {
  std::string error;
  const auto dictionary = stateDictionaryOf(state, error);
  if (!dictionary) {
    foundation::printToConsole("The state cannot be read: " + error);
    return false;
  }
  // The number counts only while the preset that it named is still the same.
  const PropertyList* name = state.find(presetNameEntry);
  const auto* nameText = name ? name->as<std::string>() : nullptr;
  const PropertyList* number = state.find(presetNumberEntry);
  const auto* numberValue = number ? number->as<std::int64_t>() : nullptr;
  {
    const std::lock_guard lock(loading_);
    currentPresetName_ = nameText ? *nameText : std::string();
    currentPreset_ = -1;
    for (const platform::AUAudioUnitPreset& factoryPreset : presets_)
      if (numberValue && *numberValue == factoryPreset.number &&
          currentPresetName_ == factoryPreset.name)
        currentPreset_ = factoryPreset.number;
    ++presetGeneration_;
    setStateDictionary(*dictionary);
  }
  tellAll();
  return true;
}

Dictionary CommonAudioUnit::stateDictionary() const {
  Dictionary parameters = unknownParameters_;
  for (std::size_t i = 0; i < tree_.size(); ++i)
    parameters[tree_.at(i).key()] = double{tree_.at(i).value()};
  Dictionary state = unknownState_;
  state[parametersEntry] = std::move(parameters);
  return state;
}

void CommonAudioUnit::setStateDictionary(const Dictionary& state) {
  unknownState_ = state;
  unknownState_.erase(parametersEntry);
  unknownParameters_.clear();
  const auto entry = state.find(parametersEntry);
  const auto* values = entry == state.end() ? nullptr : entry->second.as<Dictionary>();
  if (values)
    for (const auto& [key, value] : *values)
      if (!tree_.indexOfKey(key)) unknownParameters_.emplace(key, value);

  for (std::size_t i = 0; i < tree_.size(); ++i) {
    const auto found = values ? values->find(tree_.at(i).key()) : Dictionary::const_iterator();
    const PropertyList* value = values && found != values->end() ? &found->second : nullptr;
    const ParameterDescription& description = tree_.at(i).description();
    const double read = value && isNumber(*value) ? value->number() : std::nan("");
    tree_.at(i).store(std::isnan(read) ? description.defaultValue
                                       : static_cast<float>(std::clamp<double>(
                                             read, description.minValue, description.maxValue)));
  }
}

}  // namespace quillon
