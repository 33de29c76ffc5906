#include "backends/juce/JuceInput.h"

namespace juce_backend {
namespace {

// What JUCE reports for one notch of an ordinary wheel.
#if JUCE_LINUX || JUCE_BSD
constexpr double deltaPerNotch = 50.0 / 256.0;
#else
constexpr double deltaPerNotch = 120.0 / 256.0;
#endif

struct NamedKey {
  int code;
  platform::Key key;
};

const NamedKey namedKeys[] = {
    {juce::KeyPress::returnKey, platform::Key::returnKey},
    {juce::KeyPress::escapeKey, platform::Key::escape},
    {juce::KeyPress::tabKey, platform::Key::tab},
    {juce::KeyPress::spaceKey, platform::Key::space},
    {juce::KeyPress::backspaceKey, platform::Key::backspace},
    {juce::KeyPress::deleteKey, platform::Key::deleteForward},
    {juce::KeyPress::leftKey, platform::Key::left},
    {juce::KeyPress::rightKey, platform::Key::right},
    {juce::KeyPress::upKey, platform::Key::up},
    {juce::KeyPress::downKey, platform::Key::down},
    {juce::KeyPress::pageUpKey, platform::Key::pageUp},
    {juce::KeyPress::pageDownKey, platform::Key::pageDown},
    {juce::KeyPress::homeKey, platform::Key::home},
    {juce::KeyPress::endKey, platform::Key::end},
};

}  // namespace

int toTouchId(juce::MouseInputSource::InputSourceType type, int index) {
  constexpr int types = 3;
  return index * types + static_cast<int>(type);
}

platform::Modifiers toModifiers(const juce::ModifierKeys& modifiers) {
  platform::Modifiers result = platform::Modifiers::none;
  if (modifiers.isShiftDown()) result = result | platform::Modifiers::shift;
  if (modifiers.isCtrlDown()) result = result | platform::Modifiers::control;
  if (modifiers.isAltDown()) result = result | platform::Modifiers::alt;
#if JUCE_MAC
  // Elsewhere JUCE calls the control key by this name too.
  if (modifiers.isCommandDown()) result = result | platform::Modifiers::command;
#endif
  return result;
}

platform::KeyEvent toKeyEvent(const juce::KeyPress& key) {
  platform::KeyEvent event;
  event.modifiers = toModifiers(key.getModifiers());
  for (const NamedKey& named : namedKeys)
    if (key.getKeyCode() == named.code) event.key = named.key;

  const bool isTyped = event.key == platform::Key::character || event.key == platform::Key::space;
  juce::juce_wchar character = key.getTextCharacter();
  // With the control key down the system reports a control code in place of the letter.
  const bool isShortcut = key.getModifiers().isCtrlDown() || key.getModifiers().isCommandDown();
  if (isShortcut && character < 32 && key.getKeyCode() >= 32 && key.getKeyCode() < 127)
    character =
        juce::CharacterFunctions::toLowerCase(static_cast<juce::juce_wchar>(key.getKeyCode()));
  if (isTyped && character >= 32 && character != 127)
    event.text = juce::String::charToString(character).toStdString();
  return event;
}

platform::WheelEvent toWheelEvent(platform::Point location, const juce::MouseWheelDetails& wheel,
                                  const juce::ModifierKeys& modifiers) {
  platform::WheelEvent event;
  event.location = location;
  event.deltaX = static_cast<double>(wheel.deltaX) / deltaPerNotch;
  event.deltaY = static_cast<double>(wheel.deltaY) / deltaPerNotch;
  event.modifiers = toModifiers(modifiers);
  return event;
}

platform::Point toPoint(juce::Point<float> point) { return {point.x, point.y}; }

juce::Colour toColour(platform::Color color) { return juce::Colour(color.argb()); }

juce::String toText(std::string_view utf8) {
  return juce::String::fromUTF8(utf8.data(), static_cast<int>(utf8.size()));
}

}  // namespace juce_backend
