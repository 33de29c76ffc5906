#include "Orvane/EnterValueOverlay.h"

#include "KestroUI/Theme.h"
#include "Orvane/OverlayStyle.h"

namespace orvane {

using toolkit::ControlEvent;
namespace Theme = kestroui::Theme;

EnterValueOverlay::EnterValueOverlay() {
  outside_.setBackgroundColor(OverlayStyle::lightBackdropColor());
  OverlayStyle::applyPanel(back_);
  textField().setLeftInset(3);
}

void EnterValueOverlay::setCurrentValueText(const std::string& text) {
  textField().setPlaceholder(text, Theme::textDim);
}

void EnterValueOverlay::didMoveToSuperview() {
  if (!superview()) return;
  addSubview(outside_);
  outside_.layer().addSublayer(back_);
  TextFieldOverlay::didMoveToSuperview();
  addSubview(resetButton_);
  resetButton_.addTarget<&EnterValueOverlay::handleTouchDownReset>(*this, ControlEvent::touchDown);
  outside_.addTarget<&EnterValueOverlay::handleTouchDownOutside>(*this, ControlEvent::touchDown);
}

void EnterValueOverlay::handleTouchDownReset() {
  if (auto* owner = dynamic_cast<EnterValueOverlayDelegate*>(delegate.get()))
    owner->enterValueOverlayDidReset();
}

void EnterValueOverlay::handleTouchDownOutside() { setHidden(true); }

void EnterValueOverlay::draw(const platform::Rect&) {
  const double width = bounds().width, height = bounds().height;
  outside_.setFrame(bounds());
  back_.setFrame({0.225 * width, 0.225 * height, 0.55 * width, 0.55 * height});
  const double content = 0.5 * width, x = (width - content) / 2;
  const double fieldWidth = 0.27 * width, fieldHeight = 0.1 * height;
  const double y = height / 2 - fieldHeight / 2;
  const platform::Rect button{x + fieldWidth + 3, y, (content - fieldWidth) / 2 - 6, fieldHeight};
  layoutEntry({x, y, fieldWidth, fieldHeight}, button);
  titleLabel().setFont(Theme::regularFont.withSize(titleLabel().font().pointSize));
  resetButton_.setFont(okButton().font());
  resetButton_.setFrame({button.maxX() + 3, y, button.width, fieldHeight});
}

}  // namespace orvane
