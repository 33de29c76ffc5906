#pragma once

#include <cmath>
#include <cstdint>

#include "platform/AudioUnit.h"

namespace quillon {

/// A short channel message, taken apart.
struct MidiMessage {
  enum class Kind {
    noteOff,
    noteOn,
    polyPressure,
    controlChange,
    programChange,
    channelPressure,
    pitchBend,
    other,
  };

  Kind kind = Kind::other;
  /// 0 to 15.
  int channel = 0;
  /// Note, controller or program number; 0 to 127.
  int number = 0;
  /// Velocity, controller value or pressure; 0 to 127.
  int value = 0;
  /// Pitch bend from -1 to 1.
  float bend = 0;

  /// A note-on without velocity is a note-off. Anything cut short, and all but channel messages,
  /// is `other`.
  static MidiMessage parse(const platform::MidiEvent& event) {
    MidiMessage message;
    const int status = event.size > 0 ? event.bytes[0] : 0;
    if (status < 0x80 || status >= 0xf0) return message;
    const int type = status >> 4;
    const bool hasTwoDataBytes = type != 0xc && type != 0xd;
    if (event.size < (hasTwoDataBytes ? 3 : 2)) return message;
    const int first = event.bytes[1] & 127;
    const int second = hasTwoDataBytes ? event.bytes[2] & 127 : 0;
    message.channel = status & 15;
    message.number = first;
    message.value = second;
    switch (type) {
      case 0x8:
        message.kind = Kind::noteOff;
        break;
      case 0x9:
        message.kind = second == 0 ? Kind::noteOff : Kind::noteOn;
        break;
      case 0xa:
        message.kind = Kind::polyPressure;
        break;
      case 0xb:
        message.kind = Kind::controlChange;
        break;
      case 0xc:
        message.kind = Kind::programChange;
        break;
      case 0xd:
        message.kind = Kind::channelPressure;
        message.number = 0;
        message.value = first;
        break;
      default: {
        // There is one step more below the centre than above it.
        const int steps = (second << 7 | first) - 8192;
        message.kind = Kind::pitchBend;
        message.number = message.value = 0;
        message.bend = static_cast<float>(steps) / (steps < 0 ? 8192.0f : 8191.0f);
      }
    }
    return message;
  }
};

/// The frequency of a MIDI note, which need not be whole: 69 is 440 Hz.
inline double noteFrequency(double note) { return 440 * std::exp2((note - 69) / 12); }

}  // namespace quillon
