#include "Orvane/NoticeView.h"

#include <algorithm>
#include <utility>

#include "KestroUI/Theme.h"
#include "Orvane/OverlayStyle.h"
#include "toolkit/Window.h"

namespace orvane {

namespace Theme = kestroui::Theme;

NoticeView::NoticeView() {
  OverlayStyle::applyPanel(panel_.layer());
  panel_.setBackgroundColor(Theme::surfaceRaised);
  label_.setTextColor(Theme::white);
  setHidden(true);
}

void NoticeView::didMoveToSuperview() {
  if (!superview()) return;
  addSubview(panel_);
  panel_.addSubview(label_);
  panel_.addSubview(button_);
  button_.addTarget<&NoticeView::handleTouchDown>(*this, toolkit::ControlEvent::touchDown);
}

void NoticeView::show(const std::string& text, const std::string& buttonTitle,
                      std::function<void()> action) {
  label_.setText(text);
  button_.setTitle(buttonTitle);
  button_.setHidden(buttonTitle.empty());
  action_ = std::move(action);
  setHidden(false);
  setNeedsDisplay();
  wait();
}

void NoticeView::wait() {
  timer_ = foundation::Timer(duration, foundation::Timer::Repeat::once, [this] { hide(); });
}

void NoticeView::hide() {
  timer_.invalidate();
  action_ = nullptr;
  setHidden(true);
}

void NoticeView::handleTouchDown() {
  const std::function<void()> action = std::exchange(action_, nullptr);
  hide();
  if (action) action();
}

bool NoticeView::pointInside(platform::Point point) const { return panel_.frame().contains(point); }

void NoticeView::hoverChanged(bool hovered) {
  if (isHidden()) return;
  if (hovered)
    timer_.invalidate();
  else
    wait();
}

void NoticeView::draw(const platform::Rect&) {
  const double textSize = OverlayStyle::textSizeIn(bounds());
  const platform::Font font = Theme::regularFont.withSize(textSize);
  const toolkit::Window* const shownIn = window();
  if (!shownIn) return;
  label_.setFont(font);
  button_.setFont(font);
  const double padding = textSize * 0.8;
  const double buttonWidth =
      button_.isHidden() ? 0 : shownIn->textWidth(button_.title(), font) + 3 * padding;
  const double buttonRoom = button_.isHidden() ? 0 : buttonWidth + padding;
  const double room = bounds().width * 0.86 - 2 * padding - buttonRoom;
  const double textWidth =
      std::clamp(shownIn->textWidth(label_.text(), font) + 1, 0.0, std::max(0.0, room));
  const double textHeight = label_.heightFor(textWidth);
  const double height = std::max(textHeight, textSize * 2.2) + padding;
  const double width = textWidth + 2 * padding + buttonRoom;
  // Above the buttons of the browser: whoever clears up deletes one preset after the other.
  const double bottom = bounds().height * 0.88;
  panel_.setFrame({(bounds().width - width) / 2, bottom - height, width, height});
  label_.setFrame({padding, (height - textHeight) / 2, textWidth, textHeight});
  button_.setFrame({width - padding - buttonWidth, padding * 0.5, buttonWidth, height - padding});
}

}  // namespace orvane
