#include "Orvane/FiltersTableViewController.h"

#include <algorithm>
#include <utility>

#include "KestroUI/Theme.h"
#include "Orvane/PresetTableStyle.h"

namespace orvane {

using toolkit::IndexPath;
using toolkit::TableView;
namespace Theme = kestroui::Theme;

void FiltersTableViewController::viewDidLoad() {
  TableViewController::viewDidLoad();
  PresetTableStyle::apply(tableView());
  tableView().setHeaderStyle(Theme::panel, Theme::white, Theme::cellFont);
}

void FiltersTableViewController::setFilterList(std::vector<std::string> filters) {
  filterList_ = std::move(filters);
  tableView().reloadData();
}

void FiltersTableViewController::reapplySelection() {
  const auto found = selectedFilter_
                         ? std::find(filterList_.begin(), filterList_.end(), *selectedFilter_)
                         : filterList_.end();
  if (found == filterList_.end()) {
    tableView().scrollRectToVisible({0, 0, 1, 1});
    return;
  }
  const IndexPath row{0, static_cast<int>(found - filterList_.begin())};
  tableView().selectRow(row, TableView::ScrollPosition::middle);
  didSelectRowAt(tableView(), row);
}

int FiltersTableViewController::numberOfRowsInSection(TableView&, int) {
  return static_cast<int>(filterList_.size());
}

toolkit::TableViewCell& FiltersTableViewController::cellForRowAt(TableView& table, IndexPath row) {
  auto& cell = table.dequeueReusableCell<toolkit::TableViewCell>();
  PresetTableStyle::apply(cell);
  cell.textLabel().setFont(
      PresetTableStyle::font(PresetTableStyle::rowHeight(table.frame().height)));
  cell.textLabel().setText(filterList_[static_cast<std::size_t>(row.row)]);
  return cell;
}

// Free space, by which the first filter stands about where the list beside it begins.
double FiltersTableViewController::heightForHeaderInSection(TableView& table, int) {
  return PresetTableStyle::headerHeight(table.frame().height);
}

double FiltersTableViewController::heightForRowsInSection(TableView& table, int) {
  return PresetTableStyle::rowHeight(table.frame().height);
}

void FiltersTableViewController::didSelectRowAt(TableView& table, IndexPath row) {
  TableViewController::didSelectRowAt(table, row);
  selectedFilter_ = filterList_[static_cast<std::size_t>(row.row)];
  if (auto* owner = delegate.get()) owner->filterSelected(selectedFilter_);
}

}  // namespace orvane
