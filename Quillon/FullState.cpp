#include "Quillon/FullState.h"

#include <utility>

#include "foundation/KeyedArchive.h"
#include "foundation/PropertyListCoding.h"

namespace quillon {

using platform::PropertyList;
using Dictionary = PropertyList::Dictionary;

std::optional<Dictionary> stateDictionaryOf(const PropertyList& fullState, std::string& error) {
  const auto* entries = fullState.as<Dictionary>();
  if (!entries) {
    error = "it is no dictionary";
    return std::nullopt;
  }
  const PropertyList* entry = fullState.find(dataEntry);
  const auto* data = entry ? entry->as<PropertyList::Data>() : nullptr;
  if (!data) {
    Dictionary state = *entries;
    for (const char* other : {presetNameEntry, presetNumberEntry}) state.erase(other);
    return state;
  }
  auto list = foundation::parsePropertyList(*data, error);
  if (list && foundation::isKeyedArchive(*list)) list = foundation::unarchive(*list, error);
  if (!list) return std::nullopt;
  if (auto* state = list->as<Dictionary>()) return std::move(*state);
  error = "its data hold no dictionary";
  return std::nullopt;
}

PropertyList unfolded(const PropertyList& fullState) {
  std::string error;
  auto state = stateDictionaryOf(fullState, error);
  const auto* entries = fullState.as<Dictionary>();
  if (!state || !entries) return fullState;
  for (const auto& [key, value] : *entries)
    if (key != dataEntry) state->emplace(key, value);
  return std::move(*state);
}

}  // namespace quillon
