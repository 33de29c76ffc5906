#include "KestroUI/Switches.h"

#include <algorithm>
#include <utility>

namespace kestroui {

using platform::Color;
using platform::Rect;

OnOffButton::OnOffButton(std::vector<std::string> titles) : titles_(std::move(titles)) {
  setStepCount(1);
}

void OnOffButton::setTitles(std::vector<std::string> titles) {
  if (titles == titles_) return;
  titles_ = std::move(titles);
  setNeedsDisplay();
}

void OnOffButton::setOn(bool on) { setValue(on ? 1.0f : 0.0f); }

bool OnOffButton::keyPressed(const platform::KeyEvent& event) {
  const bool switches = event.key == platform::Key::space || event.key == platform::Key::returnKey;
  if (!switches) return switching_ == Switching::byTouch && KestroControl::keyPressed(event);
  if (!isEnabled()) return false;
  if (switching_ == Switching::byOwner)
    sendActions(toolkit::ControlEvent::touchDown);
  else
    changeValueOnce(switchedValue());
  return true;
}

bool OnOffButton::isLight(const platform::Size& size) const {
  const double limit = 44 * std::max(1.0, faceScale());
  const double longer = std::max(size.width, size.height);
  const double shorter = std::min(size.width, size.height);
  // A place that is nearly square is a corner of a title band, however large the editor is.
  return longer <= 1.1 * shorter ? longer <= 3 * limit : longer <= 1.3 * shorter && longer <= limit;
}

double OnOffButton::bestHeight(const platform::Size& available) const {
  return isLight(available) ? available.height : std::min(available.height, lineFaceHeight());
}

void OnOffButton::paint(platform::Canvas& canvas) {
  if (!(bounds().width >= 4) || !(bounds().height >= 4)) return;
  const bool lit = shown(value()) > 0.5f;
  if (isLight(bounds().size()))
    paintLight(canvas, lit);
  else if (titles_.empty())
    paintPill(canvas, lit);
  else
    paintTitle(canvas, lit);
}

void OnOffButton::paintLight(platform::Canvas& canvas, bool lit) const {
  const double side = std::min(bounds().width, bounds().height);
  const double radius = std::max(2.0, side * 0.24);
  const auto centre = bounds().centre();
  const auto disc = [&](double r) { return Rect{centre.x - r, centre.y - r, 2 * r, 2 * r}; };
  const Color accent = stateAccent();
  const double line = std::max(1.0, radius * 0.16);
  if (lit && isEnabled() && !isInactive())
    canvas.fillEllipse(disc(radius * 1.5), accent.withAlpha(0.16f));
  canvas.fillEllipse(disc(radius), stateSurface().mixed(Theme::background, 0.35f));
  canvas.strokeRoundedRect(
      disc(radius - line / 2), radius, line,
      lit ? accent : Theme::line.mixed(Theme::lightGrey, isHovered() ? 0.4f : 0.15f));
  canvas.fillEllipse(disc(radius * 0.56), lit ? accent : Theme::line);
  if (isFirstResponder()) canvas.strokeRoundedRect(disc(radius + 2.5), radius + 2.5, 1, accent);
}

void OnOffButton::paintPill(platform::Canvas& canvas, bool lit) const {
  const double height = std::max(4.0, std::min(bounds().height * 0.72, bounds().width * 0.5));
  const double width = std::min(bounds().width, height * 1.9);
  const Rect pill{bounds().midX() - width / 2, bounds().midY() - height / 2, width, height};
  const Color accent = stateAccent();
  canvas.fillRoundedRect(pill, height / 2, lit ? litSurface() : stateSurface());
  canvas.strokeRoundedRect(pill, height / 2, 1,
                           isFirstResponder() ? Theme::front
                           : lit              ? accent
                                              : Theme::line);
  const double thumb = height - std::max(4.0, height * 0.28);
  const double gap = (height - thumb) / 2;
  const double x = lit ? pill.maxX() - gap - thumb : pill.x + gap;
  const bool muted = isInactive() || !isEnabled();
  canvas.fillEllipse({x, pill.y + gap, thumb, thumb}, muted ? Theme::grey
                                                      : lit ? Theme::white
                                                            : Theme::lightGrey);
}

void OnOffButton::paintTitle(platform::Canvas& canvas, bool lit) const {
  const Rect face = bounds().inset(1, 1);
  const double radius = std::min(Theme::cornerRadius + 1, face.height / 2);
  const Color accent = stateAccent();
  canvas.fillRoundedRect(face, radius, lit ? litSurface() : stateSurface());
  if (isFirstResponder())
    canvas.strokeRoundedRect(face, radius, 1.5, lit ? Theme::front : accent);
  else if (!lit)
    canvas.strokeRoundedRect(face, radius, 1, Theme::line);
  const std::string& title = titles_[lit ? titles_.size() - 1 : 0];
  const bool muted = isInactive() || !isEnabled();
  const Color color = lit ? Theme::textOn(accent) : muted ? Theme::textDim : Theme::lightGrey;
  canvas.drawText(title, faceFont(Theme::smallTitleFont, face.height),
                  face.inset(std::min(5.0, face.width * 0.05), 0), platform::TextAlignment::centre,
                  color);
}

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

MomentaryButton::MomentaryButton() { setStepCount(1); }

void MomentaryButton::setTitle(const std::string& title) {
  if (title == title_) return;
  title_ = title;
  setNeedsDisplay();
}

bool MomentaryButton::keyPressed(const platform::KeyEvent& event) {
  if (event.key != platform::Key::space && event.key != platform::Key::returnKey) return false;
  if (!isEnabled()) return false;
  changeOnce([this] {
    const platform::Weak<MomentaryButton> self = this;
    changeValue(1);
    if (self) changeValue(0);
  });
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
