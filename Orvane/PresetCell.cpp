#include "Orvane/PresetCell.h"

#include <utility>

#include "KestroUI/Theme.h"
#include "Orvane/PresetLibrary.h"
#include "Orvane/PresetTableStyle.h"

namespace orvane {

PresetCell::PresetCell() {
  PresetTableStyle::apply(*this);
  starButton_.setAccentColor(kestroui::Theme::accent);
}

void PresetCell::didMoveToSuperview() {
  if (!superview()) return;
  addSubview(starButton_);
  starButton_.addTarget<&PresetCell::handleValueChanged>(*this, toolkit::ControlEvent::touchDown);
}

void PresetCell::setShowStarButton(bool show) {
  if (show == showStarButton_) return;
  showStarButton_ = show;
  starButton_.setHidden(!show);
  setNeedsDisplay();
}

void PresetCell::setPreset(std::shared_ptr<Preset> preset) {
  preset_ = std::move(preset);
  textLabel().setText(preset_ ? preset_->name : std::string());
  starButton_.setSelected(preset_ && preset_->isFavourite);
}

void PresetCell::handleValueChanged() {
  const bool isFavourite = !starButton_.isSelected();
  starButton_.setSelected(isFavourite);
  if (preset_) PresetLibrary::setFavourite(*preset_, isFavourite);
}

void PresetCell::draw(const platform::Rect& rect) {
  TableViewCell::draw(rect);
  textLabel().setFont(PresetTableStyle::font(bounds().height));
  if (!showStarButton_) return;
  const double side = bounds().height + 4;
  platform::Rect content = contentView().frame();
  content.width = std::max(0.0, content.width - side);
  contentView().setFrame(content);
  layoutContent();
  starButton_.setFrame({bounds().width - side, 0, side, bounds().height});
}

}  // namespace orvane
