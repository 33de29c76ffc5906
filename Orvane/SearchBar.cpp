#include "Orvane/SearchBar.h"

#include <algorithm>

#include "KestroUI/Icons.h"
#include "KestroUI/Theme.h"

namespace orvane {

namespace Icons = kestroui::Icons;
namespace Theme = kestroui::Theme;

SearchBar::SearchBar() : magnifierPath_(Icons::magnifier()) {
  // The magnifier is dark on it.
  setBackgroundColor(Theme::grey);
  layer().setCornerRadius(Theme::cornerRadius + 1);
  textField_.setBackgroundColor(Theme::background);
  textField_.setTextColor(Theme::text);
  textField_.setTintColor(Theme::accent);
  textField_.setPlaceholder("SEARCH ...", Theme::textDim);
  textField_.setLeftInset(5);
  textField_.setClearButtonShown(true);
  textField_.layer().setBorderWidth(1);
  textField_.layer().setBorderColor(Theme::grey);
  textField_.layer().setCornerRadius(Theme::cornerRadius + 1);
  textField_.delegate = this;
  magnifierLayer_.setFillColor(Theme::menu);
  magnifierLayer_.setStrokeColor(Theme::menu);
  magnifierLayer_.setLineWidth(Theme::lineWidth);
}

void SearchBar::didMoveToSuperview() {
  if (!superview()) return;
  layer().addSublayer(magnifierLayer_);
  addSubview(textField_);
  textField_.addTarget<&SearchBar::textFieldDidChange>(*this,
                                                       toolkit::ControlEvent::editingChanged);
}

void SearchBar::textFieldDidChange() {
  if (auto* owner = delegate.get()) owner->searchTextChanged(textField_.text());
}

bool SearchBar::textFieldShouldReturn(toolkit::TextField& field) {
  field.resignFirstResponder();
  if (auto* owner = delegate.get()) owner->searchBarDidReturn();
  return true;
}

void SearchBar::draw(const platform::Rect&) {
  const double width = bounds().width, height = bounds().height;
  const platform::Rect square{0, 0, height, height};
  magnifierLayer_.setFrame(square);
  magnifierLayer_.setPath(
      Icons::fitted(magnifierPath_, square.inset(height * 0.22, height * 0.22)));
  textField_.setFrame({height, 0, std::max(0.0, width - height), height});
  textField_.setFont(Theme::cellFont.withSize(std::clamp(height * 0.4, 11.0, 26.0)));
}

}  // namespace orvane
