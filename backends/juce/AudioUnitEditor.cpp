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
    if (processor_.presetForm && !processor_.presetFolder.empty())
      presets_ = std::make_unique<orvane::HostPresets>(
          controller->presetLibrary(), processor_.presetFolder, *processor_.presetForm);
    content_.menu = [this](const std::string& key) { return menu(key); };
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

juce::PopupMenu AudioUnitEditor::menu(const std::string& key) {
  juce::PopupMenu shown;
  if (processor_.acceptsMidi()) shown = midiLearnMenu(processor_.midiLearn());
  const juce::AudioProcessorEditorHostContext* const host = getHostContext();
  const AudioUnitParameter* const parameter = processor_.parameterOf(key);
  if (!host || !parameter) return shown;
  const auto given = host->getContextMenuForParameter(parameter);
  if (!given) return shown;
  const juce::PopupMenu hosts = given->getEquivalentPopupMenu();
  if (hosts.getNumItems() > 0) shown.addSeparator();
  for (juce::PopupMenu::MenuItemIterator items(hosts); items.next();)
    shown.addItem(items.getItem());
  return shown;
}

void AudioUnitEditor::resized() {
  content_.setBounds(getLocalBounds());
  processor_.editorSize = {getWidth(), getHeight()};
}

}  // namespace juce_backend
