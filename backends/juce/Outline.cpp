#include "backends/juce/Outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace juce_backend {
namespace {

using platform::Point;

/// How far a polygon may be from its curve, in pixels.
constexpr double tolerance = 0.08;
/// Below this turn, which is that of neighbouring pieces of a curve, a join needs one point only.
const double smoothTurn = std::cos(std::numbers::pi / 8);

double length(double x, double y) { return std::sqrt(x * x + y * y); }

double distance(Point a, Point b) { return length(b.x - a.x, b.y - a.y); }

Point mix(Point a, Point b, double t) { return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t}; }

/// To the left of the way from `a` to `b` as seen with y downwards; a unit long.
Point normal(Point a, Point b) {
  const double way = distance(a, b);
  return {(b.y - a.y) / way, (a.x - b.x) / way};
}

double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }

/// Pieces that an arc needs.
int arcPieces(double radius, double angle) {
  if (radius <= tolerance) return 1;
  const double step = 2 * std::acos(1 - std::min(1.0, tolerance / radius));
  return std::max(1, static_cast<int>(std::ceil(std::fabs(angle) / step)));
}

/// Points of an arc after its first, in equal turns from direction `from` on.
void addArc(std::vector<Point>& points, Point centre, double radius, Point from, double angle) {
  const int pieces = arcPieces(radius, angle);
  const double cosine = std::cos(angle / pieces), sine = std::sin(angle / pieces);
  Point direction = from;
  for (int i = 0; i < pieces; ++i) {
    direction = {direction.x * cosine - direction.y * sine,
                 direction.x * sine + direction.y * cosine};
    points.push_back({centre.x + direction.x * radius, centre.y + direction.y * radius});
  }
}

}  // namespace

void Outline::addPoint(Point point) {
  const std::size_t first = runs_.empty() ? 0 : runs_.back().first + runs_.back().count;
  // Points that lie on each other have no direction between them.
  if (points_.size() > first && distance(points_.back(), point) < 1e-3) return;
  points_.push_back(point);
}

void Outline::endRun(bool isClosed) {
  const std::size_t first = runs_.empty() ? 0 : runs_.back().first + runs_.back().count;
  std::size_t count = points_.size() - first;
  if (count == 0) return;
  if (isClosed && count > 1 && distance(points_[first], points_.back()) < 1e-3) {
    points_.pop_back();
    --count;
  }
  runs_.push_back({first, count, isClosed && count > 1});
}

void Outline::flatten(const platform::Path& path, const platform::Placement& placement) {
  using Verb = platform::Path::Verb;
  points_.clear();
  runs_.clear();
  const Point* next = path.points().data();
  const auto take = [&] { return placement.apply(*next++); };
  Point start, at;
  for (const Verb verb : path.verbs()) {
    switch (verb) {
      case Verb::move:
        endRun(false);
        start = at = take();
        addPoint(at);
        break;
      case Verb::line:
        addPoint(at);
        at = take();
        addPoint(at);
        break;
      case Verb::quad:
      case Verb::cubic: {
        addPoint(at);
        Point c1 = take();
        Point c2 = verb == Verb::quad ? c1 : take();
        const Point end = take();
        if (verb == Verb::quad) {
          c1 = mix(at, c1, 2.0 / 3);
          c2 = mix(end, c2, 2.0 / 3);
        }
        // The error of n chords is at most the largest second derivative over 8 n^2.
        const double bend = std::max(length(at.x - 2 * c1.x + c2.x, at.y - 2 * c1.y + c2.y),
                                     length(c1.x - 2 * c2.x + end.x, c1.y - 2 * c2.y + end.y));
        const double wanted = std::ceil(std::sqrt(0.75 * bend / tolerance));
        const int pieces = static_cast<int>(std::clamp(wanted, 1.0, 500.0));
        for (int i = 1; i <= pieces; ++i) {
          const double t = static_cast<double>(i) / pieces, s = 1 - t;
          const double w0 = s * s * s, w1 = 3 * s * s * t, w2 = 3 * s * t * t, w3 = t * t * t;
          addPoint({w0 * at.x + w1 * c1.x + w2 * c2.x + w3 * end.x,
                    w0 * at.y + w1 * c1.y + w2 * c2.y + w3 * end.y});
        }
        at = end;
        break;
      }
      case Verb::close:
        endRun(true);
        at = start;
        break;
    }
  }
  endRun(false);
}

void Outline::emit(const std::vector<Point>& points, bool isReversed) {
  const std::size_t count = points.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Point& p = points[isReversed ? count - 1 - i : i];
    const auto x = static_cast<float>(p.x), y = static_cast<float>(p.y);
    if (i == 0)
      result_.startNewSubPath(x, y);
    else
      result_.lineTo(x, y);
  }
  if (count > 0) result_.closeSubPath();
}

const juce::Path& Outline::filled(const platform::Path& path,
                                  const platform::Placement& placement) {
  flatten(path, placement);
  result_.clear();
  for (const Run& run : runs_) {
    left_.assign(points_.begin() + static_cast<std::ptrdiff_t>(run.first),
                 points_.begin() + static_cast<std::ptrdiff_t>(run.first + run.count));
    emit(left_, false);
  }
  return result_;
}

