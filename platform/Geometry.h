#pragma once

#include <algorithm>

namespace platform {

/// A place in points, y downwards.
struct Point {
  double x = 0;
  double y = 0;

  friend bool operator==(const Point&, const Point&) = default;
  friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
  friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
};

/// A width and a height in points.
struct Size {
  double width = 0;
  double height = 0;

  friend bool operator==(const Size&, const Size&) = default;
};

/// An upright rectangle in points; a width or height of 0 or below makes it empty.
struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  double minX() const { return x; }
  double minY() const { return y; }
  double midX() const { return x + width * 0.5; }
  double midY() const { return y + height * 0.5; }
  double maxX() const { return x + width; }
  double maxY() const { return y + height; }
  Point origin() const { return {x, y}; }
  Point centre() const { return {midX(), midY()}; }
  Size size() const { return {width, height}; }

  bool isEmpty() const { return !(width > 0 && height > 0); }
  bool contains(Point p) const { return p.x >= x && p.x < maxX() && p.y >= y && p.y < maxY(); }
  bool contains(const Rect& r) const {
    return r.x >= x && r.y >= y && r.maxX() <= maxX() && r.maxY() <= maxY();
  }
  bool intersects(const Rect& r) const { return !intersection(r).isEmpty(); }

  Rect translated(double dx, double dy) const { return {x + dx, y + dy, width, height}; }
  /// Smaller by dx on the left and right and by dy at the top and bottom; negative grows.
  Rect inset(double dx, double dy) const {
    return {x + dx, y + dy, width - 2 * dx, height - 2 * dy};
  }
  Rect intersection(const Rect& r) const {
    const double left = std::max(x, r.x), top = std::max(y, r.y);
    return {left, top, std::max(0.0, std::min(maxX(), r.maxX()) - left),
            std::max(0.0, std::min(maxY(), r.maxY()) - top)};
  }
  /// The smallest rectangle that holds both; an empty one adds nothing.
  Rect unionWith(const Rect& r) const {
    if (isEmpty()) return r;
    if (r.isEmpty()) return *this;
    const double left = std::min(x, r.x), top = std::min(y, r.y);
    return {left, top, std::max(maxX(), r.maxX()) - left, std::max(maxY(), r.maxY()) - top};
  }

  friend bool operator==(const Rect&, const Rect&) = default;
};

/// Where the coordinates of a part lie in those of its whole. Nothing in an editor is turned.
struct Placement {
  /// Of the part's (0, 0).
  Point origin;
  /// Points of the whole to one of the part; above 0.
  double scale = 1;

  Point apply(Point p) const { return {scale * p.x + origin.x, scale * p.y + origin.y}; }
  Rect apply(const Rect& r) const {
    const Point first = apply(r.origin()), last = apply(Point{r.maxX(), r.maxY()});
    return {first.x, first.y, last.x - first.x, last.y - first.y};
  }
  /// Where this lies in that in which `whole` lies.
  Placement within(const Placement& whole) const {
    return {whole.apply(origin), whole.scale * scale};
  }

  friend bool operator==(const Placement&, const Placement&) = default;
};

}  // namespace platform
