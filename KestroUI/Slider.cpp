#include "KestroUI/Slider.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

using platform::Color;
using platform::Rect;

DragControl::Axis Slider::dragAxis() const {
  return bounds().height >= bounds().width ? Axis::vertical : Axis::horizontal;
}

double Slider::handleLength() const {
  const double length = std::max(bounds().width, bounds().height);
  return std::clamp(std::min(bounds().width, bounds().height) * 0.32, 6.0,
                    std::max(6.0, std::min(16.0 * faceScale(), length * 0.16)));
}

double Slider::dragLength() const {
  return std::max(80.0, std::max(bounds().width, bounds().height) - handleLength());
}

double Slider::bestHeight(const platform::Size& available) const {
  return available.height >= available.width ? available.height
                                             : std::min(available.height, lineFaceHeight());
}

void Slider::paint(platform::Canvas& canvas) {
  const bool vertical = dragAxis() == Axis::vertical;
  const double length = vertical ? bounds().height : bounds().width;
  const double across = vertical ? bounds().width : bounds().height;
  const double handle = handleLength();
  if (!(length > handle + 2) || !(across >= 4)) return;
  const double thickness = std::clamp(across * 0.14, 2.0, 5.0 * faceScale());
  const double way = length - handle - 2;

  // A piece of the track from one share to another, as wide as `width`.
  const auto piece = [&](double from, double to, double width, double grow) {
    const double start = 1 + handle / 2 + std::min(from, to) * way - grow;
    const double extent = std::fabs(to - from) * way + 2 * grow;
    return vertical ? Rect{(across - width) / 2, length - start - extent, width, extent}
                    : Rect{start, (across - width) / 2, extent, width};
  };

  const double share = shown(value());
  const double from = isInverted() ? 1 - origin() : origin();
  const Color accent = stateAccent();
  canvas.fillRoundedRect(piece(0, 1, thickness, thickness / 2), thickness / 2,
                         isEnabled() ? Theme::line.mixed(Theme::surface, 0.45f) : Theme::surface);
  if (share != from)
    canvas.fillRoundedRect(piece(from, share, thickness, thickness / 2), thickness / 2, accent);

  const double handleWidth = std::min(across - 2, std::max(handle * 1.5, 12.0));
  if (isModulated()) {
    const double live = shown(modulatedValue());
    const double mark = std::max(1.5, thickness * 0.6);
    const Color color = accent.mixed(Theme::white, 0.45f);
    if (live != share) canvas.fillRoundedRect(piece(share, live, mark, 0), mark / 2, color);
    canvas.fillRoundedRect(piece(live, live, handleWidth * 0.7, mark), mark, Theme::white);
  }

  const Rect knob = piece(share, share, handleWidth, handle / 2);
  const double radius = std::min(3.0, handle * 0.3);
  canvas.fillRoundedRect(knob, radius, stateSurface().mixed(Theme::surfaceRaised, 0.75f));
  canvas.strokeRoundedRect(
      knob, radius, 1, isFirstResponder() ? accent : Theme::line.mixed(Theme::lightGrey, 0.12f));
  const bool muted = isInactive() || !isEnabled();
  canvas.fillRoundedRect(piece(share, share, handleWidth * 0.6, 0.75), 0.75,
                         muted ? Theme::textDim : Theme::front);
}

}  // namespace kestroui
