#include "Orvane/MultiSelectableButton.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "KestroUI/Theme.h"
#include "foundation/UnicodeText.h"

namespace orvane {

namespace Theme = kestroui::Theme;

namespace {

constexpr std::size_t shortText = 5;
constexpr std::size_t longText = 6;

}  // namespace

MultiSelectableButton::MultiSelectableButton(std::string text) : OnOffButton({std::move(text)}) {
  const std::size_t length = foundation::countCodePoints(this->text());
  weight = length > longText ? 1.4f : length < shortText ? 0.7f : 1.0f;
  setSwitching(Switching::byOwner);
  setBackgroundColor(platform::Color::clear());
  setAccentColor(Theme::lightGrey);
}

platform::Accessibility MultiSelectableButton::accessibility() const {
  platform::Accessibility told = OnOffButton::accessibility();
  told.name = text();
  return told;
}

void MultiSelectableButton::paint(platform::Canvas& canvas) {
  const platform::Rect place = bounds().inset(1.5, 1.5);
  if (!(place.width >= 4) || !(place.height >= 4)) return;
  const double radius = std::min(place.height / 2, 10.0);
  if (isOn())
    canvas.fillRoundedRect(place, radius, litSurface());
  else if (isHovered() || isHighlighted())
    canvas.fillRoundedRect(place, radius, stateSurface());
  canvas.strokeRoundedRect(
      place.inset(0.5, 0.5), radius, 1,
      isFirstResponder() ? Theme::accent : Theme::line.withAlpha(isOn() ? 0.0f : 0.8f));
  const double perLetter = 0.58 * static_cast<double>(foundation::countCodePoints(text()) + 1);
  const double size =
      std::min({std::max(Theme::smallTitleFont.pointSize * 1.2, place.height * 0.32),
                place.height * 0.52, std::max(7.0, place.width / perLetter)});
  canvas.drawText(text(), Theme::smallTitleFont.withSize(size), place,
                  platform::TextAlignment::centre,
                  isOn() ? Theme::textOn(litSurface()) : Theme::lightGrey);
}

}  // namespace orvane
