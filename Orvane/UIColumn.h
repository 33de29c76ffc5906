#pragma once

#include <vector>

#include "Orvane/UIParameter.h"

namespace orvane {

/// One column of a section.
struct UIColumn {
  /// From top to bottom.
  std::vector<UIParameter> params;
  double horizontalWeightInSection = 1;
};

}  // namespace orvane
