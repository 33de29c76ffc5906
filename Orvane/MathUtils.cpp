#include "Orvane/MathUtils.h"

#include <cmath>

namespace orvane {

namespace {
constexpr float noPitch = -1500.0f;
}

float MathUtils::toMidi(float frequency) {
  // 1 / 8.175799, the frequency of note 0, and 12 / ln 2.
  return frequency > 0 ? std::log(frequency * 0.1223122f) * 17.31234f : noPitch;
}

float MathUtils::toFreq(float pitch) {
  // ln 2 / 12.
  return std::exp(pitch * 0.057762265f) * 8.175799f;
}

}  // namespace orvane
