#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kestroui {

/// A MIDI message in words, as a badge shows it: "CC 74" and "ch 1". Notes are named with 60 as C4,
/// channels counted from 1; messages without a channel have none.
struct MidiMapText {
  std::string what;
  std::string channel;

  /// The status byte comes first. What is no message is shown as its bytes.
  explicit MidiMapText(const std::vector<std::uint8_t>& message);
  /// "CC 74 ch 1".
  std::string whole() const { return channel.empty() ? what : what + ' ' + channel; }
};

}  // namespace kestroui
