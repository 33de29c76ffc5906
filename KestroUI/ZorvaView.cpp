#include "KestroUI/ZorvaView.h"

#include <cmath>
#include <numbers>

namespace kestroui {

using platform::Color;
using platform::Point;
using platform::Rect;

namespace {

enum Part : std::size_t { turns, height, distance, twist, fade };

// By their order alone: the picture stands for no kind of processor.
const std::vector<KeyPart> partsOfRibbons = {
    {"", true}, {"", true}, {"", true}, {"", true}, {"", true}};

constexpr int ribbons = 9;
constexpr int pieces = 22;

}  // namespace

ZorvaView::ZorvaView() : DisplayView(partsOfRibbons) {}

std::vector<ShapeControl::Handle> ZorvaView::pictureHandles() const {
  const Rect place = picture();
  Handle handle;
  handle.x = valueOf(turns);
  handle.y = valueOf(height);
  if (!handle.x) return {};
  handle.travel = {place.width, place.height};
  handle.place = {place.x + place.width * amount(turns, 0),
                  place.maxY() - place.height * amount(height, 0.5)};
  return {handle};
}

void ZorvaView::paintPicture(platform::Canvas& canvas) {
  using std::numbers::pi;
  const Rect place = picture();
  const Color accent = stateAccent();
  const double often = 0.75 + 3.25 * amount(turns, 0.3, Source::live);
  const double high = 0.08 + 0.4 * amount(height, 0.5, Source::live);
  const double apart = 0.05 + 0.5 * amount(distance, 0.5, Source::live);
  const double twisted = amount(twist, 0.4, Source::live) * 1.5;
  const double faded = amount(fade, 0.5, Source::live);
  for (int ribbon = 0; ribbon < ribbons; ++ribbon) {
    // -1 for the first ribbon, 1 for the last.
    const double place01 = static_cast<double>(ribbon) / (ribbons - 1);
    const double side = 2 * place01 - 1;
    std::vector<Point> points;
    points.reserve(pieces + 1);
    for (int i = 0; i <= pieces; ++i) {
      const double x = static_cast<double>(i) / pieces;
      // All ribbons meet at both ends.
      const double open = std::sin(pi * x);
      const double phase = 2 * pi * often * x + side * twisted * pi * x;
      const double y = open * (high * std::sin(phase) + 0.3 * apart * side * std::cos(phase / 2));
      points.push_back({place.x + place.width * x, place.midY() - place.height * y});
    }
    const double centre = 1 - std::fabs(side);
    const auto strength = static_cast<float>(0.2 + 0.8 * (faded * centre + (1 - faded) * place01));
    const Color color = accent.mixed(colorOf(1), static_cast<float>(place01));
    canvas.strokePath(Plot::smoothCurve(points), {ribbon == ribbons / 2 ? 2.0 : 1.1},
                      color.withAlpha(color.alpha * strength));
  }
}

}  // namespace kestroui