const juce::Path& Outline::stroked(const platform::Path& path, const platform::Placement& placement,
                                   double width, platform::StrokeStyle::Cap cap) {
  flatten(path, placement);
  result_.clear();
  for (const Run& run : runs_) strokeRun(run, width / 2, cap);
  return result_;
}

void Outline::addJoin(Point at, Point before, Point after, double half) {
  const Point in = normal(before, at), out = normal(at, after);
  const double cosine = dot(in, out);
  if (cosine > smoothTurn) {
    const double reach = half / (1 + cosine);
    const Point offset{(in.x + out.x) * reach, (in.y + out.y) * reach};
    left_.push_back({at.x + offset.x, at.y + offset.y});
    right_.push_back({at.x - offset.x, at.y - offset.y});
    return;
  }
  // The outer side goes around the corner, the inner one through it, where both lines overlap.
  const double turn = std::atan2(in.x * out.y - in.y * out.x, cosine);
  std::vector<Point>& outer = turn > 0 ? left_ : right_;
  std::vector<Point>& inner = turn > 0 ? right_ : left_;
  const double side = turn > 0 ? 1 : -1;
  outer.push_back({at.x + in.x * half * side, at.y + in.y * half * side});
  addArc(outer, at, half, {in.x * side, in.y * side}, turn);
  inner.push_back({at.x - in.x * half * side, at.y - in.y * half * side});
  inner.push_back(at);
  inner.push_back({at.x - out.x * half * side, at.y - out.y * half * side});
}

void Outline::strokeRun(const Run& run, double half, platform::StrokeStyle::Cap cap) {
  const Point* p = points_.data() + run.first;
  const std::size_t n = run.count;
  left_.clear();
  right_.clear();
  if (n == 1) {
    if (cap == platform::StrokeStyle::Cap::butt) return;
    addArc(left_, p[0], half, {1, 0}, 2 * std::numbers::pi);
    emit(left_, false);
    return;
  }
  if (run.isClosed) {
    for (std::size_t i = 0; i < n; ++i) addJoin(p[i], p[(i + n - 1) % n], p[(i + 1) % n], half);
    emit(left_, false);
    emit(right_, true);
    return;
  }

  const Point first = normal(p[0], p[1]), last = normal(p[n - 2], p[n - 1]);
  left_.push_back({p[0].x + first.x * half, p[0].y + first.y * half});
  right_.push_back({p[0].x - first.x * half, p[0].y - first.y * half});
  for (std::size_t i = 1; i + 1 < n; ++i) addJoin(p[i], p[i - 1], p[i + 1], half);
  left_.push_back({p[n - 1].x + last.x * half, p[n - 1].y + last.y * half});
  if (cap == platform::StrokeStyle::Cap::round)
    addArc(left_, p[n - 1], half, last, std::numbers::pi);
  right_.push_back({p[n - 1].x - last.x * half, p[n - 1].y - last.y * half});
  left_.insert(left_.end(), right_.rbegin(), right_.rend());
  if (cap == platform::StrokeStyle::Cap::round)
    addArc(left_, p[0], half, {-first.x, -first.y}, std::numbers::pi);
  emit(left_, false);
}

const juce::Path& Outline::ellipse(juce::Rectangle<float> area) {
  const double radiusX = area.getWidth() / 2.0, radiusY = area.getHeight() / 2.0;
  const int pieces = std::max(8, arcPieces(std::max(radiusX, radiusY), 2 * std::numbers::pi));
  left_.clear();
  const double step = 2 * std::numbers::pi / pieces;
  const double cosine = std::cos(step), sine = std::sin(step);
  Point direction{1, 0};
  for (int i = 0; i < pieces; ++i) {
    left_.push_back(
        {area.getCentreX() + direction.x * radiusX, area.getCentreY() + direction.y * radiusY});
    direction = {direction.x * cosine - direction.y * sine,
                 direction.x * sine + direction.y * cosine};
  }
  result_.clear();
  emit(left_, false);
  return result_;
}

void Outline::addRoundedRect(juce::Rectangle<float> area, double radius, bool isReversed) {
  const double r = std::min({radius, area.getWidth() / 2.0, area.getHeight() / 2.0});
  const double left = area.getX(), top = area.getY(), right = area.getRight(),
               bottom = area.getBottom();
  const struct {
    Point centre, from;
  } corners[] = {{{right - r, top + r}, {0, -1}},
                 {{right - r, bottom - r}, {1, 0}},
                 {{left + r, bottom - r}, {0, 1}},
                 {{left + r, top + r}, {-1, 0}}};
  left_.clear();
  for (const auto& corner : corners) {
    left_.push_back({corner.centre.x + corner.from.x * r, corner.centre.y + corner.from.y * r});
    if (r > 0) addArc(left_, corner.centre, r, corner.from, std::numbers::pi / 2);
  }
  emit(left_, isReversed);
}

const juce::Path& Outline::roundedRect(juce::Rectangle<float> area, double radius) {
  result_.clear();
  addRoundedRect(area, radius, false);
  return result_;
}

const juce::Path& Outline::roundedFrame(juce::Rectangle<float> area, double radius, int thickness) {
  result_.clear();
  addRoundedRect(area, radius, false);
  const juce::Rectangle<float> inside = area.reduced(static_cast<float>(thickness));
  // The other way around, so that the paths wind around the frame only.
  if (!inside.isEmpty()) addRoundedRect(inside, std::max(0.0, radius - thickness), true);
  return result_;
}

}  // namespace juce_backend
