#include "backends/lv2/EditorMessages.h"

#include <lv2/atom/util.h>

#include <algorithm>

namespace lv2_backend {
namespace {

/// The elements of a vector atom; empty when it is none of this type.
template <class Element>
std::span<const Element> elements(const LV2_Atom* atom, LV2_URID type, const Urids& urids) {
  if (!atom || atom->type != urids.atomVector || atom->size < sizeof(LV2_Atom_Vector_Body))
    return {};
  const auto* vector = reinterpret_cast<const LV2_Atom_Vector*>(atom);
  if (vector->body.child_type != type || vector->body.child_size != sizeof(Element)) return {};
  return {reinterpret_cast<const Element*>(vector + 1),
          (atom->size - sizeof(LV2_Atom_Vector_Body)) / sizeof(Element)};
}

void forgeEmpty(LV2_Atom_Forge& forge, LV2_URID type) {
  LV2_Atom_Forge_Frame frame;
  lv2_atom_forge_object(&forge, &frame, 0, type);
  lv2_atom_forge_pop(&forge, &frame);
}

}  // namespace

EditorMessage EditorMessage::read(const LV2_Atom_Object& object, const Urids& urids) {
  EditorMessage message;
  const LV2_URID type = object.body.otype;
  if (type == urids.editorOpened) {
    message.kind = Kind::opened;
  } else if (type == urids.editorClosed) {
    message.kind = Kind::closed;
  } else if (type == urids.midiWanted) {
    message.kind = Kind::midiWanted;
  } else if (type == urids.midiUnwanted) {
    message.kind = Kind::midiUnwanted;
  } else if (type == urids.stateChanged) {
    const LV2_Atom* state = nullptr;
    lv2_atom_object_get(&object, urids.state, &state, 0);
    if (!state || state->type != urids.atomString || state->size == 0) return message;
    message.kind = Kind::state;
    // The size counts the zero at the end.
    message.state = {reinterpret_cast<const char*>(state + 1), state->size - 1};
  } else if (type == urids.liveValues) {
    const LV2_Atom* values = nullptr;
    const LV2_Atom* modulating = nullptr;
    lv2_atom_object_get(&object, urids.values, &values, urids.modulating, &modulating, 0);
    message.kind = Kind::live;
    message.values = elements<float>(values, urids.atomFloat, urids);
    message.modulating = elements<std::int32_t>(modulating, urids.atomBool, urids);
  } else if (type == urids.ownValues) {
    const LV2_Atom* values = nullptr;
    const LV2_Atom* indices = nullptr;
    lv2_atom_object_get(&object, urids.values, &values, urids.indices, &indices, 0);
    message.kind = Kind::ownValues;
    message.values = elements<float>(values, urids.atomFloat, urids);
    message.indices = elements<std::int32_t>(indices, urids.atomInt, urids);
  } else if (type == urids.liveSound) {
    const LV2_Atom* sound = nullptr;
    const LV2_Atom* samples = nullptr;
    lv2_atom_object_get(&object, urids.sound, &sound, urids.values, &samples, 0);
    if (!sound || sound->type != urids.atomInt || sound->size != sizeof(std::int32_t))
      return message;
    message.kind = Kind::sound;
    message.sound = static_cast<std::uint32_t>(reinterpret_cast<const LV2_Atom_Int*>(sound)->body);
    message.values = elements<float>(samples, urids.atomFloat, urids);
  }
  return message;
}

void EditorMessage::forgeOpened(LV2_Atom_Forge& forge, const Urids& urids) {
  forgeEmpty(forge, urids.editorOpened);
}

void EditorMessage::forgeClosed(LV2_Atom_Forge& forge, const Urids& urids) {
  forgeEmpty(forge, urids.editorClosed);
}

void EditorMessage::forgeMidiWanted(LV2_Atom_Forge& forge, const Urids& urids, bool wanted) {
  forgeEmpty(forge, wanted ? urids.midiWanted : urids.midiUnwanted);
}

void EditorMessage::forgeState(LV2_Atom_Forge& forge, const Urids& urids, std::string_view state) {
  LV2_Atom_Forge_Frame frame;
  lv2_atom_forge_object(&forge, &frame, 0, urids.stateChanged);
  lv2_atom_forge_key(&forge, urids.state);
  lv2_atom_forge_string(&forge, state.data(), static_cast<std::uint32_t>(state.size()));
  lv2_atom_forge_pop(&forge, &frame);
}

void EditorMessage::forgeLive(LV2_Atom_Forge& forge, const Urids& urids,
                              std::span<const float> values,
                              std::span<const std::int32_t> modulating) {
  LV2_Atom_Forge_Frame frame;
  lv2_atom_forge_object(&forge, &frame, 0, urids.liveValues);
  lv2_atom_forge_key(&forge, urids.values);
  lv2_atom_forge_vector(&forge, sizeof(float), urids.atomFloat,
                        static_cast<std::uint32_t>(values.size()), values.data());
  lv2_atom_forge_key(&forge, urids.modulating);
  lv2_atom_forge_vector(&forge, sizeof(std::int32_t), urids.atomBool,
                        static_cast<std::uint32_t>(modulating.size()), modulating.data());
  lv2_atom_forge_pop(&forge, &frame);
}

void EditorMessage::forgeOwnValues(LV2_Atom_Forge& forge, const Urids& urids,
                                   std::span<const std::int32_t> indices,
                                   std::span<const float> values) {
  LV2_Atom_Forge_Frame frame;
  lv2_atom_forge_object(&forge, &frame, 0, urids.ownValues);
  lv2_atom_forge_key(&forge, urids.indices);
  lv2_atom_forge_vector(&forge, sizeof(std::int32_t), urids.atomInt,
                        static_cast<std::uint32_t>(indices.size()), indices.data());
  lv2_atom_forge_key(&forge, urids.values);
  lv2_atom_forge_vector(&forge, sizeof(float), urids.atomFloat,
                        static_cast<std::uint32_t>(values.size()), values.data());
  lv2_atom_forge_pop(&forge, &frame);
}

void EditorMessage::forgeSound(LV2_Atom_Forge& forge, const Urids& urids, std::size_t sound,
                               std::span<const float> samples) {
  LV2_Atom_Forge_Frame frame;
  lv2_atom_forge_object(&forge, &frame, 0, urids.liveSound);
  lv2_atom_forge_key(&forge, urids.sound);
  lv2_atom_forge_int(&forge, static_cast<std::int32_t>(sound));
  lv2_atom_forge_key(&forge, urids.values);
  lv2_atom_forge_vector(&forge, sizeof(float), urids.atomFloat,
                        static_cast<std::uint32_t>(samples.size()), samples.data());
  lv2_atom_forge_pop(&forge, &frame);
}

LiveSounds::LiveSounds(platform::AudioUnit& audioUnit) {
  for (const platform::AUParameter* parameter : audioUnit.parameterTree().allParameters())
    for (const platform::LiveBuffer* buffer : audioUnit.liveBuffers(parameter->key()))
      if (std::find(buffers_.begin(), buffers_.end(), buffer) == buffers_.end())
        buffers_.push_back(buffer);
}

LiveParameters::LiveParameters(platform::AudioUnit& audioUnit) {
  const auto& parameters = audioUnit.parameterTree().allParameters();
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const auto* value = audioUnit.getOutputValues(parameters[i]->key());
    const auto* modulating = audioUnit.isModulating(parameters[i]->key());
    if (value || modulating) sources_.push_back({i, value, modulating});
  }
}

}  // namespace lv2_backend
