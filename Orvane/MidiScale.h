#pragma once

#include <cstdint>

namespace platform {
class AUParameter;
}

namespace orvane {

/// The value that a 7-bit MIDI value gives a parameter: 0 its minimum, 127 its maximum. Switches
/// are on from 64; indexed parameters get whole steps; those that hosts show on a squared scale
/// follow its square; all others are linear, in hertz too. Any thread; takes no lock.
float midiParameterValue(const platform::AUParameter& parameter, std::uint8_t midiValue);

}  // namespace orvane
