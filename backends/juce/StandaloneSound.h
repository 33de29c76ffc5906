#pragma once

#include <juce_audio_devices/juce_audio_devices.h>
#include <juce_audio_utils/juce_audio_utils.h>

#include "backends/juce/AudioUnitProcessor.h"

namespace juce_backend {

/// Plays a processor on the default sound device and hears every MIDI input there is, also those
/// that are plugged in later; what is bound to MIDI moves with or without sound. Without a device
/// all is silent. `processor` outlives it.
class StandaloneSound : private juce::Timer, private juce::MidiInputCallback {
 public:
  explicit StandaloneSound(AudioUnitProcessor& processor);
  ~StandaloneSound() override;

  /// Empty when sound plays; else why it does not.
  const juce::String& problem() const { return problem_; }
  /// A message that is played as soon as possible.
  void play(const juce::MidiMessage& message);

 private:
  void timerCallback() override;
  /// On a thread of the MIDI device.
  void handleIncomingMidiMessage(juce::MidiInput*, const juce::MidiMessage& message) override;
  void openMidiInputs();

  AudioUnitProcessor& processor_;
  juce::AudioDeviceManager devices_;
  juce::AudioProcessorPlayer player_;
  juce::String problem_;
};

}  // namespace juce_backend
