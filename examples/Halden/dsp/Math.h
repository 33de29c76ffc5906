#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>

namespace halden {

inline constexpr float pi = 3.14159265358979f;

/// A value that moves on a straight line from one control frame to the next.
struct Ramp {
  float start = 0;
  float step = 0;
  float end = 0;

  static Ramp constant(float value) { return {value, 0, value}; }
  /// Goes on from the end to reach `target` after `length` samples.
  void moveTo(float target, int length) {
    start = end;
    step = (target - end) / static_cast<float>(length);
    end = target;
  }
  float at(int sample) const { return start + step * static_cast<float>(sample); }
  bool isZero() const { return start == 0 && end == 0; }
};

inline float decibelsToGain(float decibels) { return std::exp2(decibels * 0.166096405f); }

/// As decibelsToGain, but silent at `bottom` and faded over the 6 dB above it.
inline float levelToGain(float decibels, float bottom) {
  const float above = std::clamp((decibels - bottom) / 6.0f, 0.0f, 1.0f);
  return above * decibelsToGain(decibels);
}

inline float semitonesToRatio(float semitones) { return std::exp2(semitones * (1.0f / 12.0f)); }

/// sin(2 pi phase) for a phase from 0 to 1; right to within 4e-6.
inline float sineOfPhase(float phase) {
  // Fold to a quarter turn on either side of zero.
  float x = phase - 0.5f;
  x = x < -0.25f ? -0.5f - x : x > 0.25f ? 0.5f - x : x;
  const float y = 2 * pi * x;
  const float square = y * y;
  const float series =
      1 + square * (-1.0f / 6 +
                    square * (1.0f / 120 + square * (-1.0f / 5040 + square * (1.0f / 362880))));
  return -y * series;
}

/// Close to tanh, with slope 1 at zero, reaching exactly 1 at 3.
inline float softClip(float x) {
  const float limited = std::clamp(x, -3.0f, 3.0f);
  const float square = limited * limited;
  return limited * (27 + square) / (27 + 9 * square);
}

/// -120 dB: what is below it for long is over.
inline constexpr float inaudible = 1e-6f;

inline float wrapPhase(float phase) { return phase - std::floor(phase); }

/// At `place`, from 0 to the last of `points`, on a curve through the points that is flat at every
/// turn, so that it never leaves the range of two neighbours.
inline float smoothCurve(std::span<const float> points, float place) {
  const std::size_t last = points.size() - 1;
  if (last == 0) return points[0];
  const std::size_t i = std::min(static_cast<std::size_t>(std::max(place, 0.0f)), last - 1);
  const auto rise = [&](std::size_t n) { return points[n + 1] - points[n]; };
  const auto slope = [&](std::size_t n) {
    if (n == 0) return rise(0);
    if (n == last) return rise(last - 1);
    const float before = rise(n - 1), after = rise(n);
    return before * after > 0 ? 2 * before * after / (before + after) : 0.0f;
  };
  const float t = std::min(place - static_cast<float>(i), 1.0f);
  const float from = slope(i), to = slope(i + 1), way = rise(i);
  return points[i] + t * (from + t * (3 * way - 2 * from - to + t * (from + to - 2 * way)));
}

/// The share of the way to its target that a one-pole smoother goes in `samples` samples.
inline float smoothingShare(float seconds, float sampleRate, float samples = 1) {
  return 1 - std::exp(-samples / std::max(1e-9f, seconds * sampleRate));
}

/// A small fast generator; every voice has its own, so that a rendering can be repeated.
class Random {
 public:
  explicit Random(std::uint32_t seed = 1) : state_(seed * 2654435761u | 1u) {}

  /// From -1 to 1.
  float bipolar() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    return static_cast<float>(static_cast<std::int32_t>(state_)) * (1.0f / 2147483648.0f);
  }
  /// From 0 to below 1.
  float unipolar() { return std::min(bipolar() * 0.5f + 0.5f, 0.9999999f); }

 private:
  std::uint32_t state_;
};

}  // namespace halden
