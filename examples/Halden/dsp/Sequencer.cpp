#include "examples/Halden/dsp/Sequencer.h"

namespace halden {

void Sequencer::setBeat(double beat, const Tempo& tempo, int steps) {
  const double turns = beat / (double{tempo.beatsPerStep} * steps);
  place_ = static_cast<float>((turns - std::floor(turns)) * steps);
}

void Sequencer::advance(const Tempo& tempo, int steps, float seconds) {
  const auto length = static_cast<float>(steps);
  place_ += seconds * tempo.beatsPerSecond / tempo.beatsPerStep;
  if (place_ >= length) place_ -= length * std::floor(place_ / length);
}

float Sequencer::step(std::span<const float> values) const {
  return values[std::min(static_cast<std::size_t>(place_), values.size() - 1)];
}

float Sequencer::curve(std::span<const float> values, int steps) const {
  const float last = static_cast<float>(steps - 1);
  return smoothCurve(values.first(static_cast<std::size_t>(steps)),
                     std::clamp(place_ - 0.5f, 0.0f, last));
}

}  // namespace halden
