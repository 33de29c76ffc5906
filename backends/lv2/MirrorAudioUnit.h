#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Orvane/MidiLearn.h"
#include "Quillon/LiveRing.h"
#include "backends/lv2/EditorMessages.h"
#include "platform/AudioUnit.h"

namespace lv2_backend {

/// The audio unit that an editor gets in an LV2 host, where the one that sounds may be in another
/// process: one of the same kind that is never rendered. Its parameters mirror the ports and its
/// live values are those that the sound has sent. User-interface thread only.
class MirrorAudioUnit : public platform::AudioUnit {
 public:
  explicit MirrorAudioUnit(std::unique_ptr<platform::AudioUnit> audioUnit);
  ~MirrorAudioUnit() override;

  /// The editor's end of MIDI learn; the bindings are part of the state beside the parameters.
  orvane::MidiLearn& midiLearn() { return midiLearn_; }
  /// Called after the editor has set the state, a preset or a MIDI binding. Parameters have told their
  /// observers by then.
  void setStateObserver(std::function<void()> observer) { stateObserver_ = std::move(observer); }
  /// What the sound has published, in the order of LiveParameters; of another length, it is
  /// ignored.
  void showLive(std::span<const float> values, std::span<const std::int32_t> modulating);
  /// The newest samples of one of LiveSounds; one that it has not is ignored.
  void showSound(std::size_t sound, std::span<const float> samples);
  /// The state beside the parameters, both ways; see PluginState.h. Setting it tells nobody.
  std::string stateBesideParameters() const;
  void setStateBesideParameters(std::string_view text);

  platform::AUParameterTree& parameterTree() override { return unit_->parameterTree(); }
  const std::vector<std::string>& parametersKeys() const override {
    return unit_->parametersKeys();
  }
  platform::AUParameter* parameter(std::string_view key) const override {
    return unit_->parameter(key);
  }
  std::vector<std::string> stringValuesFor(std::string_view key) const override {
    return unit_->stringValuesFor(key);
  }
  float defaultValueForKey(std::string_view key) const override {
    return unit_->defaultValueForKey(key);
  }
  void setParameter(std::string_view key, float value) override { unit_->setParameter(key, value); }
  void randomize() override { unit_->randomize(); }

  const std::atomic<float>* getOutputValues(std::string_view key) const override;
  const std::atomic<bool>* isModulating(std::string_view key) const override;
  std::vector<const platform::LiveBuffer*> liveBuffers(std::string_view key) const override;
  std::shared_ptr<const platform::SampleData> sampleData(std::string_view key) const override {
    return unit_->sampleData(key);
  }
  std::vector<double> magnitudesForFrequencies(const std::vector<double>& frequencies,
                                               std::string_view filterType,
                                               std::string_view frequencyParameter,
                                               std::string_view resonanceParameter) const override {
    return unit_->magnitudesForFrequencies(frequencies, filterType, frequencyParameter,
                                           resonanceParameter);
  }
  std::vector<double> magnitudesForFrequencies(const std::vector<double>& frequencies,
                                               std::string_view filterType, float frequencyValue,
                                               float resonanceValue) const override {
    return unit_->magnitudesForFrequencies(frequencies, filterType, frequencyValue, resonanceValue);
  }
  std::vector<double> magnitudesForFrequencies(
      const std::vector<double>& frequencies, const platform::FilterPairKeys& keys) const override {
    return unit_->magnitudesForFrequencies(frequencies, keys);
  }
  void hasUI(bool visible) override { unit_->hasUI(visible); }

  bool hasStore() const override { return unit_->hasStore(); }
  std::string presetExtension() const override { return unit_->presetExtension(); }
  const std::vector<platform::AUAudioUnitPreset>& factoryPresets() const override {
    return unit_->factoryPresets();
  }
  void rebuildPresetList() override { unit_->rebuildPresetList(); }
  int currentPreset() const override { return unit_->currentPreset(); }
  void setCurrentPreset(int number) override;
  std::string currentPresetName() const override { return unit_->currentPresetName(); }
  unsigned presetGeneration() const override { return unit_->presetGeneration(); }
  platform::PropertyList fullState() const override { return unit_->fullState(); }
  bool setFullState(const platform::PropertyList& state) override;

  int inputChannels() const override { return unit_->inputChannels(); }
  int outputChannels() const override { return unit_->outputChannels(); }
  int sideChainChannels() const override { return unit_->sideChainChannels(); }
  bool acceptsMidi() const override { return unit_->acceptsMidi(); }
  double tailSeconds() const override { return unit_->tailSeconds(); }
  int latencyFrames() const override { return unit_->latencyFrames(); }
  void allocateRenderResources(double, std::uint32_t) override {}
  void deallocateRenderResources() override {}
  void render(const platform::RenderBlock&) override {}

 private:
  struct Live {
    std::atomic<float> value{0};
    std::atomic<bool> modulating{false};
    bool hasValue = false;
    bool hasFlag = false;
  };

  std::unique_ptr<platform::AudioUnit> unit_;
  orvane::MidiLearn midiLearn_{*unit_};
  std::function<void()> stateObserver_;
  /// In the order of LiveParameters.
  std::vector<std::unique_ptr<Live>> live_;
  std::map<std::string, Live*, std::less<>> liveOfKey_;
  /// What the sound has sent of each of LiveSounds.
  LiveSounds sounds_;
  std::vector<std::unique_ptr<quillon::LiveRing>> rings_;
};

}  // namespace lv2_backend
