#include "Quillon/CommonAudioUnit.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <stdexcept>
#include <utility>

namespace quillon {

namespace {

/// What is wrong with a value of a preset; empty when nothing is.
std::string faultOf(const std::string& key, float value, const ParameterTree& tree) {
  if (!tree.indexOfKey(key)) return "there is no parameter '" + key + "'";
  if (!std::isfinite(value)) return "the value of '" + key + "' is not a finite number";
  return {};
}

void checkPresets(const std::vector<PresetDescription>& presets, const ParameterTree& tree) {
  std::set<int> numbers;
  for (const PresetDescription& description : presets) {
    const std::string place = "preset '" + description.preset.name + "': ";
    if (description.preset.number < 0)
      throw std::invalid_argument(place + "the number is negative");
    if (!numbers.insert(description.preset.number).second)
      throw std::invalid_argument(place + "number " + std::to_string(description.preset.number) +
                                  " appears twice");
    for (const auto& [key, value] : description.values)
      if (const std::string fault = faultOf(key, value, tree); !fault.empty())
        throw std::invalid_argument(place + fault);
  }
}

}  // namespace

CommonAudioUnit::CommonAudioUnit(std::vector<ParameterDescription> parameters,
                                 std::vector<PresetDescription> presets)
    : tree_(std::move(parameters)),
      live_(std::make_unique<std::atomic<float>[]>(tree_.size())),
      modulating_(std::make_unique<std::atomic<bool>[]>(tree_.size())),
      random_(std::random_device{}()) {
  for (std::size_t i = 0; i < tree_.size(); ++i) {
    live_[i].store(tree_.at(i).value(), std::memory_order_relaxed);
    modulating_[i].store(false, std::memory_order_relaxed);
  }
  setFactoryPresets(std::move(presets));
}

CommonAudioUnit::~CommonAudioUnit() = default;

Parameter* CommonAudioUnit::parameter(std::string_view key) const {
  const auto index = tree_.indexOfKey(key);
  return index ? &tree_.at(*index) : nullptr;
}

std::vector<std::string> CommonAudioUnit::stringValuesFor(std::string_view key) const {
  const Parameter* found = parameter(key);
  return found ? found->valueStrings() : std::vector<std::string>();
}

float CommonAudioUnit::defaultValueForKey(std::string_view key) const {
  const Parameter* found = parameter(key);
  return found ? found->description().defaultValue : 0;
}

void CommonAudioUnit::setParameter(std::string_view key, float value) {
  if (Parameter* found = parameter(key)) found->setValue(value);
}

void CommonAudioUnit::randomize() {
  for (std::size_t i = 0; i < tree_.size(); ++i) {
    const ParameterDescription& description = tree_.at(i).description();
    if (!description.randomizable) continue;
    // In double: the width of a range may be more than a float can hold.
    const double low = description.minValue;
    const double high = description.maxValue;
    const double share = random_() / 4294967296.0;
    double value = low + (high - low) * share;
    if (isStepped(description)) {
      const double first = std::ceil(low);
      const double count = std::floor(high) - first + 1;
      if (count < 1) continue;
      value = first + std::floor(count * share);
    } else if (description.unit == platform::AudioUnitParameterUnit::hertz && low > 0) {
      value = low * std::pow(high / low, share);
    }
    tree_.at(i).setValue(static_cast<float>(value));
  }
}

const std::atomic<float>* CommonAudioUnit::getOutputValues(std::string_view key) const {
  const auto index = tree_.indexOfKey(key);
  return index && tree_.at(*index).description().publishesLive ? &live_[*index] : nullptr;
}

const std::atomic<bool>* CommonAudioUnit::isModulating(std::string_view key) const {
  const auto index = tree_.indexOfKey(key);
  return index && tree_.at(*index).description().publishesLive ? &modulating_[*index] : nullptr;
}

std::vector<const platform::LiveBuffer*> CommonAudioUnit::liveBuffers(std::string_view key) const {
  std::vector<const platform::LiveBuffer*> buffers;
  if (const auto entry = liveBuffers_.find(key); entry != liveBuffers_.end())
    for (const std::unique_ptr<LiveRing>& ring : entry->second) buffers.push_back(ring.get());
  return buffers;
}

LiveRing& CommonAudioUnit::addLiveBuffer(const std::string& key, std::size_t capacity) {
  return *liveBuffers_[key].emplace_back(std::make_unique<LiveRing>(capacity));
}

std::shared_ptr<const platform::SampleData> CommonAudioUnit::sampleData(
    std::string_view key) const {
  const auto entry = sampleData_.find(key);
  return entry == sampleData_.end() ? nullptr : entry->second;
}

void CommonAudioUnit::setSampleData(const std::string& key,
                                    std::shared_ptr<const platform::SampleData> data) {
  sampleData_[key] = std::move(data);
}

void CommonAudioUnit::setFactoryPresets(std::vector<PresetDescription> presets) {
  checkPresets(presets, tree_);
  const std::lock_guard lock(loading_);
  presetDescriptions_ = std::move(presets);
  presets_.clear();
  for (const PresetDescription& description : presetDescriptions_)
    presets_.push_back(description.preset);
}

const PresetDescription* CommonAudioUnit::preset(int number) const {
  for (const PresetDescription& description : presetDescriptions_)
    if (description.preset.number == number) return &description;
  return nullptr;
}

void CommonAudioUnit::setCurrentPreset(int number) {
  {
    const std::lock_guard lock(loading_);
    const PresetDescription* found = preset(number);
    if (!found) return;
    currentPreset_ = number;
    currentPresetName_ = found->preset.name;
    // It came with another preset.
    unknownState_.clear();
    unknownParameters_.clear();
    ++presetGeneration_;
    for (std::size_t i = 0; i < tree_.size(); ++i) {
      Parameter& parameter = tree_.at(i);
      const auto value = found->values.find(parameter.key());
      parameter.store(value == found->values.end() ? parameter.description().defaultValue
                                                   : value->second);
    }
  }
  tellAll();
}

void CommonAudioUnit::tellAll() {
  for (std::size_t i = 0; i < tree_.size(); ++i) tree_.at(i).tell();
}

int CommonAudioUnit::currentPreset() const {
  const std::lock_guard lock(loading_);
  return currentPreset_;
}

std::string CommonAudioUnit::currentPresetName() const {
  const std::lock_guard lock(loading_);
  return currentPresetName_;
}

void CommonAudioUnit::allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) {
  sampleRate_ = sampleRate;
  maximumFrames_ = maximumFrames;
}

void CommonAudioUnit::render(const platform::RenderBlock& block) {
  for (std::size_t channel = 0; channel < block.outputs.size(); ++channel) {
    float* output = block.outputs[channel];
    const float* input = channel < block.inputs.size() ? block.inputs[channel] : nullptr;
    if (!output || input == output) continue;
    if (input)
      std::copy_n(input, block.frames, output);
    else
      std::fill_n(output, block.frames, 0.0f);
  }
}

}  // namespace quillon
