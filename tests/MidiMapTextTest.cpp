#include "KestroUI/MidiMapBadge.h"

#include <gtest/gtest.h>

namespace kestroui {
namespace {

TEST(MidiMapText, NamesWhatMovesAControl) {
  const struct {
    std::vector<std::uint8_t> message;
    const char* text;
  } cases[] = {
      {{176, 74}, "CC 74 ch 1"},
      {{0xbf, 7, 100}, "CC 7 ch 16"},
      {{0x90, 60}, "Note C4 ch 1"},
      {{0x82, 0}, "Note C-1 ch 3"},
      {{0xe3}, "Bend ch 4"},
      {{0xd0, 1}, "Pressure ch 1"},
      {{0xc0, 4}, "Prog 5 ch 1"},
      {{0xa0, 61}, "Touch C#4 ch 1"},
      {{0xf0, 1, 2}, "240 1 2"},
      {{0xb0}, "176"},
      {{}, ""},
  };
  for (const auto& each : cases) EXPECT_EQ(MidiMapText(each.message).whole(), each.text);
}

}  // namespace
}  // namespace kestroui
