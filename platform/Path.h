#pragma once

#include <cmath>
#include <numbers>
#include <vector>

#include "platform/Geometry.h"

namespace platform {

/// An outline of lines and curves, in points.
class Path {
 public:
  enum class Verb : unsigned char { move, line, quad, cubic, close };

  void moveTo(Point p) { add(Verb::move, p); }
  void lineTo(Point p) { add(Verb::line, p); }
  void quadTo(Point control, Point end) {
    add(Verb::quad, control);
    points_.push_back(end);
  }
  void cubicTo(Point control1, Point control2, Point end) {
    add(Verb::cubic, control1);
    points_.push_back(control2);
    points_.push_back(end);
  }
  void close() { verbs_.push_back(Verb::close); }
  void clear() {
    verbs_.clear();
    points_.clear();
  }

  void addRect(const Rect& r) {
    moveTo({r.x, r.y});
    lineTo({r.maxX(), r.y});
    lineTo({r.maxX(), r.maxY()});
    lineTo({r.x, r.maxY()});
    close();
  }
  void addRoundedRect(const Rect& r, double radius) {
    const double k = std::fmin(radius, std::fmin(r.width, r.height) * 0.5), c = k * (1 - kappa);
    moveTo({r.x + k, r.y});
    lineTo({r.maxX() - k, r.y});
    cubicTo({r.maxX() - c, r.y}, {r.maxX(), r.y + c}, {r.maxX(), r.y + k});
    lineTo({r.maxX(), r.maxY() - k});
    cubicTo({r.maxX(), r.maxY() - c}, {r.maxX() - c, r.maxY()}, {r.maxX() - k, r.maxY()});
    lineTo({r.x + k, r.maxY()});
    cubicTo({r.x + c, r.maxY()}, {r.x, r.maxY() - c}, {r.x, r.maxY() - k});
    lineTo({r.x, r.y + k});
    cubicTo({r.x, r.y + c}, {r.x + c, r.y}, {r.x + k, r.y});
    close();
  }
  void addEllipse(const Rect& r) {
    const double cx = r.midX(), cy = r.midY(), hx = r.width / 2 * kappa, hy = r.height / 2 * kappa;
    moveTo({cx, r.y});
    cubicTo({cx + hx, r.y}, {r.maxX(), cy - hy}, {r.maxX(), cy});
    cubicTo({r.maxX(), cy + hy}, {cx + hx, r.maxY()}, {cx, r.maxY()});
    cubicTo({cx - hx, r.maxY()}, {r.x, cy + hy}, {r.x, cy});
    cubicTo({r.x, cy - hy}, {cx - hx, r.y}, {cx, r.y});
    close();
  }
  /// An arc around `centre`; angles in radians, clockwise from twelve o'clock. Starts a new
  /// sub-path.
  void addArc(Point centre, double radius, double from, double to) {
    const int pieces =
        std::max(1, static_cast<int>(std::ceil(std::fabs(to - from) / (std::numbers::pi / 2))));
    const double step = (to - from) / pieces, handle = 4.0 / 3.0 * std::tan(step / 4) * radius;
    const auto at = [&](double t) {
      return Point{centre.x + radius * std::sin(t), centre.y - radius * std::cos(t)};
    };
    moveTo(at(from));
    for (int i = 0; i < pieces; ++i) {
      const double t0 = from + step * i, t1 = t0 + step;
      const Point p0 = at(t0), p1 = at(t1);
      cubicTo({p0.x + handle * std::cos(t0), p0.y + handle * std::sin(t0)},
              {p1.x - handle * std::cos(t1), p1.y - handle * std::sin(t1)}, p1);
    }
  }

  bool isEmpty() const { return verbs_.empty(); }
  const std::vector<Verb>& verbs() const { return verbs_; }
  /// One point for move and line, two for quad, three for cubic, none for close.
  const std::vector<Point>& points() const { return points_; }
  /// Bounds of all end and control points.
  Rect bounds() const {
    if (points_.empty()) return {};
    double left = points_[0].x, right = left, top = points_[0].y, bottom = top;
    for (const Point& p : points_) {
      left = std::fmin(left, p.x);
      right = std::fmax(right, p.x);
      top = std::fmin(top, p.y);
      bottom = std::fmax(bottom, p.y);
    }
    return {left, top, right - left, bottom - top};
  }

  friend bool operator==(const Path&, const Path&) = default;

 private:
  static constexpr double kappa = 0.5522847498307936;

  void add(Verb verb, Point p) {
    verbs_.push_back(verb);
    points_.push_back(p);
  }

  std::vector<Verb> verbs_;
  std::vector<Point> points_;
};

}  // namespace platform
