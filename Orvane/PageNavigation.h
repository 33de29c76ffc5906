#pragma once

#include <memory>
#include <string>
#include <vector>

#include "KestroUI/KestroButtons.h"
#include "toolkit/Control.h"

namespace orvane {

/// The tab of one page; selected while its page is shown.
class PageButton : public kestroui::SelectableButton {
 public:
  PageButton() = default;

  void draw(const platform::Rect& rect) override;
  platform::Accessibility accessibility() const override {
    return {platform::Accessibility::Role::tab, title(), isSelected() ? "Selected" : ""};
  }
};

/// The row of page tabs. Sends valueChanged whenever a page is chosen, also the one shown.
class PageNavigation : public toolkit::Control {
 public:
  PageNavigation() = default;

  const std::vector<std::string>& pages() const { return pages_; }
  /// Makes one button a title; the current page's is selected if there is one. Sends nothing.
  void setPages(std::vector<std::string> titles);
  const std::vector<std::unique_ptr<PageButton>>& pageButtons() const { return pageButtons_; }

  int currentPage() const { return currentPage_; }
  /// Selects the tab and sends valueChanged; a page that does not exist is fatal.
  void setCurrentPage(int page);
  /// Takes the tab of a page away, and makes `current` the current page without sending anything.
  void removePage(int page, int current);

  /// A button was pressed; any that is not one of its tabs is ignored.
  void onPageButton(toolkit::Control& sender);

  void draw(const platform::Rect& rect) override;

 private:
  void selectButton();

  std::vector<std::string> pages_;
  std::vector<std::unique_ptr<PageButton>> pageButtons_;
  int currentPage_ = 0;
};

}  // namespace orvane
