#include <juce_audio_processors/juce_audio_processors.h>

#include "backends/juce/AudioUnitProcessor.h"

/// The plug-in defines it.
const orvane::PluginEntry& orvanePluginEntry();

/// What JUCE's plug-in formats ask for.
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter() {
  using juce_backend::AudioUnitProcessor;
  return new AudioUnitProcessor(orvanePluginEntry(), JucePlugin_WantsMidiInput
                                                         ? AudioUnitProcessor::MidiInput::on
                                                         : AudioUnitProcessor::MidiInput::off);
}
