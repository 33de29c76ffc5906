#pragma once

#include <juce_audio_basics/juce_audio_basics.h>
#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <map>

namespace juce_backend {

/// Turns the letter keys into notes, laid out as on a piano: the row from Z is an octave from C3
/// with its black keys in the row above, the row from Q the octave from C4. Message thread only.
class ComputerKeyboard {
 public:
  /// `send` gets every note on and off.
  explicit ComputerKeyboard(std::function<void(const juce::MidiMessage&)> send);

  /// True when the key is a note. Repeats of a held key play nothing.
  bool keyPressed(const juce::KeyPress& key);
  /// Some key went up or down: ends the notes whose keys are up. True when one was ended.
  bool keyStateChanged();
  /// The keys cannot be watched any more.
  void releaseAll();

  /// The MIDI note of a key, or -1.
  static int noteForKey(int keyCode);

 private:
  std::function<void(const juce::MidiMessage&)> send_;
  /// Key codes that are down, with their notes.
  std::map<int, int> held_;
};

}  // namespace juce_backend
