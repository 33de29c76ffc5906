#include "KestroUI/RadioButtons.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "KestroUI/Icons.h"
#include "foundation/UnicodeText.h"

namespace kestroui {

using platform::Color;
using platform::Rect;

RadioButtons::RadioButtons(std::vector<std::string> titles, bool isWaveform)
    : isWaveform_(isWaveform) {
  setRange(0, 0);
  setTitles(std::move(titles));
}

void RadioButtons::setTitles(std::vector<std::string> titles) {
  const int last = std::max(0, static_cast<int>(titles.size()) - 1);
  setRange(minimum(), minimum() + static_cast<float>(last));
  setStepCount(last);
  if (titles == titles_) return;
  titles_ = std::move(titles);
  icons_.assign(titles_.size(), {});
  longestTitle_ = 1;
  for (std::size_t i = 0; i < titles_.size(); ++i) {
    const auto waveform = isWaveform_ ? Icons::waveformNamed(titles_[i]) : std::nullopt;
    if (waveform)
      icons_[i] = Icons::waveform(*waveform);
    else
      longestTitle_ = std::max(longestTitle_, foundation::countCodePoints(titles_[i]));
  }
  setNeedsDisplay();
}

int RadioButtons::selectedIndex() const {
  return static_cast<int>(std::lround(value() - minimum()));
}

void RadioButtons::setSelectedIndex(int index) { setValue(minimum() + static_cast<float>(index)); }

ButtonGrid RadioButtons::grid(const platform::Size& size) const {
  const double wantedWidth = std::max(26.0, static_cast<double>(longestTitle_) * 6.6 + 10);
  return ButtonGrid::fitting(static_cast<int>(titles_.size()), size,
                             {wantedWidth * faceScale(), 22 * faceScale()});
}

double RadioButtons::bestHeight(const platform::Size& available) const {
  return std::min(available.height, grid(available).rows * lineFaceHeight());
}

Rect RadioButtons::face() const {
  const double height = bestHeight(bounds().size());
  return {0, (bounds().height - height) / 2, bounds().width, height};
}

void RadioButtons::choose(platform::Point point) {
  const Rect area = face();
  // A finger above or below the buttons still means them.
  const double y = std::clamp(point.y - area.y, 0.0, std::max(0.0, area.height - 0.5));
  const int index = grid(area.size()).indexAt({point.x, y});
  if (index >= 0) changeValue(minimum() + static_cast<float>(index));
}

void RadioButtons::touchBegan(const toolkit::Touch& touch) {
  const platform::Weak<RadioButtons> alive = this;
  KestroControl::touchBegan(touch);
  if (!alive || !isEnabled()) return;
  beginGesture();
  if (alive) choose(touch.locationIn(*this));
}

void RadioButtons::touchMoved(const toolkit::Touch& touch) {
  const platform::Weak<RadioButtons> alive = this;
  KestroControl::touchMoved(touch);
  if (alive && isInGesture()) choose(touch.locationIn(*this));
}

void RadioButtons::touchEnded(const toolkit::Touch& touch) {
  const platform::Weak<RadioButtons> alive = this;
  KestroControl::touchEnded(touch);
  if (alive) endGesture();
}

void RadioButtons::touchCancelled(const toolkit::Touch& touch) {
  const platform::Weak<RadioButtons> alive = this;
  KestroControl::touchCancelled(touch);
  if (alive) endGesture();
}

std::string RadioButtons::ownValueText() const {
  const auto index = static_cast<std::size_t>(selectedIndex());
  return index < titles_.size() ? titles_[index] : std::string();
}

bool RadioButtons::keyPressed(const platform::KeyEvent& event) {
  // The buttons read from the top left: down is the next one, up the one before.
  platform::KeyEvent turned = event;
  if (event.key == platform::Key::down) turned.key = platform::Key::right;
  if (event.key == platform::Key::up) turned.key = platform::Key::left;
  return KestroControl::keyPressed(turned);
}

void RadioButtons::paint(platform::Canvas& canvas) {
  if (titles_.empty() || !(bounds().width >= 4) || !(bounds().height >= 4)) return;
  const Rect area = face();
  const ButtonGrid cells = grid(area.size());
  const double perLetter = 0.58 * static_cast<double>(longestTitle_);
  const platform::Font font = faceFont(Theme::smallTitleFont, cells.cell.height);
  const double fontSize =
      std::min(font.pointSize, std::max(7.0, (cells.cell.width - 6) / perLetter));
  for (int i = 0; i < cells.count; ++i)
    paintCell(canvas, i, cells.frame(i).translated(area.x, area.y).inset(1, 1),
              font.withSize(fontSize));
  if (isFirstResponder())
    canvas.strokeRoundedRect(area.inset(0.5, 0.5), Theme::cornerRadius + 1, 1, stateAccent());
}

void RadioButtons::paintCell(platform::Canvas& canvas, int index, const Rect& cell,
                             const platform::Font& font) {
  if (cell.isEmpty()) return;
  const bool chosen = index == selectedIndex();
  const Color accent = stateAccent();
  const bool muted = isInactive() || !isEnabled();
  canvas.fillRoundedRect(cell, std::min(Theme::cornerRadius, cell.height / 2),
                         chosen ? litSurface() : stateSurface());
  const Color color = chosen ? Theme::textOn(accent) : muted ? Theme::textDim : Theme::lightGrey;
  const auto at = static_cast<std::size_t>(index);
  if (icons_[at].isEmpty()) {
    canvas.drawText(titles_[at], font, cell.inset(std::min(2.0, cell.width * 0.1), 0),
                    platform::TextAlignment::centre, color);
    return;
  }
  const double height = std::min({cell.height * 0.46, cell.width * 0.4, 18 * faceScale()});
  const Rect place{cell.midX() - height * 0.8, cell.midY() - height / 2, height * 1.6, height};
  canvas.strokePath(Icons::fitted(icons_[at], place), {std::max(1.0, height * 0.11)}, color);
}

}  // namespace kestroui
