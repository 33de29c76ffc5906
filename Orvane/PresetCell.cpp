#include "Orvane/PresetCell.h"

#include <algorithm>
#include <utility>

#include "KestroUI/Theme.h"
#include "Orvane/PresetLibrary.h"
#include "Orvane/PresetTableStyle.h"

namespace orvane {

PresetCell::PresetCell() {
  PresetTableStyle::apply(*this);
  textLabel().setMinimumScale(1);
  starButton_.setAccentColor(kestroui::Theme::accent);
  // The keys of a row are the list's.
  starButton_.setTakesKeyboard(false);
  modifiedDot_.setBackgroundColor(kestroui::Theme::accent);
  modifiedDot_.setHidden(true);
}

void PresetCell::didMoveToSuperview() {
  if (!superview()) return;
  layer().addSublayer(modifiedDot_);
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
  std::string categories;
  if (preset_)
    for (const std::string& category : preset_->categories)
      categories += (categories.empty() ? "" : ", ") + category;
  if (categories != categories_) setNeedsDisplay();
  categories_ = std::move(categories);
  starButton_.setSelected(preset_ && preset_->isFavourite);
  starButton_.setAccessibilityLabel("Favourite");
}

void PresetCell::setModified(bool modified) {
  modified_ = modified;
  modifiedDot_.setHidden(!modified);
}

void PresetCell::handleValueChanged() {
  const bool isFavourite = !starButton_.isSelected();
  starButton_.setSelected(isFavourite);
  if (preset_) PresetLibrary::setFavourite(*preset_, isFavourite);
}

toolkit::View* PresetCell::hitTest(platform::Point point) {
  toolkit::View* const hit = TableViewCell::hitTest(point);
  // A finger is wider than the star of a low row.
  constexpr double fingerWidth = 44;
  const bool isNearStar = showStarButton_ && hit && point.x >= bounds().width - fingerWidth;
  return isNearStar ? &starButton_ : hit;
}

platform::Accessibility PresetCell::accessibility() const {
  platform::Accessibility told = TableViewCell::accessibility();
  if (!preset_) return told;
  for (const std::string& text : {preset_->bankName, categories_})
    if (!text.empty()) told.name += ", " + text;
  const auto tell = [&](bool isSo, const char* state) {
    if (isSo) told.value += (told.value.empty() ? "" : ", ") + std::string(state);
  };
  tell(modified_, "Changed");
  tell(preset_->isFavourite, "Favourite");
  return told;
}

void PresetCell::draw(const platform::Rect& rect) {
  TableViewCell::draw(rect);
  const double height = bounds().height;
  const platform::Font font = PresetTableStyle::font(height);
  textLabel().setFont(font);
  platform::Rect content = contentView().frame();
  if (showStarButton_) {
    const double side = height + 4;
    content.width = std::max(0.0, content.width - side);
    contentView().setFrame(content);
    layoutContent();
    starButton_.setFrame({bounds().width - side, 0, side, height});
  }
  const double dot = std::max(4.0, font.pointSize * 0.38);
  modifiedDot_.setFrame({5, (height - dot) / 2, dot, dot});
  modifiedDot_.setCornerRadius(dot / 2);

  // The columns of all rows stand below each other.
  const platform::Rect text = textLabel().frame();
  for (platform::Rect& column : columns_) column = {};
  if (text.width < font.pointSize * 26) return;
  const double gap = font.pointSize * 0.7;
  const double name = text.width * 0.44, bank = text.width * 0.24;
  textLabel().setFrame({text.x, 0, name - gap, height});
  columns_[0] = {text.x + name, 0, bank - gap, height};
  columns_[1] = {text.x + name + bank, 0, text.width - name - bank, height};
}

void PresetCell::paint(platform::Canvas& canvas) {
  TableViewCell::paint(canvas);
  if (!preset_ || columns_[0].isEmpty()) return;
  // Painted, as they are no text of their own: a row is one thing to press.
  const platform::Font small =
      kestroui::Theme::regularFont.withSize(std::max(10.0, textLabel().font().pointSize * 0.8));
  const std::string* const texts[] = {&preset_->bankName, &categories_};
  for (int i = 0; i < 2; ++i)
    canvas.drawText(*texts[i], small, columns_[i], platform::TextAlignment::left,
                    kestroui::Theme::textDim, 1);
}

}  // namespace orvane
