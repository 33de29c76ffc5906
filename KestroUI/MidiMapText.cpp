#include "KestroUI/MidiMapText.h"

#include <array>

namespace kestroui {

namespace {

std::string noteName(int note) {
  static constexpr std::array names{"C",  "C#", "D",  "D#", "E",  "F",
                                    "F#", "G",  "G#", "A",  "A#", "B"};
  return names[static_cast<std::size_t>(note % 12)] + std::to_string(note / 12 - 1);
}

std::string bytesOf(const std::vector<std::uint8_t>& message) {
  std::string text;
  for (const std::uint8_t byte : message)
    text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(byte));
  return text;
}

}  // namespace

MidiMapText::MidiMapText(const std::vector<std::uint8_t>& message) {
  const int status = message.empty() ? 0 : message[0];
  const int number = message.size() > 1 ? message[1] & 0x7f : -1;
  const int kind = status & 0xf0;
  if (kind == 0xe0)
    what = "Bend";
  else if (kind == 0xd0)
    what = "Pressure";
  else if (number >= 0 && kind == 0xb0)
    what = "CC " + std::to_string(number);
  else if (number >= 0 && (kind == 0x80 || kind == 0x90))
    what = "Note " + noteName(number);
  else if (number >= 0 && kind == 0xa0)
    what = "Touch " + noteName(number);
  else if (number >= 0 && kind == 0xc0)
    what = "Prog " + std::to_string(number + 1);
  if (what.empty())
    what = bytesOf(message);
  else
    channel = "ch " + std::to_string((status & 0x0f) + 1);
}

}  // namespace kestroui
