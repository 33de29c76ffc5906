#include "backends/headless/HeadlessHost.h"

#include <string>
#include <thread>
#include <utility>

#include "backends/headless/RecordingCanvas.h"
#include "foundation/UnicodeText.h"

namespace headless {

using platform::Point;
using platform::Rect;

namespace {

/// How many times in a row a frame may ask for the next one before the clock has to move.
constexpr int maxFramesAtOnce = 8;
constexpr int movesOfADrag = 10;
/// Of taps and drags, and the one that is held.
constexpr int finger = 1, heldFinger = 2;

}  // namespace

HeadlessHost::HeadlessHost(HeadlessRunLoop& loop, const orvane::PluginEntry& entry)
    : loop_(loop),
      bundle_(entry.infoDictionary()),
      audioUnit_(entry.createAudioUnit()),
      midiLearn_(*audioUnit_),
      editor_(entry.createViewController()) {
  editor_->setAudioUnit(audioUnit_.get());
  window_.setRootViewController(&root_);
  root_.addChild(*editor_);
  root_.view().addSubview(editor_->view());
  midiLearn_.setEditor(editor_.get());
  loop_.addScreen(*this);
  resize(entry.preferredSize);
}

HeadlessHost::~HeadlessHost() {
  if (appeared_) root_.disappear();
  loop_.removeScreen(*this);
}

void HeadlessHost::appear() {
  appeared_ = true;
  root_.appear();
  loop_.runDue();
}

void HeadlessHost::disappear() {
  appeared_ = false;
  root_.disappear();
  loop_.runDue();
}

void HeadlessHost::resize(const platform::Size& size) {
  window_.setSize(size);
  editor_->view().setFrame(root_.view().bounds());
  loop_.runDue();
}

bool HeadlessHost::automate(std::string_view key, float value) {
  platform::AUParameter* parameter = audioUnit_->parameter(key);
  if (!parameter) return false;
  std::thread([=] { parameter->setValue(value); }).join();
  loop_.runDue();
  return true;
}

bool HeadlessHost::receiveMidi(std::span<const std::uint8_t> message) {
  bool used = false;
  std::thread([&] { used = midiLearn_.receive(message); }).join();
  loop_.runDue();
  return used;
}

void HeadlessHost::tapOnce(Point place, int count) {
  window_.touchBegan(finger, toolkit::Touch::Kind::finger, place, count);
  loop_.runDue();
  window_.touchEnded(finger, place);
  loop_.runDue();
}

void HeadlessHost::tap(Point place) { tapOnce(place, 1); }

void HeadlessHost::doubleTap(Point place) {
  tapOnce(place, 1);
  tapOnce(place, 2);
}

void HeadlessHost::drag(Point place, Point distance) {
  window_.touchBegan(finger, toolkit::Touch::Kind::finger, place, 1);
  loop_.runDue();
  Point at = place;
  for (int move = 1; move <= movesOfADrag; ++move) {
    const double part = static_cast<double>(move) / movesOfADrag;
    at = place + Point{distance.x * part, distance.y * part};
    window_.touchMoved(finger, at);
    loop_.runDue();
  }
  window_.touchEnded(finger, at);
  loop_.runDue();
}

bool HeadlessHost::press(Point place) {
  if (held_) return false;
  held_ = place;
  window_.touchBegan(heldFinger, toolkit::Touch::Kind::finger, place, 1);
  loop_.runDue();
  return true;
}

bool HeadlessHost::move(Point distance) {
  if (!held_) return false;
  held_ = *held_ + distance;
  window_.touchMoved(heldFinger, *held_);
  loop_.runDue();
  return true;
}

bool HeadlessHost::lift() {
  if (!held_) return false;
  window_.touchEnded(heldFinger, *std::exchange(held_, std::nullopt));
  loop_.runDue();
  return true;
}

bool HeadlessHost::turnWheel(Point place, double notches) {
  platform::WheelEvent event;
  event.location = place;
  event.deltaY = notches;
  const bool used = window_.wheelTurned(event);
  loop_.runDue();
  return used;
}

bool HeadlessHost::pressKey(const platform::KeyEvent& event) {
  const bool used = window_.keyPressed(event);
  loop_.runDue();
  return used;
}

void HeadlessHost::type(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = foundation::codePointAt(text, 0).length;
    platform::KeyEvent event;
    event.key = text[0] == ' ' ? platform::Key::space : platform::Key::character;
    event.text = std::string(text.substr(0, length));
    pressKey(event);
    text.remove_prefix(length);
  }
}

double HeadlessHost::textWidth(std::string_view text, const platform::Font& font) {
  return RecordingCanvas::widthOfText(text, font);
}

void HeadlessHost::composite(platform::Canvas& canvas) {
  window_.composite(canvas, root_.view().bounds());
}

FrameCount HeadlessHost::takeFrames() {
  return {loop_.displayFrames() - std::exchange(countedFrames_, loop_.displayFrames()),
          window_.paintedViews() - std::exchange(countedRepaints_, window_.paintedViews()),
          std::exchange(repaintedArea_, 0)};
}

void HeadlessHost::refresh() {
  // A real host does it at each tick of a timer; here nothing is to depend on the clock.
  midiLearn_.poll(loop_.now());
  const Rect bounds{0, 0, window_.size().width, window_.size().height};
  for (int frame = 0; frame < maxFramesAtOnce && window_.needsFrame(); ++frame) {
    for (const Rect& area : window_.prepareFrame()) {
      const Rect visible = area.intersection(bounds);
      repaintedArea_ += visible.width * visible.height;
    }
  }
}

}  // namespace headless
