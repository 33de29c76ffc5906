#include "Orvane/SaveNewPresetOverlay.h"

#include <utility>

#include "KestroUI/Theme.h"

namespace orvane {

SaveNewPresetOverlay::SaveNewPresetOverlay() {
  setBackgroundColor(kestroui::Theme::panel);
  layer().setCornerRadius(kestroui::Theme::cornerRadius * 3);
}

void SaveNewPresetOverlay::setCategories(std::vector<std::string> categories) {
  categorySelector_.setValues(std::move(categories));
}

void SaveNewPresetOverlay::didMoveToSuperview() {
  TextFieldOverlay::didMoveToSuperview();
  if (superview()) addSubview(categorySelector_);
}

void SaveNewPresetOverlay::draw(const platform::Rect& rect) {
  TextFieldOverlay::draw(rect);
  const platform::Rect field = textField().frame();
  categorySelector_.setFrame({0.05 * bounds().width, field.maxY() + 0.06 * bounds().height,
                              0.9 * bounds().width, field.height});
}

}  // namespace orvane
