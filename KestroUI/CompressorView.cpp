#include "KestroUI/CompressorView.h"

#include <algorithm>
#include <cmath>

namespace kestroui {

using platform::Color;
using platform::Path;
using platform::Point;
using platform::Rect;

namespace {

enum Part : std::size_t { threshold, ratio, knee, reduction, makeUpGain, partsOfOne };

constexpr KeyPart partsOfACompressor[partsOfOne] = {
    {"thresh", true}, {"ratio|slope", true}, {"knee"}, {"reduction"}, {"makeup|make up|gain"}};

constexpr double quietest = -60, loudest = 0;
constexpr double limit = 20;
// What the bar of the gain reduction shows, in decibels.
constexpr double mostReduction = 24;

std::vector<KeyPart> partsOf(std::size_t compressors) {
  std::vector<KeyPart> parts;
  for (std::size_t i = 0; i < compressors; ++i)
    parts.insert(parts.end(), std::begin(partsOfACompressor), std::end(partsOfACompressor));
  return parts;
}

}  // namespace

CompressorView::CompressorView(std::size_t compressors)
    : DisplayView(partsOf(compressors)), compressors_(compressors) {}

bool CompressorView::isMeasured(std::size_t part) const { return part % partsOfOne == reduction; }

CompressorView::Scale CompressorView::scale() const {
  Scale all{quietest, loudest};
  for (std::size_t i = 0; i < compressors_; ++i) {
    const auto [low, high] = range(i * partsOfOne + threshold, quietest, loudest);
    all.low = std::min(all.low, low);
    all.high = std::max(all.high, high);
  }
  return all;
}

TransferCurve CompressorView::curve(std::size_t compressor, Source source) const {
  const std::size_t first = compressor * partsOfOne;
  return {measure(first + threshold, quietest, loudest, loudest, source),
          std::max(1.0, measure(first + ratio, 1, limit, 1, source)),
          std::max(0.0, measure(first + knee, 0, 24, 0, source))};
}

double CompressorView::makeUp(std::size_t compressor, Source source) const {
  return measure(compressor * partsOfOne + makeUpGain, 0, 24, 0, source);
}

Rect CompressorView::curvePlace() const {
  Rect place = picture();
  double bars = 0;
  for (std::size_t i = 0; i < compressors_; ++i)
    if (valueOf(i * partsOfOne + reduction)) bars += 7;
  if (place.width > 60) place.width -= bars;
  return place;
}

Point CompressorView::placeOfLevel(double in, double out) const {
  const Rect place = curvePlace();
  const Scale all = scale();
  const double length = all.high - all.low;
  return {place.x + place.width * (in - all.low) / length,
          place.maxY() - place.height * std::clamp((out - all.low) / length, -0.02, 1.02)};
}

std::vector<ShapeControl::Handle> CompressorView::pictureHandles() const {
  std::vector<Handle> result;
  const Rect place = curvePlace();
  const Scale all = scale();
  for (std::size_t i = 0; i < compressors_; ++i) {
    const TransferCurve set = curve(i, Source::set);
    const double gain = makeUp(i, Source::set);
    if (const auto index = valueOf(i * partsOfOne + threshold)) {
      const auto [low, high] = range(i * partsOfOne + threshold, quietest, loudest);
      Handle handle;
      handle.x = index;
      handle.place = placeOfLevel(set.threshold, set.at(set.threshold) + gain);
      handle.travel.width = place.width * (high - low) / (all.high - all.low);
      result.push_back(handle);
    }
    if (const auto index = valueOf(i * partsOfOne + ratio)) {
      Handle handle;
      handle.y = index;
      handle.place = placeOfLevel(all.high, set.at(all.high) + gain);
      // A higher ratio bends the curve down.
      handle.travel.height = -place.height;
      result.push_back(handle);
    }
  }
  return result;
}

Path CompressorView::path(std::size_t compressor, Source source) const {
  const TransferCurve bent = curve(compressor, source);
  const double gain = makeUp(compressor, source);
  const Scale all = scale();
  Path path;
  const auto add = [&](double level) {
    const Point point = placeOfLevel(level, bent.at(level) + gain);
    if (path.isEmpty())
      path.moveTo(point);
    else
      path.lineTo(point);
  };
  add(all.low);
  constexpr int pieces = 12;
  for (int i = 0; i <= pieces; ++i) {
    const double level = bent.threshold + bent.knee * (static_cast<double>(i) / pieces - 0.5);
    if (level > all.low && level < all.high && (bent.knee > 0 || i == 0)) add(level);
  }
  add(all.high);
  return path;
}

void CompressorView::paintPicture(platform::Canvas& canvas) {
  const Rect place = curvePlace();
  const Scale all = scale();
  std::vector<double> lines;
  for (double level = std::ceil(all.low / 12) * 12; level <= all.high; level += 12)
    lines.push_back((level - all.low) / (all.high - all.low));
  Plot::paintGrid(canvas, place, lines, lines, 0.3f);
  Path unity;
  unity.moveTo({place.x, place.maxY()});
  unity.lineTo({place.maxX(), place.y});
  canvas.strokePath(unity, {0.75}, Theme::line);
  for (std::size_t i = compressors_; i-- > 0;) {
    const Color color = colorOf(i);
    Plot::paintCurve(canvas, path(i, Source::set), place, place.maxY(), color);
    if (isLive()) canvas.strokePath(path(i, Source::live), {1}, color.mixed(Theme::white, 0.5f));
    if (const auto measured = output(i * partsOfOne + reduction))
      paintReduction(canvas, i, std::fabs(*measured));
  }
}

void CompressorView::paintReduction(platform::Canvas& canvas, std::size_t compressor,
                                    double reduction) {
  const Rect place = curvePlace();
  const Color color = colorOf(compressor);
  if (place.width < picture().width) {
    const Rect rail{place.maxX() + 4 + 7 * static_cast<double>(compressor), place.y, 4,
                    place.height};
    canvas.fillRoundedRect(rail, 2, Theme::surface);
    const double length = rail.height * std::min(1.0, reduction / mostReduction);
    if (length > 0.5)
      canvas.fillRoundedRect({rail.x, rail.y, rail.width, length}, 2,
                             color.mixed(Theme::white, 0.3f));
  }
  if (reduction < 0.05) return;
  const TransferCurve bent = curve(compressor, Source::live);
  const double level = bent.levelOf(reduction, scale().high);
  const Point at = placeOfLevel(level, bent.at(level) + makeUp(compressor, Source::live));
  canvas.fillEllipse({at.x - 2.5, at.y - 2.5, 5, 5}, Theme::white);
}

}  // namespace kestroui
