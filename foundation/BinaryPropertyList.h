#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/PropertyList.h"

namespace foundation {

/// Bounds on what one property list may unfold to.
struct PropertyListLimits {
  /// Collections within collections; reading and freeing recurse.
  std::size_t depth = 256;
  /// Bytes in memory, roughly.
  std::uint64_t size = std::uint64_t{256} << 20;

  /// A value of one byte becomes one of some tens in memory, and may be referred to many times.
  static PropertyListLimits ofFile(std::uint64_t fileSize) {
    PropertyListLimits limits;
    limits.size = std::min(limits.size, (std::uint64_t{1} << 20) + 64 * fileSize);
    return limits;
  }
  /// Text takes more room than what it stands for, but for the shortest of elements.
  static PropertyListLimits ofText(std::uint64_t fileSize) {
    PropertyListLimits limits;
    limits.size = std::min(limits.size, (std::uint64_t{1} << 20) + 3 * fileSize);
    return limits;
  }
};

/// Reads the binary form, references of keyed archives included: {"CF$UID": number}, as the XML
/// form writes them. None with a one-line `error` when it is damaged or exceeds the limits: its
/// collections refer to their elements by number and may share them, so that some hundred bytes can
/// stand for a tree without end, or for one that no memory holds.
std::optional<platform::PropertyList> readBinaryPropertyList(std::span<const std::uint8_t> bytes,
                                                             const PropertyListLimits& limits,
                                                             std::string& error);

}  // namespace foundation
