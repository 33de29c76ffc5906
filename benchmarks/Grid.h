#pragma once

namespace bench {

/// How the knobs of a page are spread: a grid of sections, in each a grid of knobs.
struct Grid {
  int sectionColumns;
  int sectionRows;
  int columns;
  int rows;

  int count() const { return sectionColumns * sectionRows * columns * rows; }
};

inline constexpr Grid twoHundred{4, 2, 5, 5};
inline constexpr Grid oneThousand{5, 5, 8, 5};

/// Hundredths spread between 0 and 1, so that knobs point everywhere: the defaults of the knobs, and
/// a new value for each step of a change.
inline float benchValue(int step) { return static_cast<float>(step * 37 % 101) / 100; }

}  // namespace bench
