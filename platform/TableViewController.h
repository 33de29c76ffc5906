#pragma once

#include "platform/TableView.h"
#include "platform/ViewController.h"

namespace platform {

/// A view controller whose view is a table, and which is the table's source. A subclass answers
/// what the table shows. User-interface thread only. Implemented in toolkit/.
class TableViewController : public ViewController, public TableViewSource {
 public:
  TableView& tableView() { return tableView_; }

  void viewDidLoad() override;
  void viewDidLayoutSubviews() override;

 private:
  TableView tableView_;
};

}  // namespace platform
