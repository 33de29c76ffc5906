#include "toolkit/TextField.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/Path.h"
#include "toolkit/TextBuffer.h"
#include "toolkit/Window.h"

namespace toolkit {

using foundation::Timer;
using platform::Canvas;
using platform::Color;
using platform::Font;
using platform::Key;
using platform::KeyEvent;
using platform::Modifiers;
using platform::Path;
using platform::Point;
using platform::Rect;
using platform::TextAlignment;
using platform::Weak;

namespace {

constexpr double blinkInterval = 0.53;
constexpr double caretWidth = 1.5;
/// Between the text and the ends of the field.
constexpr double margin = 3;

double clearButtonWidth(const Rect& bounds) { return std::min(bounds.height, 28.0); }

TextBuffer::Selection selectionOf(Modifiers modifiers) {
  return has(modifiers, Modifiers::shift) ? TextBuffer::Selection::extend
                                          : TextBuffer::Selection::drop;
}

}  // namespace

class TextField::Buffer : public TextBuffer {};

TextField::TextField() : buffer_(std::make_unique<Buffer>()) { setClipsToBounds(true); }
TextField::~TextField() = default;

const std::string& TextField::text() const { return buffer_->text(); }

void TextField::setText(const std::string& text) {
  buffer_->setText(text);
  caretMoved();
}

void TextField::selectAll() {
  buffer_->selectAll();
  caretMoved();
}

std::string TextField::selectedText() const { return buffer_->selectedText(); }

void TextField::setPlaceholder(std::string text, Color color) {
  placeholder_ = std::move(text);
  placeholderColor_ = color;
  setNeedsDisplay();
}

void TextField::setFont(const Font& font) {
  if (font == font_) return;
  font_ = font;
  setNeedsDisplay();
}

void TextField::setTextColor(Color color) {
  textColor_ = color;
  setNeedsDisplay();
}

void TextField::setTintColor(Color color) {
  tintColor_ = color;
  setNeedsDisplay();
}

void TextField::setLeftInset(double points) {
  leftInset_ = points;
  setNeedsDisplay();
}

void TextField::setClearButtonShown(bool shown) {
  clearButtonShown_ = shown;
  setNeedsDisplay();
}

bool TextField::isClearButtonVisible() const {
  return clearButtonShown_ && isFirstResponder() && !text().empty();
}

Rect TextField::textRect() const {
  const double right = isClearButtonVisible() ? clearButtonWidth(bounds()) : margin;
  const double left = std::max(leftInset_, margin);
  return {left, 0, std::max(0.0, bounds().width - left - right), bounds().height};
}

double TextField::widthOf(std::size_t from, std::size_t to) const {
  const Window* const window = this->window();
  if (!window || to <= from) return 0;
  return window->textWidth(std::string_view(text()).substr(from, to - from), font_);
}

std::size_t TextField::placeAt(double x) const {
  const double wanted = x - textRect().x + scroll_;
  std::size_t place = 0;
  double left = 0;
  while (place < text().size()) {
    const std::size_t next = buffer_->next(place);
    const double right = widthOf(0, next);
    if (wanted < (left + right) / 2) break;
    place = next;
    left = right;
  }
  return place;
}

// Keyboard

void TextField::firstResponderChanged() {
  const bool has = isFirstResponder();
  if (has) {
    // A touch that gives it the keyboard goes on to place the caret.
    selectAll();
  } else {
    blink_.invalidate();
    caretLit_ = false;
    buffer_->moveTo(buffer_->caret(), TextBuffer::Selection::drop);
    scroll_ = 0;
    setNeedsDisplay();
  }
  sendActions(has ? ControlEvent::editingDidBegin : ControlEvent::editingDidEnd);
}

void TextField::caretMoved() {
  setNeedsDisplay();
  if (!isFirstResponder()) return;
  caretLit_ = true;
  blink_ = Timer(blinkInterval, Timer::Repeat::forever, [this] {
    caretLit_ = !caretLit_;
    setNeedsDisplay();
  });
}

void TextField::changedByUser() {
  caretMoved();
  sendActions(ControlEvent::editingChanged);
}

bool TextField::keyPressed(const KeyEvent& event) {
  if (!isEnabled()) return false;
  const bool isCommand =
      has(event.modifiers, Modifiers::control) || has(event.modifiers, Modifiers::command);
  const bool wholeWords = isCommand || has(event.modifiers, Modifiers::alt);
  switch (event.key) {
    case Key::character:
    case Key::space:
      if (isCommand) return useShortcut(event.text, event.modifiers);
      if (event.text.empty() || has(event.modifiers, Modifiers::alt)) return false;
      if (buffer_->insert(event.text)) changedByUser();
      return true;
    case Key::backspace: {
      const std::size_t caret = buffer_->caret();
      if (buffer_->eraseTo(wholeWords ? buffer_->previousWord(caret) : buffer_->previous(caret)))
        changedByUser();
      return true;
    }
    case Key::deleteForward: {
      const std::size_t caret = buffer_->caret();
      if (buffer_->eraseTo(wholeWords ? buffer_->nextWord(caret) : buffer_->next(caret)))
        changedByUser();
      return true;
    }
    case Key::returnKey:
      return delegate && delegate->textFieldShouldReturn(*this);
    case Key::left:
    case Key::right:
    case Key::home:
    case Key::end:
      return moveCaret(event);
    default:
      return false;
  }
}

bool TextField::moveCaret(const KeyEvent& event) {
  const bool words =
      has(event.modifiers, Modifiers::control) || has(event.modifiers, Modifiers::alt);
  const TextBuffer::Selection selection = selectionOf(event.modifiers);
  // An arrow without Shift first leaves the selection at its side.
  const bool leaves = buffer_->hasSelection() && selection == TextBuffer::Selection::drop && !words;
  std::size_t place = buffer_->caret();
  if (event.key == Key::home)
    place = 0;
  else if (event.key == Key::end)
    place = text().size();
  else if (event.key == Key::left)
    place = leaves  ? buffer_->selectionStart()
            : words ? buffer_->previousWord(place)
                    : buffer_->previous(place);
  else
    place = leaves  ? buffer_->selectionEnd()
            : words ? buffer_->nextWord(place)
                    : buffer_->next(place);
  buffer_->moveTo(place, selection);
  caretMoved();
  return true;
}

bool TextField::useShortcut(const std::string& letter, Modifiers modifiers) {
  Window* const window = this->window();
  if (!window || letter.size() != 1) return false;
  const bool shift = has(modifiers, Modifiers::shift);
  bool changed = false;
  switch (letter[0] | 0x20) {
    case 'a':
      selectAll();
      return true;
    case 'c':
    case 'x':
      if (!buffer_->hasSelection()) return true;
      window->setClipboardText(buffer_->selectedText());
      changed = (letter[0] | 0x20) == 'x' && buffer_->eraseTo(buffer_->caret());
      break;
    case 'v':
      changed = buffer_->insert(window->clipboardText());
      break;
    case 'z':
      changed = shift ? buffer_->redo() : buffer_->undo();
      break;
    case 'y':
      changed = buffer_->redo();
      break;
    default:
      return false;
  }
  if (changed) changedByUser();
  return true;
}

// Touches

void TextField::touchBegan(const Touch& touch) {
  const Weak<TextField> self = this;
  Control::touchBegan(touch);
  if (!self || !isEnabled()) return;
  const double x = touch.locationIn(*this).x;
  pressesClearButton_ = isClearButtonVisible() && x > bounds().width - clearButtonWidth(bounds());
  if (pressesClearButton_) return;
  const std::size_t place = placeAt(x);
  if (touch.tapCount >= 3)
    buffer_->selectAll();
  else if (touch.tapCount == 2)
    buffer_->selectWordAt(place);
  else
    buffer_->moveTo(place, selectionOf(touch.modifiers));
  caretMoved();
}

void TextField::touchMoved(const Touch& touch) {
  const Weak<TextField> self = this;
  Control::touchMoved(touch);
  if (!self || !isEnabled() || pressesClearButton_ || touch.tapCount > 1) return;
  buffer_->moveTo(placeAt(touch.locationIn(*this).x), TextBuffer::Selection::extend);
  caretMoved();
}

void TextField::touchEnded(const Touch& touch) {
  const bool clears =
      std::exchange(pressesClearButton_, false) && pointInside(touch.locationIn(*this));
  const Weak<TextField> self = this;
  Control::touchEnded(touch);
  if (!self || !clears || !isEnabled()) return;
  buffer_->selectAll();
  if (buffer_->eraseTo(0)) changedByUser();
}

void TextField::touchCancelled(const Touch& touch) {
  pressesClearButton_ = false;
  Control::touchCancelled(touch);
}

// Display

void TextField::draw(const Rect&) {
  const double room = textRect().width - caretWidth;
  const double caret = widthOf(0, buffer_->caret());
  const double all = widthOf(0, text().size());
  scroll_ = std::clamp(scroll_, caret - std::max(room, 0.0), caret);
  scroll_ = std::clamp(scroll_, 0.0, std::max(0.0, all - room));
}

void TextField::paint(Canvas& canvas) {
  const Rect place = textRect();
  canvas.save();
  canvas.clip(place);
  const double height = std::min(place.height, font_.lineHeight());
  const double top = (place.height - height) / 2;
  const auto xOf = [&](std::size_t at) { return place.x - scroll_ + widthOf(0, at); };
  if (isFirstResponder() && buffer_->hasSelection()) {
    const double left = xOf(buffer_->selectionStart());
    canvas.fillRect({left, top, xOf(buffer_->selectionEnd()) - left, height},
                    tintColor_.withAlpha(tintColor_.alpha * 0.35f));
  }
  const float strength = isEnabled() ? 1 : 0.4f;
  if (text().empty())
    canvas.drawText(placeholder_, font_, place, TextAlignment::left, placeholderColor_);
  else
    // Wider than it is, also where the canvas measures otherwise than the window: it is scrolled,
    // neither shrunk nor shortened.
    canvas.drawText(text(), font_,
                    {place.x - scroll_, place.y, 2 * widthOf(0, text().size()) + 1, place.height},
                    TextAlignment::left, textColor_.withAlpha(textColor_.alpha * strength), 1);
  if (caretLit_ && isFirstResponder())
    canvas.fillRect({xOf(buffer_->caret()), top, caretWidth, height}, tintColor_);
  canvas.restore();
  if (isFirstResponder())
    canvas.strokeRoundedRect(bounds().inset(0.5, 0.5), layer().cornerRadius(), 1, tintColor_);

  if (!isClearButtonVisible()) return;
  const double width = clearButtonWidth(bounds());
  const Point centre{bounds().width - width / 2, bounds().height / 2};
  const double radius = std::min(width * 0.3, 8.0), arm = radius * 0.4;
  canvas.fillEllipse({centre.x - radius, centre.y - radius, 2 * radius, 2 * radius},
                     textColor_.withAlpha(pressesClearButton_ ? 0.45f : 0.25f));
  Path cross;
  cross.moveTo({centre.x - arm, centre.y - arm});
  cross.lineTo({centre.x + arm, centre.y + arm});
  cross.moveTo({centre.x + arm, centre.y - arm});
  cross.lineTo({centre.x - arm, centre.y + arm});
  canvas.strokePath(cross, {1.5}, textColor_);
}

}  // namespace toolkit
