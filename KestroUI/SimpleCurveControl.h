#pragma once

#include "KestroUI/ShapeControl.h"

namespace kestroui {

/// A smooth curve from the left edge to the right through points at equal distances, each of which
/// moves up and down.
class SimpleCurveControl : public ShapeControl {
 protected:
  std::vector<Handle> handles() const override;
  void paintShape(platform::Canvas& canvas, const platform::Rect& plot) override;
};

}  // namespace kestroui
