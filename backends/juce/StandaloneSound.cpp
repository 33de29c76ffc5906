#include "backends/juce/StandaloneSound.h"

namespace juce_backend {
namespace {

constexpr int midiSearchPeriod = 2000;

}  // namespace

StandaloneSound::StandaloneSound(AudioUnitProcessor& processor) : processor_(processor) {
  const platform::AudioUnit& audioUnit = processor.audioUnit();
  // An instrument that opened the microphone would only ask for trouble.
  const int inputs = audioUnit.acceptsMidi() ? 0 : audioUnit.inputChannels();
  problem_ = devices_.initialise(inputs, audioUnit.outputChannels(), nullptr, true);
  if (problem_.isEmpty() && !devices_.getCurrentAudioDevice()) problem_ = "no sound device";
  player_.setProcessor(&processor);
  devices_.addAudioCallback(&player_);
  devices_.addMidiInputDeviceCallback({}, &player_);
  processor.setHearsBlocks(false);
  devices_.addMidiInputDeviceCallback({}, this);
  openMidiInputs();
  startTimer(midiSearchPeriod);
}

StandaloneSound::~StandaloneSound() {
  stopTimer();
  devices_.removeMidiInputDeviceCallback({}, this);
  devices_.removeMidiInputDeviceCallback({}, &player_);
  devices_.removeAudioCallback(&player_);
  devices_.closeAudioDevice();
  player_.setProcessor(nullptr);
}

void StandaloneSound::play(const juce::MidiMessage& message) {
  // The queue keeps everything until a device plays it.
  if (!devices_.getCurrentAudioDevice()) return;
  juce::MidiMessage timed = message;
  timed.setTimeStamp(juce::Time::getMillisecondCounterHiRes() * 0.001);
  player_.getMidiMessageCollector().addMessageToQueue(timed);
}

void StandaloneSound::handleIncomingMidiMessage(juce::MidiInput*,
                                                const juce::MidiMessage& message) {
  processor_.midiLearn().receive(
      {message.getRawData(), static_cast<std::size_t>(message.getRawDataSize())});
}

void StandaloneSound::timerCallback() { openMidiInputs(); }

void StandaloneSound::openMidiInputs() {
  for (const juce::MidiDeviceInfo& input : juce::MidiInput::getAvailableDevices())
    if (!devices_.isMidiInputDeviceEnabled(input.identifier))
      devices_.setMidiInputDeviceEnabled(input.identifier, true);
}

}  // namespace juce_backend
