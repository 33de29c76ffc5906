#pragma once

#include "KestroUI/ShapeControl.h"

namespace kestroui {

/// A track with a handle for each of its values, which do not pass each other; what lies between
/// the first and the last is filled and can be moved as a whole. Upright in tall places.
class DoubleSlider : public ShapeControl {
 public:
  DoubleSlider() { setValueCount(2); }

  double bestHeight(const platform::Size& available) const override;

 protected:
  std::vector<Handle> handles() const override;
  std::optional<std::size_t> handleAt(platform::Point location) const override;
  float limited(std::size_t index, float value) const override;
  bool hasGround() const override { return false; }
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;
  void paintHandle(platform::Canvas& canvas, const Handle& handle,
                   Plot::HandleState state) override;

 private:
  bool isUpright() const { return bounds().height > bounds().width; }
  /// Along the track, in points.
  double handleLength() const;
  platform::Point placeAt(double share) const;
  /// A piece of the track from one share to another.
  platform::Rect piece(double from, double to, double width, double grow) const;
  double trackWidth() const;
};

}  // namespace kestroui
