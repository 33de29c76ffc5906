#include "Orvane/MultiSelectable.h"

#include <algorithm>
#include <utility>

namespace orvane {

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
