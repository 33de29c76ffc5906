#pragma once

#include "KestroUI/ShapeControl.h"

namespace kestroui {

/// A place in a wavetable: its waves stand one behind the other, the one that sounds in front of
/// the rest in colour. Value 0 is the place, moved upwards; value 1, if any, the level, moved
/// sideways, which the height of the waves shows.
class WavetableControl : public ShapeControl {
 public:
  WavetableControl();

  /// One period of each wave in turn, samples from -1 to 1, any number of them. Sine, triangle, saw
  /// and square at first.
  void setWaves(std::vector<std::vector<float>> waves);
  std::size_t waveCount() const { return waves_.size(); }

 protected:
  std::vector<Handle> handles() const override;
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;

 private:
  /// What sounds at a share of the way through the waves, `phase` from 0 to 1.
  double sample(double place, double phase) const;
  platform::Path wave(double place, std::size_t points) const;
  /// Where the wave at `place` stands.
  platform::Rect waveFrame(double place) const;

  std::vector<std::vector<float>> waves_;
};

}  // namespace kestroui
