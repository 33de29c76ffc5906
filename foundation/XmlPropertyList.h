#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "foundation/BinaryPropertyList.h"

namespace foundation {

/// Seconds from 1970-01-01 to 2001-01-01, from where property lists count.
inline constexpr double secondsTo2001 = 978307200;
/// What data is written with, six bits a character.
inline constexpr std::string_view base64Digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// Reads the XML form. None, with an `error` of one line that says where, when it is damaged or
/// exceeds the limits. Whatever is in the file, reading takes time in proportion to its length.
std::optional<platform::PropertyList> readXmlPropertyList(std::string_view text,
                                                          const PropertyListLimits& limits,
                                                          std::string& error);

/// The first entry of the root dictionary whose key is one of `keys`, from a text of which `start` is
/// the beginning; none when it ends before that entry does.
std::optional<std::pair<std::string, platform::PropertyList>> firstXmlEntry(
    std::string_view start, std::span<const std::string_view> keys);

/// UTF-8; see writeXmlPropertyList, which is this with a root in place of a null.
std::string xmlPropertyListText(const platform::PropertyList& list);

}  // namespace foundation
