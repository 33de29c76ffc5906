#include "backends/lv2/SoundInstance.h"

#include <lv2/atom/util.h>
#include <lv2/options/options.h>
#include <lv2/worker/worker.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

#include "backends/lv2/PluginState.h"

namespace lv2_backend {
namespace {

constexpr std::uint32_t maximumFramesUnlessTold = 4096;

const LV2_URID_Map& requiredMap(const LV2_Feature* const* features) {
  const auto* map = findFeature<LV2_URID_Map>(features, LV2_URID__map);
  if (!map) throw std::runtime_error("The host has no urid:map");
  return *map;
}

std::uint32_t maximumFrames(const LV2_Feature* const* features, const Urids& urids) {
  const auto* option = findFeature<LV2_Options_Option>(features, LV2_OPTIONS__options);
  for (; option && option->key; ++option) {
    if (option->context != LV2_OPTIONS_INSTANCE || option->key != urids.maxBlockLength) continue;
    if (option->type != urids.atomInt || option->size != sizeof(std::int32_t)) continue;
    const auto frames = *static_cast<const std::int32_t*>(option->value);
    if (frames > 0) return static_cast<std::uint32_t>(frames);
  }
  return maximumFramesUnlessTold;
}

}  // namespace

SoundInstance::SoundInstance(const orvane::PluginEntry& entry, double sampleRate,
                             const LV2_Feature* const* features)
    : audioUnit_(entry.createAudioUnit()),
      map_(requiredMap(features)),
      urids_(map_),
      sampleRate_(sampleRate),
      layout_(*audioUnit_),
      renderer_(*audioUnit_, urids_, sampleRate, maximumFrames(features, urids_)),
      link_(*audioUnit_, midiLearn_, urids_, map_,
            findFeature<LV2_Worker_Schedule>(features, LV2_WORKER__schedule), access_, sampleRate),
      controls_(layout_.parameters().size()),
      lastValues_(controls_.size()),
      isOwn_(controls_.size()),
      restoredPorts_(controls_.size()),
      echoesUntil_(controls_.size(), 0) {
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    indexOf_[layout_.parameters()[i].parameter] = i;
    lastValues_[i] = restoredPorts_[i] = std::numeric_limits<float>::quiet_NaN();
  }
  ownIndices_.reserve(controls_.size());
  ownValues_.reserve(controls_.size());
}

void SoundInstance::connectPort(std::uint32_t port, void* buffer) {
  if (port < layout_.firstSideChain()) {
    renderer_.setInput(port, static_cast<const float*>(buffer));
  } else if (port < layout_.firstOutput()) {
    renderer_.setSideChain(port - layout_.firstSideChain(), static_cast<const float*>(buffer));
  } else if (port < layout_.control()) {
    renderer_.setOutput(port - layout_.firstOutput(), static_cast<float*>(buffer));
  } else if (port == layout_.control()) {
    control_ = static_cast<const LV2_Atom_Sequence*>(buffer);
  } else if (port == layout_.notify()) {
    notify_ = static_cast<LV2_Atom_Sequence*>(buffer);
  } else if (port == layout_.latency()) {
    latencyPort_ = static_cast<float*>(buffer);
  } else if (port == layout_.enabled()) {
    enabledPort_ = static_cast<const float*>(buffer);
  } else if (port < layout_.count()) {
    controls_[port - layout_.firstParameter()] = static_cast<float*>(buffer);
  }
}

void SoundInstance::activate() {
  const std::lock_guard lock(access_);
  audioUnit_->allocateRenderResources(sampleRate_, renderer_.maximumFrames());
  latency_ = static_cast<float>(audioUnit_->latencyFrames());
  renderer_.activate();
}

void SoundInstance::deactivate() {
  const std::lock_guard lock(access_);
  audioUnit_->deallocateRenderResources();
}

void SoundInstance::run(std::uint32_t frames) {
  readControls();
  renderer_.setBypassed(enabledPort_ && *enabledPort_ <= 0);
  renderer_.begin(frames);
  readEvents();
  noteMoved();
  frame_ += frames;
  renderer_.finish();
  writeControls();
  if (link_.wantsOwnValues()) tellOwnValues();
  if (notify_) link_.writeMessages(*notify_, frames);
}

void SoundInstance::noteMoved() {
  midiLearn_.takeMoved([this](const platform::AUParameter& parameter) {
    const std::size_t index = indexOf_.at(&parameter);
    const double rest = orvane::MidiLearn::quietTime * sampleRate_;
    echoesUntil_[index] = frame_ + static_cast<std::uint64_t>(rest);
    isOwn_[index] = true;
  });
}

