#include "KestroUI/Knob.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace kestroui {

using Icons::Waveform;
using platform::Color;
using platform::Point;
using platform::Rect;

namespace {

constexpr double sweep = 1.5 * std::numbers::pi;

// Clockwise from twelve o'clock.
double angleAt(double share) { return (share - 0.5) * sweep; }

Point pointAt(Point centre, double radius, double angle) {
  return {centre.x + radius * std::sin(angle), centre.y - radius * std::cos(angle)};
}

Rect circle(Point centre, double radius) {
  return {centre.x - radius, centre.y - radius, 2 * radius, 2 * radius};
}

}  // namespace

void Knob::paint(platform::Canvas& canvas) {
  const double side = std::min(bounds().width, bounds().height / heightShare);
  if (!(side >= 6)) return;
  const Point centre{bounds().midX(), bounds().midY() + side * (1 - heightShare) / 2};
  const double line = std::clamp(side * 0.068, 1.5, 3 + side * 0.03);
  const double modulationLine = std::max(1.0, line * 0.42);
  // From outside inwards: the live value's arc, the value's arc, the body.
  const double outer = side / 2 - 0.5;
  const double arc = outer - modulationLine - line * 0.8;
  const double body = arc - line / 2 - std::max(1.25, line * 0.55);
  const double angle = angleAt(shown(value()));
  const Color accent = stateAccent();

  path_.clear();
  path_.addArc(centre, arc, angleAt(0), angleAt(1));
  canvas.strokePath(path_, {line},
                    isEnabled() ? Theme::line.mixed(Theme::surface, 0.45f) : Theme::surface);
  const double from = angleAt(isInverted() ? 1 - origin() : origin());
  if (std::fabs(angle - from) > 1e-4) {
    path_.clear();
    path_.addArc(centre, arc, std::min(from, angle), std::max(from, angle));
    canvas.strokePath(path_, {line}, accent);
  }
  if (isModulated()) paintModulation(canvas, centre, outer - modulationLine / 2, modulationLine);
  if (body <= 1) return;

  canvas.fillEllipse(circle(centre, body), stateSurface());
  if (isFirstResponder())
    canvas.strokeRoundedRect(circle(centre, body - 0.5), body, std::max(1.0, line * 0.3),
                             accent.withAlpha(accent.alpha * 0.9f));
  paintCentre(canvas, circle(centre, body));

  path_.clear();
  path_.moveTo(pointAt(centre, body * pointerStart(), angle));
  path_.lineTo(pointAt(centre, std::max(body * pointerStart(), body - line * 0.75), angle));
  const Color pointer = isEnabled() ? Theme::front : Theme::textDim;
  canvas.strokePath(path_, {line * 0.85}, isInactive() ? Theme::textDim : pointer);
}

void Knob::paintModulation(platform::Canvas& canvas, Point centre, double radius,
                           double lineWidth) {
  const double angle = angleAt(shown(value()));
  const double live = angleAt(shown(modulatedValue()));
  const Color color = stateAccent().mixed(Theme::white, 0.45f);
  if (std::fabs(live - angle) > 1e-4) {
    path_.clear();
    path_.addArc(centre, radius, std::min(angle, live), std::max(angle, live));
    canvas.strokePath(path_, {lineWidth}, color);
  }
  const double dot = lineWidth * 1.1;
  canvas.fillEllipse(circle(pointAt(centre, radius - dot * 0.6, live), dot), Theme::white);
}

namespace {

constexpr std::array<Waveform, 5> basicWaveforms = {
    Waveform::sine, Waveform::triangle, Waveform::saw, Waveform::square, Waveform::noise};

std::size_t indexOf(float share, std::size_t count) {
  const auto last = static_cast<float>(count - 1);
  return static_cast<std::size_t>(std::lround(std::clamp(share, 0.0f, 1.0f) * last));
}

}  // namespace

void WaveformKnob::setValueNames(const std::vector<std::string>& names) {
  if (names == names_) return;
  names_ = names;
  setNeedsDisplay();
}

void WaveformKnob::paintCentre(platform::Canvas& canvas, const platform::Rect& body) {
  // By the value itself, not by where it is drawn: an inverted knob shows the same waveform.
  const float range = maximum() - minimum();
  const float share = range > 0 ? (value() - minimum()) / range : 0;
  std::optional<Waveform> waveform;
  if (names_.empty())
    waveform = basicWaveforms[indexOf(share, basicWaveforms.size())];
  else
    waveform = Icons::waveformNamed(names_[indexOf(share, names_.size())]);
  const bool muted = isInactive() || !isEnabled();
  const platform::Color color = muted ? Theme::textDim : Theme::front;
  if (!waveform) {
    canvas.drawText(names_[indexOf(share, names_.size())],
                    Theme::valueFont.withSize(std::clamp(body.height * 0.24, 6.0, 15.0)),
                    body.inset(body.width * 0.12, 0), platform::TextAlignment::centre, color);
    return;
  }
  const double width = body.width * 0.5, height = body.height * 0.3;
  const platform::Rect place{body.midX() - width / 2, body.midY() - height / 2, width, height};
  canvas.strokePath(Icons::fitted(Icons::waveform(*waveform), place),
                    {std::clamp(body.width * 0.045, 1.0, 3.0)}, color);
}

}  // namespace kestroui
