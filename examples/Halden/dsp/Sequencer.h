#pragma once

#include <span>

#include "examples/Halden/dsp/Math.h"

namespace halden {

/// A row of values that play in turn, advanced once for each control frame: in time with the song
/// while that plays, by itself from the first step on otherwise.
class Sequencer {
 public:
  static constexpr std::size_t maxSteps = 16;

  struct Tempo {
    float beatsPerSecond = 2;
    float beatsPerStep = 0.25f;
  };

  /// Back to the first step.
  void restart() { place_ = 0; }
  /// Puts the row where the song is.
  void setBeat(double beat, const Tempo& tempo, int steps);
  /// Moves on by `seconds`.
  void advance(const Tempo& tempo, int steps, float seconds);

  /// Where it plays, in steps from 0.
  float place() const { return place_; }
  /// The value of the step that plays.
  float step(std::span<const float> values) const;
  /// The same on a smooth curve through the middles of the steps, level before the first and after
  /// the last of `steps`.
  float curve(std::span<const float> values, int steps) const;

 private:
  float place_ = 0;
};

}  // namespace halden
