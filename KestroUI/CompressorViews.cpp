#include "KestroUI/CompressorViews.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kestroui {

using platform::Color;
using platform::Path;
using platform::Point;
using platform::Rect;

namespace {

constexpr KeyPart partsOfACompressor[] = {
    {"thresh", true}, {"ratio|slope", true}, {"knee"}, {"reduction"}, {"makeup|make up|gain"}};

constexpr double quietest = -60, loudest = 0;
constexpr double limit = 20;
// What the bar of the gain reduction shows, in decibels.
constexpr double maxReduction = 24;

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
  for (int line = static_cast<int>(std::ceil(all.low / 12)); line * 12 <= all.high; ++line)
    lines.push_back((line * 12 - all.low) / (all.high - all.low));
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
    const double length = rail.height * std::min(1.0, reduction / maxReduction);
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

namespace {

const std::vector<KeyPart> partsOfOneBand = {{"low freq|low cut|low edge|lower"},
                                             {"high freq|high cut|high edge|upper"},
                                             {"thresh", true},
                                             {"ratio", true},
                                             {"reduction"}};
const std::vector<KeyPart> partsOfThreeBands = {{"low mid freq|crossover|xover|low freq|split"},
                                                {"mid high freq|crossover|xover|high freq|split"},
                                                {"low thresh", true},
                                                {"low ratio", true},
                                                {"low reduction"},
                                                {"mid thresh", true},
                                                {"mid ratio", true},
                                                {"mid reduction"},
                                                {"high thresh", true},
                                                {"high ratio", true},
                                                {"high reduction"}};

constexpr std::array<const char*, 3> bandNames = {"LOW", "MID", "HIGH"};

}  // namespace

BandsView::BandsView(Bands bands)
    : DisplayView(bands == Bands::one ? partsOfOneBand : partsOfThreeBands), bands_(bands) {}

bool BandsView::isMeasured(std::size_t part) const {
  return part >= firstBand && (part - firstBand) % partsOfABand == reduction;
}

std::pair<double, double> BandsView::levels() const {
  std::pair<double, double> all{quietest, loudest};
  for (std::size_t i = 0; i < count(); ++i) {
    const auto [low, high] = range(firstBand + i * partsOfABand + threshold, quietest, loudest);
    all = {std::min(all.first, low), std::max(all.second, high)};
  }
  return all;
}

double BandsView::xOf(double hertz) const {
  const Rect place = picture();
  return place.x + place.width * std::clamp(Plot::shareOfHertz(std::max(hertz, 1.0)), 0.0, 1.0);
}

double BandsView::yOf(double level) const {
  const Rect place = picture();
  const auto [low, high] = levels();
  return place.maxY() - place.height * std::clamp((level - low) / (high - low), 0.0, 1.0);
}

double BandsView::edge(std::size_t which, Source source) const {
  const double otherwise = bands_ == Bands::one ? (which == lowerEdge ? 20.0 : 20000.0)
                                                : (which == lowerEdge ? 200.0 : 2500.0);
  return hertz(which, otherwise, source);
}

BandsView::Band BandsView::band(std::size_t which, Source source) const {
  const Rect place = picture();
  const double lower = xOf(edge(lowerEdge, source));
  const double upper = std::max(lower, xOf(edge(upperEdge, source)));
  Band result{lower, upper, 0, 0};
  if (bands_ == Bands::three) {
    result.left = which == 0 ? place.x : which == 1 ? lower : upper;
    result.right = which == 0 ? lower : which == 1 ? upper : place.maxX();
  }
  const std::size_t first = firstBand + which * partsOfABand;
  const TransferCurve curve{measure(first + threshold, quietest, loudest, loudest, source),
                            std::max(1.0, measure(first + ratio, 1, limit, 1, source))};
  result.threshold = curve.threshold;
  result.top = curve.at(levels().second);
  return result;
}

std::vector<ShapeControl::Handle> BandsView::pictureHandles() const {
  std::vector<Handle> result;
  const Rect place = picture();
  const auto [low, high] = levels();
  for (std::size_t i = 0; i < count(); ++i) {
    const Band set = band(i, Source::set);
    const std::size_t first = firstBand + i * partsOfABand;
    const double width = set.right - set.left;
    if (const auto index = valueOf(first + threshold)) {
      const auto [lowest, highest] = range(first + threshold, quietest, loudest);
      Handle handle;
      handle.y = index;
      handle.place = {set.left + width * 0.32, yOf(set.threshold)};
      handle.travel.height = place.height * (highest - lowest) / (high - low);
      result.push_back(handle);
    }
    if (const auto index = valueOf(first + ratio)) {
      Handle handle;
      handle.y = index;
      handle.place = {set.left + width * 0.68, yOf(set.top)};
      handle.travel.height = -place.height;
      result.push_back(handle);
    }
  }
  for (const std::size_t part : {lowerEdge, upperEdge}) {
    const auto index = valueOf(part);
    if (!index) continue;
    const auto [lowest, highest] = range(part, Plot::hertzAt(0), Plot::hertzAt(1));
    const double pitches = Plot::shareOfHertz(highest) - Plot::shareOfHertz(std::max(lowest, 1.0));
    Handle handle;
    handle.x = index;
    handle.place = {xOf(edge(part, Source::set)), place.maxY() - place.height * 0.12};
    handle.travel.width = place.width * pitches;
    result.push_back(handle);
  }
  return result;
}

float BandsView::limited(std::size_t index, float value) const {
  const auto lower = valueOf(lowerEdge), upper = valueOf(upperEdge);
  if (!lower || !upper) return value;
  // Edges of different ranges cannot be compared by their positions.
  if (range(lowerEdge, 0, 1) != range(upperEdge, 0, 1)) return value;
  if (index == *lower) return std::min(value, this->value(*upper));
  if (index == *upper) return std::max(value, this->value(*lower));
  return value;
}

void BandsView::paintPicture(platform::Canvas& canvas) {
  const Rect place = picture();
  Plot::paintGrid(canvas, place,
                  {Plot::shareOfHertz(100), Plot::shareOfHertz(1000), Plot::shareOfHertz(10000)},
                  {0.25, 0.5, 0.75}, 0.3f);
  for (std::size_t i = 0; i < count(); ++i) paintBand(canvas, i);
  for (const std::size_t part : {lowerEdge, upperEdge})
    if (bands_ == Bands::three || valueOf(part))
      canvas.fillRect({xOf(edge(part, Source::live)) - 0.5, place.y, 1, place.height},
                      Theme::lightGrey.withAlpha(0.35f));
}

void BandsView::paintBand(platform::Canvas& canvas, std::size_t which) {
  const Rect place = picture();
  const Color color = colorOf(which);
  const Band now = band(which, Source::live);
  const double width = now.right - now.left - 2, left = now.left + 1;
  if (!(width > 1)) return;
  const double floor = yOf(now.threshold), top = yOf(now.top);
  canvas.fillRect({left, floor, width, place.maxY() - floor}, color.withAlpha(color.alpha * 0.08f));
  canvas.fillRect({left, top, width, std::max(0.0, floor - top)},
                  platform::Paint({0, top}, {0, std::max(floor, top + 1)},
                                  {{0, color.withAlpha(color.alpha * 0.42f)},
                                   {1, color.withAlpha(color.alpha * 0.16f)}}));
  canvas.fillRect({left, top - 0.75, width, 1.5}, color);
  canvas.fillRect({left, floor - 0.5, width, 1}, color.withAlpha(color.alpha * 0.7f));
  if (const auto measured = output(firstBand + which * partsOfABand + reduction)) {
    const double depth = yOf(levels().second - std::fabs(*measured)) - place.y;
    if (depth > 0.5) {
      canvas.fillRect({left, place.y, width, depth}, Theme::white.withAlpha(0.10f));
      canvas.fillRect({left, place.y + depth - 1, width, 1}, Theme::white.withAlpha(0.8f));
    }
  }
  const double size = 8 * faceScale();
  if (bands_ == Bands::three && width > size * 4 && place.height > size * 5)
    canvas.drawText(bandNames[which], Theme::labelFont.withSize(size),
                    {left, place.maxY() - size * 1.5, width, size * 1.5},
                    platform::TextAlignment::centre, Theme::textDim.withAlpha(0.8f));
}

}  // namespace kestroui
