#include "KestroUI/Theme.h"

#include <algorithm>
#include <cmath>

#include "toolkit/View.h"

namespace kestroui {

namespace {

// In points; the height over the width of what counts.
constexpr double ordinaryHeight = 720;
constexpr double ratio = 0.7;

}  // namespace

double textScaleIn(const toolkit::View& view) {
  const toolkit::View* root = &view;
  while (root->superview()) root = root->superview();
  const double height = std::min(root->bounds().height, root->bounds().width * ratio);
  return height > ordinaryHeight ? std::pow(height / ordinaryHeight, 0.75) : 1;
}

}  // namespace kestroui
