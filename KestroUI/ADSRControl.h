#pragma once

#include "KestroUI/ShapeControl.h"

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

}  // namespace kestroui
