#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/PropertyList.h"

namespace foundation {

/// Reads the root of a keyed archive: a property list of either form whose "$objects" refer to each
/// other by number. Dictionaries, arrays, sets, strings, data, numbers, dates and null, mutable or
/// not, and classes derived from theirs. None when `bytes` hold no such archive: `error` then says
/// why in one line.
std::optional<platform::PropertyList> readKeyedArchive(std::span<const std::uint8_t> bytes,
                                                       std::string& error);

/// Whether a property list is a keyed archive, readable or not.
bool isKeyedArchive(const platform::PropertyList& list);
/// The root of an archive that has been parsed already; see readKeyedArchive.
std::optional<platform::PropertyList> unarchive(const platform::PropertyList& archive,
                                                std::string& error);

/// A keyed archive with `root` under "root", as a binary property list. Keys and numbers that occur
/// more than once are shared.
std::vector<std::uint8_t> writeKeyedArchive(const platform::PropertyList& root);

}  // namespace foundation
