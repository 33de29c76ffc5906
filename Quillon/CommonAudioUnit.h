#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "Quillon/LiveRing.h"
#include "Quillon/ParameterDescription.h"
#include "Quillon/ParameterTree.h"
#include "platform/AudioUnit.h"

namespace quillon {

/// A factory preset with the values that it sets.
struct PresetDescription {
  platform::AUAudioUnitPreset preset{};
  /// By parameter key; every parameter that is not named takes its default.
  std::map<std::string, float> values{};
};

/// Base class of a plug-in's sound: parameters, state, factory presets and live values. The plug-in
/// derives from it and overrides `render`, and whatever else differs from an effect with one stereo
/// input and output, no MIDI and no tail.
///
/// Presets and states may be loaded and read on any thread but the audio thread: some hosts restore
/// a session on another thread than the one that their editors run on. Of two loads at once the later
/// one counts, as a whole.
///
///     class Gain : public quillon::CommonAudioUnit {
///      public:
///       Gain() : CommonAudioUnit({{.key = "gain", .address = 0, .maxValue = 2}}) {}
///       void render(const platform::RenderBlock& block) override;  // reads value(0)
///     };
class CommonAudioUnit : public platform::AudioUnit {
 public:
  /// Throws std::invalid_argument, naming the key or the preset, when a description is wrong: see
  /// ParameterTree; two presets with one number; a preset's value of an unknown key, or not finite.
  explicit CommonAudioUnit(std::vector<ParameterDescription> parameters,
                           std::vector<PresetDescription> presets = {});
  ~CommonAudioUnit() override;
  CommonAudioUnit(const CommonAudioUnit&) = delete;
  CommonAudioUnit& operator=(const CommonAudioUnit&) = delete;

  // Parameters

  ParameterTree& parameterTree() override { return tree_; }
  const std::vector<std::string>& parametersKeys() const override { return tree_.keys(); }
  Parameter* parameter(std::string_view key) const override;
  std::vector<std::string> stringValuesFor(std::string_view key) const override;
  float defaultValueForKey(std::string_view key) const override;
  void setParameter(std::string_view key, float value) override;
  /// Uniform over the range, for hertz over the pitch; whole values for stepped parameters.
  void randomize() override;
  /// Makes the following calls of randomize repeatable.
  void seedRandomize(std::uint32_t seed) { random_.seed(seed); }

  /// The place of a parameter in the order of the descriptions.
  std::optional<std::size_t> indexOfKey(std::string_view key) const {
    return tree_.indexOfKey(key);
  }
  /// The current value by index. Any thread.
  float value(std::size_t index) const { return tree_.at(index).value(); }

  // Live display

  const std::atomic<float>* getOutputValues(std::string_view key) const override;
  const std::atomic<bool>* isModulating(std::string_view key) const override;
  std::vector<const platform::LiveBuffer*> liveBuffers(std::string_view key) const override;
  std::shared_ptr<const platform::SampleData> sampleData(std::string_view key) const override;
  /// Analogue responses of second order; a plug-in with other filters, or another reading of their
  /// parameters, overrides them.
  std::vector<double> magnitudesForFrequencies(const std::vector<double>& frequencies,
                                               std::string_view filterType,
                                               std::string_view frequencyParameter,
                                               std::string_view resonanceParameter) const override;
  std::vector<double> magnitudesForFrequencies(const std::vector<double>& frequencies,
                                               std::string_view filterType, float frequencyValue,
                                               float resonanceValue) const override;
  std::vector<double> magnitudesForFrequencies(const std::vector<double>& frequencies,
                                               const platform::FilterPairKeys& keys) const override;
  void hasUI(bool visible) override { uiVisible_.store(visible, std::memory_order_relaxed); }
  /// Whether an editor watches the live values. Any thread.
  bool isUIVisible() const { return uiVisible_.load(std::memory_order_relaxed); }

  // Presets and state

