#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <atomic>

#include "platform/AudioUnit.h"

namespace juce_backend {

/// One parameter of an audio unit as JUCE's plug-in formats see it: hosts automate it between 0
/// and 1, evenly in pitch where it is a frequency and evenly in its own unit otherwise. Texts hold
/// their unit, so the label is empty. The processor owns it; the audio unit outlives it.
class AudioUnitParameter : public juce::AudioProcessorParameterWithID {
 public:
  AudioUnitParameter(platform::AUParameter& parameter, float defaultValue);

  platform::AUParameter& parameter() { return parameter_; }
  /// Who sets the values that come from the host, so that they are not reported back to it.
  void setOriginator(platform::AUParameterObserverToken token) { originator_ = token; }

  /// From the parameter's own unit to 0..1, and back.
  float toNormalised(float value) const;
  float fromNormalised(float normalised) const;

  /// The audio unit's value has changed without the host's doing. On the message thread the host
  /// learns of it at once, on any other at the next reportPendingChange; neither locks there.
  void valueChanged(float value);
  void reportPendingChange();

  float getValue() const override;
  void setValue(float normalised) override;
  float getDefaultValue() const override { return defaultValue_; }
  juce::String getText(float normalised, int maximumLength) const override;
  float getValueForText(const juce::String& text) const override;
  int getNumSteps() const override;
  bool isDiscrete() const override { return isStepped_; }
  bool isBoolean() const override;
  juce::StringArray getAllValueStrings() const override;

 private:
  /// Of whole values in the range.
  int stepCount() const;

  platform::AUParameter& parameter_;
  platform::AUParameterObserverToken originator_ = nullptr;
  const bool isStepped_;
  const bool isEvenInPitch_;
  float defaultValue_ = 0;
  std::atomic<bool> isChangePending_{false};
};

}  // namespace juce_backend
