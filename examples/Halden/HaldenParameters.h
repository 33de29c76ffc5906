#pragma once

#include <string>
#include <vector>

#include "Quillon/ParameterDescription.h"
#include "examples/Halden/dsp/Params.h"

namespace halden {

/// What the synthesiser shows beside its parameters: lights and a count, which nobody sets. They
/// follow the parameters in the order of addresses.
enum class Meter { lfo1Light, lfo2Light, levelLight, clipLight, voiceCount };
inline constexpr std::size_t meterCount = 5;

inline constexpr std::size_t indexOf(Param param) { return static_cast<std::size_t>(param); }
inline constexpr std::size_t indexOf(Meter meter) {
  return paramCount + static_cast<std::size_t>(meter);
}

/// Every parameter and meter, in the order of Param and Meter.
std::vector<quillon::ParameterDescription> parameterDescriptions();

}  // namespace halden
