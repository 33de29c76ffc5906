#include "Orvane/PageButton.h"

#include <algorithm>

#include "KestroUI/Theme.h"

namespace orvane {

void PageButton::draw(const platform::Rect& rect) {
  SelectableButton::draw(rect);
  const platform::Font& font = kestroui::Theme::pageFont;
  setFont(font.withSize(
      std::min(font.pointSize * kestroui::textScaleIn(*this), bounds().height * 0.5)));
}

}  // namespace orvane