void SoundInstance::tellOwnValues() {
  ownIndices_.clear();
  ownValues_.clear();
  for (std::size_t i = 0; i < isOwn_.size(); ++i) {
    if (!isOwn_[i]) continue;
    ownIndices_.push_back(static_cast<std::int32_t>(i));
    ownValues_.push_back(layout_.parameters()[i].parameter->value());
  }
  link_.tellOwnValues(ownIndices_, ownValues_);
}

void SoundInstance::readControls() {
  const bool all = link_.takeStateSet();
  const bool isRestored = all && isRestored_.exchange(false, std::memory_order_acquire);
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const ParameterPort& port = layout_.parameters()[i];
    if (port.isOutput || !controls_[i]) continue;
    const float value = *controls_[i];
    const bool hasChanged = value != lastValues_[i];
    lastValues_[i] = value;
    if (isRestored) isOwn_[i] = value == restoredPorts_[i];
    if (isRestored ? isOwn_[i].load() : !hasChanged && (!all || isOwn_[i])) continue;
    // The echo of what MIDI has done.
    const bool isEcho = !isRestored && frame_ < echoesUntil_[i];
    if (!isEcho) port.parameter->setValue(value);
    isOwn_[i] = isEcho && value != port.parameter->value();
  }
}

void SoundInstance::readEvents() {
  if (!control_) return;
  LV2_ATOM_SEQUENCE_FOREACH(control_, event) {
    const std::int64_t frame = event->time.frames;
    if (event->body.type == urids_.midiEvent) {
      const auto* bytes = reinterpret_cast<const std::uint8_t*>(event + 1);
      renderer_.midi(frame, bytes, event->body.size);
      // What moves something here moves it in the editor, and by that the host's port; while a control
      // waits there, nothing is moved here either.
      const bool waits = link_.wantsMidi();
      const bool isBound = !waits && midiLearn_.receive({bytes, event->body.size});
      if (isBound || waits) link_.receiveMidi(bytes, event->body.size);
    } else if (event->body.type == urids_.atomObject || event->body.type == urids_.atomBlank) {
      const auto& object = reinterpret_cast<const LV2_Atom_Object&>(event->body);
      if (object.body.otype == urids_.timePosition) {
        renderer_.position(frame, object);
      } else {
        link_.receive(object);
      }
    }
  }
}

void SoundInstance::writeControls() {
  if (latencyPort_) *latencyPort_ = latency_;
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const ParameterPort& port = layout_.parameters()[i];
    if (port.isOutput && controls_[i]) *controls_[i] = port.parameter->value();
  }
}

LV2_State_Status SoundInstance::save(LV2_State_Store_Function store, LV2_State_Handle handle) {
  const std::lock_guard lock(access_);
  StalePorts stale;
  for (std::size_t i = 0; i < isOwn_.size(); ++i)
    if (isOwn_[i]) stale[layout_.parameters()[i].parameter->key()] = lastValues_[i];
  const std::string text = stateText(*audioUnit_, midiLearn_, stale);
  return store(handle, urids_.state, text.c_str(), text.size() + 1, urids_.atomString,
               LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE);
}

LV2_State_Status SoundInstance::restore(LV2_State_Retrieve_Function retrieve,
                                        LV2_State_Handle handle) {
  std::size_t size = 0;
  std::uint32_t type = 0;
  std::uint32_t flags = 0;
  const auto* text = static_cast<const char*>(retrieve(handle, urids_.state, &size, &type, &flags));
  // A user's preset may consist of ports only.
  if (!text || size == 0) return LV2_STATE_ERR_NO_PROPERTY;
  if (type != urids_.atomString) return LV2_STATE_ERR_BAD_TYPE;
  std::string_view state(text, size);
  if (state.back() == '\0') state.remove_suffix(1);
  const std::lock_guard lock(access_);
  StalePorts stale;
  if (!setState(*audioUnit_, midiLearn_, state, &stale)) return LV2_STATE_ERR_UNKNOWN;
  for (std::size_t i = 0; i < restoredPorts_.size(); ++i) {
    const auto found = stale.find(layout_.parameters()[i].parameter->key());
    restoredPorts_[i] =
        found == stale.end() ? std::numeric_limits<float>::quiet_NaN() : found->second;
  }
  isRestored_.store(true, std::memory_order_release);
  link_.stateRestored();
  return LV2_STATE_SUCCESS;
}

}  // namespace lv2_backend
