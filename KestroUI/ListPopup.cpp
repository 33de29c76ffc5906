#include "KestroUI/ListPopup.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "KestroUI/Theme.h"
#include "foundation/UnicodeText.h"

namespace kestroui {

using foundation::Timer;
using platform::Color;
using platform::Key;
using platform::Point;
using platform::Rect;

namespace {

constexpr double edge = 4;
constexpr double padding = 4;
// Of a row's height.
constexpr double fontShare = 0.45;
// Points of a finger's way that make a touch a scroll instead of a choice.
constexpr double scrollSlop = 6;
// Seconds between two looks whether the open list is still in its place.
constexpr double watchInterval = 0.1;

}  // namespace

std::unique_ptr<ListPopup> ListPopup::open(ListPopupOwner& owner, toolkit::View& anchor,
                                           Look look) {
  if (!anchor.superview() || owner.popupEntries().empty()) return nullptr;
  return std::unique_ptr<ListPopup>(new ListPopup(owner, anchor, look));
}

ListPopup::ListPopup(ListPopupOwner& owner, toolkit::View& anchor, Look look)
    : owner_(owner), anchor_(anchor), look_(look) {
  toolkit::View* root = anchor.superview();
  while (root->superview()) root = root->superview();
  setFrame(root->bounds());
  anchorFrame_ = anchor.frameInRoot();
  highlighted_ = owner.popupSelection();
  place();
  root->addSubview(*this);
  modalScope().opened();
  becomeFirstResponder();
  if (foundation::RunLoop::mainIfAny())
    watch_ = Timer(watchInterval, Timer::Repeat::forever, [this] {
      if (!isStillRight()) owner_.popupDidCancel();
    });
}

bool ListPopup::close(std::unique_ptr<ListPopup>& popup) {
  if (!popup) return false;
  // Freed at the end: the popup itself may be the caller.
  const std::unique_ptr<ListPopup> closed = std::move(popup);
  closed->watch_.invalidate();
  const bool hadKeyboard = closed->isFirstResponder();
  closed->modalScope().closed();
  closed->removeFromSuperview();
  return hadKeyboard;
}

int ListPopup::count() const { return static_cast<int>(owner_.popupEntries().size()); }

bool ListPopup::isStillRight() const {
  return anchor_.isShown() && superview() && superview()->bounds().size() == bounds().size() &&
         anchor_.frameInRoot() == anchorFrame_;
}

void ListPopup::place() {
  rowHeight_ = std::clamp(anchorFrame_.height * 0.9, 20.0, 28 * std::max(1.0, look_.faceScale));
  std::size_t longest = 0;
  for (const std::string& entry : owner_.popupEntries())
    longest = std::max(longest, foundation::countCodePoints(entry));
  const double fontSize = rowHeight_ * fontShare;
  const double wanted = static_cast<double>(longest) * fontSize * 0.6 + 36;
  const double width =
      std::min(std::max(anchorFrame_.width, wanted), std::max(0.0, bounds().width - 2 * edge));
  const double below = bounds().height - edge - anchorFrame_.maxY();
  const double above = anchorFrame_.y - edge;
  const double full = count() * rowHeight_ + 2 * padding;
  // Below unless there is clearly more room above.
  const bool opensBelow = full <= below || below >= above;
  const double height = std::max(0.0, std::min(full, (opensBelow ? below : above) - 2));
  const double x = std::clamp(anchorFrame_.x, edge, std::max(edge, bounds().width - edge - width));
  list_ = {x, opensBelow ? anchorFrame_.maxY() + 2 : anchorFrame_.y - 2 - height, width, height};
  scrollTo((std::max(0, highlighted_) + 0.5) * rowHeight_ - height / 2);
}

int ListPopup::indexAt(Point point) const {
  if (!list_.contains(point)) return -1;
  const int index =
      static_cast<int>(std::floor((point.y - list_.y - padding + offset_) / rowHeight_));
  return index >= 0 && index < count() ? index : -1;
}

void ListPopup::scrollTo(double offset) {
  const double limit = std::max(0.0, count() * rowHeight_ + 2 * padding - list_.height);
  offset = std::clamp(offset, 0.0, limit);
  if (offset == offset_) return;
  offset_ = offset;
  setNeedsDisplay();
}

void ListPopup::highlight(int index) {
  if (index == highlighted_) return;
  highlighted_ = index;
  setNeedsDisplay();
}

void ListPopup::touchBegan(const toolkit::Touch& touch) {
  if (touchId_) return;
  const Point point = touch.locationIn(*this);
  if (!list_.contains(point)) {
    owner_.popupDidCancel();
    return;
  }
  touchId_ = touch.id;
  scrolled_ = false;
  highlight(indexAt(point));
}

void ListPopup::touchMoved(const toolkit::Touch& touch) {
  if (touch.id != touchId_) return;
  const double way = touch.location.y - touch.startLocation.y;
  const bool isLong = count() * rowHeight_ + 2 * padding > list_.height;
  if (isLong && std::fabs(way) > scrollSlop) scrolled_ = true;
  if (scrolled_)
    scrollTo(offset_ - (touch.location.y - touch.previousLocation.y));
  else
    highlight(indexAt(touch.locationIn(*this)));
}

void ListPopup::touchEnded(const toolkit::Touch& touch) {
  if (touch.id != touchId_) return;
  touchId_.reset();
  const int index = scrolled_ ? -1 : indexAt(touch.locationIn(*this));
  // Destroys this view.
  if (index >= 0) owner_.popupDidChoose(index);
}

void ListPopup::touchCancelled(const toolkit::Touch& touch) {
  if (touch.id == touchId_) touchId_.reset();
}

bool ListPopup::wheelTurned(const platform::WheelEvent& event) {
  scrollTo(offset_ - event.deltaY * rowHeight_ * 2);
  return true;
}

platform::Accessibility ListPopup::accessibility() const {
  platform::Accessibility told = anchor_.accessibility();
  const auto& entries = owner_.popupEntries();
  if (highlighted_ >= 0 && highlighted_ < count())
    told.value = entries[static_cast<std::size_t>(highlighted_)];
  return told;
}

bool ListPopup::keyPressed(const platform::KeyEvent& event) {
  const int page = std::max(1, static_cast<int>(list_.height / rowHeight_) - 1);
  int next = highlighted_;
  switch (event.key) {
    case Key::up:
      next -= 1;
      break;
    case Key::down:
      next += 1;
      break;
    case Key::pageUp:
      next -= page;
      break;
    case Key::pageDown:
      next += page;
      break;
    case Key::home:
      next = 0;
      break;
    case Key::end:
      next = count() - 1;
      break;
    case Key::returnKey:
    case Key::space:
      if (highlighted_ >= 0)
        owner_.popupDidChoose(highlighted_);
      else
        owner_.popupDidCancel();
      return true;
    case Key::escape:
      owner_.popupDidCancel();
      return true;
    case Key::tab:
      owner_.popupDidCancel();
      return false;
    default:
      return false;
  }
  highlight(std::clamp(next, 0, std::max(0, count() - 1)));
  const double top = highlighted_ * rowHeight_ + padding;
  scrollTo(std::min(std::max(offset_, top + rowHeight_ + padding - list_.height), top - padding));
  return true;
}

void ListPopup::paint(platform::Canvas& canvas) {
  if (list_.isEmpty()) return;
  const double radius = Theme::cornerRadius + 2;
  canvas.fillRoundedRect(list_.translated(0, 2).inset(-3, -3), radius + 3,
                         Theme::background.withAlpha(0.45f));
  canvas.fillRoundedRect(list_, radius, Theme::surface);
  canvas.save();
  canvas.clip(list_.inset(1, 1));
  const int first = std::max(0, static_cast<int>((offset_ - padding) / rowHeight_));
  for (int i = first; i < count(); ++i) {
    if (list_.y + padding + i * rowHeight_ - offset_ > list_.maxY()) break;
    paintRow(canvas, i);
  }
  canvas.restore();
  canvas.strokeRoundedRect(list_, radius, 1, Theme::line);

  const double full = count() * rowHeight_ + 2 * padding;
  if (full <= list_.height + 0.5) return;
  const double length = std::max(12.0, list_.height * list_.height / full);
  const double y = list_.y + offset_ / (full - list_.height) * (list_.height - length);
  canvas.fillRoundedRect({list_.maxX() - 5, y + 2, 3, length - 4}, 1.5, Theme::textDim);
}

void ListPopup::paintRow(platform::Canvas& canvas, int index) {
  const Rect row{list_.x + padding, list_.y + padding + index * rowHeight_ - offset_,
                 list_.width - 2 * padding, rowHeight_};
  const Color accent = look_.accent;
  const bool marked = index == highlighted_;
  if (marked) canvas.fillRoundedRect(row, Theme::cornerRadius, accent.withAlpha(0.24f));
  const bool chosen = index == owner_.popupSelection();
  if (chosen)
    canvas.fillRoundedRect({row.x + 2, row.midY() - rowHeight_ * 0.25, 3, rowHeight_ * 0.5}, 1.5,
                           accent);
  canvas.drawText(owner_.popupEntries()[static_cast<std::size_t>(index)],
                  Theme::regularFont.withSize(rowHeight_ * fontShare),
                  {row.x + 12, row.y, std::max(0.0, row.width - 20), row.height},
                  platform::TextAlignment::left, chosen || marked ? Theme::text : Theme::lightGrey);
}

}  // namespace kestroui
