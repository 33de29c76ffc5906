#include "KestroUI/ValueStrip.h"

#include <algorithm>

namespace kestroui {

using platform::Rect;
using platform::TextAlignment;

void ValueStrip::setName(const std::string& name) {
  if (name == name_) return;
  name_ = name;
  setNeedsDisplay();
}

void ValueStrip::setText(const std::string& text) {
  if (text == text_) return;
  text_ = text;
  setNeedsDisplay();
}

double ValueStrip::dragLength() const { return std::max(120.0, bounds().width); }

void ValueStrip::paint(platform::Canvas& canvas) {
  const Rect face = bounds().inset(0.5, 0.5);
  if (!(face.width >= 4) || !(face.height >= 3)) return;
  const double radius = std::min(Theme::cornerRadius, face.height / 2);
  const platform::Color accent = stateAccent();
  canvas.fillRoundedRect(face, radius, stateSurface());
  const double from = isInverted() ? 1 - origin() : origin();
  const double share = shown(value());
  const double left = std::min(from, share), right = std::max(from, share);
  if (right > left)
    canvas.fillRoundedRect(
        {face.x + left * face.width, face.y, (right - left) * face.width, face.height}, radius,
        accent.withAlpha(accent.alpha * 0.34f));
  const double edge = std::clamp(face.x + share * face.width - 1, face.x, face.maxX() - 2);
  canvas.fillRect({edge, face.y, 2, face.height}, accent);
  if (isModulated()) {
    const double live = face.x + shown(modulatedValue()) * (face.width - 2);
    canvas.fillRect({live, face.y, 2, face.height}, Theme::white);
  }
  if (isFirstResponder()) canvas.strokeRoundedRect(face, radius, 1, accent);

  if (face.height < 8 || face.width < 24) return;
  const double size = std::min(std::max(7.0, face.height * 0.56), 13 * faceScale());
  const Rect inside = face.inset(std::min(6.0, face.width * 0.06), 0);
  const bool muted = isInactive() || !isEnabled();
  // The value goes first: a name that is cut can still be read on hover in the title.
  const platform::Font valueFont = Theme::valueFont.withSize(size);
  const double valueWidth =
      text_.empty() ? 0 : std::min(canvas.textWidth(text_, valueFont) + 1, inside.width);
  canvas.drawText(text_, valueFont,
                  {inside.maxX() - valueWidth, inside.y, valueWidth, inside.height},
                  TextAlignment::right, muted ? Theme::textDim : Theme::text);
  const double nameWidth = inside.width - valueWidth - 6;
  if (nameWidth >= 12)
    canvas.drawText(name_, Theme::labelFont.withSize(size),
                    {inside.x, inside.y, nameWidth, inside.height}, TextAlignment::left,
                    muted ? Theme::textDim.withAlpha(0.6f) : Theme::textDim);
}

}  // namespace kestroui
