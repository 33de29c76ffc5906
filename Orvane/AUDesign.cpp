#include "Orvane/AUDesign.h"

#include <algorithm>
#include <map>
#include <utility>

namespace orvane {

Page::Page(std::vector<UISection> sections_, std::string title)
    : sections(std::move(sections_)), title_(std::move(title)) {
  struct Row {
    double width = 0;
    double height = 0;
  };
  std::map<std::int64_t, Row> rows;
  for (const UISection& section : sections) {
    const auto [entry, isNew] = rows.try_emplace(section.rowIndex);
    Row& row = entry->second;
    row.width += section.horizontalWeightInPage;
    row.height =
        isNew ? section.verticalWeightInPage : std::min(row.height, section.verticalWeightInPage);
  }
  for (const auto& [index, row] : rows) {
    totalWidth = std::max(totalWidth, row.width);
    totalHeight += row.height;
  }
}

std::vector<std::shared_ptr<Page>> AUDesign::pages() const {
  return {std::make_shared<Page>(std::vector<UISection>{}, "")};
}

std::vector<std::shared_ptr<kestroui::ParamKey>> AUDesign::paramKeys() const { return {}; }

}  // namespace orvane
