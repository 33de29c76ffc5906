#include "KestroUI/ShapeControl.h"

#include <algorithm>
#include <utility>

namespace kestroui {

using platform::Point;
using platform::Rect;

namespace {

double rangeShare(float value, float minimum, float maximum) {
  if (!(maximum > minimum)) return 0;
  return std::clamp(static_cast<double>(value - minimum) / (maximum - minimum), 0.0, 1.0);
}

bool same(float a, float b) { return a == b || (std::isnan(a) && std::isnan(b)); }

}  // namespace

// Values

void ShapeControl::setValueCount(std::size_t count) {
  if (count == values_.size()) return;
  endPresses();
  hoveredHandle_.reset();
  values_.resize(count);
  chosen_ = 0;
  setNeedsDisplay();
}

float ShapeControl::value(std::size_t index) const { return at(index) ? at(index)->value : 0; }

void ShapeControl::setValue(std::size_t index, float value) {
  Value* const target = at(index);
  if (!target || std::isnan(value)) return;
  value = std::clamp(value, target->minimum, target->maximum);
  if (value == target->value) return;
  target->value = value;
  setNeedsDisplay();
}

void ShapeControl::setRange(std::size_t index, float minimum, float maximum) {
  Value* const target = at(index);
  if (!target || !(minimum <= maximum)) return;
  target->minimum = minimum;
  target->maximum = maximum;
  target->value = std::clamp(target->value, minimum, maximum);
  setNeedsDisplay();
}

float ShapeControl::minimum(std::size_t index) const { return at(index) ? at(index)->minimum : 0; }

float ShapeControl::maximum(std::size_t index) const { return at(index) ? at(index)->maximum : 1; }

void ShapeControl::setStepCount(std::size_t index, int count) {
  if (Value* const target = at(index)) target->stepCount = std::max(0, count);
}

void ShapeControl::setOrigin(std::size_t index, float share) {
  Value* const target = at(index);
  if (!target || same(target->origin, share)) return;
  target->origin = std::clamp(share, 0.0f, 1.0f);
  setNeedsDisplay();
}

float ShapeControl::origin(std::size_t index) const {
  if (!at(index)) return 0;
  return at(index)->reversed ? 1 - at(index)->origin : at(index)->origin;
}

void ShapeControl::setReversed(std::size_t index, bool reversed) {
  Value* const target = at(index);
  if (!target || target->reversed == reversed) return;
  target->reversed = reversed;
  setNeedsDisplay();
}

void ShapeControl::setName(std::size_t index, const std::string& name) {
  if (Value* const target = at(index)) target->name = name;
}

void ShapeControl::setText(std::size_t index, const std::string& text) {
  Value* const target = at(index);
  if (!target || target->text == text) return;
  target->text = text;
  noteActive();
}

const std::string& ShapeControl::text(std::size_t index) const {
  static const std::string none;
  const Value* const known = at(index);
  return known ? known->text : none;
}

void ShapeControl::setLive(std::size_t index, std::optional<float> value) {
  Value* const target = at(index);
  const float live = value.value_or(std::numeric_limits<float>::quiet_NaN());
  if (!target || same(target->live, live)) return;
  target->live = live;
  setNeedsDisplay();
}

bool ShapeControl::isModulated(std::size_t index) const { return liveShare(index).has_value(); }

double ShapeControl::share(std::size_t index) const {
  const Value* const source = at(index);
  if (!source) return 0;
  const double share = rangeShare(source->value, source->minimum, source->maximum);
  return source->reversed ? 1 - share : share;
}

std::optional<double> ShapeControl::liveShare(std::size_t index) const {
  const Value* const source = at(index);
  if (!source || std::isnan(source->live)) return std::nullopt;
  const double share = rangeShare(source->live, source->minimum, source->maximum);
  return source->reversed ? 1 - share : share;
}

double ShapeControl::stepShare(std::size_t index) const {
  const Value* const source = at(index);
  return source && source->stepCount > 0 ? 1.0 / source->stepCount : 0.01;
}

std::vector<std::size_t> ShapeControl::movedWith(std::size_t index, bool all) const {
  if (!all && (index >= links_.size() || !links_[index])) return {index};
  std::vector<std::size_t> indices(values_.size());
  for (std::size_t i = 0; i < indices.size(); ++i) indices[i] = i;
  return indices;
}

bool ShapeControl::moveTo(std::size_t index, double share, bool withAll) {
  Value* const target = at(index);
  if (!isEnabled() || !target || std::isnan(share) || !(target->maximum > target->minimum))
    return false;
  share = std::clamp(share, 0.0, 1.0);
  if (target->reversed) share = 1 - share;
  if (target->stepCount > 0) share = std::round(share * target->stepCount) / target->stepCount;
  const auto valueAt = [](const Value& of, double at) {
    // The ends exactly, whatever the rounding.
    if (at <= 0) return of.minimum;
    if (at >= 1) return of.maximum;
    return static_cast<float>(of.minimum + at * (of.maximum - of.minimum));
  };
  const std::vector<std::size_t> moved = movedWith(index, withAll);
  if (moved.size() == 1) {
    return change(index, limited(index, valueAt(*target, share)));
  }
  // All by the same share, as far as each of them can go.
  double by = share - rangeShare(target->value, target->minimum, target->maximum);
  for (const std::size_t i : moved) {
    const double from = rangeShare(values_[i].value, values_[i].minimum, values_[i].maximum);
    by = std::clamp(by, -from, 1 - from);
  }
  bool changed = false;
  for (const std::size_t i : moved) {
    const Value& value = values_[i];
    const double from = rangeShare(value.value, value.minimum, value.maximum);
    changed = change(i, valueAt(value, from + by)) || changed;
  }
  return changed;
}

bool ShapeControl::change(std::size_t index, float value) {
  const float before = values_[index].value;
  setValue(index, value);
  if (values_[index].value == before) return false;
  if (std::find(moved_.begin(), moved_.end(), index) == moved_.end()) moved_.push_back(index);
  return true;
}

// Handles

ShapeControl::Handle ShapeControl::plotHandle(std::optional<std::size_t> x,
                                              std::optional<std::size_t> y) const {
  const Rect area = plot();
  return {x,
          y,
          {area.x + area.width * (x ? share(*x) : 0.5),
           area.maxY() - area.height * (y ? share(*y) : 0.5)},
          {area.width, area.height}};
}

Point ShapeControl::placeOf(std::size_t index) const {
  for (const Handle& handle : handles())
    if (handle.x == index || handle.y == index) return handle.place;
  return bounds().centre();
}

std::optional<std::size_t> ShapeControl::handleAt(Point location) const {
  const std::vector<Handle> all = handles();
  return nearestOf(all, all.size(), location);
}

std::optional<std::size_t> ShapeControl::nearestOf(const std::vector<Handle>& handles,
                                                   std::size_t count, Point location) {
  std::optional<std::size_t> nearest;
  double minDistance = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const Point way = handles[i].place - location;
    const double distance = std::hypot(way.x, way.y);
    // Of several in one place the last is on top.
    if (nearest && distance > minDistance) continue;
    nearest = i;
    minDistance = distance;
  }
  return nearest;
}

