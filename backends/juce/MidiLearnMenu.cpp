#include "backends/juce/MidiLearnMenu.h"

namespace juce_backend {

juce::PopupMenu midiLearnMenu(orvane::MidiLearn& learn) {
  const platform::Weak<orvane::MidiLearn> alive = &learn;
  juce::PopupMenu menu;
  menu.addItem("MIDI learn", true, learn.isLearning(), [alive] {
    if (auto* midi = alive.get()) midi->setLearning(!midi->isLearning());
  });
  menu.addSeparator();
  menu.addItem("Delete all MIDI bindings", !learn.bindings().empty(), false, [alive] {
    if (auto* midi = alive.get()) midi->removeAll();
  });
  return menu;
}

}  // namespace juce_backend