  bool hasStore() const override { return false; }
  std::string presetExtension() const override { return "preset"; }
  const std::vector<platform::AUAudioUnitPreset>& factoryPresets() const override {
    return presets_;
  }
  /// The list is fixed here; a plug-in whose list changes calls setFactoryPresets.
  void rebuildPresetList() override {}
  int currentPreset() const override;
  void setCurrentPreset(int number) override;
  std::string currentPresetName() const override;
  unsigned presetGeneration() const override { return presetGeneration_.load(); }
  /// Beside "data" and "presetName" the factory preset's number as "presetNumber".
  platform::PropertyList fullState() const override;
  /// Takes what older versions stored as well, the entries of the state dictionary without "data".
  /// What holds no state dictionary changes nothing and is told on the console.
  bool setFullState(const platform::PropertyList& state) override;

  // Sound

  int inputChannels() const override { return 2; }
  int outputChannels() const override { return 2; }
  int sideChainChannels() const override { return 0; }
  bool acceptsMidi() const override { return false; }
  double tailSeconds() const override { return 0; }
  int latencyFrames() const override { return 0; }
  void allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) override;
  void deallocateRenderResources() override {}
  /// Passes each input on to the output of the same number; outputs without an input are silent.
  void render(const platform::RenderBlock& block) override;

 protected:
  double sampleRate() const { return sampleRate_; }
  std::uint32_t maximumFrames() const { return maximumFrames_; }

  /// Publish for the display; audio thread. Indices of parameters that declared publishesLive; any
  /// other changes nothing that can be seen.
  void publishLive(std::size_t index, float value) {
    live_[index].store(value, std::memory_order_relaxed);
  }
  void publishModulating(std::size_t index, bool modulating) {
    modulating_[index].store(modulating, std::memory_order_relaxed);
  }

  /// A buffer that displays of the parameter show, beside those added before; `render` appends to
  /// it. Called by the constructor of a subclass.
  LiveRing& addLiveBuffer(const std::string& key, std::size_t capacity);
  /// What displays of the parameter show from now on, or null. User-interface thread.
  void setSampleData(const std::string& key, std::shared_ptr<const platform::SampleData> data);

  /// What presets and hosts store: "parameters" (a dictionary of reals by key) and what the last
  /// setStateDictionary brought beyond the parameters that are known. An override adds its own
  /// entries to what this returns.
  virtual platform::PropertyList::Dictionary stateDictionary() const;
  /// A value that is no number counts as missing. Observers are told afterwards.
  virtual void setStateDictionary(const platform::PropertyList::Dictionary& state);

  /// Throws as the constructor does, and then leaves the list as it was.
  void setFactoryPresets(std::vector<PresetDescription> presets);

 private:
  const PresetDescription* preset(int number) const;
  void tellAll();

  ParameterTree tree_;
  std::unique_ptr<std::atomic<float>[]> live_;
  std::unique_ptr<std::atomic<bool>[]> modulating_;
  std::atomic<bool> uiVisible_{false};
  std::map<std::string, std::vector<std::unique_ptr<LiveRing>>, std::less<>> liveBuffers_;
  std::map<std::string, std::shared_ptr<const platform::SampleData>, std::less<>> sampleData_;
  std::mt19937 random_;

  /// Held while what follows is read or loaded, the parameters' values included, but never while
  /// observers are told: those may wait for whoever waits for this. An override of stateDictionary may
  /// ask for the preset's name.
  mutable std::recursive_mutex loading_;
  std::vector<PresetDescription> presetDescriptions_;
  std::vector<platform::AUAudioUnitPreset> presets_;
  int currentPreset_ = -1;
  std::string currentPresetName_;
  std::atomic<unsigned> presetGeneration_{0};
  /// What the last state held that this plug-in does not know.
  platform::PropertyList::Dictionary unknownState_, unknownParameters_;

  double sampleRate_ = 44100;
  std::uint32_t maximumFrames_ = 0;
};

}  // namespace quillon