std::optional<std::size_t> ShapeControl::activeHandle() const {
  if (!grips_.empty()) return grips_.back().handle;
  if (isHovered() && hoveredHandle_) return hoveredHandle_;
  if (!isFirstResponder() && !isInGesture()) return std::nullopt;
  const std::vector<Handle> all = handles();
  for (std::size_t i = 0; i < all.size(); ++i)
    if (all[i].x == chosen_ || all[i].y == chosen_) return i;
  return std::nullopt;
}

platform::Accessibility ShapeControl::accessibility() const {
  platform::Accessibility told = GestureControl::accessibility();
  const Value* const chosen = at(chosen_);
  if (!chosen) return told;
  told.value = chosen->text;
  if (values_.size() > 1 && !chosen->name.empty()) told.name += ' ' + chosen->name;
  const double length = static_cast<double>(chosen->maximum) - chosen->minimum;
  told.range = {chosen->minimum, chosen->maximum,
                chosen->stepCount > 0 ? length / chosen->stepCount : length * 0.01, chosen->value};
  return told;
}

std::string ShapeControl::activeText() const {
  const std::optional<std::size_t> active = activeHandle();
  const std::vector<Handle> all = handles();
  if (!active || *active >= all.size()) return {};
  const bool byKey = grips_.empty() && !(isHovered() && hoveredHandle_);
  std::string result;
  for (const std::size_t index : movedBy(all[*active])) {
    const Value* const source = at(index);
    if (!source || source->text.empty() || (byKey && index != chosen_)) continue;
    if (!result.empty()) result += "  ";
    if (values_.size() > 1 && !source->name.empty()) result += source->name + " ";
    result += source->text;
  }
  return result;
}

void ShapeControl::setShowsReadout(bool shows) {
  if (shows == showsReadout_) return;
  showsReadout_ = shows;
  setNeedsDisplay();
}

void ShapeControl::noteActive() {
  std::string text = activeText();
  if (text == shownActive_) return;
  shownActive_ = std::move(text);
  setNeedsDisplay();
  // A copy, since the action may destroy the control and with it the original.
  if (const auto action = activeChanged) action();
}

// Painting

void ShapeControl::paintHandle(platform::Canvas& canvas, const Handle& handle,
                               Plot::HandleState state) {
  Plot::paintHandle(canvas, handle.place, Plot::handleRadius(bounds().size()), stateAccent(),
                    state);
}

void ShapeControl::paint(platform::Canvas& canvas) {
  if (!(bounds().width >= 3) || !(bounds().height >= 3)) return;
  if (hasGround())
    Plot::paintGround(canvas, bounds(), stateAccent(),
                      {isFirstResponder(), isMuted(), isHovered() || isInGesture()});
  canvas.save();
  canvas.clip(bounds().inset(1, 1));
  paintShape(canvas, plot());
  const std::vector<Handle> all = handles();
  const double radius = Plot::handleRadius(bounds().size());
  for (const Handle& handle : all) {
    if (!showsLive()) break;
    const auto x = handle.x ? liveShare(*handle.x) : std::nullopt;
    const auto y = handle.y ? liveShare(*handle.y) : std::nullopt;
    if (!x && !y) continue;
    Point live = handle.place;
    if (x) live.x += (*x - share(*handle.x)) * handle.travel.width;
    if (y) live.y -= (*y - share(*handle.y)) * handle.travel.height;
    Plot::paintLive(canvas, handle.place, live, radius, stateAccent());
  }
  const std::optional<std::size_t> active = activeHandle();
  for (std::size_t i = 0; i < all.size(); ++i) {
    const bool held = std::any_of(grips_.begin(), grips_.end(),
                                  [i](const Grip& grip) { return grip.handle == i; });
    paintHandle(canvas, all[i],
                held          ? Plot::HandleState::held
                : active == i ? Plot::HandleState::near
                              : Plot::HandleState::resting);
  }
  canvas.restore();
  if (showsReadout_) Plot::paintReadout(canvas, bounds(), activeText(), faceScale());
}

}  // namespace kestroui
