#include "KestroUI/Indicators.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

using platform::Rect;

LED::LED() { setUserInteractionEnabled(false); }

void LED::setValue(float value) {
  // Live values flicker by less than anyone sees; those steps are not worth a repaint.
  const bool end = value <= minimum() || value >= maximum();
  if (!end && std::fabs(value - this->value()) < 0.004f * (maximum() - minimum())) return;
  KestroControl::setValue(value);
}

void LED::paint(platform::Canvas& canvas) {
  const double side = std::min(bounds().width, bounds().height);
  if (!(side >= 3)) return;
  const double radius = std::clamp(side * 0.22, 1.5, 14.0);
  const auto centre = bounds().centre();
  const auto disc = [&](double r) { return Rect{centre.x - r, centre.y - r, 2 * r, 2 * r}; };
  const float light = shown(value());
  const platform::Color accent = stateAccent();
  if (light > 0) {
    canvas.fillEllipse(disc(radius * 2.0), accent.withAlpha(0.10f * light));
    canvas.fillEllipse(disc(radius * 1.45), accent.withAlpha(0.18f * light));
  }
  const platform::Color dark = Theme::surface.mixed(accent, 0.16f);
  canvas.fillEllipse(disc(radius), dark.mixed(accent.mixed(Theme::white, 0.2f), light));
  canvas.strokeRoundedRect(disc(radius - 0.5), radius, 1,
                           Theme::line.mixed(accent, 0.3f + 0.5f * light));
}

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
