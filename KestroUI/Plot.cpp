#include "KestroUI/Plot.h"

#include <algorithm>
#include <cmath>

namespace kestroui::Plot {

using platform::Canvas;
using platform::Color;
using platform::Path;
using platform::Point;
using platform::Rect;

namespace {

constexpr double minHertz = 20, maxHertz = 20000;

Rect disc(Point centre, double radius) {
  return {centre.x - radius, centre.y - radius, 2 * radius, 2 * radius};
}

}  // namespace

void paintGround(Canvas& canvas, const Rect& face, Color accent, const Ground& ground) {
  const double radius = std::min(Theme::cornerRadius + 1, std::min(face.width, face.height) / 2);
  canvas.fillRoundedRect(
      face, radius,
      ground.isMuted ? Theme::background.mixed(Theme::panel, 0.5f) : Theme::background);
  const Color border = ground.isFocused   ? accent.withAlpha(accent.alpha * 0.9f)
                       : ground.isHovered ? Theme::line.mixed(Theme::lightGrey, 0.12f)
                                          : Theme::line.withAlpha(0.6f);
  if (face.width >= 8 && face.height >= 8)
    canvas.strokeRoundedRect(face.inset(0.5, 0.5), radius, Theme::lineWidth, border);
}

Rect area(const Rect& face) {
  const double side = std::min(face.width, face.height);
  const double gap = std::clamp(side * 0.1, std::min(1.0, side * 0.2), 9.0);
  return face.inset(gap, gap);
}

void paintGrid(Canvas& canvas, const Rect& plot, const std::vector<double>& across,
               const std::vector<double>& up, float strength) {
  const Color color = Theme::line.withAlpha(strength);
  const double line = 0.75;
  for (const double share : across)
    canvas.fillRect({plot.x + plot.width * share - line / 2, plot.y, line, plot.height}, color);
  for (const double share : up)
    canvas.fillRect({plot.x, plot.maxY() - plot.height * share - line / 2, plot.width, line},
                    color);
}

void paintCurve(Canvas& canvas, const Path& curve, const Rect& plot, double base, Color color,
                double lineWidth) {
  if (curve.points().size() < 2) return;
  Path fill = curve;
  fill.lineTo({curve.points().back().x, base});
  fill.lineTo({curve.points().front().x, base});
  fill.close();
  // The fill is strongest where the curve is furthest from the base, and fades towards it.
  const float strong = color.alpha * 0.36f, faint = color.alpha * 0.04f;
  const Rect reach = curve.bounds();
  const double top = std::max(plot.y, std::min(reach.y, base));
  const double bottom = std::min(plot.maxY(), std::max(reach.maxY(), base));
  const double share = bottom > top ? std::clamp((base - top) / (bottom - top), 0.0, 1.0) : 1;
  std::vector<platform::Paint::Stop> stops;
  if (share > 0) stops.push_back({0, color.withAlpha(strong)});
  stops.push_back({share, color.withAlpha(faint)});
  if (share < 1) stops.push_back({1, color.withAlpha(strong)});
  canvas.fillPath(fill, platform::Paint({0, top}, {0, bottom}, std::move(stops)));
  const double side = std::min(plot.width, plot.height);
  canvas.strokePath(curve, {lineWidth * std::max(1.0, std::sqrt(side / 240))}, color);
}

Path smoothCurve(const std::vector<Point>& points) {
  Path path;
  if (points.empty()) return path;
  const std::size_t last = points.size() - 1;
  // Slopes of a monotone cubic: flat at every turn, so that no piece overshoots.
  const auto secant = [&](std::size_t i) {
    const double way = points[i + 1].x - points[i].x;
    return way > 0 ? (points[i + 1].y - points[i].y) / way : 0.0;
  };
  const auto slope = [&](std::size_t i) {
    if (i == 0) return last > 0 ? secant(0) : 0.0;
    if (i == last) return secant(last - 1);
    const double before = secant(i - 1), after = secant(i);
    return before * after > 0 ? 2 * before * after / (before + after) : 0.0;
  };
  path.moveTo(points[0]);
  for (std::size_t i = 0; i < last; ++i) {
    const double third = (points[i + 1].x - points[i].x) / 3;
    path.cubicTo({points[i].x + third, points[i].y + slope(i) * third},
                 {points[i + 1].x - third, points[i + 1].y - slope(i + 1) * third}, points[i + 1]);
  }
  return path;
}

double handleRadius(const platform::Size& face) {
  const double radius = std::max(1.0, std::min(face.width, face.height) * 0.055);
  // Large enough for a finger; from there on it grows less than the face.
  return radius <= 7 ? radius : 7 * std::sqrt(radius / 7);
}

void paintHandle(Canvas& canvas, Point place, double radius, Color color, HandleState state) {
  if (state != HandleState::resting)
    canvas.fillEllipse(disc(place, radius * (state == HandleState::held ? 2.2 : 1.8)),
                       color.withAlpha(color.alpha * 0.25f));
  canvas.fillEllipse(disc(place, radius), color);
  if (radius >= 2.5) {
    canvas.fillEllipse(disc(place, radius * 0.62), Theme::background);
    if (state == HandleState::held)
      canvas.fillEllipse(disc(place, radius * 0.62), Theme::white);
    else if (state == HandleState::near)
      canvas.fillEllipse(disc(place, radius * 0.3), Theme::white);
  }
}

void paintLive(Canvas& canvas, Point from, Point live, double radius, Color color) {
  const Color bright = color.mixed(Theme::white, 0.45f);
  if (from != live) {
    Path thread;
    thread.moveTo(from);
    thread.lineTo(live);
    canvas.strokePath(thread, {std::max(1.0, radius * 0.25)}, bright.withAlpha(0.6f));
  }
  canvas.fillEllipse(disc(live, std::max(1.0, radius * 0.5)), Theme::white);
}

void paintReadout(Canvas& canvas, const Rect& face, std::string_view text, double faceScale) {
  if (text.empty() || face.width < 44 || face.height < 26) return;
  const double size = std::min(11 * faceScale, face.height * 0.3);
  const Rect line{face.x + 6, face.y + 3, face.width - 12, size * 1.5};
  const platform::Font font = Theme::valueFont.withSize(size);
  const double width = std::min(line.width, canvas.textWidth(text, font) + 8);
  canvas.fillRoundedRect({line.maxX() - width, line.y, width, line.height}, 2,
                         Theme::background.withAlpha(0.75f));
  canvas.drawText(text, font, {line.maxX() - width + 4, line.y, width - 6, line.height},
                  platform::TextAlignment::right, Theme::text);
}

double hertzAt(double share) { return minHertz * std::pow(maxHertz / minHertz, share); }

double shareOfHertz(double hertz) {
  return std::log(hertz / minHertz) / std::log(maxHertz / minHertz);
}

}  // namespace kestroui::Plot
