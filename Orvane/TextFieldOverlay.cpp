#include "Orvane/TextFieldOverlay.h"

#include <algorithm>

#include "KestroUI/Theme.h"

namespace orvane {

using platform::Rect;
namespace Theme = kestroui::Theme;

TextFieldOverlay::TextFieldOverlay() {
  titleLabel_.setTextAlignment(platform::TextAlignment::centre);
  titleLabel_.setTextColor(Theme::text);
  textField_.setBackgroundColor(Theme::background);
  textField_.setTextColor(Theme::text);
  textField_.setTintColor(Theme::accent);
  textField_.setLeftInset(8);
  textField_.layer().setBorderWidth(1);
  textField_.layer().setBorderColor(Theme::line);
  textField_.layer().setCornerRadius(Theme::cornerRadius + 1);
  textField_.delegate = this;
  okButton_.setTitle("OK");
}

void TextFieldOverlay::didMoveToSuperview() {
  if (!superview()) return;
  addSubview(titleLabel_);
  addSubview(textField_);
  addSubview(okButton_);
  titleLabel_.setText(titleText());
  textField_.setAccessibilityLabel(titleText());
  okButton_.addTarget<&TextFieldOverlay::handleTouchDown>(*this, toolkit::ControlEvent::touchDown);
}

void TextFieldOverlay::setHidden(bool hidden) {
  if (hidden) textField_.resignFirstResponder();
  Modal::setHidden(hidden);
  if (hidden) return;
  textField_.setText({});
  textField_.becomeFirstResponder();
}

void TextFieldOverlay::handleTouchDown(toolkit::Control&) {
  if (auto* owner = delegate.get()) owner->textFieldOverlayDidConfirm(*this, textField_.text());
}

bool TextFieldOverlay::textFieldShouldReturn(toolkit::TextField& field) {
  field.resignFirstResponder();
  // A second Return then presses it, for those who have no hand at the mouse.
  okButton_.becomeFirstResponder();
  return true;
}

bool TextFieldOverlay::keyPressed(const platform::KeyEvent& event) {
  if (event.key != platform::Key::escape) return false;
  setHidden(true);
  return true;
}

void TextFieldOverlay::draw(const Rect&) {
  const double width = bounds().width, height = bounds().height;
  const double content = 0.7 * width, x = (width - content) / 2;
  const double fieldHeight = 0.1 * height, y = height / 2 - fieldHeight / 2;
  const double fieldWidth = 0.55 * width;
  layoutEntry({x, y, fieldWidth, fieldHeight},
              {x + fieldWidth + 3, y, content - 3 - fieldWidth, fieldHeight});
}

void TextFieldOverlay::layoutEntry(const Rect& field, const Rect& button) {
  const platform::Font font = Theme::pageFont.withSize(std::clamp(field.height * 0.42, 9.0, 30.0));
  titleLabel_.setFont(font);
  textField_.setFont(font);
  okButton_.setFont(font);
  const double lineHeight = font.lineHeight();
  titleLabel_.setFrame({field.x, field.y - lineHeight, button.maxX() - field.x, lineHeight});
  textField_.setFrame(field);
  okButton_.setFrame(button);
}

}  // namespace orvane
