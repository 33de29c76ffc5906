#include "KestroUI/EffectViews.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <complex>
#include <numbers>
#include <utility>

#include "foundation/UnicodeText.h"

namespace kestroui {

using platform::Color;
using platform::Path;
using platform::Point;
using platform::Rect;

namespace {

const std::vector<KeyPart> partsOfAShaper = {{"drive|amount|gain", true},
                                             {"shape|type|mode|curve"},
                                             {"bias|asym|offset|symmetry"},
                                             {"mix|wet|blend"}};

// Gain at full drive, in decibels.
constexpr double maxDrive = 30;
constexpr int curvePieces = 72;
// The input at which the handle rides.
constexpr double handleInput = 0.4;

constexpr std::array<std::pair<std::string_view, WaveshaperView::Shape>, 12> words{{
    {"hard", WaveshaperView::Shape::hard},
    {"clip", WaveshaperView::Shape::hard},
    {"fold", WaveshaperView::Shape::fold},
    {"sin", WaveshaperView::Shape::fold},
    {"wrap", WaveshaperView::Shape::fold},
    {"rect", WaveshaperView::Shape::rectify},
    {"crush", WaveshaperView::Shape::crush},
    {"bit", WaveshaperView::Shape::crush},
    {"step", WaveshaperView::Shape::crush},
    {"tube", WaveshaperView::Shape::tube},
    {"asym", WaveshaperView::Shape::tube},
    {"diode", WaveshaperView::Shape::tube},
}};

}  // namespace

WaveshaperView::WaveshaperView() : DisplayView(partsOfAShaper) {}

WaveshaperView::Shape WaveshaperView::shapeNamed(std::string_view name) {
  const std::string lower = foundation::lowercased(name);
  // "Soft Clip" is soft.
  if (lower.find("soft") != std::string::npos) return Shape::soft;
  for (const auto& [word, shape] : words)
    if (lower.find(word) != std::string::npos) return shape;
  return Shape::soft;
}

double WaveshaperView::shaped(Shape shape, double in) {
  switch (shape) {
    case Shape::soft:
      return std::tanh(in);
    case Shape::hard:
      return std::clamp(in, -1.0, 1.0);
    case Shape::fold:
      return std::sin(in * std::numbers::pi / 2);
    case Shape::rectify:
      return std::min(1.0, std::fabs(in)) * 2 - 1;
    case Shape::crush:
      return std::clamp(std::round(in * 4) / 4, -1.0, 1.0);
    case Shape::tube:
      return in < 0 ? std::tanh(in) : 1 - std::exp(-in);
  }
  return in;
}

WaveshaperView::Shape WaveshaperView::shape(Source source) const {
  const std::vector<std::string>& names = valueNames(shapeChoice);
  const double at = amount(shapeChoice, 0, source);
  if (names.empty()) {
    constexpr auto last = static_cast<double>(Shape::tube);
    return static_cast<Shape>(std::lround(at * last));
  }
  return shapeNamed(
      names[static_cast<std::size_t>(std::lround(at * static_cast<double>(names.size() - 1)))]);
}

double WaveshaperView::out(double in, Source source) const {
  const double gain = std::pow(10, maxDrive / 20 * amount(drive, 0.2, source));
  const double offset = amount(bias, 0.5, source) - 0.5;
  const double wet = shaped(shape(source), (in + offset) * gain);
  const double part = amount(mix, 1, source);
  return in * (1 - part) + wet * part;
}

Point WaveshaperView::placeOf(double in, double out) const {
  const Rect place = picture();
  return {place.midX() + place.width / 2 * in,
          place.midY() - place.height / 2 * std::clamp(out, -1.02, 1.02)};
}

std::vector<ShapeControl::Handle> WaveshaperView::pictureHandles() const {
  const Rect place = picture();
  Handle handle;
  handle.x = valueOf(bias);
  handle.y = valueOf(drive);
  if (!handle.x && !handle.y) return {};
  handle.place = placeOf(handleInput, out(handleInput, Source::set));
  // A bias to the right moves the curve to the left, but nobody drags a curve by its absence.
  handle.travel = {place.width, place.height};
  return {handle};
}

Path WaveshaperView::path(Source source) const {
  Path path;
  for (int i = 0; i <= curvePieces; ++i) {
    const double in = 2.0 * i / curvePieces - 1;
    const Point point = placeOf(in, out(in, source));
    if (i == 0)
      path.moveTo(point);
    else
      path.lineTo(point);
  }
  return path;
}

void WaveshaperView::paintPicture(platform::Canvas& canvas) {
  const Rect place = picture();
  Plot::paintGrid(canvas, place, {0.25, 0.75}, {0.25, 0.75}, 0.25f);
  Plot::paintGrid(canvas, place, {0.5}, {0.5}, 0.6f);
  Path unity;
  unity.moveTo({place.x, place.maxY()});
  unity.lineTo({place.maxX(), place.y});
  canvas.strokePath(unity, {0.75}, Theme::line);
  Plot::paintCurve(canvas, path(Source::set), place, place.midY(), stateAccent());
  if (isLive()) canvas.strokePath(path(Source::live), {1}, stateAccent().mixed(Theme::white, 0.5f));
}

namespace {

const std::vector<KeyPart> partsOfAPhaser = {{"freq|cent|manual|cutoff", true},
                                             {"feedback|reso|regen", true},
                                             {"depth|amount|range|width"},
                                             {"stage|pole|notch"}};

constexpr double minLevel = -36, maxLevel = 12;
constexpr double usualCentre = 1000;
constexpr int usualStages = 6, maxStages = 24;
// Feedback at its maximum: at 1 the loop would sound forever.
constexpr double maxFeedback = 0.9;
// Octaves on each side at full depth.
constexpr double maxDepth = 2;

}  // namespace

PhaserView::PhaserView() : DisplayView(partsOfAPhaser) {}

double PhaserView::decibelsAt(double hertz, double centre, int stages, double feedback) {
  const double phase = -2.0 * stages * std::atan(hertz / std::max(centre, 1e-3));
  const std::complex<double> passed = std::polar(1.0, phase);
  const std::complex<double> looped = (passed - feedback) / (1.0 - feedback * passed);
  const double level = std::abs(1.0 + looped) / 2;
  return 20 * std::log10(std::max(level, 1e-8));
}

int PhaserView::stages() const {
  const auto [low, high] = range(stageCount, 2, 12);
  double count = measure(stageCount, low, high, usualStages);
  // Names such as "4 stages" say more than their places do.
  const std::vector<std::string>& names = valueNames(stageCount);
  if (!names.empty()) {
    const double last = static_cast<double>(names.size() - 1);
    const std::string& name =
        names[static_cast<std::size_t>(std::lround(amount(stageCount, 0) * last))];
    int number = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
    count = read.ec == std::errc() ? number : 2 + 2 * amount(stageCount, 0) * last;
  }
  return std::clamp(static_cast<int>(std::lround(count)), 1, maxStages);
}

std::vector<ShapeControl::Handle> PhaserView::pictureHandles() const {
  const Rect place = picture();
  Handle handle;
  handle.x = valueOf(centre);
  handle.y = valueOf(feedback);
  if (!handle.x && !handle.y) return {};
  const auto [low, high] = range(centre, Plot::hertzAt(0), Plot::hertzAt(1));
  const double from = Plot::shareOfHertz(std::max(low, 1.0));
  handle.travel = {place.width * std::max(0.05, Plot::shareOfHertz(high) - from), place.height};
  handle.place = {
      place.x + place.width * std::clamp(Plot::shareOfHertz(hertz(centre, usualCentre)), 0.0, 1.0),
      place.maxY() - place.height * amount(feedback, 0.5)};
  return {handle};
}

int PhaserView::points() const {
  return static_cast<int>(std::clamp(picture().width / 1.5, 32.0, 160.0));
}

Path PhaserView::path(Source source) const {
  const Rect place = picture();
  const double at = hertz(centre, usualCentre, source);
  // Around the middle of a range that is symmetrical, else from none.
  const auto [low, high] = range(feedback, 0, 1);
  const double turned = amount(feedback, 0.3, source);
  const double back = maxFeedback * (low < 0 && high > 0 ? 2 * turned - 1 : turned);
  const int count = stages(), last = points();
  Path path;
  for (int i = 0; i <= last; ++i) {
    const double x = static_cast<double>(i) / last;
    const double level = decibelsAt(Plot::hertzAt(x), at, count, back);
    const double up = std::clamp((level - minLevel) / (maxLevel - minLevel), 0.0, 1.0);
    const Point point{place.x + place.width * x, place.maxY() - place.height * up};
    if (i == 0)
      path.moveTo(point);
    else
      path.lineTo(point);
  }
  return path;
}

void PhaserView::paintPicture(platform::Canvas& canvas) {
  const Rect place = picture();
  const platform::Color accent = stateAccent();
  const double zero = (0 - minLevel) / (maxLevel - minLevel);
  Plot::paintGrid(canvas, place,
                  {Plot::shareOfHertz(100), Plot::shareOfHertz(1000), Plot::shareOfHertz(10000)},
                  {zero / 2, zero}, 0.35f);
  if (valueOf(depth)) {
    const double sweep = maxDepth * amount(depth, 0, Source::live);
    const double middle = hertz(centre, usualCentre);
    const auto xOf = [&](double octaves) {
      return place.x +
             place.width * std::clamp(Plot::shareOfHertz(middle * std::exp2(octaves)), 0.0, 1.0);
    };
    canvas.fillRect({xOf(-sweep), place.y, xOf(sweep) - xOf(-sweep), place.height},
                    accent.withAlpha(accent.alpha * 0.08f));
  }
  const bool live = isLive();
  // While it sweeps, the moving curve is the one to see.
  Plot::paintCurve(canvas, path(live ? Source::live : Source::set), place, place.maxY(), accent);
  if (live) canvas.strokePath(path(Source::set), {1}, accent.withAlpha(accent.alpha * 0.35f));
}

namespace {

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
