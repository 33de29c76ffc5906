#include "KestroUI/Stepper.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestroui {

using foundation::Timer;
using platform::Color;
using platform::Rect;

namespace {

// Seconds that a button is held before it repeats, and between two repetitions.
constexpr double repeatDelay = 0.4;
constexpr double repeatInterval = 0.08;

}  // namespace

Stepper::Stepper() { setStepCount(1); }

void Stepper::setText(const std::string& text) {
  if (text == text_) return;
  text_ = text;
  setNeedsDisplay();
}

void Stepper::setValueNames(std::vector<std::string> names) {
  names_ = std::move(names);
  setNeedsDisplay();
}

void Stepper::setValue(float value) {
  const float before = this->value();
  KestroControl::setValue(value);
  // The text was the earlier value's.
  if (this->value() != before) text_.clear();
}

Rect Stepper::frameOf(Part part) const {
  const double w = bounds().width, h = bounds().height;
  const double side = std::min(h, w * 0.25);
  switch (part) {
    case Part::minus:
      return {0, 0, side, h};
    case Part::plus:
      return {w - side, 0, side, h};
    case Part::text:
      return {side, 0, w - 2 * side, h};
    case Part::none:
      break;
  }
  return {};
}

GestureControl::Grasp Stepper::grasp(const toolkit::Touch& touch) {
  const double x = touch.locationIn(*this).x;
  const Rect text = frameOf(Part::text);
  pressed_ = x < text.x ? Part::minus : x < text.maxX() ? Part::text : Part::plus;
  // A press of a sign is no drag.
  return pressed_ == Part::text ? DragControl::grasp(touch) : Grasp::value;
}

void Stepper::pressed(const toolkit::Touch& touch) {
  if (pressed_ == Part::text) return DragControl::pressed(touch);
  if (foundation::RunLoop::mainIfAny())
    repeat_ = Timer(repeatDelay, Timer::Repeat::once, [this] { repeat(); });
  stepBy(pressed_ == Part::plus ? 1 : -1);
}

void Stepper::slid(const toolkit::Touch& touch) {
  if (pressed_ == Part::text) DragControl::slid(touch);
}

void Stepper::letGo(int) {
  repeat_.invalidate();
  pressed_ = Part::none;
}

void Stepper::repeat() {
  repeat_ = Timer(repeatInterval, Timer::Repeat::forever,
                  [this] { stepBy(pressed_ == Part::plus ? 1 : -1); });
}

void Stepper::stepBy(int direction) {
  const float by = static_cast<float>(isInverted() ? -direction : direction) * step();
  changeValue(value() + by);
}

std::string Stepper::shownText() const {
  if (!text_.empty()) return text_;
  const auto index = static_cast<std::size_t>(std::lround(std::max(0.0f, value() - minimum())));
  if (index < names_.size()) return names_[index];
  return std::to_string(std::lround(value()));
}

void Stepper::paint(platform::Canvas& canvas) {
  const Rect minus = frameOf(Part::minus), plus = frameOf(Part::plus), text = frameOf(Part::text);
  if (!(minus.width >= 3) || !(minus.height >= 4)) return;
  const Rect face{minus.x + 0.5, minus.y + 1, bounds().width - 1, minus.height - 2};
  const double radius = std::min(Theme::cornerRadius + 1, face.height / 2);
  const Color accent = stateAccent();
  const bool muted = isInactive() || !isEnabled();
  canvas.fillRoundedRect(face, radius, stateSurface());
  const auto pressedFace = [&](Part part, const Rect& place) {
    if (pressed_ == part)
      canvas.fillRoundedRect({place.x, face.y, place.width, face.height}, radius,
                             accent.withAlpha(0.35f));
  };
  pressedFace(Part::minus, minus);
  pressedFace(Part::plus, plus);

  const double arm = std::max(2.0, std::min(minus.width, minus.height) * 0.17);
  const double line = std::max(1.25, arm * 0.3);
  const auto mark = [&](const Rect& place, bool upright, bool usable) {
    const Color color = usable && !muted ? accent : Theme::line.mixed(Theme::textDim, 0.3f);
    const double x = place.midX(), y = place.midY();
    canvas.fillRect({x - arm, y - line / 2, 2 * arm, line}, color);
    if (upright) canvas.fillRect({x - line / 2, y - arm, line, 2 * arm}, color);
  };
  mark(minus, false, shown(value()) > 0);
  mark(plus, true, shown(value()) < 1);
  const std::string value = shownText();
  platform::Font font = faceFont(Theme::valueFont, face.height);
  const double wide = canvas.textWidth(value, font);
  if (wide > text.width) font.pointSize *= std::max(0.5, text.width / wide);
  canvas.drawText(value, font, text, platform::TextAlignment::centre,
                  muted ? Theme::textDim : Theme::text);
  if (isFirstResponder()) canvas.strokeRoundedRect(face, radius, 1, accent);
}

}  // namespace kestroui
