#include "backends/juce/AudioUnitEditor.h"

#include "backends/juce/MidiLearnMenu.h"

namespace juce_backend {
namespace {

constexpr int maximumSide = 8192;

}  // namespace

AudioUnitEditor::AudioUnitEditor(AudioUnitProcessor& processor)
    : juce::AudioProcessorEditor(processor),
      processor_(processor),
      content_(processor.entry(), processor.audioUnit()) {
  setOpaque(true);
  addAndMakeVisible(content_);
  if (auto* controller = dynamic_cast<orvane::KestroAUViewController*>(&content_.controller())) {
    processor_.midiLearn().setEditor(controller);
    if (processor_.acceptsMidi())
      content_.menu = [this] { return midiLearnMenu(processor_.midiLearn()); };
  }
  // Read first: setting the limits gives the editor a size of its own.
  const juce::Point<int> size = processor.editorSize.isOrigin()
                                    ? juce::Point<int>(content_.getWidth(), content_.getHeight())
                                    : processor.editorSize;
  // The host's frame resizes the window; a corner of ours would cover the editor's own.
  setResizable(true, false);
  setResizeLimits(minimumWidth, minimumHeight, maximumSide, maximumSide);
  setSize(size.x, size.y);
}

AudioUnitEditor::~AudioUnitEditor() { processor_.midiLearn().setEditor(nullptr); }

void AudioUnitEditor::resized() {
  content_.setBounds(getLocalBounds());
  processor_.editorSize = {getWidth(), getHeight()};
}

}  // namespace juce_backend
