#include <juce_audio_processors/juce_audio_processors.h>

#include "backends/juce/AudioUnitProcessor.h"
#include "backends/juce/VstPresets.h"

/// The plug-in defines it.
const orvane::PluginEntry& orvanePluginEntry();

/// What JUCE's plug-in formats ask for.
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter() {
  using juce_backend::AudioUnitProcessor;
  const orvane::PluginEntry& entry = orvanePluginEntry();
  auto processor = std::make_unique<AudioUnitProcessor>(
      entry, JucePlugin_WantsMidiInput ? AudioUnitProcessor::MidiInput::on
                                       : AudioUnitProcessor::MidiInput::off);
  processor->presetForm =
      juce_backend::vstPresetForm(JucePlugin_ManufacturerCode, JucePlugin_PluginCode);
  processor->presetFolder = juce_backend::vstPresetFolder(entry);
  return processor.release();
}
