#include "toolkit/Recorder.h"

#include <algorithm>
#include <cmath>

namespace toolkit {

using platform::Color;
using platform::Font;
using platform::Paint;
using platform::Path;
using platform::Placement;
using platform::Point;
using platform::Rect;

namespace {

constexpr Rect everywhere{-1e9, -1e9, 2e9, 2e9};
/// Rounding errors below this do not count as painting outside.
constexpr double tolerance = 1e-6;

bool isFinite(const Rect& r) {
  return std::isfinite(r.x) && std::isfinite(r.y) && std::isfinite(r.width) &&
         std::isfinite(r.height);
}

bool isFinite(const Path& path) {
  return std::all_of(path.points().begin(), path.points().end(),
                     [](Point p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

bool isVisible(const Paint& paint) {
  if (paint.stops.empty()) return paint.color.alpha > 0;
  return std::any_of(paint.stops.begin(), paint.stops.end(),
                     [](const Paint::Stop& stop) { return stop.color.alpha > 0; });
}

}  // namespace

void Recorder::begin(const platform::Size& size) {
  list_.clear();
  saved_.clear();
  bounds_ = {0, 0, size.width, size.height};
  state_ = {{}, everywhere};
}

const DisplayList& Recorder::finish() {
  while (!saved_.empty()) restore();
  if (list_.bounds_.isEmpty()) list_.clear();
  return list_;
}

void Recorder::save() {
  saved_.push_back(state_);
  add(Op::save);
}

void Recorder::restore() {
  if (saved_.empty()) return;
  state_ = saved_.back();
  saved_.pop_back();
  // A pair with nothing between it is not worth playing back.
  if (list_.commands_.back().op == Op::save)
    list_.commands_.pop_back();
  else
    add(Op::restore);
}

void Recorder::place(const Placement& placement) {
  state_.placement = placement.within(state_.placement);
  add(Op::place);
  list_.values_.insert(list_.values_.end(),
                       {placement.origin.x, placement.origin.y, placement.scale});
}

void Recorder::clip(const Rect& rect) {
  const Rect area = rect.isEmpty() || !isFinite(rect) ? Rect{} : rect;
  state_.clip = state_.clip.intersection(state_.placement.apply(area));
  add(Op::clip);
  addRect(area);
}

void Recorder::fillRect(const Rect& rect, const Paint& paint) {
  if (rect.isEmpty() || !isVisible(paint) || !cover(rect)) return;
  add(Op::fillRect, 0, addPaint(paint));
  addRect(rect);
}

void Recorder::fillRoundedRect(const Rect& rect, double radius, const Paint& paint) {
  if (!(radius > 0)) return fillRect(rect, paint);
  if (rect.isEmpty() || !isVisible(paint) || !cover(rect)) return;
  add(Op::fillRoundedRect, 0, addPaint(paint));
  addRect(rect);
  list_.values_.push_back(radius);
}

void Recorder::strokeRoundedRect(const Rect& rect, double radius, double width,
                                 const Paint& paint) {
  if (!(width > 0) || rect.isEmpty() || !isVisible(paint)) return;
  if (!cover(rect.inset(-width / 2, -width / 2))) return;
  add(Op::strokeRoundedRect, 0, addPaint(paint));
  addRect(rect);
  list_.values_.push_back(radius > 0 ? radius : 0);
  list_.values_.push_back(width);
}

void Recorder::fillEllipse(const Rect& rect, const Paint& paint) {
  if (rect.isEmpty() || !isVisible(paint) || !cover(rect)) return;
  add(Op::fillEllipse, 0, addPaint(paint));
  addRect(rect);
}

void Recorder::fillPath(const Path& path, const Paint& paint) {
  if (path.isEmpty() || !isVisible(paint) || !isFinite(path) || !cover(path.bounds())) return;
  const std::uint32_t item = addPath(path);
  add(Op::fillPath, item, addPaint(paint));
}

void Recorder::strokePath(const Path& path, const platform::StrokeStyle& style,
                          const Paint& paint) {
  if (path.isEmpty() || !(style.width > 0) || !isVisible(paint) || !isFinite(path)) return;
  if (!cover(path.bounds().inset(-style.width / 2, -style.width / 2))) return;
  const std::uint32_t item = addPath(path);
  add(Op::strokePath, item, addPaint(paint));
  list_.values_.push_back(style.width);
  list_.values_.push_back(static_cast<double>(style.cap));
}

void Recorder::drawText(std::string_view text, const Font& font, const Rect& rect,
                        platform::TextAlignment alignment, Color color, double minimumScale) {
  if (text.empty() || !(font.pointSize > 0) || !(color.alpha > 0)) return;
  if (rect.isEmpty() || !cover(rect)) return;
  add(Op::text, static_cast<std::uint32_t>(list_.texts_.size()));
  platform::TextRun& run = list_.texts_.add();
  run.text.assign(text);
  run.font = font;
  run.rect = rect;
  run.alignment = alignment;
  run.color = color;
  run.minimumScale = minimumScale;
}

double Recorder::textWidth(std::string_view text, const Font& font) {
  return measurer_(text, font);
}

bool Recorder::intersectsClip(const Rect& rect) const {
  return state_.clip.intersection(bounds_).intersects(state_.placement.apply(rect));
}

bool Recorder::cover(const Rect& area) {
  const Rect box = state_.placement.apply(area);
  if (!isFinite(box)) return false;
  const Rect shown = box.intersection(state_.clip);
  const Rect inside = shown.intersection(bounds_);
  if (inside.isEmpty()) return false;
  if (!bounds_.contains(shown.inset(tolerance, tolerance))) list_.exceedsSize_ = true;
  list_.bounds_ = list_.bounds_.unionWith(inside);
  return true;
}

void Recorder::add(Op op, std::uint32_t item, std::uint32_t paint) {
  list_.commands_.push_back({op, item, paint});
}

void Recorder::addRect(const Rect& rect) {
  list_.values_.insert(list_.values_.end(), {rect.x, rect.y, rect.width, rect.height});
}

std::uint32_t Recorder::addPaint(const Paint& paint) {
  const std::size_t count = list_.paints_.size();
  if (count > 0 && list_.paints_[count - 1] == paint) return static_cast<std::uint32_t>(count - 1);
  list_.paints_.add() = paint;
  return static_cast<std::uint32_t>(count);
}

std::uint32_t Recorder::addPath(const Path& path) {
  list_.paths_.add() = path;
  return static_cast<std::uint32_t>(list_.paths_.size() - 1);
}

}  // namespace toolkit
