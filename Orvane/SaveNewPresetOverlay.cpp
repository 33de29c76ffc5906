#include "Orvane/SaveNewPresetOverlay.h"

#include <utility>

#include "Orvane/OverlayStyle.h"

namespace orvane {

SaveNewPresetOverlay::SaveNewPresetOverlay() {
  setBackgroundColor(OverlayStyle::backdropColor());
  layer().setCornerRadius(OverlayStyle::cornerRadius());
  OverlayStyle::applyPanel(back_);
}

void SaveNewPresetOverlay::setCategories(std::vector<std::string> categories) {
  categorySelector_.setValues(std::move(categories));
}

void SaveNewPresetOverlay::setSubject(const std::string& subject) {
  textField().setHidden(!subject.empty());
  titleLabel().setText(subject.empty() ? titleText() : "Categories of " + subject);
}

void SaveNewPresetOverlay::setHidden(bool hidden) {
  TextFieldOverlay::setHidden(hidden);
  if (!hidden && textField().isHidden() && !categorySelector_.buttons().empty())
    categorySelector_.buttons().front()->becomeFirstResponder();
}

void SaveNewPresetOverlay::didMoveToSuperview() {
  if (superview()) layer().addSublayer(back_);
  TextFieldOverlay::didMoveToSuperview();
  if (superview()) addSubview(categorySelector_);
}

void SaveNewPresetOverlay::draw(const platform::Rect& rect) {
  TextFieldOverlay::draw(rect);
  const platform::Rect field = textField().frame();
  if (textField().isHidden()) titleLabel().setFrame(field);
  const double width = 0.9 * bounds().width;
  const platform::Rect selector{0.05 * bounds().width, field.maxY() + 0.06 * bounds().height, width,
                                categorySelector_.fitRows({width, field.height})};
  categorySelector_.setFrame(selector);
  const double padding = 0.75 * field.height, top = titleLabel().frame().y - padding;
  if (categories().empty())
    back_.setFrame({0.1 * bounds().width, top, 0.8 * bounds().width, field.maxY() + padding - top});
  else
    back_.setFrame(
        {0.02 * bounds().width, top, 0.96 * bounds().width, selector.maxY() + padding - top});
}

}  // namespace orvane
