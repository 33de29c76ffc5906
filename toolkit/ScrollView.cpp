#include "toolkit/ScrollView.h"

#include <algorithm>
#include <cmath>

#include "toolkit/Control.h"

namespace toolkit {

using foundation::DisplayLink;
using foundation::RunLoop;
using platform::Canvas;
using platform::Color;
using platform::Key;
using platform::KeyEvent;
using platform::Modifiers;
using platform::Point;
using platform::Rect;
using platform::Weak;
using platform::WheelEvent;

namespace {

/// A touch that moves less than this is a tap, in points.
constexpr double tapRadius = 6;
constexpr double barWidth = 4;
/// How near to the right end the bar can be taken.
constexpr double barReach = 14;
constexpr double minThumb = 24;
/// What is left of the speed of a glide after a second.
constexpr double keptPerSecond = 0.12;
/// Slower than this a glide is over, in points a second.
constexpr double slowest = 12;
constexpr double fastest = 8000;
/// A finger that rests this long before it lifts does not throw, in seconds.
constexpr double restTime = 0.08;

}  // namespace

void ScrollView::Bar::setThumb(const Rect& thumb, Color color) {
  if (thumb == thumb_ && color == color_) return;
  thumb_ = thumb;
  color_ = color;
  setNeedsDisplay();
}

void ScrollView::Bar::paint(Canvas& canvas) {
  if (!thumb_.isEmpty()) canvas.fillRoundedRect(thumb_, thumb_.width / 2, color_);
}

ScrollView::ScrollView() {
  setClipsToBounds(true);
  bar_.setUserInteractionEnabled(false);
  addSubview(content_);
  addSubview(bar_);
}

ScrollView::~ScrollView() = default;

double ScrollView::maximumOffset() const { return std::max(0.0, contentHeight_ - bounds().height); }

double ScrollView::barRoom() const { return maximumOffset() > 0 ? barReach : 0; }

void ScrollView::setContentHeight(double height) {
  if (height == contentHeight_) return;
  contentHeight_ = height;
  offset_ = std::clamp(offset_, 0.0, maximumOffset());
  setNeedsDisplay();
}

void ScrollView::setContentOffset(double offset) {
  const double next = std::clamp(std::isfinite(offset) ? offset : 0, 0.0, maximumOffset());
  if (next == offset_) return;
  offset_ = next;
  setNeedsDisplay();
}

void ScrollView::scrollRectToVisible(const Rect& rect) {
  stop();
  if (rect.maxY() > offset_ + bounds().height) setContentOffset(rect.maxY() - bounds().height);
  if (rect.y < offset_) setContentOffset(rect.y);
}

void ScrollView::setBarColor(Color color) {
  barColor_ = color;
  updateBar();
}

void ScrollView::draw(const Rect&) {
  // A smaller view may have been scrolled further than this one can be.
  offset_ = std::clamp(offset_, 0.0, maximumOffset());
  content_.setFrame(bounds());
  bar_.setFrame({bounds().width - barReach, 0, barReach, bounds().height});
  updateBar();
}

void ScrollView::updateBar() {
  const double height = bounds().height;
  if (maximumOffset() <= 0 || height <= 0) {
    bar_.setThumb({}, barColor_);
    return;
  }
  const double length = std::min(height, std::max(minThumb, height * height / contentHeight_));
  const bool isHeld = gesture_ == Gesture::bar;
  const double width = isHeld || hovered_ ? barWidth * 1.5 : barWidth;
  bar_.setThumb(
      {barReach - width - 2, (height - length) * offset_ / maximumOffset(), width, length},
      isHeld ? barColor_.withAlpha(std::min(1.0f, barColor_.alpha * 2)) : barColor_);
}

View* ScrollView::hitTest(Point point) {
  View* const hit = View::hitTest(point);
  const bool onBar = maximumOffset() > 0 && point.x > bounds().width - barReach;
  return hit && (onBar || !dynamic_cast<Control*>(hit)) ? this : hit;
}

void ScrollView::hoverChanged(bool hovered) {
  hovered_ = hovered;
  updateBar();
}

void ScrollView::touchBegan(const Touch& touch) {
  const Point place = touch.locationIn(*this);
  const bool wasGliding = gliding_ != nullptr;
  stop();
  start_ = place;
  startOffset_ = offset_;
  lastTime_ = touch.timestamp;
  if (maximumOffset() > 0 && place.x > bounds().width - barReach) {
    gesture_ = Gesture::bar;
    const Rect& thumb = bar_.thumb();
    // Beside the thumb, the thumb comes to the finger.
    if (place.y < thumb.y || place.y > thumb.maxY()) {
      const double room = bounds().height - thumb.height;
      if (room > 0) setContentOffset((place.y - thumb.height / 2) / room * maximumOffset());
      startOffset_ = offset_;
    }
    updateBar();
    return;
  }
  // A finger that stops a glide means only that.
  gesture_ = wasGliding ? Gesture::pan : Gesture::press;
  if (gesture_ == Gesture::press) pressed(place);
}

void ScrollView::touchMoved(const Touch& touch) {
  const Point place = touch.locationIn(*this);
  if (gesture_ == Gesture::bar) {
    const double room = bounds().height - bar_.thumb().height;
    if (room > 0) setContentOffset(startOffset_ + (place.y - start_.y) / room * maximumOffset());
    return;
  }
  if (gesture_ == Gesture::press &&
      std::hypot(place.x - start_.x, place.y - start_.y) > tapRadius) {
    gesture_ = Gesture::pan;
    start_ = place;
    pressed(std::nullopt);
  }
  if (gesture_ != Gesture::pan) return;
  const double before = offset_;
  setContentOffset(startOffset_ - (place.y - start_.y));
  const double elapsed = touch.timestamp - lastTime_;
  if (elapsed > 0) {
    // The last movement counts most.
    velocity_ = 0.3 * velocity_ + 0.7 * (offset_ - before) / elapsed;
    lastTime_ = touch.timestamp;
  }
}

void ScrollView::touchEnded(const Touch& touch) {
  const Gesture gesture = gesture_;
  gesture_ = Gesture::none;
  updateBar();
  if (gesture == Gesture::pan && touch.timestamp - lastTime_ < restTime &&
      std::fabs(velocity_) > slowest) {
    velocity_ = std::clamp(velocity_, -fastest, fastest);
    lastTime_ = RunLoop::main().now();
    gliding_ = std::make_unique<DisplayLink>([this] { glide(); });
  }
  if (gesture != Gesture::press) return;
  const Weak<ScrollView> self = this;
  pressed(std::nullopt);
  if (self) tapped(touch);
}

void ScrollView::touchCancelled(const Touch&) {
  if (gesture_ == Gesture::press) pressed(std::nullopt);
  gesture_ = Gesture::none;
  stop();
  updateBar();
}

void ScrollView::glide() {
  const double now = RunLoop::main().now();
  const double elapsed = std::clamp(now - lastTime_, 0.0, 0.1);
  lastTime_ = now;
  const double before = offset_;
  setContentOffset(offset_ + velocity_ * elapsed);
  velocity_ *= std::pow(keptPerSecond, elapsed);
  const bool atEnd = elapsed > 0 && offset_ == before;
  if (atEnd || std::fabs(velocity_) < slowest || !isShown()) stop();
}

void ScrollView::stop() {
  velocity_ = 0;
  gliding_.reset();
}

bool ScrollView::wheelTurned(const WheelEvent& event) {
  if (event.deltaY == 0 || maximumOffset() <= 0) return false;
  stop();
  setContentOffset(offset_ - event.deltaY * wheelStep());
  return true;
}

bool ScrollView::keyPressed(const KeyEvent& event) {
  if (event.modifiers != Modifiers::none || maximumOffset() <= 0) return false;
  const double page = bounds().height * 0.9;
  switch (event.key) {
    case Key::pageUp:
    case Key::pageDown:
      stop();
      setContentOffset(offset_ + (event.key == Key::pageDown ? page : -page));
      return true;
    case Key::home:
    case Key::end:
      stop();
      setContentOffset(event.key == Key::home ? 0 : maximumOffset());
      return true;
    default:
      return false;
  }
}

}  // namespace toolkit
