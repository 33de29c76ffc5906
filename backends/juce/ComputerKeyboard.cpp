#include "backends/juce/ComputerKeyboard.h"

#include <string_view>

namespace juce_backend {
namespace {

constexpr int channel = 1;
constexpr float velocity = 0.8f;
// Where the lower row starts; the upper one is an octave higher.
constexpr int firstNote = 48;
constexpr std::string_view lowerRow = "ZSXDCVGBHNJM,L.;/";
constexpr std::string_view upperRow = "Q2W3ER5T6Y7UI9O0P";

}  // namespace

ComputerKeyboard::ComputerKeyboard(std::function<void(const juce::MidiMessage&)> send)
    : send_(std::move(send)) {}

int ComputerKeyboard::noteForKey(int keyCode) {
  if (keyCode <= 0 || keyCode > 127) return -1;
  const char key =
      static_cast<char>(keyCode >= 'a' && keyCode <= 'z' ? keyCode - 'a' + 'A' : keyCode);
  std::size_t place = upperRow.find(key);
  if (place != std::string_view::npos) return firstNote + 12 + static_cast<int>(place);
  place = lowerRow.find(key);
  return place != std::string_view::npos ? firstNote + static_cast<int>(place) : -1;
}

bool ComputerKeyboard::keyPressed(const juce::KeyPress& key) {
  const juce::ModifierKeys modifiers = key.getModifiers();
  if (modifiers.isCtrlDown() || modifiers.isAltDown() || modifiers.isCommandDown()) return false;
  const int note = noteForKey(key.getKeyCode());
  if (note < 0) return false;
  if (held_.emplace(key.getKeyCode(), note).second)
    send_(juce::MidiMessage::noteOn(channel, note, velocity));
  return true;
}

bool ComputerKeyboard::keyStateChanged() {
  bool hasEnded = false;
  for (auto key = held_.begin(); key != held_.end();) {
    if (juce::KeyPress::isKeyCurrentlyDown(key->first)) {
      ++key;
      continue;
    }
    send_(juce::MidiMessage::noteOff(channel, key->second));
    key = held_.erase(key);
    hasEnded = true;
  }
  return hasEnded;
}

void ComputerKeyboard::releaseAll() {
  for (const auto& [key, note] : held_) send_(juce::MidiMessage::noteOff(channel, note));
  held_.clear();
}

}  // namespace juce_backend
