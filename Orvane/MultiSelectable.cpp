#include "Orvane/MultiSelectable.h"

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

void MultiSelectable::setValues(std::vector<std::string> values) {
  values_ = std::move(values);
  buttons_.clear();
  for (const std::string& value : values_) {
    auto button = std::make_unique<MultiSelectableButton>(value);
    button->addTarget<&MultiSelectable::handleTouchDown>(*this, toolkit::ControlEvent::touchDown);
    addSubview(*button);
    buttons_.push_back(std::move(button));
  }
  setNeedsDisplay();
}

void MultiSelectable::setSelectedValues(const std::vector<std::string>& values) {
  for (const auto& button : buttons_)
    button->setOn(std::find(values.begin(), values.end(), button->text()) != values.end());
  selectionChanged();
}

void MultiSelectable::handleTouchDown(toolkit::Control& sender) {
  const auto tapped = std::find_if(buttons_.begin(), buttons_.end(),
                                   [&](const auto& button) { return button.get() == &sender; });
  if (tapped == buttons_.end()) return;
  (*tapped)->setOn(!(*tapped)->isOn());
  selectionChanged();
}

void MultiSelectable::selectionChanged() {
  selectedValues_.clear();
  for (const auto& button : buttons_)
    if (button->isOn()) selectedValues_.push_back(button->text());
  if (auto* alive = delegate.get()) alive->selectedValuesChanged();
}

void MultiSelectable::draw(const platform::Rect& rect) {
  Control::draw(rect);
  float total = 0;
  for (const auto& button : buttons_) total += button->weight;
  if (!(total > 0)) return;
  const double unit = bounds().width / static_cast<double>(total);
  double x = 0;
  for (const auto& button : buttons_) {
    const double width = unit * static_cast<double>(button->weight);
    button->setFrame({x, 0, width, bounds().height});
    x += width;
  }
}

void MultiSelectable::setNeedsDisplay() {
  Control::setNeedsDisplay();
  for (toolkit::View* subview : subviews()) subview->setNeedsDisplay();
}

}  // namespace orvane
