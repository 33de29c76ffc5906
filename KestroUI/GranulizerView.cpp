#include "KestroUI/GranulizerView.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace kestroui {

using platform::Color;
using platform::Rect;

namespace {

enum Part : std::size_t { position, density, length, spray, pitch };

const std::vector<KeyPart> partsOfGrains = {{"position|offset|start", true},
                                            {"density|rate|grains|count", true},
                                            {"size|length|duration", true},
                                            {"spray|random|jitter|spread|scatter", true},
                                            {"pitch|tune|transpose"}};

// Parts of the picture's width.
constexpr double shortest = 0.012, longest = 0.22;
constexpr double mostSpray = 0.8;

// The same grain lies at the same place in every frame, so that nothing moves by itself.
double scattered(std::uint32_t grain, std::uint32_t salt) {
  std::uint32_t x = (grain + 1) * 2654435761u ^ salt * 2246822519u;
  x ^= x >> 15;
  x *= 2246822519u;
  x ^= x >> 13;
  return x / 4294967295.0 - 0.5;
}

}  // namespace

GranulizerView::GranulizerView() : DisplayView(partsOfGrains) {}

void GranulizerView::setData(std::shared_ptr<const platform::SampleData> data) {
  if (overview_.setData(std::move(data))) setNeedsDisplay();
}

std::vector<ShapeControl::Handle> GranulizerView::pictureHandles() const {
  const Rect place = picture();
  std::vector<Handle> result;
  const double x = place.x + place.width * amount(position, 0.5);
  Handle cloud;
  cloud.x = valueOf(position);
  cloud.y = valueOf(density);
  cloud.place = {x, place.maxY() - place.height * amount(density, 0.5)};
  cloud.travel = {place.width, place.height};
  if (cloud.x || cloud.y) result.push_back(cloud);
  Handle grain;
  grain.x = valueOf(length);
  grain.y = valueOf(spray);
  // On the side where there is room for it.
  const double side = amount(position, 0.5) > 0.6 ? -1 : 1;
  const double way = 0.05 + amount(length, 0.3) * 0.3;
  grain.place = {x + side * place.width * way, place.maxY() - place.height * amount(spray, 0.3)};
  grain.travel = {side * place.width * 0.3, place.height};
  if (grain.x || grain.y) result.push_back(grain);
  return result;
}

void GranulizerView::paintPicture(platform::Canvas& canvas) {
  const Rect place = picture();
  const Color accent = stateAccent();
  Plot::paintGrid(canvas, place, {0.25, 0.5, 0.75}, {0.5}, 0.25f);
  const platform::Path& outline = overview_.outline(place.inset(0, place.height * 0.12));
  if (!outline.isEmpty()) canvas.fillPath(outline, Theme::line.withAlpha(0.55f));
  paintGrains(canvas);
  const double x = place.x + place.width * amount(position, 0.5, Source::live);
  canvas.fillRect({x - 0.5, place.y, 1, place.height}, accent.withAlpha(accent.alpha * 0.6f));
}

void GranulizerView::paintGrains(platform::Canvas& canvas) {
  const Rect place = picture();
  const Color accent = stateAccent();
  const double at = amount(position, 0.5, Source::live);
  const double spread = 0.02 + mostSpray * amount(spray, 0.3, Source::live);
  const double width =
      place.width * (shortest + (longest - shortest) * amount(length, 0.3, Source::live));
  const double lift = (amount(pitch, 0.5, Source::live) - 0.5) * 0.5;
  const auto count =
      static_cast<std::uint32_t>(4 + std::lround(32 * amount(density, 0.5, Source::live)));
  const double height = std::clamp(place.height * 0.06, 1.5, 7.0);
  for (std::uint32_t i = 0; i < count; ++i) {
    // Two draws add up to more grains in the middle than at the sides.
    const double away = (scattered(i, 1) + scattered(i, 2)) * spread;
    const double up = 0.5 + scattered(i, 3) * 0.8 + lift;
    const Rect grain{place.x + place.width * (at + away) - width / 2,
                     place.maxY() - place.height * std::clamp(up, 0.03, 0.97) - height / 2, width,
                     height};
    const auto strength = static_cast<float>(0.25 + 0.5 * (scattered(i, 4) + 0.5));
    canvas.fillRoundedRect(grain, height / 2, accent.withAlpha(accent.alpha * strength));
  }
}

}  // namespace kestroui
