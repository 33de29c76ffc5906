#include "Orvane/AlertPanel.h"

#include <algorithm>
#include <utility>

#include "KestroUI/Theme.h"
#include "Orvane/ParagraphLabel.h"
#include "toolkit/Window.h"

namespace orvane {
namespace {

namespace Theme = kestroui::Theme;
using platform::Key;
using platform::Modifiers;
using platform::Rect;

constexpr std::size_t maximumLines = 5;

}  // namespace

AlertPanel::AlertPanel(toolkit::View& root) : root_(root) {
  setBackgroundColor(OverlayStyle::backdropColor());
  for (kestroui::SimpleButton& button : buttons_) {
    addSubview(button);
    button.addTarget<&AlertPanel::handleTouchDown>(*this, toolkit::ControlEvent::touchDown);
  }
}

void AlertPanel::show(Message message) {
  const auto same = [&](const Message& other) {
    return other.title == message.title && other.text == message.text &&
           other.buttons == message.buttons;
  };
  // Also spares the user a row of equal ones, one for each click.
  if (std::any_of(messages_.begin(), messages_.end(), same)) return;
  messages_.push_back(std::move(message));
  if (messages_.size() > 1) return;
  root_.addSubview(*this);
  modalScope().opened();
  showFirst();
}

void AlertPanel::showFirst() {
  setFrame(root_.bounds());
  const std::vector<std::string>& titles = messages_.front().buttons;
  for (std::size_t i = 0; i < std::size(buttons_); ++i) {
    buttons_[i].setHidden(i >= titles.size());
    if (i < titles.size()) buttons_[i].setTitle(titles[i]);
  }
  buttons_[0].becomeFirstResponder();
  setNeedsDisplay();
}

void AlertPanel::answer(std::size_t index) {
  if (messages_.empty()) return;
  const std::function<void(std::size_t)> answered = std::move(messages_.front().answered);
  messages_.erase(messages_.begin());
  if (messages_.empty()) {
    modalScope().closed();
    removeFromSuperview();
  } else {
    showFirst();
  }
  if (answered) answered(index);
}

void AlertPanel::handleTouchDown(toolkit::Control& sender) {
  answer(&sender == &buttons_[0] ? 0 : 1);
}

void AlertPanel::touchBegan(const toolkit::Touch&) { buttons_[0].becomeFirstResponder(); }

bool AlertPanel::keyPressed(const platform::KeyEvent& event) {
  if (event.key == Key::escape) {
    answer(0);
    return true;
  }
  if (event.key == Key::left || event.key == Key::right) {
    const std::size_t last = messages_.empty() ? 0 : messages_.front().buttons.size() - 1;
    buttons_[event.key == Key::left ? 0 : last].becomeFirstResponder();
    return true;
  }
  // Nothing else reaches the editor below; the host's shortcuts are still its own.
  return event.key != Key::tab &&
         (event.modifiers == Modifiers::none || event.modifiers == Modifiers::shift);
}

platform::Accessibility AlertPanel::accessibility() const {
  const Message* shown = message();
  if (!shown) return {};
  return {platform::Accessibility::Role::text, shown->title + ": " + shown->text};
}

void AlertPanel::draw(const Rect&) {
  const double width = bounds().width, height = bounds().height;
  const double size = OverlayStyle::textSizeIn(bounds());
  titleFont_ = Theme::titleFont.withSize(size * 1.15);
  textFont_ = Theme::regularFont.withSize(size);
  const double padding = size * 1.8, lineHeight = textFont_.lineHeight() * 1.15;
  const double boxWidth = std::min(width - 2 * padding, size * 32);
  lines_.clear();
  // What does not fit the last line is shortened where it is painted.
  if (const Message* shown = message(); shown && window())
    lines_ = wrappedLines(
        shown->text, boxWidth - 2 * padding,
        [&](std::string_view line) { return window()->textWidth(line, textFont_); }, maximumLines);
  const double titleHeight = titleFont_.lineHeight(), buttonHeight = size * 2.3;
  const double boxHeight = padding + titleHeight + size * 0.8 +
                           lineHeight * static_cast<double>(lines_.size()) + padding * 0.8 +
                           buttonHeight + padding;
  box_ = {(width - boxWidth) / 2, (height - boxHeight) / 2, boxWidth, boxHeight};
  titleFrame_ = {box_.x + padding, box_.y + padding, boxWidth - 2 * padding, titleHeight};

  const std::size_t count = messages_.empty() ? 1 : messages_.front().buttons.size();
  const double gap = size * 0.6, buttonWidth = size * 8;
  double x = box_.midX() -
             (buttonWidth * static_cast<double>(count) + gap * static_cast<double>(count - 1)) / 2;
  for (std::size_t i = 0; i < count; ++i) {
    buttons_[i].setFont(textFont_);
    buttons_[i].setFrame({x, box_.maxY() - padding - buttonHeight, buttonWidth, buttonHeight});
    x += buttonWidth + gap;
  }
}

void AlertPanel::paint(platform::Canvas& canvas) {
  OverlayStyle::paintPanel(canvas, box_, Theme::line);
  if (messages_.empty()) return;
  canvas.drawText(messages_.front().title, titleFont_, titleFrame_, platform::TextAlignment::centre,
                  Theme::text);
  const double lineHeight = textFont_.lineHeight() * 1.15;
  Rect line{titleFrame_.x, titleFrame_.maxY() + textFont_.pointSize * 0.8, titleFrame_.width,
            lineHeight};
  for (const std::string& text : lines_) {
    canvas.drawText(text, textFont_, line, platform::TextAlignment::centre, Theme::textDim);
    line.y += lineHeight;
  }
}

}  // namespace orvane
