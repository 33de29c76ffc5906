#include "KestroUI/ButtonGroups.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "KestroUI/Icons.h"
#include "foundation/UnicodeText.h"

namespace kestroui {

using platform::Rect;

namespace {

constexpr std::size_t maxFlags = 24;

}  // namespace

ButtonGrid ButtonGrid::fitting(int count, const platform::Size& size,
                               const platform::Size& wanted) {
  ButtonGrid best;
  if (count <= 0 || !(size.width > 0) || !(size.height > 0)) return best;
  double bestScore = -1;
  // From few rows to many, so that one row wins wherever it fits; each as full as can be.
  for (int rows = 1; rows <= count; ++rows) {
    const int columns = (count + rows - 1) / rows;
    if ((count + columns - 1) / columns != rows) continue;
    const platform::Size cell{size.width / columns, size.height / rows};
    const double score = std::min({cell.width / wanted.width, cell.height / wanted.height, 1.0});
    if (score <= bestScore + 1e-9) continue;
    bestScore = score;
    best = {count, columns, rows, cell};
  }
  return best;
}

platform::Rect ButtonGrid::frame(int index) const {
  const int row = index / columns;
  const int inRow = row == rows - 1 ? count - row * columns : columns;
  const double width = cell.width * columns / std::max(1, inRow);
  return {width * (index % columns), cell.height * row, width, cell.height};
}

int ButtonGrid::indexAt(platform::Point point) const {
  for (int i = 0; i < count; ++i)
    if (frame(i).contains(point)) return i;
  return -1;
}

// Groups

void ButtonGroup::setButtonTitles(std::vector<std::string> titles) {
  titles_ = std::move(titles);
  setNeedsDisplay();
}

ButtonGrid ButtonGroup::grid(const platform::Size& size) const {
  const double wantedWidth = std::max(26.0, static_cast<double>(maxTitleLength_) * 6.6 + 10);
  return ButtonGrid::fitting(static_cast<int>(titles_.size()), size,
                             {wantedWidth * faceScale(), 22 * faceScale()});
}

double ButtonGroup::bestHeight(const platform::Size& available) const {
  return std::min(available.height, grid(available).rows * lineFaceHeight());
}

platform::Font ButtonGroup::cellFont(const platform::Size& cell) const {
  const double perLetter = 0.58 * static_cast<double>(maxTitleLength_);
  const platform::Font font = faceFont(Theme::smallTitleFont, cell.height);
  return font.withSize(std::min(font.pointSize, std::max(7.0, (cell.width - 6) / perLetter)));
}

platform::Color ButtonGroup::titleColor(bool isLit) const {
  return isLit ? Theme::textOn(stateAccent()) : isMuted() ? Theme::textDim : Theme::lightGrey;
}

void ButtonGroup::paintCell(platform::Canvas& canvas, const Rect& cell, bool isLit) const {
  canvas.fillRoundedRect(cell, std::min(Theme::cornerRadius, cell.height / 2),
                         isLit ? litSurface() : stateSurface());
}

void ButtonGroup::paintTitle(platform::Canvas& canvas, int index, const Rect& cell,
                             const platform::Font& font, bool isLit) const {
  canvas.drawText(titles_[static_cast<std::size_t>(index)], font,
                  cell.inset(std::min(2.0, cell.width * 0.1), 0), platform::TextAlignment::centre,
                  titleColor(isLit));
}

// One of them

RadioButtons::RadioButtons(std::vector<std::string> titles, bool isWaveform)
    : isWaveform_(isWaveform) {
  setRange(0, 0);
  setTitles(std::move(titles));
}

void RadioButtons::setTitles(std::vector<std::string> titles) {
  const int last = std::max(0, static_cast<int>(titles.size()) - 1);
  setRange(minimum(), minimum() + static_cast<float>(last));
  setStepCount(last);
  if (titles == this->titles()) return;
  icons_.assign(titles.size(), {});
  std::size_t longest = 1;
  for (std::size_t i = 0; i < titles.size(); ++i) {
    const auto waveform = isWaveform_ ? Icons::waveformNamed(titles[i]) : std::nullopt;
    if (waveform)
      icons_[i] = Icons::waveform(*waveform);
    else
      longest = std::max(longest, foundation::countCodePoints(titles[i]));
  }
  setMaxTitleLength(longest);
  setButtonTitles(std::move(titles));
}

int RadioButtons::selectedIndex() const {
  return static_cast<int>(std::lround(value() - minimum()));
}

void RadioButtons::setSelectedIndex(int index) { setValue(minimum() + static_cast<float>(index)); }

Rect RadioButtons::face() const {
  const double height = bestHeight(bounds().size());
  return {0, (bounds().height - height) / 2, bounds().width, height};
}

void RadioButtons::slideTo(platform::Point point) {
  const Rect area = face();
  // A finger above or below the buttons still means them.
  const double y = std::clamp(point.y - area.y, 0.0, std::max(0.0, area.height - 0.5));
  const int index = grid(area.size()).indexAt({point.x, y});
  if (index >= 0) changeValue(minimum() + static_cast<float>(index));
}

std::string RadioButtons::ownValueText() const {
  const auto index = static_cast<std::size_t>(selectedIndex());
  return index < titles().size() ? titles()[index] : std::string();
}

bool RadioButtons::keyPressed(const platform::KeyEvent& event) {
  // The buttons read from the top left: down is the next one, up the one before.
  platform::KeyEvent turned = event;
  if (event.key == platform::Key::down) turned.key = platform::Key::right;
  if (event.key == platform::Key::up) turned.key = platform::Key::left;
  return KestroControl::keyPressed(turned);
}

void RadioButtons::paint(platform::Canvas& canvas) {
  if (titles().empty() || !hasRoom()) return;
  const Rect area = face();
  const ButtonGrid cells = grid(area.size());
  const platform::Font font = cellFont(cells.cell);
  for (int i = 0; i < cells.count; ++i) {
    const Rect cell = cells.frame(i).translated(area.x, area.y).inset(1, 1);
    if (cell.isEmpty()) continue;
    const bool chosen = i == selectedIndex();
    paintCell(canvas, cell, chosen);
    const platform::Path& icon = icons_[static_cast<std::size_t>(i)];
    if (icon.isEmpty()) {
      paintTitle(canvas, i, cell, font, chosen);
      continue;
    }
    const double height = std::min({cell.height * 0.46, cell.width * 0.4, 18 * faceScale()});
    const Rect place{cell.midX() - height * 0.8, cell.midY() - height / 2, height * 1.6, height};
    canvas.strokePath(Icons::fitted(icon, place), {std::max(1.0, height * 0.11)},
                      titleColor(chosen));
  }
  if (isFirstResponder())
    canvas.strokeRoundedRect(area.inset(0.5, 0.5), Theme::cornerRadius + 1, 1, stateAccent());
}

// Any of them

void BitFlagsGroup::setTitles(std::vector<std::string> titles) {
  if (titles.size() > maxFlags) titles.resize(maxFlags);
  // A value may have bits that no switch shows; they stay as they are.
  setRange(0, static_cast<float>((1u << maxFlags) - 1));
  std::size_t longest = 1;
  for (const std::string& title : titles)
    longest = std::max(longest, foundation::countCodePoints(title));
  setMaxTitleLength(longest);
  setButtonTitles(std::move(titles));
}

std::uint32_t BitFlagsGroup::bits() const {
  return static_cast<std::uint32_t>(std::lround(std::max(0.0f, value())));
}

bool BitFlagsGroup::isOn(int index) const {
  return index >= 0 && index < static_cast<int>(maxFlags) && (bits() >> index & 1u) != 0;
}

void BitFlagsGroup::slideTo(platform::Point point) {
  const int index = grid(bounds().size()).indexAt(point);
  if (index < 0) return;
  const std::uint32_t bit = 1u << index;
  if (painting_ == Painting::none) painting_ = isOn(index) ? Painting::off : Painting::on;
  changeValue(static_cast<float>(painting_ == Painting::on ? bits() | bit : bits() & ~bit));
}

bool BitFlagsGroup::keyPressed(const platform::KeyEvent& event) {
  using platform::Key;
  const int count = static_cast<int>(titles().size());
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
  for (std::size_t i = 0; i < titles().size(); ++i)
    if (isOn(static_cast<int>(i))) text += (text.empty() ? "" : ", ") + titles()[i];
  return text.empty() ? "None" : text;
}

void BitFlagsGroup::paint(platform::Canvas& canvas) {
  if (titles().empty() || !hasRoom()) return;
  const ButtonGrid cells = grid(bounds().size());
  const platform::Font font = cellFont(cells.cell);
  for (int i = 0; i < cells.count; ++i) {
    const Rect cell = cells.frame(i).inset(1, 1);
    if (cell.isEmpty()) continue;
    paintCell(canvas, cell, isOn(i));
    paintTitle(canvas, i, cell, font, isOn(i));
  }
  if (isFirstResponder() && cursor_ < cells.count)
    canvas.strokeRoundedRect(cells.frame(cursor_).inset(0.5, 0.5), Theme::cornerRadius + 1, 1,
                             Theme::text);
}

}  // namespace kestroui
