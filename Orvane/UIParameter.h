#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orvane {

/// One slot of a column: the control of a parameter and how much room it takes.
struct UIParameter {
  UIParameter() = default;
  UIParameter(std::string param_, std::vector<std::optional<std::string>> siblings_,
              double verticalWeightInColumn_, double verticalOffsetInColumn_, double widthRatio_)
      : param(std::move(param_)),
        verticalWeightInColumn(verticalWeightInColumn_),
        verticalOffsetInColumn(verticalOffsetInColumn_),
        widthRatio(widthRatio_),
        siblings(std::move(siblings_)) {}

  /// Key of the parameter whose control stands here.
  std::string param;
  double verticalWeightInColumn = 1;
  /// Free space above, in the unit of the weights; pushes all later slots down as well.
  double verticalOffsetInColumn = 0;
  /// Share of the column's width that the control takes, from its left edge.
  double widthRatio = 1;
  /// Keys of parameters whose controls lie in the same place, later ones on top.
  std::vector<std::optional<std::string>> siblings;
};

}  // namespace orvane
