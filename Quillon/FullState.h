#pragma once

#include <optional>
#include <string>

#include "platform/PropertyList.h"

namespace quillon {

/// Entries of an audio unit's full state.
inline constexpr const char* dataEntry = "data";
inline constexpr const char* presetNameEntry = "presetName";
inline constexpr const char* presetNumberEntry = "presetNumber";
/// The entry of the state dictionary that has the parameters' values by key.
inline constexpr const char* parametersEntry = "parameters";

/// The state dictionary within a full state. "data" is a keyed archive of it, or a property list as
/// preset files are. Without "data" the full state is, as older versions stored it, the state
/// dictionary with the preset's name among its entries. None when there is no dictionary; `error`
/// says why in one line.
std::optional<platform::PropertyList::Dictionary> stateDictionaryOf(
    const platform::PropertyList& fullState, std::string& error);

/// A full state without "data", its entries beside those of the state dictionary, for formats in
/// which states are texts; setFullState takes it as well.
platform::PropertyList unfolded(const platform::PropertyList& fullState);

}  // namespace quillon
