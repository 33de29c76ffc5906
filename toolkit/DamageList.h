#pragma once

#include <vector>

#include "platform/Geometry.h"

namespace toolkit {

/// The areas that have to be composited: few, and none overlaps another.
class DamageList {
 public:
  /// More areas than this cost more to go through than a somewhat larger one costs to paint.
  static constexpr std::size_t limit = 16;

  bool isEmpty() const { return areas_.empty(); }
  void add(platform::Rect area);
  /// Hands the areas over and starts anew.
  std::vector<platform::Rect> take();

 private:
  std::vector<platform::Rect> areas_;
};

}  // namespace toolkit
