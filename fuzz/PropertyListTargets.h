#pragma once

#include <cstdint>
#include <span>

namespace fuzz {

// Each reads bytes that anybody may have written, and what it could read it writes and reads again:
// that has to give the same. What is wrong stops the process.

void xmlList(std::span<const std::uint8_t> bytes);
void binaryList(std::span<const std::uint8_t> bytes);
void keyedArchive(std::span<const std::uint8_t> bytes);

}  // namespace fuzz
