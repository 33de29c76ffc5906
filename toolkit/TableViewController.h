#pragma once

#include "toolkit/TableView.h"
#include "toolkit/ViewController.h"

namespace toolkit {

/// A view controller whose view is a table, and which is the table's source. A subclass answers
/// what the table shows. User-interface thread only.
class TableViewController : public ViewController, public TableViewSource {
 public:
  TableView& tableView() { return tableView_; }

  void viewDidLoad() override {
    ViewController::viewDidLoad();
    tableView_.setSource(this);
    view().addSubview(tableView_);
  }
  void viewDidLayoutSubviews() override {
    ViewController::viewDidLayoutSubviews();
    tableView_.setFrame(view().bounds());
  }

 private:
  TableView tableView_;
};

}  // namespace toolkit
