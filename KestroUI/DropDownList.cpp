#include "KestroUI/DropDownList.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "KestroUI/Icons.h"
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

DropDownList::DropDownList() {
  setRange(0, 0);
  addTarget<&DropDownList::open>(*this, toolkit::ControlEvent::touchUpInside);
}

DropDownList::~DropDownList() = default;

void DropDownList::setEntries(std::vector<std::string> entries) {
  const int last = std::max(0, static_cast<int>(entries.size()) - 1);
  setRange(minimum(), minimum() + static_cast<float>(last));
  setStepCount(last);
  if (entries == entries_) return;
  close();
  entries_ = std::move(entries);
  setNeedsDisplay();
}

int DropDownList::selectedIndex() const {
  return static_cast<int>(std::lround(value() - minimum()));
}

void DropDownList::open() {
  if (isOpen() || entries_.empty() || !isEnabled() || !superview()) return;
  toolkit::View* root = superview();
  while (root->superview()) root = root->superview();
  popup_ = std::make_unique<DropDownPopup>(*this, *root);
  popup_->becomeFirstResponder();
  if (foundation::RunLoop::mainIfAny())
    watch_ = Timer(watchInterval, Timer::Repeat::forever, [this] {
      if (popup_ && !popup_->isStillRight()) close();
    });
  setNeedsDisplay();
}

void DropDownList::close() {
  if (!popup_) return;
  watch_.invalidate();
  const bool hadKeyboard = popup_->isFirstResponder();
  // Freed at the end: the popup itself may be the caller.
  const std::unique_ptr<DropDownPopup> closed = std::move(popup_);
  closed->removeFromSuperview();
  if (hadKeyboard && isShown()) becomeFirstResponder();
  setNeedsDisplay();
}

void DropDownList::choose(int index) {
  close();
  changeValueOnce(minimum() + static_cast<float>(index));
}

std::string DropDownList::ownValueText() const {
  const auto index = static_cast<std::size_t>(selectedIndex());
  return index < entries_.size() ? entries_[index] : std::string();
}

bool DropDownList::keyPressed(const platform::KeyEvent& event) {
  if (event.key == Key::returnKey || event.key == Key::space) {
    if (!isEnabled() || entries_.empty()) return false;
    open();
    return true;
  }
  // Down is the next entry, as in the open list.
  platform::KeyEvent turned = event;
  if (event.key == Key::down) turned.key = Key::right;
  if (event.key == Key::up) turned.key = Key::left;
  return KestroControl::keyPressed(turned);
}

bool DropDownList::wheelTurned(const platform::WheelEvent& event) {
  // Towards the user is down the list.
  platform::WheelEvent turned = event;
  turned.deltaY = -event.deltaY;
  return KestroControl::wheelTurned(turned);
}

void DropDownList::setHidden(bool hidden) {
  if (hidden) close();
  KestroControl::setHidden(hidden);
}

void DropDownList::didMoveToSuperview() {
  close();
  KestroControl::didMoveToSuperview();
}

void DropDownList::paint(platform::Canvas& canvas) {
  const Rect face = bounds().inset(1, 1);
  if (!(face.height >= 3) || !(face.width >= 3)) return;
  const double radius = std::min(Theme::cornerRadius + 1, face.height / 2);
  const platform::Color accent = stateAccent();
  const bool muted = isInactive() || !isEnabled();
  canvas.fillRoundedRect(face, radius, stateSurface());
  const bool marked = isOpen() || isFirstResponder();
  canvas.strokeRoundedRect(face.inset(0.5, 0.5), radius, 1, marked ? accent : Theme::line);

  const double margin = std::min(face.height * 0.32, face.width * 0.07);
  const double chevron = std::max(3.0, face.height * 0.3);
  const bool hasRoom = face.width > 3 * chevron + 2 * margin;
  if (hasRoom) {
    const Rect place{face.maxX() - margin - chevron, face.midY() - chevron / 2, chevron, chevron};
    canvas.strokePath(Icons::fitted(Icons::chevronDown(), place), {std::max(1.25, chevron * 0.17)},
                      muted ? Theme::textDim : accent);
  }
  const auto index = static_cast<std::size_t>(std::max(0, selectedIndex()));
  if (index >= entries_.size()) return;
  const double right = hasRoom ? face.maxX() - 2 * margin - chevron : face.maxX() - margin;
  canvas.drawText(entries_[index], faceFont(Theme::smallTitleFont, face.height),
                  {face.x + margin, face.y, right - face.x - margin, face.height},
                  platform::TextAlignment::left, muted ? Theme::textDim : Theme::text);
}

// The open list

DropDownPopup::DropDownPopup(DropDownList& owner, toolkit::View& root) : owner_(owner) {
  setFrame(root.bounds());
  ownerFrame_ = owner.frameInRoot();
  highlighted_ = owner.selectedIndex();
  place();
  root.addSubview(*this);
  modalScope().opened();
}

int DropDownPopup::count() const { return static_cast<int>(owner_.entries().size()); }

bool DropDownPopup::isStillRight() const {
  return owner_.isShown() && superview() && superview()->bounds().size() == bounds().size() &&
         owner_.frameInRoot() == ownerFrame_;
}

