#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "Orvane/HostPresetFolder.h"
#include "Orvane/MidiLearn.h"
#include "Orvane/PluginEntry.h"
#include "Quillon/RenderGuard.h"
#include "backends/juce/AudioUnitParameter.h"

namespace juce_backend {

/// A plug-in as JUCE's formats and players want it: its audio unit's sound, parameters, factory
/// presets and state. `entry` outlives it.
class AudioUnitProcessor : public juce::AudioProcessor, private juce::Timer {
 public:
  /// Whether the format brings MIDI, which effects too can learn.
  enum class MidiInput { off, on };

  explicit AudioUnitProcessor(const orvane::PluginEntry& entry,
                              MidiInput midiInput = MidiInput::on);
  ~AudioUnitProcessor() override;

  platform::AudioUnit& audioUnit() { return *audioUnit_; }
  const orvane::PluginEntry& entry() const { return entry_; }
  /// What hosts see of a parameter, or null for a key that they do not.
  const AudioUnitParameter* parameterOf(const std::string& key) const;
  /// Hears the MIDI of every block; its bindings are part of the state.
  orvane::MidiLearn& midiLearn() { return midiLearn_; }
  /// False once somebody else brings midiLearn() its messages, sooner than with a block.
  void setHearsBlocks(bool hears) { hearsBlocks_ = hears; }
  /// How hosts of the format want the user's presets, and where; the editor brings them there.
  std::optional<orvane::HostPresetFolder::Form> presetForm;
  std::string presetFolder;
  /// Size that the editor had last, in points; where the next one starts.
  juce::Point<int> editorSize;

  const juce::String getName() const override;
  bool acceptsMidi() const override { return midiInput_ == MidiInput::on; }
  bool producesMidi() const override { return false; }
  double getTailLengthSeconds() const override { return audioUnit_->tailSeconds(); }
  bool isBusesLayoutSupported(const BusesLayout& layout) const override;

  void prepareToPlay(double sampleRate, int maximumFrames) override;
  void releaseResources() override;
  void processBlock(juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi) override {
    render(buffer, midi, false);
  }
  void processBlockBypassed(juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi) override {
    render(buffer, midi, true);
  }
  using juce::AudioProcessor::processBlock;
  using juce::AudioProcessor::processBlockBypassed;

  bool hasEditor() const override { return true; }
  juce::AudioProcessorEditor* createEditor() override;

  int getNumPrograms() override;
  int getCurrentProgram() override;
  void setCurrentProgram(int index) override;
  const juce::String getProgramName(int index) override;
  void changeProgramName(int, const juce::String&) override {}

  void getStateInformation(juce::MemoryBlock& state) override;
  void setStateInformation(const void* data, int size) override;

 private:
  static BusesProperties busesOf(const platform::AudioUnit& audioUnit);
  AudioUnitProcessor(const orvane::PluginEntry& entry, MidiInput midiInput,
                     std::unique_ptr<platform::AudioUnit> audioUnit);
  void timerCallback() override;
  void addParameters();
  void render(juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi, bool bypassed);
  std::size_t collectMidi(const juce::MidiBuffer& midi);
  platform::HostTransport transport() const;

  const orvane::PluginEntry& entry_;
  const MidiInput midiInput_;
  std::unique_ptr<platform::AudioUnit> audioUnit_;
  orvane::MidiLearn midiLearn_{*audioUnit_};
  std::atomic<bool> hearsBlocks_{true};
  /// Owned by the base class.
  std::vector<AudioUnitParameter*> parameters_;
  std::unordered_map<platform::AUParameterAddress, AudioUnitParameter*> parametersByAddress_;
  platform::AUParameterObserverToken token_ = nullptr;

  // Of the audio thread, with room for all that a block may bring.
  quillon::RenderGuard guard_{*audioUnit_};
  std::vector<platform::MidiEvent> midiEvents_;
  std::vector<const float*> inputs_;
  std::vector<const float*> sideChain_;
  std::vector<float*> outputs_;
  std::uint32_t maximumFrames_ = 0;
};

}  // namespace juce_backend
