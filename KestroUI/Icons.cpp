#include "KestroUI/Icons.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>

namespace kestroui::Icons {

using platform::Path;
using platform::Point;
using platform::Rect;

namespace {

Path polyline(std::initializer_list<Point> points) {
  Path path;
  for (const Point& point : points)
    if (path.isEmpty())
      path.moveTo(point);
    else
      path.lineTo(point);
  return path;
}

struct NamedWaveform {
  std::string_view start;
  Waveform waveform;
};

// A name belongs to the first entry that it starts with, letters and digits only, lower case.
constexpr std::array<NamedWaveform, 24> waveformNames = {{
    {"sinus", Waveform::sine},
    {"sine", Waveform::sine},
    {"sin", Waveform::sine},
    {"tri", Waveform::triangle},
    {"sawdown", Waveform::saw},
    {"sawup", Waveform::ramp},
    {"rampdown", Waveform::saw},
    {"ramp", Waveform::ramp},
    {"reversesaw", Waveform::ramp},
    {"invsaw", Waveform::ramp},
    {"saw", Waveform::saw},
    {"square", Waveform::square},
    {"sqr", Waveform::square},
    {"rect", Waveform::square},
    {"pulse", Waveform::pulse},
    {"pwm", Waveform::pulse},
    {"noise", Waveform::noise},
    {"white", Waveform::noise},
    {"pink", Waveform::noise},
    {"sampleandhold", Waveform::sampleAndHold},
    {"samplehold", Waveform::sampleAndHold},
    {"sh", Waveform::sampleAndHold},
    {"random", Waveform::sampleAndHold},
    {"rnd", Waveform::sampleAndHold},
}};

}  // namespace

std::optional<Waveform> waveformNamed(std::string_view name) {
  std::string plain;
  for (char c : name) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) plain += c;
  }
  // "sh" is only a whole name: "Shape" is none.
  for (const NamedWaveform& entry : waveformNames)
    if (entry.start == "sh" ? plain == "sh" : plain.rfind(entry.start, 0) == 0)
      return entry.waveform;
  return std::nullopt;
}

Path waveform(Waveform waveform) {
  switch (waveform) {
    case Waveform::sine: {
      Path path;
      path.moveTo({0, 0.5});
      path.cubicTo({0.18, -0.18}, {0.32, -0.18}, {0.5, 0.5});
      path.cubicTo({0.68, 1.18}, {0.82, 1.18}, {1, 0.5});
      return path;
    }
    case Waveform::triangle:
      return polyline({{0, 0.5}, {0.25, 0}, {0.75, 1}, {1, 0.5}});
    case Waveform::saw:
      return polyline({{0, 1}, {0, 0}, {1, 1}, {1, 0}});
    case Waveform::ramp:
      return polyline({{0, 0}, {0, 1}, {1, 0}, {1, 1}});
    case Waveform::square:
      return polyline({{0, 1}, {0, 0}, {0.5, 0}, {0.5, 1}, {1, 1}, {1, 0}});
    case Waveform::pulse:
      return polyline({{0, 1}, {0, 0}, {0.25, 0}, {0.25, 1}, {1, 1}, {1, 0}});
    case Waveform::noise:
      return polyline({{0, 0.55},
                       {0.08, 0.2},
                       {0.16, 0.85},
                       {0.25, 0.35},
                       {0.33, 0.7},
                       {0.42, 0.0},
                       {0.5, 0.95},
                       {0.58, 0.3},
                       {0.67, 0.65},
                       {0.75, 0.1},
                       {0.84, 0.8},
                       {0.92, 0.4},
                       {1, 0.6}});
    case Waveform::sampleAndHold:
      return polyline({{0, 0.7},
                       {0.2, 0.7},
                       {0.2, 0.15},
                       {0.4, 0.15},
                       {0.4, 0.95},
                       {0.6, 0.95},
                       {0.6, 0.4},
                       {0.8, 0.4},
                       {0.8, 0.6},
                       {1, 0.6}});
  }
  return {};
}

Path chevronLeft() { return polyline({{0.7, 0.05}, {0.25, 0.5}, {0.7, 0.95}}); }
Path chevronRight() { return polyline({{0.3, 0.05}, {0.75, 0.5}, {0.3, 0.95}}); }
Path chevronDown() { return polyline({{0.05, 0.3}, {0.5, 0.75}, {0.95, 0.3}}); }

Path cross() {
  Path path = polyline({{0.15, 0.15}, {0.85, 0.85}});
  path.moveTo({0.85, 0.15});
  path.lineTo({0.15, 0.85});
  return path;
}

Path magnifier() {
  Path path;
  path.addEllipse({0.06, 0.06, 0.64, 0.64});
  // Against the way of the rim, so that the lens stays open.
  path.addArc({0.38, 0.38}, 0.25, 2 * std::numbers::pi, 0);
  path.close();
  path.moveTo({0.63, 0.57});
  path.lineTo({0.94, 0.88});
  path.lineTo({0.88, 0.94});
  path.lineTo({0.57, 0.63});
  path.close();
  return path;
}

Path star() {
  Path path;
  for (int i = 0; i < 10; ++i) {
    const double radius = i % 2 == 0 ? 0.5 : 0.215;
    const double angle = i * std::numbers::pi / 5;
    const Point point{0.5 + radius * std::sin(angle), 0.53 - radius * std::cos(angle)};
    if (i == 0)
      path.moveTo(point);
    else
      path.lineTo(point);
  }
  path.close();
  return path;
}

Path fitted(const Path& path, const Rect& rect) {
  Path result;
  const auto at = [&](std::size_t i) {
    const Point& p = path.points()[i];
    return Point{rect.x + p.x * rect.width, rect.y + p.y * rect.height};
  };
  std::size_t next = 0;
  for (const Path::Verb verb : path.verbs()) {
    switch (verb) {
      case Path::Verb::move:
        result.moveTo(at(next));
        next += 1;
        break;
      case Path::Verb::line:
        result.lineTo(at(next));
        next += 1;
        break;
      case Path::Verb::quad:
        result.quadTo(at(next), at(next + 1));
        next += 2;
        break;
      case Path::Verb::cubic:
        result.cubicTo(at(next), at(next + 1), at(next + 2));
        next += 3;
        break;
      case Path::Verb::close:
        result.close();
        break;
    }
  }
  return result;
}

Rect squareIn(const Rect& rect) {
  const double side = std::max(0.0, std::min(rect.width, rect.height));
  return {rect.midX() - side / 2, rect.midY() - side / 2, side, side};
}

}  // namespace kestroui::Icons
