#pragma once

#include <cstdint>
#include <vector>

#include "platform/PropertyList.h"

namespace foundation {

/// The binary form. A dictionary of nothing but "CF$UID" becomes a reference of a keyed archive;
/// numbers, dates and texts that occur more than once are stored once. Nulls in collections are
/// left out; a null root is written as an empty dictionary.
std::vector<std::uint8_t> writeBinaryPropertyList(const platform::PropertyList& list);

}  // namespace foundation
