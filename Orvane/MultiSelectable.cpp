#include "Orvane/MultiSelectable.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "KestroUI/Theme.h"
#include "foundation/UnicodeText.h"
#include "toolkit/Window.h"

namespace orvane {

namespace Theme = kestroui::Theme;

namespace {

constexpr std::size_t shortText = 5;
constexpr std::size_t longText = 6;
/// Beside a text in its button, in points.
constexpr double margin = 6;
/// Texts are never smaller, in points; what is too long then is cut.
constexpr double minimumSize = 9;
constexpr std::size_t maximumRows = 4;

double wantedSize(double rowHeight) {
  return std::min(std::max(Theme::smallTitleFont.pointSize * 1.2, rowHeight * 0.32),
                  rowHeight * 0.52);
}

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
  canvas.drawText(text(), Theme::smallTitleFont.withSize(textSize_), place,
                  platform::TextAlignment::centre,
                  isOn() ? Theme::textOn(litSurface()) : Theme::lightGrey, 1);
}

void MultiSelectableButton::setTextSize(double size) {
  if (size == textSize_) return;
  textSize_ = size;
  setNeedsDisplay();
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
  const double width = bounds().width, height = bounds().height / static_cast<double>(rows_);
  const double size = textSize(rows_, width, wantedSize(height));
  const std::vector<std::size_t> rows = rowsOfButtons(rows_);
  const std::vector<double> widths = widthsOfButtons(rows_, width);
  double x = 0;
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    if (i > 0 && rows[i] != rows[i - 1]) x = 0;
    buttons_[i]->setTextSize(size);
    buttons_[i]->setFrame({x, static_cast<double>(rows[i]) * height, widths[i], height});
    x += widths[i];
  }
}

std::vector<std::size_t> MultiSelectable::rowsOfButtons(std::size_t rows) const {
  float total = 0;
  for (const auto& button : buttons_) total += button->weight;
  std::vector<std::size_t> result;
  float before = 0;
  for (const auto& button : buttons_) {
    const float middle = before + button->weight / 2;
    result.push_back(static_cast<std::size_t>(middle / total * static_cast<float>(rows)));
    before += button->weight;
  }
  return result;
}

std::vector<double> MultiSelectable::widthsOfButtons(std::size_t rows, double width) const {
  const std::vector<std::size_t> rowOf = rowsOfButtons(rows);
  std::vector<float> totals(rows);
  for (std::size_t i = 0; i < buttons_.size(); ++i) totals[rowOf[i]] += buttons_[i]->weight;
  std::vector<double> result;
  for (std::size_t i = 0; i < buttons_.size(); ++i)
    result.push_back(width / static_cast<double>(totals[rowOf[i]]) *
                     static_cast<double>(buttons_[i]->weight));
  return result;
}

double MultiSelectable::textSize(std::size_t rows, double width, double wanted) const {
  const toolkit::Window* const window = this->window();
  if (!window) return wanted;
  double size = wanted;
  const std::vector<double> widths = widthsOfButtons(rows, width);
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const double needed =
        window->textWidth(buttons_[i]->text(), Theme::smallTitleFont.withSize(wanted));
    if (needed > 0) size = std::min(size, wanted * (widths[i] - 2 * margin) / needed);
  }
  return std::max(minimumSize, size);
}

double MultiSelectable::fitRows(const platform::Size& row) {
  const double readable = std::max(minimumSize + 0.01, wantedSize(row.height) * 0.75);
  const std::size_t most = std::clamp<std::size_t>(buttons_.size() / 2, 1, maximumRows);
  std::size_t rows = 1;
  while (rows < most && textSize(rows, row.width, readable) < readable) ++rows;
  if (std::exchange(rows_, rows) != rows) setNeedsDisplay();
  return rows_ == 1 ? row.height : static_cast<double>(rows_) * std::max(16.0, row.height * 0.7);
}

void MultiSelectable::setNeedsDisplay() {
  Control::setNeedsDisplay();
  for (toolkit::View* subview : subviews()) subview->setNeedsDisplay();
}

}  // namespace orvane
