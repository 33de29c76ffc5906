#include "Orvane/PageNavigation.h"

#include <algorithm>
#include <utility>

#include "KestroUI/Theme.h"
#include "platform/Fatal.h"

namespace orvane {

void PageButton::draw(const platform::Rect& rect) {
  SelectableButton::draw(rect);
  const platform::Font& font = kestroui::Theme::pageFont;
  setFont(font.withSize(
      std::min(font.pointSize * kestroui::textScaleIn(*this), bounds().height * 0.5)));
}

void PageNavigation::setPages(std::vector<std::string> titles) {
  pages_ = std::move(titles);
  pageButtons_.clear();
  for (const std::string& title : pages_) {
    auto button = std::make_unique<PageButton>();
    button->setTitle(title);
    button->addTarget<&PageNavigation::onPageButton>(*this, toolkit::ControlEvent::touchDown);
    addSubview(*button);
    pageButtons_.push_back(std::move(button));
  }
  selectButton();
  setNeedsDisplay();
}

void PageNavigation::selectButton() {
  for (std::size_t i = 0; i < pageButtons_.size(); ++i)
    pageButtons_[i]->setSelected(static_cast<int>(i) == currentPage_);
}

void PageNavigation::setCurrentPage(int page) {
  if (page < 0 || static_cast<std::size_t>(page) >= pageButtons_.size())
    platform::fatal("There is no page " + std::to_string(page) + " among " +
                    std::to_string(pageButtons_.size()));
  currentPage_ = page;
  selectButton();
  sendActions(toolkit::ControlEvent::valueChanged);
}

void PageNavigation::removePage(int page, int current) {
  pages_.erase(pages_.begin() + page);
  pageButtons_.erase(pageButtons_.begin() + page);
  currentPage_ = current;
  selectButton();
  setNeedsDisplay();
}

void PageNavigation::onPageButton(toolkit::Control& sender) {
  for (std::size_t i = 0; i < pageButtons_.size(); ++i)
    if (pageButtons_[i].get() == &sender) {
      setCurrentPage(static_cast<int>(i));
      return;
    }
}

void PageNavigation::draw(const platform::Rect& rect) {
  Control::draw(rect);
  const double width = bounds().width / static_cast<double>(pageButtons_.size());
  double index = 0;
  for (const auto& button : pageButtons_)
    button->setFrame({index++ * width, 0, width, bounds().height});
}

}  // namespace orvane
