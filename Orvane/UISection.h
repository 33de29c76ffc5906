#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "Orvane/Section.h"

namespace orvane {

/// The place of a section on its page.
struct UISection {
  UISection(std::shared_ptr<Section> section_, double horizontalWeightInPage_,
            std::int64_t rowIndex_, double verticalWeightInPage_, std::int64_t columnOffset_)
      : section(std::move(section_)),
        horizontalWeightInPage(horizontalWeightInPage_),
        rowIndex(rowIndex_),
        verticalWeightInPage(verticalWeightInPage_),
        columnOffset(columnOffset_) {}

  std::shared_ptr<Section> section;
  /// Share of the width of its row.
  double horizontalWeightInPage;
  /// Sections that follow each other with the same number form a row; the first has 0.
  std::int64_t rowIndex;
  /// Share of the height of the page.
  double verticalWeightInPage;
  /// For the first section of a row: below which section of the previous row the row begins,
  /// counted from 0.
  std::int64_t columnOffset;
};

}  // namespace orvane
