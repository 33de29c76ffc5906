#pragma once

#include <memory>
#include <vector>

#include "KestroUI/ShapeControl.h"
#include "platform/LiveBuffer.h"
#include "platform/Path.h"

namespace kestroui {

/// An envelope that is edited by its corners: the peak moves the attack, the bend the decay and
/// the sustain, the end the release. Values in this order, all positions; of two values the first
/// is the attack and the second the release.
class ADSRControl : public ShapeControl {
 public:
  ADSRControl() { setValueCount(4); }

 protected:
  std::vector<Handle> handles() const override;
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;

 private:
  enum class Stage { attack, decay, sustain, release };
  struct Corners {
    platform::Point start, peak, bend, hold, end;
    /// The longest that one stage may take, in points.
    double stageWidth;
  };

  std::optional<std::size_t> indexOf(Stage stage) const;
  Corners corners() const;
};

/// A smooth curve from the left edge to the right through points at equal distances, each of which
/// moves up and down.
class SimpleCurveControl : public ShapeControl {
 protected:
  std::vector<Handle> handles() const override;
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;
};

/// The curve of a waveshaper as a table: each value is the level out, from -1 at its minimum to 1,
/// of one of evenly spaced levels in. A touch takes hold of the nearest point.
class TableWaveshaperControl : public ShapeControl {
 public:
  TableWaveshaperControl() = default;

 protected:
  std::vector<Handle> handles() const override;
  std::optional<std::size_t> handleAt(platform::Point location) const override;
  bool jumpsToTouch() const override { return true; }
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;
  void paintHandle(platform::Canvas& canvas, const Handle& handle,
                   Plot::HandleState state) override;

 private:
  enum class Source { set, live };

  double xOf(std::size_t index) const;
  platform::Path path(Source source) const;
};

/// A place in a wavetable: its waves stand one behind the other, the one that sounds in front of
/// the rest in colour. Value 0 is the place, moved upwards; value 1, if any, the level, moved
/// sideways, which the height of the waves shows.
class WavetableControl : public ShapeControl {
 public:
  WavetableControl();

  /// One period of each wave in turn as its channels, samples from -1 to 1, any number of them.
  /// Null, as at first, and one without samples show sine, triangle, saw and square.
  void setWaves(std::shared_ptr<const platform::SampleData> table);

 protected:
  std::vector<Handle> handles() const override;
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;

 private:
  /// What sounds at a share of the way through the waves, `phase` from 0 to 1.
  double sample(double place, double phase) const;
  platform::Path wave(double place, std::size_t points) const;
  /// Where the wave at `place` stands.
  platform::Rect waveFrame(double place) const;

  const std::vector<std::vector<float>>& waves() const;

  std::shared_ptr<const platform::SampleData> table_;
};

}  // namespace kestroui
