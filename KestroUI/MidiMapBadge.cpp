#include "KestroUI/MidiMapBadge.h"

#include <algorithm>
#include <array>

#include "KestroUI/Icons.h"
#include "KestroUI/Theme.h"
#include "foundation/UnicodeText.h"

namespace kestroui {

using platform::Rect;
using toolkit::ControlEvent;

namespace {

std::string noteName(int note) {
  static constexpr std::array names{"C",  "C#", "D",  "D#", "E",  "F",
                                    "F#", "G",  "G#", "A",  "A#", "B"};
  return names[static_cast<std::size_t>(note % 12)] + std::to_string(note / 12 - 1);
}

std::string bytesOf(const std::vector<std::uint8_t>& message) {
  std::string text;
  for (const std::uint8_t byte : message)
    text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(byte));
  return text;
}

}  // namespace

MidiMapText::MidiMapText(const std::vector<std::uint8_t>& message) {
  const int status = message.empty() ? 0 : message[0];
  const int number = message.size() > 1 ? message[1] & 0x7f : -1;
  const int kind = status & 0xf0;
  if (kind == 0xe0)
    what = "Bend";
  else if (kind == 0xd0)
    what = "Pressure";
  else if (number >= 0 && kind == 0xb0)
    what = "CC " + std::to_string(number);
  else if (number >= 0 && (kind == 0x80 || kind == 0x90))
    what = "Note " + noteName(number);
  else if (number >= 0 && kind == 0xa0)
    what = "Touch " + noteName(number);
  else if (number >= 0 && kind == 0xc0)
    what = "Prog " + std::to_string(number + 1);
  if (what.empty())
    what = bytesOf(message);
  else
    channel = "ch " + std::to_string((status & 0x0f) + 1);
}

namespace {

// Part of the font's size that a letter is wide on average, with the blank at both ends.
constexpr double letterWidth = 0.58;
constexpr double lineHeight = 1.35;
constexpr double minFontSize = 7;
constexpr double maxCross = 15;
// What a finger hits.
constexpr double fingerSide = 36;
constexpr const char* waitingText = "Waiting";

double widthOf(const std::string& text, double pointSize) {
  return (static_cast<double>(foundation::countCodePoints(text)) + 1.6) * letterWidth * pointSize;
}

}  // namespace

MidiMapBadge::MidiMapBadge() {
  setCoversSiblings(true);
  deleteButton_.setHidden(true);
  addSubview(deleteButton_);
}

void MidiMapBadge::setMessage(const std::optional<std::vector<std::uint8_t>>& message) {
  const MidiMapText text(message.value_or(std::vector<std::uint8_t>()));
  what_ = text.what;
  channel_ = text.channel;
  deleteButton_.setHidden(!message);
  setNeedsDisplay();
}

std::string MidiMapBadge::text() const { return channel_.empty() ? what_ : what_ + ' ' + channel_; }

void MidiMapBadge::setTitle(const std::string& title) {
  if (title == title_) return;
  title_ = title;
  setNeedsDisplay();
}

void MidiMapBadge::setTextScale(double scale) {
  if (scale == textScale_) return;
  textScale_ = scale;
  setNeedsDisplay();
}

void MidiMapBadge::setFace(const Rect& face) {
  if (face == face_) return;
  face_ = face;
  setNeedsDisplay();
}

bool MidiMapBadge::keyPressed(const platform::KeyEvent& event) {
  using platform::Key;
  if (event.modifiers != platform::Modifiers::none) return false;
  switch (event.key) {
    case Key::returnKey:
    case Key::space:
      sendActions(ControlEvent::touchDown);
      return true;
    case Key::backspace:
    case Key::deleteForward:
      if (deleteButton_.isHidden()) return false;
      deleteButton_.sendActions(ControlEvent::touchUpInside);
      return true;
    default:
      return false;
  }
}

platform::Accessibility MidiMapBadge::accessibility() const {
  return {
      platform::Accessibility::Role::button,
      "MIDI " + (ownerName ? ownerName() : std::string()) + (title_.empty() ? "" : ", " + title_),
      !what_.empty() ? text()
      : isSelected() ? waitingText
                     : "Not bound"};
}

void MidiMapBadge::draw(const Rect&) {
  const double w = bounds().width, h = bounds().height;
  // Never more than half of the badge, so that the rest of it still selects.
  const double width = std::min(fingerSide, w / 2);
  const double height = std::min(fingerSide, h < 1.2 * fingerSide ? h : h / 2);
  deleteButton_.setFrame({w - width, 0, width, height});
  deleteButton_.markSide = std::min({maxCross * textScale_, width - 2, height - 2});
  deleteButton_.setNeedsDisplay();
}

