#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "Orvane/MidiLearn.h"

namespace juce_backend {

/// What a user can do with MIDI learn: switch it on and off, and delete all bindings. Its items do
/// nothing once `learn` has gone.
juce::PopupMenu midiLearnMenu(orvane::MidiLearn& learn);

}  // namespace juce_backend
