#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>
#include <string>

#include "Orvane/HostPresets.h"
#include "backends/juce/AudioUnitProcessor.h"
#include "backends/juce/EditorComponent.h"

namespace juce_backend {

/// The editor as JUCE's plug-in formats want it; the host may give it any size from the smallest
/// on. The host owns it, the processor outlives it.
class AudioUnitEditor : public juce::AudioProcessorEditor {
 public:
  /// The smallest size that an editor is made for, in points.
  static constexpr int minimumWidth = 480;
  static constexpr int minimumHeight = 320;

  explicit AudioUnitEditor(AudioUnitProcessor& processor);
  ~AudioUnitEditor() override;

  EditorComponent& content() { return content_; }
  void resized() override;

 private:
  /// MIDI learn, and what the host offers for the parameter.
  juce::PopupMenu menu(const std::string& key);

  AudioUnitProcessor& processor_;
  EditorComponent content_;
  std::unique_ptr<orvane::HostPresets> presets_;
};

}  // namespace juce_backend
