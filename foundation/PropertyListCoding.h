#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/PropertyList.h"

namespace foundation {

/// Reads a property list in its XML or its binary form. None when `bytes` hold no property list:
/// `error` then says why in one line.
std::optional<platform::PropertyList> parsePropertyList(std::span<const std::uint8_t> bytes,
                                                        std::string& error);

/// The XML form, UTF-8. The format knows no null: such entries of arrays and dictionaries are left
/// out, and a null root is written as an empty dictionary. Text that is not UTF-8, or holds
/// characters that XML cannot, is written with U+FFFD in their place.
std::string writeXmlPropertyList(const platform::PropertyList& list);

}  // namespace foundation
