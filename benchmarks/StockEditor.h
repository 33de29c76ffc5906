#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>
#include <vector>

namespace bench {

/// The peer's parameters: as many as ours, with the same ranges and names.
class StockProcessor : public juce::AudioProcessor {
 public:
  explicit StockProcessor(int count);

  juce::AudioProcessorValueTreeState state;

  const juce::String getName() const override { return "Stock"; }
  void prepareToPlay(double, int) override {}
  void releaseResources() override {}
  void processBlock(juce::AudioBuffer<float>&, juce::MidiBuffer&) override {}
  using juce::AudioProcessor::processBlock;
  double getTailLengthSeconds() const override { return 0; }
  bool acceptsMidi() const override { return false; }
  bool producesMidi() const override { return false; }
  juce::AudioProcessorEditor* createEditor() override { return nullptr; }
  bool hasEditor() const override { return true; }
  int getNumPrograms() override { return 1; }
  int getCurrentProgram() override { return 0; }
  void setCurrentProgram(int) override {}
  const juce::String getProgramName(int) override { return {}; }
  void changeProgramName(int, const juce::String&) override {}
  void getStateInformation(juce::MemoryBlock&) override {}
  void setStateInformation(const void*, int) override {}
};

/// The editor that JUCE's tutorials lead to: a rotary slider, a title and an attachment for each
/// parameter, in JUCE's own look. Since it has no menu bar, panels and section titles, its knobs have
/// the whole window; they come out nearly as large as ours.
class StockEditor : public juce::AudioProcessorEditor {
 public:
  /// A slider shows its value in a box of text unless told otherwise; our knobs show it only while
  /// they move.
  enum class ValueBoxes { shown, none };

  StockEditor(StockProcessor& processor, ValueBoxes boxes);

  juce::Slider& slider(int index) { return knobs_[static_cast<std::size_t>(index)]->slider; }
  void paint(juce::Graphics& graphics) override;
  void resized() override;

 private:
  struct Knob {
    juce::Slider slider;
    juce::Label title;
    std::unique_ptr<juce::AudioProcessorValueTreeState::SliderAttachment> attachment;
  };

  std::vector<std::unique_ptr<Knob>> knobs_;
};

}  // namespace bench
