#include "Orvane/MidiScale.h"

#include <cmath>

#include "platform/AUParameter.h"

namespace orvane {

float midiParameterValue(const platform::AUParameter& parameter, std::uint8_t midiValue) {
  const auto v = static_cast<float>(midiValue / 127.0);
  const float low = parameter.minValue(), high = parameter.maxValue();
  // A range added to its minimum may miss its maximum by a rounding.
  const auto at = [&](float share) { return share == 1 ? high : low + (high - low) * share; };
  switch (parameter.unit()) {
    case platform::AudioUnitParameterUnit::boolean:
      return v > 0.5f ? 1.0f : 0.0f;
    case platform::AudioUnitParameterUnit::indexed:
      return std::round(at(v));
    default:
      return parameter.flags() & platform::AudioUnitParameterFlags::displaySquared ? at(v * v)
                                                                                   : at(v);
  }
}

}  // namespace orvane
