#include "toolkit/Button.h"

#include <algorithm>
#include <utility>

namespace toolkit {

using platform::Accessibility;
using platform::Canvas;
using platform::Color;
using platform::Font;
using platform::Image;
using platform::Key;
using platform::KeyEvent;
using platform::Modifiers;
using platform::Rect;
using platform::TextAlignment;
using platform::Weak;

void Button::setTitle(std::string title) {
  if (title == title_) return;
  title_ = std::move(title);
  setNeedsDisplay();
}

void Button::setFont(const Font& font) {
  if (font == font_) return;
  font_ = font;
  setNeedsDisplay();
}

void Button::setTitleColor(Color color) {
  if (color == titleColor_) return;
  titleColor_ = color;
  setNeedsDisplay();
}

void Button::setImage(Image image) {
  if (image == image_) return;
  image_ = std::move(image);
  setNeedsDisplay();
}

bool Button::keyPressed(const KeyEvent& event) {
  const bool presses = event.key == Key::space || event.key == Key::returnKey;
  if (!presses || event.modifiers != Modifiers::none || !isEnabled()) return false;
  const Weak<Button> self = this;
  sendActions(ControlEvent::touchDown);
  if (self && isEnabled()) sendActions(ControlEvent::touchUpInside);
  return true;
}

Accessibility Button::accessibility() const {
  return {Accessibility::Role::button,
          accessibilityLabel().empty() ? title_ : accessibilityLabel()};
}

void Button::paint(Canvas& canvas) {
  const float strength = !isEnabled() ? 0.35f : isHighlighted() ? 0.6f : isHovered() ? 1.0f : 0.9f;
  const Color color = titleColor_.withAlpha(titleColor_.alpha * strength);
  Rect place = bounds();
  if (isFirstResponder())
    canvas.strokeRoundedRect(place.inset(0.5, 0.5), layer().cornerRadius(), 1,
                             titleColor_.withAlpha(titleColor_.alpha * 0.4f));
  if (!image_.isEmpty()) {
    Rect picture = place;
    if (!title_.empty()) {
      picture.width = std::min(place.height, place.width / 2);
      place.x += picture.width;
      place.width -= picture.width;
    }
    image_.draw(canvas, picture, color);
  }
  if (!title_.empty()) canvas.drawText(title_, font_, place, TextAlignment::centre, color);
}

}  // namespace toolkit
