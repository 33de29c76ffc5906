#include "KestroUI/SimpleLabel.h"

#include <algorithm>

namespace kestroui {

SimpleLabel::SimpleLabel() { setUserInteractionEnabled(false); }

void SimpleLabel::setText(const std::string& text) {
  if (text == text_) return;
  text_ = text;
  setNeedsDisplay();
}

void SimpleLabel::paint(platform::Canvas& canvas) {
  if (text_.empty() || !(bounds().height >= 6)) return;
  const bool muted = isInactive() || !isEnabled();
  canvas.drawText(text_, faceFont(Theme::valueFont, bounds().height),
                  bounds().inset(std::min(3.0, bounds().width * 0.05), 0),
                  platform::TextAlignment::centre, muted ? Theme::textDim : Theme::lightGrey);
}

}  // namespace kestroui
