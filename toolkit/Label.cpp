#include "toolkit/Label.h"

#include <utility>

namespace toolkit {

using platform::Canvas;
using platform::Color;
using platform::Font;
using platform::TextAlignment;

Label::Label() { setUserInteractionEnabled(false); }

void Label::setText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  setNeedsDisplay();
}

void Label::setFont(const Font& font) {
  if (font == font_) return;
  font_ = font;
  setNeedsDisplay();
}

void Label::setTextColor(Color color) {
  if (color == textColor_) return;
  textColor_ = color;
  setNeedsDisplay();
}

void Label::setTextAlignment(TextAlignment alignment) {
  if (alignment == alignment_) return;
  alignment_ = alignment;
  setNeedsDisplay();
}

void Label::setMinimumScale(double scale) {
  if (scale == minimumScale_) return;
  minimumScale_ = scale;
  setNeedsDisplay();
}

void Label::paint(Canvas& canvas) {
  if (!text_.empty())
    canvas.drawText(text_, font_, bounds(), alignment_, textColor_, minimumScale_);
}

}  // namespace toolkit
