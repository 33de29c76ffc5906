#include "backends/lv2/PluginState.h"

#include <cstdint>
#include <cstdio>
#include <optional>
#include <utility>

#include "Quillon/FullState.h"
#include "foundation/PropertyListCoding.h"

namespace lv2_backend {
namespace {

using platform::PropertyList;
using quillon::parametersEntry;
using quillon::unfolded;

/// The entry that only the sound knows.
constexpr const char* stalePortsEntry = "stalePorts";

std::optional<PropertyList> parse(std::string_view text) {
  std::string error;
  auto list = foundation::parsePropertyList(
      {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, error);
  if (!list) std::fprintf(stderr, "The stored state cannot be read: %s\n", error.c_str());
  return list;
}

PropertyList wholeState(const platform::AudioUnit& audioUnit, const orvane::MidiLearn& midi) {
  PropertyList state = unfolded(audioUnit.fullState());
  midi.addTo(state);
  return state;
}

}  // namespace

std::string stateText(const platform::AudioUnit& audioUnit, const orvane::MidiLearn& midi,
                      const StalePorts& stale) {
  PropertyList state = wholeState(audioUnit, midi);
  PropertyList::Dictionary ports;
  for (const auto& [key, value] : stale) ports[key] = double{value};
  auto* entries = state.as<PropertyList::Dictionary>();
  if (entries && !ports.empty()) (*entries)[stalePortsEntry] = std::move(ports);
  return foundation::writeXmlPropertyList(state);
}

std::string stateBesideParameters(const platform::AudioUnit& audioUnit,
                                  const orvane::MidiLearn& midi) {
  PropertyList state = wholeState(audioUnit, midi);
  if (auto* entries = state.as<PropertyList::Dictionary>()) entries->erase(parametersEntry);
  return foundation::writeXmlPropertyList(state);
}

std::string presetText(const platform::AudioUnit& audioUnit) {
  PropertyList state = unfolded(audioUnit.fullState());
  if (auto* entries = state.as<PropertyList::Dictionary>()) {
    entries->erase(parametersEntry);
    (*entries)[orvane::MidiLearn::presetEntry] = true;
  }
  return foundation::writeXmlPropertyList(state);
}

bool setState(platform::AudioUnit& audioUnit, orvane::MidiLearn& midi, std::string_view text,
              StalePorts* stale) {
  auto list = parse(text);
  auto* entries = list ? list->as<PropertyList::Dictionary>() : nullptr;
  if (!entries) return false;
  midi.takeFrom(*list);
  const PropertyList* const ports = list->find(stalePortsEntry);
  if (const auto* values = ports ? ports->as<PropertyList::Dictionary>() : nullptr; values && stale)
    for (const auto& [key, value] : *values) (*stale)[key] = static_cast<float>(value.number());
  entries->erase(stalePortsEntry);
  if (!entries->count(parametersEntry)) {
    const PropertyList current = unfolded(audioUnit.fullState());
    if (const PropertyList* parameters = current.find(parametersEntry))
      (*entries)[parametersEntry] = *parameters;
  }
  return audioUnit.setFullState(*list);
}

}  // namespace lv2_backend
