#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/AUParameter.h"
#include "platform/LiveBuffer.h"
#include "platform/PropertyList.h"
#include "platform/Weak.h"

namespace platform {

/// Four-character codes that name a plug-in to its host.
struct AudioComponentDescription {
  std::uint32_t componentType = 0;
  std::uint32_t componentSubType = 0;
  std::uint32_t componentManufacturer = 0;

  friend bool operator==(const AudioComponentDescription&,
                         const AudioComponentDescription&) = default;
};

/// One factory preset as hosts and the browser see it.
struct AUAudioUnitPreset {
  int number = 0;
  std::string name{};
  std::string bank{};
  std::vector<std::string> categories{};
  std::string pack{};
};

/// A short MIDI message at a frame of the block that is rendered.
struct MidiEvent {
  std::uint32_t frame = 0;
  std::uint8_t bytes[3] = {0, 0, 0};
  std::uint8_t size = 0;
};

/// What the host knows of its transport while a block is rendered.
struct HostTransport {
  double tempo = 120;
  double beatPosition = 0;
  bool isPlaying = false;
};

/// One block of sound. Channels are not interleaved and may be the same buffers for input and
/// output; an effect's input has as many channels as it asked for.
struct RenderBlock {
  std::span<const float* const> inputs;
  /// Another sound to follow, as many channels as the audio unit asked for; empty while the host sends none.
  /// None of its buffers is an output.
  std::span<const float* const> sideChain{};
  std::span<float* const> outputs;
  std::uint32_t frames = 0;
  /// Ordered by frame.
  std::span<const MidiEvent> midi;
  HostTransport transport;
};

/// The parameter keys of a low-pass and a high-pass filter in series. An empty key, or one of no
/// parameter, leaves the filter as it is without: on, of the type of its name, without gain and at
/// no particular resonance; a filter without a frequency is left out.
struct FilterPairKeys {
  // The empty braces let designated initialisers leave members out without a warning.
  std::string_view lowPassFrequency{}, lowPassResonance{};
  std::string_view hiPassFrequency{}, hiPassResonance{};
  std::string_view isLowPassOn{}, isHighPassOn{};
  /// A parameter whose value is named by a filter type, or counts the types from its minimum up.
  std::string_view lowPassType{}, hiPassType{};
  std::string_view lowPassGain{}, hiPassGain{};
};

/// The parameters of an audio unit by key. User-interface thread, but for what AUParameter says.
class ParameterSource {
 public:
  virtual ~ParameterSource() = default;

  virtual AUParameterTree& parameterTree() = 0;
  /// Keys of all parameters in the DSP's order.
  virtual const std::vector<std::string>& parametersKeys() const = 0;
  /// The parameter of a key, or null.
  virtual AUParameter* parameter(std::string_view key) const = 0;
  /// Texts of the values of an indexed parameter; empty for any other or an unknown key.
  virtual std::vector<std::string> stringValuesFor(std::string_view key) const = 0;
  /// 0 for an unknown key.
  virtual float defaultValueForKey(std::string_view key) const = 0;
  /// Sets the parameter of the key, clamped to its range; an unknown key does nothing.
  virtual void setParameter(std::string_view key, float value) = 0;
  /// Sets every parameter that may be randomized to a random value within its range.
  virtual void randomize() = 0;
};

/// What displays show beside the parameters' values: written by the render thread, read without
/// locks at each display frame. User-interface thread.
class LiveDisplay {
 public:
  virtual ~LiveDisplay() = default;

