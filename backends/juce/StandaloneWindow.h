#pragma once

#include <juce_data_structures/juce_data_structures.h>
#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

#include "backends/juce/ComputerKeyboard.h"
#include "backends/juce/EditorComponent.h"

namespace juce_backend {

/// The window of a stand-alone plug-in: its editor under a title, as large as it was last time.
/// Keys that the editor does not use play notes. `editor` outlives it.
class StandaloneWindow : public juce::DocumentWindow {
 public:
  StandaloneWindow(const juce::String& title, EditorComponent& editor,
                   const juce::File& settings,
                   std::function<void(const juce::MidiMessage&)> playNote);
  ~StandaloneWindow() override;

  void closeButtonPressed() override;
  void activeWindowStatusChanged() override;
  bool keyPressed(const juce::KeyPress& key) override;
  bool keyStateChanged(bool isKeyDown) override;

 private:
  ComputerKeyboard keyboard_;
  juce::PropertiesFile settings_;
};

}  // namespace juce_backend
