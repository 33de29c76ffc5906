#include "KestroUI/Icons.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>

namespace kestroui::Icons {

using platform::Canvas;
using platform::Color;
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

namespace {

// All pictures are drawn in a square of 24 points, with lines of 2.
constexpr platform::Size natural{24, 24};
constexpr platform::StrokeStyle line{2};

void drawPresets(Canvas& canvas, Color tint) {
  for (double y : {6.0, 12.0, 18.0}) {
    canvas.fillEllipse({3, y - 1.5, 3, 3}, tint);
    canvas.fillRoundedRect({9, y - 1, 12, 2}, 1, tint);
  }
}

void drawCross(Canvas& canvas, Color tint) {
  canvas.strokePath(fitted(cross(), {3, 3, 18, 18}), line, tint);
}

// A mark of the family: a rising wave in a ring.
void drawMark(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({5, 5, 14, 14}, 7, 1.2, tint.withAlpha(tint.alpha * 0.55f));
  Path wave;
  wave.moveTo({7.8, 13.75});
  wave.cubicTo({9.5, 13.75}, {9.5, 9.9}, {11.3, 9.9});
  wave.cubicTo({13.1, 9.9}, {12.7, 14.4}, {14.1, 14.4});
  wave.cubicTo({15.2, 14.4}, {15.2, 11.3}, {16.2, 10.3});
  canvas.strokePath(wave, {1.4}, tint);
}

void drawHelp(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({2, 2, 20, 20}, 10, 1.75, tint);
  Path hook;
  hook.moveTo({9, 9.5});
  hook.cubicTo({9, 5.6}, {15, 5.6}, {15, 9.5});
  hook.cubicTo({15, 11.8}, {12, 11.8}, {12, 14});
  canvas.strokePath(hook, line, tint);
  canvas.fillEllipse({10.75, 16, 2.5, 2.5}, tint);
}

void drawLike(Canvas& canvas, Color tint) {
  Path heart;
  heart.moveTo({12, 20.5});
  heart.cubicTo({-4, 10.5}, {6.5, 0}, {12, 7});
  heart.cubicTo({17.5, 0}, {28, 10.5}, {12, 20.5});
  heart.close();
  canvas.fillPath(heart, tint);
}

void drawContact(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({2, 5, 20, 14}, 2, 1.75, tint);
  Path flap;
  flap.moveTo({3, 7});
  flap.lineTo({12, 13.5});
  flap.lineTo({21, 7});
  canvas.strokePath(flap, {1.75}, tint);
}

void drawCloud(Canvas& canvas, Color tint) {
  Path cloud;
  cloud.moveTo({7, 18.5});
  cloud.cubicTo({0.5, 18.5}, {0.5, 10.5}, {6, 10.5});
  cloud.cubicTo({6.5, 3.5}, {16, 3.5}, {17, 10});
  cloud.cubicTo({23.5, 10}, {23.5, 18.5}, {17.5, 18.5});
  cloud.close();
  canvas.strokePath(cloud, line, tint);
}

void drawDice(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({3, 3, 18, 18}, 4, 1.75, tint);
  for (const auto& [x, y] : {std::array{8.0, 8.0}, std::array{16.0, 8.0}, std::array{12.0, 12.0},
                             std::array{8.0, 16.0}, std::array{16.0, 16.0}})
    canvas.fillEllipse({x - 1.6, y - 1.6, 3.2, 3.2}, tint);
}

void drawPlay(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({2, 4.5, 20, 15}, 4, 1.75, tint);
  Path triangle;
  triangle.moveTo({10, 8.5});
  triangle.lineTo({16, 12});
  triangle.lineTo({10, 15.5});
  triangle.close();
  canvas.fillPath(triangle, tint);
}

void drawCamera(Canvas& canvas, Color tint) {
  canvas.strokeRoundedRect({3, 3, 18, 18}, 5, 1.75, tint);
  canvas.strokeRoundedRect({8, 8, 8, 8}, 4, 1.75, tint);
  canvas.fillEllipse({16.3, 5.8, 2.2, 2.2}, tint);
}

void drawPeople(Canvas& canvas, Color tint) {
  canvas.fillEllipse({5, 5, 6, 6}, tint);
  canvas.fillEllipse({14, 7, 5, 5}, tint);
  Path shoulders;
  shoulders.moveTo({2, 19.5});
  shoulders.cubicTo({2, 11}, {14, 11}, {14, 19.5});
  shoulders.close();
  shoulders.moveTo({15.5, 19.5});
  shoulders.cubicTo({15.5, 16.5}, {15, 15}, {14.5, 14});
  shoulders.cubicTo({19, 12.5}, {22, 15.5}, {22, 19.5});
  shoulders.close();
  canvas.fillPath(shoulders, tint);
}

void drawChat(Canvas& canvas, Color tint) {
  Path bubble;
  bubble.moveTo({12, 4});
  bubble.cubicTo({25, 4}, {25, 17.5}, {12, 17.5});
  bubble.cubicTo({11, 17.5}, {10, 17.4}, {9, 17.2});
  bubble.lineTo({5, 20.5});
  bubble.lineTo({5.3, 15.6});
  bubble.cubicTo({-1, 11.5}, {2.5, 4}, {12, 4});
  bubble.close();
  canvas.strokePath(bubble, {1.75}, tint);
}

struct NamedDrawing {
  std::string_view name;
  void (*draw)(Canvas&, Color);
};

constexpr std::array<NamedDrawing, 12> drawings = {{
    {"presets", drawPresets},
    {"smallCross", drawCross},
    {"kestro_centered", drawMark},
    {"help", drawHelp},
    {"like", drawLike},
    {"contact", drawContact},
    {"cloud", drawCloud},
    {"dice", drawDice},
    {"play", drawPlay},
    {"camera", drawCamera},
    {"people", drawPeople},
    {"chat", drawChat},
}};

}  // namespace

platform::Image image(std::string_view name) {
  constexpr std::string_view suffix = ".png";
  if (name.ends_with(suffix)) name.remove_suffix(suffix.size());
  for (const NamedDrawing& drawing : drawings)
    if (drawing.name == name) return {natural, drawing.draw};
  return {};
}

}  // namespace kestroui::Icons
