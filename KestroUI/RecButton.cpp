#include "KestroUI/RecButton.h"

#include <algorithm>

namespace kestroui {

using platform::Color;
using platform::Rect;

RecButton::RecButton() { setAccentColor(Theme::record); }

RecButton::State RecButton::state() const {
  if (stepCount() > 1) {
    if (value() <= 0.25f) return State::stopped;
    return value() < 0.75f ? State::armed : State::running;
  }
  if (!isOn()) return State::stopped;
  return waiting_ ? State::armed : State::running;
}

void RecButton::setWaiting(bool waiting) {
  if (waiting == waiting_) return;
  waiting_ = waiting;
  setNeedsDisplay();
}

float RecButton::switchedValue() const {
  if (stepCount() <= 1) return OnOffButton::switchedValue();
  return state() == State::stopped ? 0.5f : 0.0f;
}

void RecButton::paint(platform::Canvas& canvas) {
  const double height = std::min(bounds().height, std::max(bounds().width * 0.6, 22.0));
  Rect face{0.5, bounds().midY() - height / 2 + 0.5, bounds().width - 1, height - 1};
  if (!(face.width >= 3) || !(face.height >= 3)) return;
  const State now = state();
  const double radius = std::min(Theme::cornerRadius + 1, face.height / 2);
  const Color red = stateAccent();
  canvas.fillRoundedRect(face, radius,
                         now == State::running ? stateSurface().mixed(red, 0.28f) : stateSurface());
  if (isFirstResponder())
    canvas.strokeRoundedRect(face, radius, 1.5, Theme::front);
  else
    canvas.strokeRoundedRect(face, radius, 1,
                             now == State::stopped ? Theme::line : red.withAlpha(red.alpha * 0.8f));

  // The disc stands in the middle, or before the name of the state.
  const bool named = !titles().empty() && face.width > face.height * 2.6 && face.height >= 10;
  const double disc = std::min(face.height, face.width) * 0.24;
  const platform::Point centre{named ? face.x + face.height * 0.6 : face.midX(), face.midY()};
  const auto circle = [&](double r) { return Rect{centre.x - r, centre.y - r, 2 * r, 2 * r}; };
  const double line = std::max(1.0, disc * 0.28);
  if (now == State::running && isEnabled() && !isInactive())
    canvas.fillEllipse(circle(disc * 1.6), red.withAlpha(red.alpha * 0.28f));
  if (now == State::running)
    canvas.fillEllipse(circle(disc), red.mixed(Theme::white, 0.12f));
  else
    canvas.strokeRoundedRect(circle(disc - line / 2), disc, line,
                             now == State::armed ? red : Theme::grey.mixed(red, 0.35f));
  if (now == State::armed) canvas.fillEllipse(circle(disc * 0.42), red);
  if (!named) return;
  const std::size_t last = titles().size() - 1;
  const std::size_t index = now == State::stopped ? 0 : now == State::running ? last : last / 2;
  const Rect place{face.x + face.height * 1.1, face.y, face.width - face.height * 1.2, face.height};
  canvas.drawText(titles()[index], faceFont(Theme::smallTitleFont, face.height), place,
                  platform::TextAlignment::left,
                  now == State::stopped || isInactive() ? Theme::textDim : Theme::text);
}

}  // namespace kestroui
