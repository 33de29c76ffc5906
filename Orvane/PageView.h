#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Orvane/AUDesign.h"
#include "Orvane/ControlCollection.h"
#include "Orvane/SectionView.h"
#include "toolkit/View.h"

namespace orvane {

/// Shows one page: it owns the views of the page's sections and places them by their weights.
class PageView : public toolkit::View {
 public:
  using SectionViews = std::map<std::string, std::unique_ptr<SectionView>>;

  PageView(std::shared_ptr<Page> page, const std::shared_ptr<ControlCollection>& controls);

  Page& page() const { return *page_; }
  const std::string& title() const { return page_->title(); }
  /// By name: of two sections with one name the later is shown, at the place of the later.
  const SectionViews& sectionViews() const { return sectionViews_; }

  bool isVisible() const { return visible_; }
  /// Shows or hides the page and passes it on to every section view.
  void setIsVisible(bool visible);

  void setNeedsDisplay() override;
  void didMoveToSuperview() override;
  /// A section that begins a row below one that does not exist is fatal.
  void draw(const platform::Rect& rect) override;

 private:
  SectionView* viewAt(std::size_t index);

  std::shared_ptr<Page> page_;
  SectionViews sectionViews_;
  /// The view of each placement of the page, so that a layout looks no name up.
  struct Placement {
    const Section* section;
    SectionView* view;
  };
  std::vector<Placement> placements_;
  /// Kept between layouts for their memory.
  std::vector<double> lefts_, bottoms_;
  bool visible_ = false;
};

}  // namespace orvane
