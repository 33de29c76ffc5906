#include "Orvane/SettingsViewController.h"

#include <algorithm>

#include "KestroUI/Theme.h"
#include "platform/Fatal.h"

namespace orvane {

namespace {
constexpr double spaceAbovePage = 2.0;
}

void SettingsViewController::viewDidLoad() {
  ViewController::viewDidLoad();
  std::vector<std::string> titles;
  if (design)
    for (const std::shared_ptr<Page>& page : design->pages()) {
      pageViews_.push_back(std::make_unique<PageView>(page, controls));
      view().addSubview(*pageViews_.back());
      titles.push_back(page->title());
    }
  findStateSections();
  view().addSubview(pageNavigation_);
  pageNavigation_.setPages(std::move(titles));
}

void SettingsViewController::viewDidLayoutSubviews() {
  if (resizing) return;
  ViewController::viewDidLayoutSubviews();
  doLayout();
  pageNavigation_.addTarget<&SettingsViewController::onPageChanged>(
      *this, toolkit::ControlEvent::valueChanged);
}

double SettingsViewController::navigationH() {
  toolkit::View& content = view();
  return pageViews_.size() < 2 ? 0 : content.bounds().height * pageNavigationRatio;
}

void SettingsViewController::doLayout() {
  const platform::Rect bounds = view().bounds();
  const double top = navigationH() + spaceAbovePage;
  const auto current = static_cast<std::size_t>(currentPage());
  // Pages that go first give up what they share with the one that comes.
  for (std::size_t i = 0; i < pageViews_.size(); ++i)
    if (i != current) pageViews_[i]->setIsVisible(false);
  if (current < pageViews_.size()) {
    pageViews_[current]->setIsVisible(true);
    pageViews_[current]->setFrame(
        {0, top, bounds.width, bounds.height - top - bounds.height * footHRatio});
  }
  if (pageViews_.size() < 2)
    pageNavigation_.setHidden(true);
  else
    pageNavigation_.setFrame({0, 0, bounds.width, navigationH()});
  if (foot_stack) layoutFoot();
  for (toolkit::View* subview : view().subviews())
    if (!subview->isHidden()) subview->setNeedsDisplay();
}

void SettingsViewController::layoutFoot() {
  if (!controls || !foot_stack) return;
  const double g = kestroui::Theme::lineWidth;
  const platform::Rect bounds = view().bounds();
  const double footHeight = bounds.height * footHRatio;
  const double cellWidth = bounds.width / static_cast<double>(foot_stack->size());
  double span = 1;
  for (std::size_t p = foot_stack->size(); p-- > 0;) {
    const std::shared_ptr<kestroui::ParamKey>& key = (*foot_stack)[p];
    if (!key) {
      span += 1;
      continue;
    }
    const std::shared_ptr<kestroui::Container> container = (*controls)[key];
    if (!container) continue;
    container->setFrame({cellWidth * static_cast<double>(p), g + bounds.height - footHeight,
                         cellWidth * span, footHeight - g});
    container->setIsVisible(true);
    if (container->superview() != &view()) {
      if (auto* before = dynamic_cast<SectionView*>(container->superview()))
        before->release(*container);
      view().addSubview(*container);
      // No section gives it a colour.
      if (!key->settings().controlColor && key->settings().colors.empty())
        container->setSectionColor(kestroui::Theme::accent);
    }
    span = 1;
  }
}

void SettingsViewController::removePage(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= pageViews_.size())
    platform::fatal("There is no page " + std::to_string(index) + " to remove among " +
                    std::to_string(pageViews_.size()));
  if (pageViews_.size() == 1) return;
  pageViews_.erase(pageViews_.begin() + index);
  findStateSections();
  const int last = static_cast<int>(pageViews_.size()) - 1;
  const int current = currentPage() > index ? currentPage() - 1 : currentPage();
  pageNavigation_.removePage(index, std::min(current, last));
  doLayout();
}

void SettingsViewController::onPageChanged(toolkit::Control&) { doLayout(); }

void SettingsViewController::findStateSections() {
  stateSections_.clear();
  for (const auto& page : pageViews_)
    for (const auto& [name, section] : page->sectionViews())
      if (const auto& key = section->section().stateParameter)
        stateSections_[*key].push_back(section.get());
}

void SettingsViewController::updateSectionStates(const std::string& stateParameter) {
  const auto sections = stateSections_.find(stateParameter);
  if (sections == stateSections_.end()) return;
  for (SectionView* section : sections->second) section->updateState();
}

}  // namespace orvane