  /// The live value of a parameter (in the parameter's own units, modulation included), or null
  /// when the audio unit publishes none. Valid as long as the audio unit.
  virtual const std::atomic<float>* getOutputValues(std::string_view key) const = 0;
  /// Whether a parameter is being modulated, or null when the audio unit publishes no flag.
  virtual const std::atomic<bool>* isModulating(std::string_view key) const = 0;
  /// The sounds that a display of this parameter shows, each channel one; none for most. They live
  /// as long as the audio unit.
  virtual std::vector<const LiveBuffer*> liveBuffers(std::string_view key) const = 0;
  /// The recording that a display of this parameter shows now, or null; of a wavetable one period of
  /// each wave in turn, each a channel.
  virtual std::shared_ptr<const SampleData> sampleData(std::string_view key) const = 0;
  /// The response of a filter in decibels, one for each of `frequencies` (in hertz); empty when the
  /// audio unit computes none, the type is unknown or a key names no parameter. The types are
  /// "lowPass", "hiPass", "bandPass", "notch", "peak", "lowShelf" and "hiShelf". FilterUnits says
  /// how the parameters are read.
  virtual std::vector<double> magnitudesForFrequencies(
      const std::vector<double>& frequencies, std::string_view filterType,
      std::string_view frequencyParameter, std::string_view resonanceParameter) const = 0;
  /// The same for a frequency in hertz and a resonance (of a peak or shelf: its gain) in decibels.
  virtual std::vector<double> magnitudesForFrequencies(const std::vector<double>& frequencies,
                                                       std::string_view filterType,
                                                       float frequencyValue,
                                                       float resonanceValue) const = 0;
  /// The same for two filters in series.
  virtual std::vector<double> magnitudesForFrequencies(const std::vector<double>& frequencies,
                                                       const FilterPairKeys& keys) const = 0;
  /// Told when an editor appears (true) and disappears (false): live values may rest without one.
  virtual void hasUI(bool visible) = 0;
};

/// Factory presets, and the state that hosts and user presets store. User-interface thread.
class PresetSource {
 public:
  virtual ~PresetSource() = default;

  /// True when presets are kept in a store, so that the plug-in must name its product.
  virtual bool hasStore() const = 0;
  /// Of the files of its presets, without the dot.
  virtual std::string presetExtension() const = 0;
  virtual const std::vector<AUAudioUnitPreset>& factoryPresets() const = 0;
  virtual void rebuildPresetList() = 0;
  /// The number of the factory preset that was loaded last, or -1.
  virtual int currentPreset() const = 0;
  /// Loads a factory preset; an unknown number does nothing.
  virtual void setCurrentPreset(int number) = 0;
  virtual std::string currentPresetName() const = 0;
  /// Another number whenever a preset or a state has been loaded, by whomever; all parameters tell
  /// their observers then, too. Any thread.
  virtual unsigned presetGeneration() const = 0;
  /// All that a host or a preset has to store, a dictionary: "data" is the keyed archive of the
  /// state dictionary, "presetName" the name of the current preset, if there is one.
  virtual PropertyList fullState() const = 0;
  /// "data" may also be the bytes of a preset file, which is the state dictionary as a property
  /// list. Keys that are missing take their defaults; unknown ones are kept for the next fullState,
  /// until another preset is loaded. False, with everything as it was, when there is no state in it.
  virtual bool setFullState(const PropertyList& state) = 0;
};

/// The sound itself. User-interface thread, but for `render`.
class Renderer {
 public:
  virtual ~Renderer() = default;

  virtual int inputChannels() const = 0;
  virtual int outputChannels() const = 0;
  /// Of a second input that an effect can follow instead of its own; 0 is none.
  virtual int sideChainChannels() const = 0;
  /// True for instruments: MIDI is wanted.
  virtual bool acceptsMidi() const = 0;
  /// Seconds that sound goes on after input and notes have ended.
  virtual double tailSeconds() const = 0;
  virtual int latencyFrames() const = 0;
  /// Before the first render and whenever the format changes; never during a render.
  virtual void allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) = 0;
  virtual void deallocateRenderResources() = 0;
  /// Renders at most maximumFrames. Audio thread: takes no lock, allocates nothing.
  virtual void render(const RenderBlock& block) = 0;
};

/// What the editor and the formats ask of a plug-in's sound. Held weakly by the editor: the host may
/// drop it at any time. Nothing here has a default, so that whoever stands in for another audio unit
/// has to say how it answers everything; a plug-in derives from quillon::CommonAudioUnit, which does.
class AudioUnit : public ParameterSource,
                  public LiveDisplay,
                  public PresetSource,
                  public Renderer,
                  public WeakTarget {};

}  // namespace platform
