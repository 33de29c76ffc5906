#include "Orvane/LinkLabel.h"

#include <algorithm>

#include "KestroUI/Theme.h"
#include "toolkit/Window.h"

namespace orvane {

namespace Theme = kestroui::Theme;
using platform::Rect;
using platform::TextAlignment;

LinkLabel::LinkLabel() {
  setUserInteractionEnabled(true);
  setTextColor(Theme::accent);
}

platform::Accessibility LinkLabel::accessibility() const {
  return {platform::Accessibility::Role::button, text()};
}

Rect LinkLabel::textPlace(double width) const {
  width = std::min(width, bounds().width);
  const double free = bounds().width - width;
  const double x = textAlignment() == TextAlignment::left     ? 0
                   : textAlignment() == TextAlignment::centre ? free / 2
                                                              : free;
  return {x, 0, width, bounds().height};
}

bool LinkLabel::pointInside(platform::Point point) const {
  const toolkit::Window* shownIn = window();
  return shownIn && textPlace(shownIn->textWidth(text(), font())).contains(point);
}

void LinkLabel::touchBegan(const toolkit::Touch&) { tap(); }

bool LinkLabel::keyPressed(const platform::KeyEvent& event) {
  const bool presses = event.key == platform::Key::space || event.key == platform::Key::returnKey;
  if (!presses || event.modifiers != platform::Modifiers::none) return false;
  tap();
  return true;
}

void LinkLabel::tap() {
  // It may be replaced, or its owner gone, while it runs.
  if (const auto action = tapped) action();
}

void LinkLabel::hoverChanged(bool hovered) {
  hovered_ = hovered;
  setNeedsDisplay();
}

void LinkLabel::paint(platform::Canvas& canvas) {
  if (text().empty()) return;
  const platform::Color color = hovered_ ? textColor().mixed(Theme::white, 0.35f) : textColor();
  canvas.drawText(text(), font(), bounds(), textAlignment(), color);
  const Rect place = textPlace(canvas.textWidth(text(), font()));
  const double base = std::min(bounds().midY() + font().pointSize * 0.52, bounds().height - 1);
  canvas.fillRect({place.x, base, place.width, 1}, color.withAlpha(hovered_ ? 0.9f : 0.4f));
  if (isFirstResponder())
    canvas.strokeRoundedRect(place.inset(-4, 0.5).intersection(bounds()), Theme::cornerRadius + 1,
                             1, Theme::accent.withAlpha(0.8f));
}

}  // namespace orvane
