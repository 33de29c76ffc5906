#include "Orvane/SectionView.h"

#include <algorithm>
#include <utility>

#include "KestroUI/Theme.h"

namespace orvane {

using kestroui::Container;
namespace Theme = kestroui::Theme;

namespace {

/// Calls `visit` with the key of every slot and sibling, in the order of the design, until it
/// returns false.
template <class Visit>
bool visitKeys(const Section& section, Visit visit) {
  for (const UIColumn& column : section.stack)
    for (const UIParameter& slot : column.params) {
      if (!visit(slot.param)) return false;
      for (const auto& sibling : slot.siblings)
        if (sibling && !visit(*sibling)) return false;
    }
  return true;
}

bool isFor(const std::shared_ptr<kestroui::ParamKey>& key, const std::optional<std::string>& name) {
  return key ? name && key->key() == *name : !name;
}

}  // namespace

SectionView::SectionView(std::shared_ptr<Section> section,
                         std::shared_ptr<ControlCollection> controls)
    : section_(std::move(section)), controls_(std::move(controls)) {
  titleLabel_.setTextAlignment(platform::TextAlignment::centre);
  titleLabel_.setTextColor(Theme::lightGrey);
}

SectionView::~SectionView() {
  for (Untitled* untitled : {&untitledState_, &untitledFeedback_})
    if (*untitled) release(**untitled);
}

void SectionView::setColor(platform::Color color) {
  color_ = color;
  setBackgroundColor(platform::Color::clear());
  gradient_.setColors({color.withAlpha(0.21f), color.withAlpha(0.01f)});
}

void SectionView::setUsePages(bool usePages) {
  if (usePages_ == usePages) return;
  usePages_ = usePages;
  setNeedsDisplay();
}

void SectionView::setIsVisible(bool visible) {
  const bool wasVisible = std::exchange(visible_, visible);
  if (visible) {
    resolve();
    adoptAll();
  } else if (!wasVisible) {
    return;
  }
  for (View* subview : subviews())
    if (auto* container = dynamic_cast<Container*>(subview)) container->setIsVisible(visible);
  setNeedsDisplay();
}

std::shared_ptr<Container> SectionView::container(const std::string& key) const {
  return controls_ ? controls_->container(key) : nullptr;
}

SectionView::Entry SectionView::lookUp(const std::string& key) const {
  const std::shared_ptr<Container> found = controls_->container(key);
  return {controls_->allParamKeys().find(key)->second, found.get()};
}

bool SectionView::isResolved() const {
  if (resolvedGeneration_ != controls_->generation()) return false;
  if (!isFor(state_.key, section_->stateParameter) ||
      !isFor(feedback_.key, section_->feedbackParameter))
    return false;
  std::size_t index = 0;
  const bool same = visitKeys(*section_, [&](const std::string& key) {
    return index < slots_.size() && slots_[index++].key->key() == key;
  });
  return same && index == slots_.size();
}

void SectionView::resolve() {
  if (!controls_ || controls_->allParamKeys().empty()) {
    slots_.clear();
    state_ = feedback_ = {};
    resolvedGeneration_ = 0;
    return;
  }
  if (isResolved()) return;
  slots_.clear();
  visitKeys(*section_, [&](const std::string& key) {
    slots_.push_back(lookUp(key));
    return true;
  });
  state_ = section_->stateParameter ? lookUp(*section_->stateParameter) : Entry{};
  feedback_ = section_->feedbackParameter ? lookUp(*section_->feedbackParameter) : Entry{};
  resolvedGeneration_ = controls_->generation();
}

bool SectionView::canAdopt(const Container& container, Claim claim) const {
  const View* superview = container.superview();
  if (!superview) return true;
  if (superview == this) return false;
  // The foot strip keeps what it has.
  const auto* other = dynamic_cast<const SectionView*>(superview);
  return other && (claim == Claim::slot || !other->isVisible());
}

void SectionView::release(Container& container) {
  for (Untitled* untitled : {&untitledState_, &untitledFeedback_}) {
    if (untitled->get() != &container) continue;
    container.setDisplayTitle(true);
    *untitled = nullptr;
  }
  container.setInactive(false);
}

void SectionView::adopt(const Entry& entry) {
  auto* const before = dynamic_cast<SectionView*>(entry.container->superview());
  if (before && before != this) before->release(*entry.container);
  addSubview(*entry.container);
  const kestroui::ParameterUISettings& settings = entry.key->settings();
  if (!settings.controlColor && settings.colors.empty())
    entry.container->setSectionColor(section_->color);
}

void SectionView::adoptAll() {
  const auto visitEntries = [this](auto visit) {
    visit(state_, Claim::shared);
    visit(feedback_, Claim::shared);
    std::size_t index = 0;
    for (const UIColumn& column : section_->stack)
      for (const UIParameter& slot : column.params) {
        if (index == slots_.size()) return;
        visit(slots_[index++], Claim::slot);
        for (const auto& sibling : slot.siblings)
          if (sibling) visit(slots_[index++], Claim::shared);
      }
  };
  bool anyNew = false;
  visitEntries([&](const Entry& entry, Claim claim) {
    anyNew = anyNew || (entry.container && canAdopt(*entry.container, claim));
  });
  if (!anyNew) return;
  // All of them, so that the keyboard goes from control to control in the order of the design.
  visitEntries([&](const Entry& entry, Claim claim) {
    if (entry.container &&
        (entry.container->superview() == this || canAdopt(*entry.container, claim)))
      adopt(entry);
  });
}

void SectionView::updateState() {
  if (!section_->stateParameter) return;
  resolve();
  const float state = state_.container ? state_.container->value() : 0;
  const bool inactive = !(state >= 1);
  for (const Entry& entry : slots_) {
    if (!entry.container || entry.container == state_.container) continue;
    // One that stands elsewhere looks as that place wants it.
    const View* const place = entry.container->superview();
    if (!place || place == this) entry.container->setInactive(inactive);
  }
}

void SectionView::setNeedsDisplay() {
  if (!visible_ || isHidden()) return;
  View::setNeedsDisplay();
  for (View* subview : subviews()) subview->setNeedsDisplay();
  updateState();
}

void SectionView::didMoveToSuperview() {
  if (!superview()) return;
  addSubview(titleLabel_);
  layer().setBorderColor(Theme::lightGrey);
  layer().setBorderWidth(0);
  layer().setCornerRadius(Theme::cornerRadius);
  gradient_.setCornerRadius(Theme::cornerRadius);
  layer().addSublayer(gradient_);
}

void SectionView::draw(const platform::Rect& rect) {
  View::draw(rect);
  resolve();
  if (title_.empty()) {
    title_ = section_->name;
    titleLabel_.setText(title_);
  }
  if (color_ == platform::Color::white()) setColor(section_->color);
  gradient_.setHidden(!section_->displayGradient);
  gradient_.setFrame(bounds());

  // A share of the page, not of the section: all sections of a page have equal titles.
  const double pageHeight = superview() ? superview()->frame().height : 0;
  const double bandHeight = section_->fillNameSpace ? 0 : pageHeight * 0.09 - 1.0;
  layoutTitle(bandHeight);

  const double side = 0.6 * bandHeight;
  placeInCorner(state_, {0, 0, bandHeight, bandHeight}, untitledState_);
  placeInCorner(feedback_, {bounds().width - side, 0, side, side}, untitledFeedback_);
  layoutSlots(bandHeight);
}

void SectionView::layoutTitle(double bandHeight) {
  const platform::Font& font = usePages_ ? Theme::smallTitleFont : Theme::titleFont;
  titleLabel_.setFrame({0, 2.0, bounds().width, bandHeight});
  titleLabel_.setFont(
      font.withSize(std::min(0.65 * bandHeight, font.pointSize * kestroui::textScaleIn(*this))));
  titleLabel_.setHidden(false);
}

void SectionView::place(const Entry& entry, const platform::Rect& frame) {
  if (!entry.container) return;
  if (entry.container->superview() != this) {
    // One that the foot strip or another shown section has is placed there.
    if (!canAdopt(*entry.container, Claim::shared)) return;
    adopt(entry);
    updateState();
  }
  entry.container->setFrame(frame);
  entry.container->setIsVisible(visible_);
}

void SectionView::placeInCorner(const Entry& entry, const platform::Rect& frame,
                                Untitled& untitled) {
  place(entry, frame);
  const bool hasSlot = std::any_of(slots_.begin(), slots_.end(), [&](const Entry& slot) {
    return slot.container == entry.container;
  });
  const bool stands = entry.container && entry.container->superview() == this && !hasSlot;
  Container* const corner = stands ? entry.container : nullptr;
  if (corner == untitled.get()) return;
  if (untitled) untitled->setDisplayTitle(true);
  // One that never shows its title is left as it is.
  untitled = corner && corner->displayTitle() ? corner : nullptr;
  if (untitled) untitled->setDisplayTitle(false);
}

void SectionView::layoutSlots(double bandHeight) {
  if (slots_.empty()) return;
  double totalWidth = 0, totalHeight = 0;
  for (const UIColumn& column : section_->stack) {
    totalWidth += column.horizontalWeightInSection;
    double height = 0;
    for (const UIParameter& slot : column.params)
      height += slot.verticalWeightInColumn + slot.verticalOffsetInColumn;
    totalHeight = std::max(totalHeight, height);
  }
  const double unitWidth = totalWidth > 0 ? bounds().width / totalWidth : 0;
  const double unitHeight = totalHeight > 0 ? (bounds().height - bandHeight) / totalHeight : 0;

  std::size_t index = 0;
  double left = 0;
  for (const UIColumn& column : section_->stack) {
    double top = 0;
    for (const UIParameter& slot : column.params) {
      // One point more each way: neighbours overlap, so that no hairline shows between them.
      const platform::Rect frame{
          left * unitWidth, bandHeight + unitHeight * (top + slot.verticalOffsetInColumn),
          unitWidth * column.horizontalWeightInSection * slot.widthRatio + 1.0,
          unitHeight * slot.verticalWeightInColumn + 1.0};
      place(slots_[index++], frame);
      for (const auto& sibling : slot.siblings)
        if (sibling) place(slots_[index++], frame);
      top += slot.verticalWeightInColumn + slot.verticalOffsetInColumn;
    }
    left += column.horizontalWeightInSection;
  }
}

}  // namespace orvane
