#include "Orvane/PageView.h"

#include <utility>

#include "KestroUI/Theme.h"
#include "platform/Fatal.h"

namespace orvane {

PageView::PageView(std::shared_ptr<Page> page, const std::shared_ptr<ControlCollection>& controls)
    : page_(std::move(page)) {
  for (const UISection& placement : page_->sections)
    sectionViews_.insert_or_assign(placement.section->name,
                                   std::make_unique<SectionView>(placement.section, controls));
}

void PageView::setIsVisible(bool visible) {
  visible_ = visible;
  setNeedsDisplay();
  setHidden(!visible);
  for (const auto& [name, view] : sectionViews_) view->setIsVisible(visible);
}

void PageView::setNeedsDisplay() {
  View::setNeedsDisplay();
  for (const auto& [name, view] : sectionViews_) view->setNeedsDisplay();
}

void PageView::didMoveToSuperview() {
  if (!superview()) return;
  for (std::size_t i = 0; i < page_->sections.size(); ++i)
    if (SectionView* view = viewAt(i)) addSubview(*view);
}

SectionView* PageView::viewAt(std::size_t index) {
  const Section* section = page_->sections[index].section.get();
  if (placements_.size() <= index) placements_.resize(index + 1);
  Placement& placement = placements_[index];
  if (placement.section != section) {
    const auto entry = sectionViews_.find(section->name);
    placement = {section, entry == sectionViews_.end() ? nullptr : entry->second.get()};
  }
  return placement.view;
}

void PageView::draw(const platform::Rect& rect) {
  View::draw(rect);
  const double gaps =
      (static_cast<double>(page_->sections.size()) - 1) * kestroui::Theme::lineWidth;
  const double unitWidth = page_->totalWidth > 0 ? (bounds().width - gaps) / page_->totalWidth : 0;
  const double unitHeight = page_->totalHeight > 0 ? bounds().height / page_->totalHeight : 0;

  std::int64_t row = 0;
  double x = 0, y = 0;
  lefts_.clear();
  bottoms_.clear();
  for (std::size_t i = 0; i < page_->sections.size(); ++i) {
    const UISection& placement = page_->sections[i];
    if (placement.rowIndex != row) {
      const auto above = static_cast<std::size_t>(placement.columnOffset);
      if (placement.columnOffset < 0 || above >= lefts_.size())
        platform::fatal("Section \"" + placement.section->name + "\" of page \"" + title() +
                        "\" begins row " + std::to_string(placement.rowIndex) + " below section " +
                        std::to_string(placement.columnOffset) + " of the row above, which has " +
                        std::to_string(lefts_.size()));
      x = lefts_[above];
      y += bottoms_[above];
      lefts_.clear();
      bottoms_.clear();
      row = placement.rowIndex;
    }
    const double width = placement.horizontalWeightInPage * unitWidth;
    const double height = placement.verticalWeightInPage * unitHeight;
    if (SectionView* view = viewAt(i)) view->setFrame({x, y, width, height});
    lefts_.push_back(x);
    bottoms_.push_back(y + height);
    x += width + kestroui::Theme::lineWidth;
  }
}

}  // namespace orvane
