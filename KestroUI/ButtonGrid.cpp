#include "KestroUI/ButtonGrid.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

ButtonGrid ButtonGrid::fitting(int count, const platform::Size& size,
                               const platform::Size& wanted) {
  ButtonGrid best;
  if (count <= 0 || !(size.width > 0) || !(size.height > 0)) return best;
  double bestScore = -1;
  // From few rows to many, so that one row wins wherever it fits; each as full as can be.
  for (int rows = 1; rows <= count; ++rows) {
    const int columns = (count + rows - 1) / rows;
    if ((count + columns - 1) / columns != rows) continue;
    const platform::Size cell{size.width / columns, size.height / rows};
    const double score = std::min({cell.width / wanted.width, cell.height / wanted.height, 1.0});
    if (score <= bestScore + 1e-9) continue;
    bestScore = score;
    best = {count, columns, rows, cell};
  }
  return best;
}

platform::Rect ButtonGrid::frame(int index) const {
  const int row = index / columns;
  const int inRow = row == rows - 1 ? count - row * columns : columns;
  const double width = cell.width * columns / std::max(1, inRow);
  return {width * (index % columns), cell.height * row, width, cell.height};
}

int ButtonGrid::indexAt(platform::Point point) const {
  for (int i = 0; i < count; ++i)
    if (frame(i).contains(point)) return i;
  return -1;
}

}  // namespace kestroui
