// Short MIDI messages as hosts send them, whole and broken.

#include "Quillon/MidiMessage.h"

#include <gtest/gtest.h>

namespace {

using quillon::MidiMessage;
using Kind = MidiMessage::Kind;

TEST(MidiMessageTest, MessagesAreTakenApart) {
  const struct {
    platform::MidiEvent event;
    Kind kind;
    int channel, number, value;
    float bend;
  } cases[] = {
      {{0, {0x92, 60, 100}, 3}, Kind::noteOn, 2, 60, 100, 0},
      {{0, {0x92, 60, 0}, 3}, Kind::noteOff, 2, 60, 0, 0},
      {{0, {0x8f, 60, 64}, 3}, Kind::noteOff, 15, 60, 64, 0},
      {{0, {0xb0, 7, 127}, 3}, Kind::controlChange, 0, 7, 127, 0},
      {{0, {0xa0, 60, 5}, 3}, Kind::polyPressure, 0, 60, 5, 0},
      {{0, {0xc1, 9, 0}, 2}, Kind::programChange, 1, 9, 0, 0},
      {{0, {0xd1, 9, 0}, 2}, Kind::channelPressure, 1, 0, 9, 0},
      {{0, {0xe0, 0, 64}, 3}, Kind::pitchBend, 0, 0, 0, 0},
      {{0, {0xe0, 0, 0}, 3}, Kind::pitchBend, 0, 0, 0, -1},
      {{0, {0xe0, 127, 127}, 3}, Kind::pitchBend, 0, 0, 0, 1},
      {{0, {0x90, 60, 100}, 2}, Kind::other, 0, 0, 0, 0},
      {{0, {0xf8, 0, 0}, 1}, Kind::other, 0, 0, 0, 0},
      {{0, {60, 100, 0}, 3}, Kind::other, 0, 0, 0, 0},
      {{0, {0x90, 60, 100}, 0}, Kind::other, 0, 0, 0, 0},
  };
  for (const auto& expected : cases) {
    const MidiMessage message = MidiMessage::parse(expected.event);
    EXPECT_EQ(message.kind, expected.kind);
    EXPECT_EQ(message.channel, expected.channel);
    EXPECT_EQ(message.number, expected.number);
    EXPECT_EQ(message.value, expected.value);
    EXPECT_EQ(message.bend, expected.bend);
  }
}

TEST(MidiMessageTest, NotesHaveTheirFrequencies) {
  EXPECT_DOUBLE_EQ(quillon::noteFrequency(69), 440);
  EXPECT_NEAR(quillon::noteFrequency(0), 8.175799, 1e-6);
}

}  // namespace
