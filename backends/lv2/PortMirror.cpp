#include "backends/lv2/PortMirror.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "backends/lv2/EditorLink.h"

namespace lv2_backend {

PortMirror::PortMirror(MirrorAudioUnit& audioUnit, const EditorHost& host)
    : audioUnit_(audioUnit), host_(host), urids_(*host.map), layout_(audioUnit) {
  lv2_atom_forge_init(&forge_, const_cast<LV2_URID_Map*>(host.map));
  for (std::uint32_t i = 0; i < layout_.parameters().size(); ++i)
    portOfAddress_[layout_.parameters()[i].parameter->address()] = layout_.firstParameter() + i;

  platform::AUParameterTree& tree = audioUnit_.parameterTree();
  // Nobody renders this audio unit, so only the editor sets its parameters, on this thread.
  token_ =
      tree.tokenByAddingParameterObserver([this](platform::AUParameterAddress address,
                                                 float value) { writeParameter(address, value); });
  tree.setGestureObserver(
      [this](platform::AUParameterAddress address, bool began) { touch(address, began); });
  audioUnit_.setStateObserver([this] { send(Report::state); });
  audioUnit_.midiLearn().waitingChanged = [this] {
    if (isAnnounced_) send(Report::midiWanted);
  };
}

PortMirror::~PortMirror() {
  audioUnit_.setStateObserver({});
  audioUnit_.midiLearn().waitingChanged = nullptr;
  audioUnit_.parameterTree().setGestureObserver({});
  audioUnit_.parameterTree().removeParameterObserver(token_);
  if (isAnnounced_) send(Report::closed);
}

void PortMirror::announce() {
  if (isAnnounced_) return;
  isAnnounced_ = true;
  send(Report::opened);
  if (audioUnit_.midiLearn().isWaiting()) send(Report::midiWanted);
}

void PortMirror::idle(double now) {
  now_ = now;
  audioUnit_.midiLearn().poll(now_);
}

void PortMirror::hear(std::span<const std::uint8_t> message) {
  isHearing_ = true;
  audioUnit_.midiLearn().receive(message);
  isHearing_ = false;
  // The gesture begins before the value that it brings.
  audioUnit_.midiLearn().poll(now_);
  for (const auto& [address, value] : std::exchange(heard_, {})) writeParameter(address, value);
}

void PortMirror::writeParameter(platform::AUParameterAddress address, float value) {
  if (isListening_) return;
  if (isHearing_) {
    heard_.emplace_back(address, value);
    return;
  }
  const std::uint32_t port = portOfAddress_.at(address);
  if (layout_.parameters()[port - layout_.firstParameter()].isOutput) return;
  host_.write(host_.controller, port, sizeof value, 0, &value);
}

void PortMirror::touch(platform::AUParameterAddress address, bool began) {
  if (began) {
    held_.insert(address);
  } else {
    held_.erase(address);
  }
  if (host_.touch) host_.touch->touch(host_.touch->handle, portOfAddress_.at(address), began);
}

void PortMirror::portEvent(std::uint32_t port, std::uint32_t size, std::uint32_t format,
                           const void* data) {
  if (format == 0 && size == sizeof(float) && port >= layout_.firstParameter() &&
      port < layout_.count()) {
    platform::AUParameter& parameter =
        *layout_.parameters()[port - layout_.firstParameter()].parameter;
    if (held_.count(parameter.address())) return;
    parameter.setValue(*static_cast<const float*>(data), token_);
    return;
  }
  const auto* atom = static_cast<const LV2_Atom*>(data);
  if (port == layout_.notify() && format == urids_.atomEventTransfer && size >= sizeof(LV2_Atom) &&
      atom->type == urids_.midiEvent && atom->size <= size - sizeof(LV2_Atom)) {
    hear({reinterpret_cast<const std::uint8_t*>(atom + 1), atom->size});
    return;
  }
  if (port != layout_.notify() || format != urids_.atomEventTransfer ||
      size < sizeof(LV2_Atom_Object) || atom->size > size - sizeof(LV2_Atom) ||
      atom->size < sizeof(LV2_Atom_Object_Body) ||
      (atom->type != urids_.atomObject && atom->type != urids_.atomBlank))
    return;
  const auto message = EditorMessage::read(*reinterpret_cast<const LV2_Atom_Object*>(atom), urids_);
  if (message.kind == EditorMessage::Kind::live) {
    audioUnit_.showLive(message.values, message.modulating);
  } else if (message.kind == EditorMessage::Kind::sound) {
    audioUnit_.showSound(message.sound, message.values);
  } else if (message.kind == EditorMessage::Kind::ownValues) {
    takeOwnValues(message);
  } else if (message.kind == EditorMessage::Kind::state) {
    takeState(message.state);
  }
}

void PortMirror::takeOwnValues(const EditorMessage& message) {
  for (std::size_t i = 0; i < std::min(message.indices.size(), message.values.size()); ++i) {
    const auto index = static_cast<std::size_t>(message.indices[i]);
    if (index >= layout_.parameters().size() || std::isnan(message.values[i])) continue;
    platform::AUParameter& parameter = *layout_.parameters()[index].parameter;
    if (held_.count(parameter.address())) continue;
    // The host's port is behind, and follows.
    parameter.beginGesture();
    parameter.setValue(message.values[i]);
    parameter.endGesture();
  }
}

void PortMirror::takeState(std::string_view state) {
  const bool isFirst = !std::exchange(isAnswered_, true);
  const auto edited = audioUnit_.midiLearn().bindings();
  isListening_ = true;
  audioUnit_.setStateBesideParameters(state);
  isListening_ = false;
  // What was bound before the sound has told its own bindings comes on top of them.
  if (!isFirst || !std::exchange(isEdited_, false)) return;
  for (const auto& [key, message] : edited) audioUnit_.midiLearn().bind(key, message);
}

void PortMirror::send(Report report) {
  if (report == Report::state && !isAnswered_) {
    isEdited_ = true;
    return;
  }
  std::string state;
  if (report == Report::state) {
    state = audioUnit_.stateBesideParameters();
    // The sound would not take it.
    if (state.size() > EditorLink::stateCapacity) return;
  }
  message_.resize(EditorMessage::sizeOfState(state.size()));
  lv2_atom_forge_set_buffer(&forge_, message_.data(), message_.size());
  switch (report) {
    case Report::opened:
      EditorMessage::forgeOpened(forge_, urids_);
      break;
    case Report::closed:
      EditorMessage::forgeClosed(forge_, urids_);
      break;
    case Report::midiWanted:
      EditorMessage::forgeMidiWanted(forge_, urids_, audioUnit_.midiLearn().isWaiting());
      break;
    case Report::state:
      EditorMessage::forgeState(forge_, urids_, state);
      break;
  }
  host_.write(host_.controller, layout_.control(), forge_.offset, urids_.atomEventTransfer,
              message_.data());
}

}  // namespace lv2_backend
