#include "KestroUI/BitFlagsGroup.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "foundation/UnicodeText.h"

namespace kestroui {

namespace {

constexpr std::size_t mostFlags = 24;

}  // namespace

void BitFlagsGroup::setTitles(std::vector<std::string> titles) {
  if (titles.size() > mostFlags) titles.resize(mostFlags);
  setRange(0, static_cast<float>((1u << titles.size()) - 1));
  titles_ = std::move(titles);
  longestTitle_ = 1;
  for (const std::string& title : titles_)
    longestTitle_ = std::max(longestTitle_, foundation::countCodePoints(title));
  setNeedsDisplay();
}

std::uint32_t BitFlagsGroup::bits() const {
  return static_cast<std::uint32_t>(std::lround(std::max(0.0f, value())));
}

bool BitFlagsGroup::isOn(int index) const {
  return index >= 0 && index < static_cast<int>(mostFlags) && (bits() >> index & 1u) != 0;
}

ButtonGrid BitFlagsGroup::grid(const platform::Size& size) const {
  const double wantedWidth = std::max(26.0, static_cast<double>(longestTitle_) * 6.6 + 10);
  return ButtonGrid::fitting(static_cast<int>(titles_.size()), size,
                             {wantedWidth * faceScale(), 22 * faceScale()});
}

double BitFlagsGroup::bestHeight(const platform::Size& available) const {
  return std::min(available.height, grid(available).rows * lineFaceHeight());
}

void BitFlagsGroup::slide(platform::Point point) {
  const int index = grid(bounds().size()).indexAt(point);
  if (index < 0) return;
  const std::uint32_t bit = 1u << index;
  if (painting_ == Painting::none) painting_ = isOn(index) ? Painting::off : Painting::on;
  changeValue(static_cast<float>(painting_ == Painting::on ? bits() | bit : bits() & ~bit));
}

void BitFlagsGroup::touchBegan(const toolkit::Touch& touch) {
  const platform::Weak<BitFlagsGroup> alive = this;
  KestroControl::touchBegan(touch);
  if (!alive || !isEnabled()) return;
  painting_ = Painting::none;
  beginGesture();
  if (alive) slide(touch.locationIn(*this));
}

void BitFlagsGroup::touchMoved(const toolkit::Touch& touch) {
  const platform::Weak<BitFlagsGroup> alive = this;
  KestroControl::touchMoved(touch);
  if (alive && isInGesture()) slide(touch.locationIn(*this));
}

void BitFlagsGroup::touchEnded(const toolkit::Touch& touch) {
  const platform::Weak<BitFlagsGroup> alive = this;
  KestroControl::touchEnded(touch);
  if (alive) endGesture();
}

void BitFlagsGroup::touchCancelled(const toolkit::Touch& touch) {
  const platform::Weak<BitFlagsGroup> alive = this;
  KestroControl::touchCancelled(touch);
  if (alive) endGesture();
}

bool BitFlagsGroup::keyPressed(const platform::KeyEvent& event) {
  using platform::Key;
  const int count = static_cast<int>(titles_.size());
  if (!isEnabled() || count == 0 || event.modifiers != platform::Modifiers::none) return false;
  const int columns = std::max(1, grid(bounds().size()).columns);
  int next = std::min(cursor_, count - 1);
  switch (event.key) {
    case Key::left:
      next -= 1;
      break;
    case Key::right:
      next += 1;
      break;
    case Key::up:
      next -= columns;
      break;
    case Key::down:
      next += columns;
      break;
    case Key::home:
      next = 0;
      break;
    case Key::end:
      next = count - 1;
      break;
    case Key::space:
    case Key::returnKey:
      changeValueOnce(static_cast<float>(bits() ^ 1u << next));
      return true;
    default:
      return false;
  }
  if (next >= 0 && next < count) cursor_ = next;
  setNeedsDisplay();
  return true;
}

std::string BitFlagsGroup::ownValueText() const {
  std::string text;
  for (std::size_t i = 0; i < titles_.size(); ++i)
    if (isOn(static_cast<int>(i))) text += (text.empty() ? "" : ", ") + titles_[i];
  return text.empty() ? "None" : text;
}

void BitFlagsGroup::paint(platform::Canvas& canvas) {
  if (titles_.empty() || !(bounds().width >= 4) || !(bounds().height >= 4)) return;
  const ButtonGrid cells = grid(bounds().size());
  const platform::Color accent = stateAccent();
  const bool muted = isInactive() || !isEnabled();
  const double perLetter = 0.58 * static_cast<double>(longestTitle_);
  platform::Font font = faceFont(Theme::smallTitleFont, cells.cell.height);
  font.pointSize = std::min(font.pointSize, std::max(7.0, (cells.cell.width - 6) / perLetter));
  for (int i = 0; i < cells.count; ++i) {
    const platform::Rect cell = cells.frame(i).inset(1, 1);
    if (cell.isEmpty()) continue;
    const bool on = isOn(i);
    canvas.fillRoundedRect(cell, std::min(Theme::cornerRadius, cell.height / 2),
                           on ? litSurface() : stateSurface());
    canvas.drawText(titles_[static_cast<std::size_t>(i)], font,
                    cell.inset(std::min(2.0, cell.width * 0.1), 0), platform::TextAlignment::centre,
                    on      ? Theme::textOn(accent)
                    : muted ? Theme::textDim
                            : Theme::lightGrey);
  }
  if (isFirstResponder() && cursor_ < cells.count)
    canvas.strokeRoundedRect(cells.frame(cursor_).inset(0.5, 0.5), Theme::cornerRadius + 1, 1,
                             Theme::text);
}

}  // namespace kestroui
