#include "KestroUI/DoubleSlider.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

using platform::Point;
using platform::Rect;

double DoubleSlider::handleLength() const {
  const double length = std::max(bounds().width, bounds().height);
  const double across = std::min(bounds().width, bounds().height);
  return std::clamp(std::min(across * 0.32, length * 0.12), 2.0, std::max(2.0, 16.0 * faceScale()));
}

double DoubleSlider::trackWidth() const {
  return std::clamp(std::min(bounds().width, bounds().height) * 0.14, 1.0,
                    std::max(1.0, 5.0 * faceScale()));
}

double DoubleSlider::bestHeight(const platform::Size& available) const {
  return available.height > available.width ? available.height
                                            : std::min(available.height, lineFaceHeight());
}

Rect DoubleSlider::piece(double from, double to, double width, double grow) const {
  const double length = std::max(bounds().width, bounds().height);
  const double across = std::min(bounds().width, bounds().height);
  const double way = std::max(0.0, length - handleLength() - 2);
  const double start = 1 + handleLength() / 2 + std::min(from, to) * way - grow;
  const double extent = std::fabs(to - from) * way + 2 * grow;
  return isUpright() ? Rect{(across - width) / 2, length - start - extent, width, extent}
                     : Rect{start, (across - width) / 2, extent, width};
}

Point DoubleSlider::placeAt(double share) const { return piece(share, share, 0, 0).centre(); }

std::vector<ShapeControl::Handle> DoubleSlider::handles() const {
  const double way = std::max(80.0, std::max(bounds().width, bounds().height) - handleLength() - 2);
  std::vector<Handle> result;
  const auto add = [&](std::size_t index, double at, bool movesAll) {
    Handle handle{std::nullopt, std::nullopt, placeAt(at), {way, way}, movesAll};
    (isUpright() ? handle.y : handle.x) = index;
    result.push_back(handle);
  };
  for (std::size_t i = 0; i < valueCount(); ++i) add(i, share(i), false);
  if (valueCount() > 1) add(0, (share(0) + share(valueCount() - 1)) / 2, true);
  return result;
}

std::optional<std::size_t> DoubleSlider::handleAt(Point location) const {
  const std::size_t count = valueCount();
  if (count == 0) return std::nullopt;
  const auto along = [&](Point point) { return isUpright() ? -point.y : point.x; };
  const std::vector<Handle> all = handles();
  const double at = along(location);
  std::size_t nearest = 0;
  for (std::size_t i = 1; i < count; ++i) {
    const double old = std::fabs(along(all[nearest].place) - at);
    const double now = std::fabs(along(all[i].place) - at);
    // Of two in one place the one that can go to where the finger is.
    const bool isBeyond = (at > along(all[i].place)) != isReversed(i);
    const bool isFree = value(i) < maximum(i) && (isBeyond || value(i) <= minimum(i));
    if (now < old || (now == old && isFree)) nearest = i;
  }
  if (count < 2) return nearest;
  const auto [low, high] = std::minmax({along(all[0].place), along(all[count - 1].place)});
  const double reach = std::min(14.0, (high - low) * 0.3);
  const bool isBetween = at > low + reach && at < high - reach;
  return isBetween && std::fabs(along(all[nearest].place) - at) > reach ? count : nearest;
}

float DoubleSlider::limited(std::size_t index, float value) const {
  // What the host has put in the wrong order may still be moved.
  if (index > 0 && this->value(index - 1) <= this->value(index))
    value = std::max(value, this->value(index - 1));
  if (index + 1 < valueCount() && this->value(index + 1) >= this->value(index))
    value = std::min(value, this->value(index + 1));
  return value;
}

void DoubleSlider::paintShape(platform::Canvas& canvas, const Rect&) {
  const double width = trackWidth();
  const platform::Color accent = stateAccent();
  canvas.fillRoundedRect(piece(0, 1, width, width / 2), width / 2,
                         isEnabled() ? Theme::line.mixed(Theme::surface, 0.45f) : Theme::surface);
  if (valueCount() == 0) return;
  const double from = valueCount() > 1 ? share(0) : origin(0);
  const double to = share(valueCount() - 1);
  const bool isWhole = activeHandle() == valueCount();
  canvas.fillRoundedRect(piece(from, to, isWhole ? width * 1.6 : width, width / 2), width / 2,
                         accent);
}

void DoubleSlider::paintHandle(platform::Canvas& canvas, const Handle& handle,
                               Plot::HandleState state) {
  if (handle.movesAll) return;
  const double along = handleLength();
  const double limit = std::min(bounds().width, bounds().height) - 2;
  const double across = std::min(limit, std::max(along * 1.5, 12.0));
  const auto sized = [&](double length, double width) {
    const platform::Size size =
        isUpright() ? platform::Size{width, length} : platform::Size{length, width};
    return Rect{handle.place.x - size.width / 2, handle.place.y - size.height / 2, size.width,
                size.height};
  };
  const bool isMarked = state != Plot::HandleState::resting;
  const double radius = std::min(3.0, along * 0.3);
  canvas.fillRoundedRect(sized(along, across), radius,
                         stateSurface().mixed(Theme::surfaceRaised, isMarked ? 1.0f : 0.75f));
  canvas.strokeRoundedRect(sized(along, across), radius, 1,
                           isMarked ? stateAccent() : Theme::line.mixed(Theme::lightGrey, 0.12f));
  canvas.fillRoundedRect(sized(1.5, across * 0.6), 0.75, isMuted() ? Theme::textDim : Theme::front);
}

}  // namespace kestroui
