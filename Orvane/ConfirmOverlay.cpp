#include "Orvane/ConfirmOverlay.h"

#include <algorithm>

#include "KestroUI/Theme.h"

namespace orvane {

namespace Theme = kestroui::Theme;

ConfirmOverlay::ConfirmOverlay() {
  setBackgroundColor(OverlayStyle::backdropColor());
  layer().setCornerRadius(OverlayStyle::cornerRadius());
  OverlayStyle::applyPanel(back_);
  setText("Are you sure you want to delete this preset?");
  textLabel_.setTextAlignment(platform::TextAlignment::centre);
  textLabel_.setTextColor(Theme::text);
  subjectLabel_.setTextAlignment(platform::TextAlignment::centre);
  subjectLabel_.setTextColor(Theme::white);
}

void ConfirmOverlay::didMoveToSuperview() {
  if (!superview()) return;
  layer().addSublayer(back_);
  addSubview(subjectLabel_);
  addSubview(textLabel_);
  addSubview(cancelButton_);
  addSubview(okButton_);
  for (kestroui::SimpleButton* button : {&cancelButton_, &okButton_})
    button->addTarget<&ConfirmOverlay::handleTouchDown>(*this, toolkit::ControlEvent::touchDown);
}

void ConfirmOverlay::handleTouchDown(toolkit::Control& sender) {
  if (auto* owner = delegate.get()) owner->confirmOverlayDidAnswer(*this, &sender == &okButton_);
}

void ConfirmOverlay::setHidden(bool hidden) {
  Modal::setHidden(hidden);
  // Return must not delete by accident.
  if (!hidden) cancelButton_.becomeFirstResponder();
}

bool ConfirmOverlay::keyPressed(const platform::KeyEvent& event) {
  if (event.key != platform::Key::escape) return false;
  handleTouchDown(cancelButton_);
  return true;
}

void ConfirmOverlay::draw(const platform::Rect&) {
  const double width = bounds().width, height = bounds().height;
  const double buttonHeight = 0.1 * height, buttonWidth = 0.2 * width, gap = 0.03 * width;
  const platform::Font font = Theme::pageFont.withSize(std::clamp(buttonHeight * 0.42, 9.0, 30.0));
  textLabel_.setFont(font);
  subjectLabel_.setFont(font.withSize(font.pointSize * 1.15));
  cancelButton_.setFont(font);
  okButton_.setFont(font);
  textLabel_.setFrame(
      {0.1 * width, height / 2 - 2 * font.lineHeight(), 0.8 * width, font.lineHeight()});
  const double padding = 1.5 * font.lineHeight();
  const bool hasSubject = !subject().empty();
  const double subjectHeight = hasSubject ? 1.6 * font.lineHeight() : 0;
  subjectLabel_.setFrame(textLabel_.frame().translated(0, -subjectHeight));
  const double top = subjectLabel_.frame().y - padding;
  back_.setFrame({0.08 * width, top, 0.84 * width, height / 2 + buttonHeight + padding - top});
  cancelButton_.setFrame(
      {width / 2 - gap / 2 - buttonWidth, height / 2, buttonWidth, buttonHeight});
  okButton_.setFrame({width / 2 + gap / 2, height / 2, buttonWidth, buttonHeight});
}

}  // namespace orvane