void MidiMapBadge::paint(platform::Canvas& canvas) {
  const Rect place = bounds().inset(1.5, 1.5);
  if (!(place.width >= 6) || !(place.height >= 6)) return;
  const double radius = Theme::cornerRadius + 2;
  const bool bound = !what_.empty();
  // Among several the picture below is not the value's own; their names stand on it.
  if (!title_.empty()) canvas.fillRect(bounds(), Theme::background.withAlpha(0.6f));
  canvas.fillRoundedRect(place, radius, Theme::background.withAlpha(isSelected() ? 0.35f : 0.5f));
  if (isSelected())
    canvas.fillRoundedRect(place, radius, Theme::learn.withAlpha(0.16f));
  else if (isHovered())
    canvas.fillRoundedRect(place, radius, Theme::white.withAlpha(0.05f));
  const double line = isSelected() ? 2 : 1;
  const platform::Color color = isSelected() ? Theme::learn
                                : bound      ? Theme::learn.withAlpha(0.5f)
                                             : Theme::lightGrey.withAlpha(0.28f);
  canvas.strokeRoundedRect(place.inset(line / 2, line / 2), radius, line, color);
  if (isFirstResponder())
    canvas.strokeRoundedRect(place.inset(line + 1.5, line + 1.5), radius - 1, 1,
                             Theme::white.withAlpha(0.7f));
  paintText(canvas);
}

Rect MidiMapBadge::paintTitle(platform::Canvas& canvas, Rect room) const {
  const bool isAlone = what_.empty() && !isSelected();
  const double wanted = std::min(Theme::labelFont.pointSize * textScale_, room.height * 0.4);
  const double size = std::max(minFontSize, std::min(wanted, room.width / widthOf(title_, 1)));
  const double height = lineHeight * size;
  // What is bound or waits says so first.
  if (height > (isAlone ? room.height : room.height - lineHeight * minFontSize)) return room;
  Rect line{room.x, room.y, room.width, height};
  if (isAlone) line.y = room.centre().y - height / 2;
  canvas.drawText(title_, Theme::labelFont.withSize(size), line, platform::TextAlignment::centre,
                  isHovered() || isSelected() ? Theme::text : Theme::lightGrey);
  return {room.x, room.y + height, room.width, room.height - height};
}

void MidiMapBadge::paintText(platform::Canvas& canvas) const {
  const bool bound = !what_.empty();
  const Rect face = (face_.isEmpty() ? bounds() : face_).inset(1, 1);
  const Rect room = title_.empty() ? face : paintTitle(canvas, face.inset(2, 2));
  if (!bound && !isSelected()) return;
  const double wanted =
      std::min(Theme::valueFont.pointSize * textScale_, std::max(minFontSize, room.height * 0.5));

  std::vector<std::string> lines{bound ? text() : waitingText};
  const bool fits = widthOf(lines[0], wanted) <= room.width;
  if (bound && !fits && !channel_.empty()) {
    lines = {what_};
    if (room.height >= 2 * lineHeight * minFontSize) lines.push_back(channel_);
  }
  double size = wanted;
  for (const std::string& text : lines) size = std::min(size, room.width / (widthOf(text, 1)));
  size = std::min(size, room.height / (lineHeight * static_cast<double>(lines.size())));
  if (!(size >= 4)) return;

  double width = 0;
  for (const std::string& text : lines) width = std::max(width, widthOf(text, size));
  const double height = lineHeight * size * static_cast<double>(lines.size());
  const Rect pill{room.centre().x - width / 2, room.centre().y - height / 2, width, height};
  canvas.fillRoundedRect(
      pill, std::min(height / 2, 6.0),
      bound ? Theme::background.mixed(Theme::learn, 0.22f) : Theme::background.withAlpha(0.8f));
  for (std::size_t i = 0; i < lines.size(); ++i)
    canvas.drawText(
        lines[i], Theme::valueFont.withSize(size),
        {pill.x, pill.y + lineHeight * size * static_cast<double>(i), width, lineHeight * size},
        platform::TextAlignment::centre,
        i == 0 ? Theme::learn.mixed(Theme::white, 0.35f) : Theme::lightGrey);
}

void MidiMapBadge::DeleteButton::paint(platform::Canvas& canvas) {
  if (!(markSide >= 4)) return;
  // In the corner that it takes, whatever it takes of it for fingers.
  const Rect disc{bounds().width - markSide - 2, 2, markSide, markSide};
  const bool strong = isHovered() || isHighlighted();
  canvas.fillRoundedRect(disc, markSide / 2, strong ? Theme::record : Theme::surfaceRaised);
  canvas.strokePath(Icons::fitted(Icons::cross(), disc.inset(markSide * 0.28, markSide * 0.28)),
                    {std::max(1.0, markSide * 0.1)}, strong ? Theme::white : Theme::lightGrey);
}

}  // namespace kestroui
