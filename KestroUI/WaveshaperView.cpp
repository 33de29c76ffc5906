#include "KestroUI/WaveshaperView.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace kestroui {

using platform::Path;
using platform::Point;
using platform::Rect;

namespace {

enum Part : std::size_t { drive, shapeChoice, bias, mix };

const std::vector<KeyPart> partsOfAShaper = {{"drive|amount|gain", true},
                                             {"shape|type|mode|curve"},
                                             {"bias|asym|offset|symmetry"},
                                             {"mix|wet|blend"}};

// Gain at full drive, in decibels.
constexpr double mostDrive = 30;
constexpr int points = 72;
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
  std::string lower(name);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
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
  const double gain = std::pow(10, mostDrive / 20 * amount(drive, 0.2, source));
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
  for (int i = 0; i <= points; ++i) {
    const double in = 2.0 * i / points - 1;
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

}  // namespace kestroui
