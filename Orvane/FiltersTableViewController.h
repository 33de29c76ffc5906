#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Orvane/FiltersTableViewControllerDelegate.h"
#include "platform/TableViewController.h"

namespace orvane {

/// The column of bank filters beside the preset list. User-interface thread only.
class FiltersTableViewController : public platform::TableViewController {
 public:
  platform::Weak<FiltersTableViewControllerDelegate> delegate;

  const std::vector<std::string>& filterList() const { return filterList_; }
  /// In display order. Shown with the next frame; the selection comes with reapplySelection.
  void setFilterList(std::vector<std::string> filters);
  const std::optional<std::string>& selectedFilter() const { return selectedFilter_; }
  /// Selects the row of the chosen filter in the middle of the table and tells the delegate again;
  /// one that is not in the list any more selects nothing and shows the top.
  void reapplySelection();

  void viewDidLoad() override;
  int numberOfRowsInSection(platform::TableView& table, int section) override;
  platform::TableViewCell& cellForRowAt(platform::TableView& table,
                                        platform::IndexPath row) override;
  double heightForHeaderInSection(platform::TableView& table, int section) override;
  double heightForRowsInSection(platform::TableView& table, int section) override;
  void didSelectRowAt(platform::TableView& table, platform::IndexPath row) override;

 private:
  std::vector<std::string> filterList_;
  std::optional<std::string> selectedFilter_;
};

}  // namespace orvane
