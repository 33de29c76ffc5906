#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/AUParameter.h"

namespace quillon {

/// What a plug-in says of one parameter. Designated initialisers keep a list of them readable:
///
///     {.key = "cutoff", .address = 7, .displayName = "Cutoff", .minValue = 20, .maxValue = 20000,
///      .defaultValue = 1000, .unit = platform::AudioUnitParameterUnit::hertz}
struct ParameterDescription {
  // The empty braces let designated initialisers leave members out without a warning.
  std::string key{};
  platform::AUParameterAddress address = 0;
  /// The key stands in for an empty name.
  std::string displayName{};
  float minValue = 0;
  float maxValue = 1;
  float defaultValue = 0;
  platform::AudioUnitParameterUnit unit = platform::AudioUnitParameterUnit::generic;
  std::uint32_t flags =
      platform::AudioUnitParameterFlags::readable | platform::AudioUnitParameterFlags::writable;
  /// Texts of the values of an indexed parameter, from minValue up.
  std::vector<std::string> valueStrings{};
  /// Whether randomize may touch it.
  bool randomizable = true;
  /// Whether the DSP publishes its live value and its modulation flag.
  bool publishesLive = false;
};

/// Whether the parameter knows whole values only.
inline bool isStepped(const ParameterDescription& parameter) {
  return platform::takesWholeValues(parameter.unit, parameter.flags);
}

}  // namespace quillon
