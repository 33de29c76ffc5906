#pragma once

#include <optional>
#include <string>
#include <vector>

#include "toolkit/TableViewController.h"

namespace orvane {

/// Told which bank filter was chosen. Held weakly. User-interface thread only.
class FiltersTableViewControllerDelegate {
 public:
  virtual ~FiltersTableViewControllerDelegate() = default;

  virtual void filterSelected(const std::optional<std::string>& filter) = 0;
};

/// The column of bank filters beside the preset list. User-interface thread only.
class FiltersTableViewController : public toolkit::TableViewController {
 public:
  platform::Weak<FiltersTableViewControllerDelegate> delegate;

  const std::vector<std::string>& filterList() const { return filterList_; }
  /// In display order. Shown with the next frame; the selection comes with reapplySelection.
  void setFilterList(std::vector<std::string> filters);
  const std::optional<std::string>& selectedFilter() const { return selectedFilter_; }
  /// Chosen from now on; reapplySelection shows it.
  void setSelectedFilter(std::string filter) { selectedFilter_ = std::move(filter); }
  /// Selects the row of the chosen filter in the middle of the table and tells the delegate again;
  /// one that is not in the list any more selects nothing and shows the top.
  void reapplySelection();

  void viewDidLoad() override;
  int numberOfRowsInSection(toolkit::TableView& table, int section) override;
  toolkit::TableViewCell& cellForRowAt(toolkit::TableView& table, toolkit::IndexPath row) override;
  double heightForHeaderInSection(toolkit::TableView& table, int section) override;
  double heightForRowsInSection(toolkit::TableView& table, int section) override;
  void didSelectRowAt(toolkit::TableView& table, toolkit::IndexPath row) override;

 private:
  std::vector<std::string> filterList_;
  std::optional<std::string> selectedFilter_;
};

}  // namespace orvane
