#include "backends/lv2/EditorFrame.h"

namespace lv2_backend {
namespace {

/// JUCE keeps the low byte of the symbols of keys without a character and marks them.
unsigned long symbolOf(const juce::KeyPress& key) {
  constexpr int isWithoutCharacter = 0x10000000;
  const int code = key.getKeyCode();
  if ((code & isWithoutCharacter) != 0) return 0xff00u | static_cast<unsigned>(code & 0xff);
  // Return, Tab, Escape and their like have the codes of control characters.
  if (code < 0x20) return 0xff00u | static_cast<unsigned>(code);
  return static_cast<unsigned long>(code);
}

}  // namespace

EditorFrame::EditorFrame(juce_backend::EditorComponent& editor, HostWindow& host)
    : editor_(editor), host_(host) {
  setOpaque(true);
  addAndMakeVisible(editor_);
  setSize(editor_.getWidth(), editor_.getHeight());
}

EditorFrame::~EditorFrame() { removeChildComponent(&editor_); }

void EditorFrame::resized() { editor_.setBounds(getLocalBounds()); }

bool EditorFrame::keyPressed(const juce::KeyPress& key) {
  const juce::ModifierKeys modifiers = key.getModifiers();
  return host_.sendKey(
      {symbolOf(key), modifiers.isShiftDown(), modifiers.isCtrlDown(), modifiers.isAltDown()});
}

}  // namespace lv2_backend
