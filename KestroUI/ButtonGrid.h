#pragma once

#include "platform/Geometry.h"

namespace kestroui {

/// Rows and columns of equal cells that suit the place they have: one row where it is wide, a
/// column or several rows where it is tall.
struct ButtonGrid {
  int count = 0;
  int columns = 1;
  int rows = 1;
  platform::Size cell;

  /// The grid of `count` cells in `size` whose cells come closest to `wanted`.
  static ButtonGrid fitting(int count, const platform::Size& size, const platform::Size& wanted);

  /// The last row's cells are stretched to fill it.
  platform::Rect frame(int index) const;
  /// -1 outside.
  int indexAt(platform::Point point) const;
};

}  // namespace kestroui