void DropDownPopup::place() {
  rowHeight_ = std::clamp(ownerFrame_.height * 0.9, 20.0, 28 * std::max(1.0, owner_.faceScale()));
  std::size_t longest = 0;
  for (const std::string& entry : owner_.entries())
    longest = std::max(longest, foundation::countCodePoints(entry));
  const double fontSize = rowHeight_ * fontShare;
  const double wanted = static_cast<double>(longest) * fontSize * 0.6 + 36;
  const double width =
      std::min(std::max(ownerFrame_.width, wanted), std::max(0.0, bounds().width - 2 * edge));
  const double below = bounds().height - edge - ownerFrame_.maxY();
  const double above = ownerFrame_.y - edge;
  const double full = count() * rowHeight_ + 2 * padding;
  // Below unless there is clearly more room above.
  const bool opensBelow = full <= below || below >= above;
  const double height = std::max(0.0, std::min(full, (opensBelow ? below : above) - 2));
  const double x = std::clamp(ownerFrame_.x, edge, std::max(edge, bounds().width - edge - width));
  list_ = {x, opensBelow ? ownerFrame_.maxY() + 2 : ownerFrame_.y - 2 - height, width, height};
  scrollTo((highlighted_ + 0.5) * rowHeight_ - height / 2);
}

int DropDownPopup::indexAt(Point point) const {
  if (!list_.contains(point)) return -1;
  const int index =
      static_cast<int>(std::floor((point.y - list_.y - padding + offset_) / rowHeight_));
  return index >= 0 && index < count() ? index : -1;
}

void DropDownPopup::scrollTo(double offset) {
  const double limit = std::max(0.0, count() * rowHeight_ + 2 * padding - list_.height);
  offset = std::clamp(offset, 0.0, limit);
  if (offset == offset_) return;
  offset_ = offset;
  setNeedsDisplay();
}

void DropDownPopup::highlight(int index) {
  if (index == highlighted_) return;
  highlighted_ = index;
  setNeedsDisplay();
}

void DropDownPopup::touchBegan(const toolkit::Touch& touch) {
  if (touchId_) return;
  const Point point = touch.locationIn(*this);
  if (!list_.contains(point)) {
    owner_.close();
    return;
  }
  touchId_ = touch.id;
  scrolled_ = false;
  highlight(indexAt(point));
}

void DropDownPopup::touchMoved(const toolkit::Touch& touch) {
  if (touch.id != touchId_) return;
  const double way = touch.location.y - touch.startLocation.y;
  const bool isLong = count() * rowHeight_ + 2 * padding > list_.height;
  if (isLong && std::fabs(way) > scrollSlop) scrolled_ = true;
  if (scrolled_)
    scrollTo(offset_ - (touch.location.y - touch.previousLocation.y));
  else
    highlight(indexAt(touch.locationIn(*this)));
}

void DropDownPopup::touchEnded(const toolkit::Touch& touch) {
  if (touch.id != touchId_) return;
  touchId_.reset();
  const int index = scrolled_ ? -1 : indexAt(touch.locationIn(*this));
  // Destroys this view.
  if (index >= 0) owner_.choose(index);
}

void DropDownPopup::touchCancelled(const toolkit::Touch& touch) {
  if (touch.id == touchId_) touchId_.reset();
}

bool DropDownPopup::wheelTurned(const platform::WheelEvent& event) {
  scrollTo(offset_ - event.deltaY * rowHeight_ * 2);
  return true;
}

platform::Accessibility DropDownPopup::accessibility() const {
  platform::Accessibility told = owner_.accessibility();
  const auto& entries = owner_.entries();
  if (highlighted_ >= 0 && highlighted_ < count())
    told.value = entries[static_cast<std::size_t>(highlighted_)];
  return told;
}

bool DropDownPopup::keyPressed(const platform::KeyEvent& event) {
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
        owner_.choose(highlighted_);
      else
        owner_.close();
      return true;
    case Key::escape:
      owner_.close();
      return true;
    case Key::tab:
      owner_.close();
      return false;
    default:
      return false;
  }
  highlight(std::clamp(next, 0, std::max(0, count() - 1)));
  const double top = highlighted_ * rowHeight_ + padding;
  scrollTo(std::min(std::max(offset_, top + rowHeight_ + padding - list_.height), top - padding));
  return true;
}

void DropDownPopup::paint(platform::Canvas& canvas) {
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

void DropDownPopup::paintRow(platform::Canvas& canvas, int index) {
  const Rect row{list_.x + padding, list_.y + padding + index * rowHeight_ - offset_,
                 list_.width - 2 * padding, rowHeight_};
  const Color accent = owner_.accentColor();
  const bool marked = index == highlighted_;
  if (marked) canvas.fillRoundedRect(row, Theme::cornerRadius, accent.withAlpha(0.24f));
  const bool chosen = index == owner_.selectedIndex();
  if (chosen)
    canvas.fillRoundedRect({row.x + 2, row.midY() - rowHeight_ * 0.25, 3, rowHeight_ * 0.5}, 1.5,
                           accent);
  canvas.drawText(owner_.entries()[static_cast<std::size_t>(index)],
                  Theme::regularFont.withSize(rowHeight_ * fontShare),
                  {row.x + 12, row.y, std::max(0.0, row.width - 20), row.height},
                  platform::TextAlignment::left, chosen || marked ? Theme::text : Theme::lightGrey);
}

}  // namespace kestroui
