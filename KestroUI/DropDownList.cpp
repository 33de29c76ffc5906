#include "KestroUI/DropDownList.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "KestroUI/Icons.h"

namespace kestroui {

using platform::Key;
using platform::Rect;

DropDownList::DropDownList() {
  setRange(0, 0);
  addTarget<&DropDownList::open>(*this, toolkit::ControlEvent::touchUpInside);
}

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
  if (isOpen() || !isEnabled()) return;
  popup_ = ListPopup::open(*this, *this, {accentColor(), faceScale()});
  setNeedsDisplay();
}

void DropDownList::close() {
  if (!isOpen()) return;
  if (ListPopup::close(popup_) && isShown()) becomeFirstResponder();
  setNeedsDisplay();
}

void DropDownList::popupDidChoose(int index) {
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

}  // namespace kestroui
