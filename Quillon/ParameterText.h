#pragma once

#include <string>

#include "Quillon/ParameterDescription.h"

namespace quillon {

/// `value` of the parameter as a person reads it, with its unit: "632 Hz", "1.20 kHz", "-6.0 dB",
/// "35 %", "12 ms", "1.50 s", "+7 st", "L 30", "On", "Saw". UTF-8, the same in every locale. A
/// value that is no number reads "--", an infinite one "-inf" or "inf" with its unit.
std::string parameterText(const ParameterDescription& parameter, float value);

}  // namespace quillon
