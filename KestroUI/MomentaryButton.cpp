#include "KestroUI/MomentaryButton.h"

#include <algorithm>

namespace kestroui {

using platform::Rect;

MomentaryButton::MomentaryButton() { setStepCount(1); }

void MomentaryButton::setTitle(const std::string& title) {
  if (title == title_) return;
  title_ = title;
  setNeedsDisplay();
}

void MomentaryButton::touchBegan(const toolkit::Touch& touch) {
  const platform::Weak<MomentaryButton> alive = this;
  KestroControl::touchBegan(touch);
  if (!alive || !isEnabled()) return;
  beginGesture();
  if (alive) changeValue(1);
}

void MomentaryButton::touchEnded(const toolkit::Touch& touch) {
  const platform::Weak<MomentaryButton> alive = this;
  KestroControl::touchEnded(touch);
  if (alive) release();
}

void MomentaryButton::touchCancelled(const toolkit::Touch& touch) {
  const platform::Weak<MomentaryButton> alive = this;
  KestroControl::touchCancelled(touch);
  if (alive) release();
}

void MomentaryButton::release() {
  const platform::Weak<MomentaryButton> alive = this;
  changeValue(0);
  if (alive) endGesture();
}

bool MomentaryButton::keyPressed(const platform::KeyEvent& event) {
  if (event.key != platform::Key::space && event.key != platform::Key::returnKey) return false;
  if (!isEnabled()) return false;
  const platform::Weak<MomentaryButton> alive = this;
  beginGesture();
  if (alive) changeValue(1);
  if (alive) release();
  return true;
}

void MomentaryButton::paint(platform::Canvas& canvas) {
  const Rect face = bounds().inset(1, 1);
  if (!(face.height >= 3) || !(face.width >= 3)) return;
  const double radius = std::min(Theme::cornerRadius + 1, face.height / 2);
  const platform::Color accent = stateAccent();
  const bool lit = shown(value()) > 0.5f;
  canvas.fillRoundedRect(face, radius, lit ? litSurface() : stateSurface());
  canvas.strokeRoundedRect(face, radius, 1,
                           isFirstResponder() || lit ? accent : accent.mixed(Theme::line, 0.55f));
  const bool muted = isInactive() || !isEnabled();
  canvas.drawText(title_, faceFont(Theme::smallTitleFont, face.height),
                  face.inset(std::min(5.0, face.width * 0.05), 0), platform::TextAlignment::centre,
                  lit     ? Theme::textOn(accent)
                  : muted ? Theme::textDim
                          : Theme::text);
}

}  // namespace kestroui
