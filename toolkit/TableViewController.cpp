#include "toolkit/TableViewController.h"

namespace toolkit {

void TableViewController::viewDidLoad() {
  ViewController::viewDidLoad();
  tableView_.setSource(this);
  view().addSubview(tableView_);
}

void TableViewController::viewDidLayoutSubviews() {
  ViewController::viewDidLayoutSubviews();
  tableView_.setFrame(view().bounds());
}

}  // namespace toolkit
