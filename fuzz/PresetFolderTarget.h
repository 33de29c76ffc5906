#pragma once

#include <cstdint>
#include <span>

namespace fuzz {

/// A whole folder of presets that anybody may have written, listed, loaded, deleted, brought back,
/// exported and mended, in each case without the loss of a file. The bytes are files one behind the
/// other: the length of the name and the name, the length of the content (the lower byte first) and
/// the content. What is wrong stops the process.
void presetFolder(std::span<const std::uint8_t> bytes);

}  // namespace fuzz
