#pragma once

#include <juce_data_structures/juce_data_structures.h>
#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>

#include "Orvane/MidiLearn.h"
#include "backends/juce/ComputerKeyboard.h"
#include "backends/juce/EditorComponent.h"
#include "backends/juce/EditorLook.h"
#include "backends/juce/StandaloneCloud.h"

namespace juce_backend {

/// The window of a stand-alone plug-in: its editor under a title and a menu, as large as it was last
/// time. Keys that the editor does not use play notes, but for Escape, which ends MIDI learn. What
/// it is given outlives it. Without a cloud there is no choice of where presets are kept.
class StandaloneWindow : public juce::DocumentWindow, private juce::MenuBarModel {
 public:
  StandaloneWindow(const juce::String& title, EditorComponent& editor,
                   juce::PropertiesFile& settings, orvane::MidiLearn& midiLearn,
                   std::shared_ptr<StandaloneCloud> cloud,
                   std::function<void(const juce::MidiMessage&)> playNote);
  ~StandaloneWindow() override;

  void closeButtonPressed() override;
  void activeWindowStatusChanged() override;
  bool keyPressed(const juce::KeyPress& key) override;
  bool keyStateChanged(bool isKeyDown) override;

 private:
  juce::StringArray getMenuBarNames() override;
  juce::PopupMenu getMenuForIndex(int index, const juce::String& name) override;
  void menuItemSelected(int, int) override {}

  juce::SharedResourcePointer<EditorLook> look_;
  ComputerKeyboard keyboard_;
  juce::PropertiesFile& settings_;
  orvane::MidiLearn& midiLearn_;
  const std::shared_ptr<StandaloneCloud> cloud_;
};

}  // namespace juce_backend
