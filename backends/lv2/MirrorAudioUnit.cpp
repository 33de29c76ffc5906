#include "backends/lv2/MirrorAudioUnit.h"

#include <algorithm>
#include <utility>

#include "backends/lv2/PluginState.h"

namespace lv2_backend {
MirrorAudioUnit::MirrorAudioUnit(std::unique_ptr<platform::AudioUnit> audioUnit)
    : unit_(std::move(audioUnit)), sounds_(*unit_) {
  for (std::size_t i = 0; i < sounds_.buffers().size(); ++i)
    rings_.push_back(std::make_unique<quillon::LiveRing>(LiveSounds::keptSamples));
  midiLearn_.bindingsChanged = [this] {
    if (stateObserver_) stateObserver_();
  };
  const auto& parameters = unit_->parameterTree().allParameters();
  const LiveParameters published(*unit_);
  for (const LiveParameters::Source& source : published.sources()) {
    auto live = std::make_unique<Live>();
    live->hasValue = source.value != nullptr;
    live->hasFlag = source.modulating != nullptr;
    live->value.store(parameters[source.index]->value(), std::memory_order_relaxed);
    liveOfKey_[parameters[source.index]->key()] = live.get();
    live_.push_back(std::move(live));
  }
}

MirrorAudioUnit::~MirrorAudioUnit() = default;

void MirrorAudioUnit::showLive(std::span<const float> values,
                               std::span<const std::int32_t> modulating) {
  if (values.size() != live_.size() || modulating.size() != live_.size()) return;
  for (std::size_t i = 0; i < live_.size(); ++i) {
    live_[i]->value.store(values[i], std::memory_order_relaxed);
    live_[i]->modulating.store(modulating[i] != 0, std::memory_order_relaxed);
  }
}

void MirrorAudioUnit::showSound(std::size_t sound, std::span<const float> samples) {
  if (sound < rings_.size()) rings_[sound]->append(samples);
}

std::vector<const platform::LiveBuffer*> MirrorAudioUnit::liveBuffers(std::string_view key) const {
  std::vector<const platform::LiveBuffer*> result = unit_->liveBuffers(key);
  for (const platform::LiveBuffer*& buffer : result) {
    const auto& all = sounds_.buffers();
    const auto place = std::find(all.begin(), all.end(), buffer);
    if (place != all.end()) buffer = rings_[static_cast<std::size_t>(place - all.begin())].get();
  }
  return result;
}

std::string MirrorAudioUnit::stateBesideParameters() const {
  return lv2_backend::stateBesideParameters(*unit_, midiLearn_);
}

void MirrorAudioUnit::setStateBesideParameters(std::string_view text) {
  setState(*unit_, midiLearn_, text);
}

const std::atomic<float>* MirrorAudioUnit::getOutputValues(std::string_view key) const {
  const auto entry = liveOfKey_.find(key);
  return entry != liveOfKey_.end() && entry->second->hasValue ? &entry->second->value : nullptr;
}

const std::atomic<bool>* MirrorAudioUnit::isModulating(std::string_view key) const {
  const auto entry = liveOfKey_.find(key);
  return entry != liveOfKey_.end() && entry->second->hasFlag ? &entry->second->modulating : nullptr;
}

void MirrorAudioUnit::setCurrentPreset(int number) {
  unit_->setCurrentPreset(number);
  if (stateObserver_) stateObserver_();
}

bool MirrorAudioUnit::setFullState(const platform::PropertyList& state) {
  if (!unit_->setFullState(state)) return false;
  if (stateObserver_) stateObserver_();
  return true;
}

}  // namespace lv2_backend
