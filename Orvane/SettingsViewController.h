#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "Orvane/AUDesign.h"
#include "Orvane/ControlCollection.h"
#include "Orvane/PageNavigation.h"
#include "Orvane/PageView.h"
#include "toolkit/ViewController.h"

namespace orvane {

/// The content of the editor below the menu bar: the pages of the design, of which one is shown,
/// the tabs that choose it, and the foot strip, which is shown with every page. The main
/// controller owns it and sets it up before its view is loaded.
class SettingsViewController : public toolkit::ViewController {
 public:
  /// A null entry widens the control before it.
  using FootStack = std::vector<std::shared_ptr<kestroui::ParamKey>>;

  SettingsViewController() = default;

  std::shared_ptr<AUDesign> design;
  std::shared_ptr<ControlCollection> controls;
  std::optional<FootStack> foot_stack;
  /// Share of the height that is kept free for the foot strip.
  double footHRatio = 0;
  /// Share of the height that the tabs take when there are two pages or more.
  double pageNavigationRatio = 0.1;
  /// While true, a layout that the platform asks for does nothing.
  bool resizing = false;

  const std::vector<std::unique_ptr<PageView>>& pageViews() const { return pageViews_; }
  PageNavigation& pageNavigation() { return pageNavigation_; }
  int currentPage() const { return pageNavigation_.currentPage(); }
  /// A page that does not exist is fatal.
  void setCurrentPage(int page) { pageNavigation_.setCurrentPage(page); }
  /// Height of the row of tabs in points.
  double navigationH();

  void doLayout();
  void layoutFoot();
  /// Takes a page away; the page shown stays, or the next one takes its place. The only page
  /// stays, since one has to be shown. A page that does not exist is fatal.
  void removePage(int index);
  void onPageChanged(toolkit::Control& sender);
  /// The parameter of this key has changed: refreshes the sections that it switches, on all pages.
  void updateSectionStates(const std::string& stateParameter);

  void viewDidLoad() override;
  void viewDidLayoutSubviews() override;

 private:
  void findStateSections();

  std::vector<std::unique_ptr<PageView>> pageViews_;
  PageNavigation pageNavigation_;
  /// The sections that each state parameter switches.
  std::unordered_map<std::string, std::vector<SectionView*>> stateSections_;
};

}  // namespace orvane
