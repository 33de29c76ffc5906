#include "backends/juce/AudioUnitProcessor.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

#include "Orvane/KestroAUViewController.h"
#include "Orvane/ParameterGroups.h"
#include "backends/juce/AudioUnitEditor.h"
#include "backends/juce/JuceInput.h"
#include "foundation/PropertyListCoding.h"

namespace juce_backend {
namespace {

// A dense block of MIDI has some hundreds; what is beyond this is lost rather than allocated for.
constexpr std::size_t maximumMidiEvents = 4096;
// How often changes that other threads made reach the host.
constexpr int reportsPerSecond = 30;

juce::AudioChannelSet channelSet(int channels) {
  return juce::AudioChannelSet::canonicalChannelSet(channels);
}

}  // namespace

AudioUnitProcessor::AudioUnitProcessor(const orvane::PluginEntry& entry, MidiInput midiInput)
    : AudioUnitProcessor(entry, midiInput, entry.createAudioUnit()) {}

AudioUnitProcessor::AudioUnitProcessor(const orvane::PluginEntry& entry, MidiInput midiInput,
                                       std::unique_ptr<platform::AudioUnit> audioUnit)
    : juce::AudioProcessor(busesOf(*audioUnit)),
      entry_(entry),
      midiInput_(midiInput),
      audioUnit_(std::move(audioUnit)),
      midiEvents_(maximumMidiEvents) {
  inputs_.resize(static_cast<std::size_t>(audioUnit_->inputChannels()));
  sideChain_.resize(static_cast<std::size_t>(audioUnit_->sideChainChannels()));
  outputs_.resize(static_cast<std::size_t>(audioUnit_->outputChannels()));
  addParameters();
  midiLearn_.bindingsChanged = [this] {
    updateHostDisplay(ChangeDetails().withNonParameterStateChanged(true));
  };
  startTimerHz(reportsPerSecond);
}

AudioUnitProcessor::~AudioUnitProcessor() {
  stopTimer();
  audioUnit_->parameterTree().setGestureObserver({});
  audioUnit_->parameterTree().removeParameterObserver(token_);
}

juce::AudioProcessor::BusesProperties AudioUnitProcessor::busesOf(
    const platform::AudioUnit& audioUnit) {
  BusesProperties buses;
  if (audioUnit.inputChannels() > 0)
    buses = buses.withInput("Input", channelSet(audioUnit.inputChannels()));
  // Hosts switch it on when the user sends something there.
  if (audioUnit.sideChainChannels() > 0)
    buses = buses.withInput("Side Chain", channelSet(audioUnit.sideChainChannels()), false);
  if (audioUnit.outputChannels() > 0)
    buses = buses.withOutput("Output", channelSet(audioUnit.outputChannels()));
  return buses;
}

void AudioUnitProcessor::addParameters() {
  using Group = juce::AudioProcessorParameterGroup;
  const orvane::ParameterGroups groups(*entry_.createViewController()->design(),
                                       audioUnit_->parametersKeys());
  std::map<std::string, Group*> made;
  Group tree;
  for (const std::string& key : audioUnit_->parametersKeys()) {
    platform::AUParameter* parameter = audioUnit_->parameter(key);
    if (!parameter) continue;
    auto owned =
        std::make_unique<AudioUnitParameter>(*parameter, audioUnit_->defaultValueForKey(key));
    parameters_.push_back(owned.get());
    parametersByAddress_.emplace(parameter->address(), owned.get());
    const auto* const group = groups.groupOf(key);
    if (!group) {
      tree.addChild(std::move(owned));
      continue;
    }
    Group*& place = made[group->name];
    if (!place) {
      auto child = std::make_unique<Group>(toText(group->name), toText(group->name), "|");
      place = child.get();
      tree.addChild(std::move(child));
    }
    place->addChild(std::move(owned));
  }

  setParameterTree(std::move(tree));

  platform::AUParameterTree& observed = audioUnit_->parameterTree();
  token_ = observed.tokenByAddingParameterObserver(
      [this](platform::AUParameterAddress address, float value) {
        const auto found = parametersByAddress_.find(address);
        if (found != parametersByAddress_.end()) found->second->valueChanged(value);
      });
  for (AudioUnitParameter* parameter : parameters_) parameter->setOriginator(token_);
  observed.setGestureObserver([this](platform::AUParameterAddress address, bool began) {
    const auto found = parametersByAddress_.find(address);
    if (found == parametersByAddress_.end()) return;
    if (began)
      found->second->beginChangeGesture();
    else
      found->second->endChangeGesture();
  });
}

const AudioUnitParameter* AudioUnitProcessor::parameterOf(const std::string& key) const {
  const platform::AUParameter* const parameter = audioUnit_->parameter(key);
  const auto found =
      parameter ? parametersByAddress_.find(parameter->address()) : parametersByAddress_.end();
  return found == parametersByAddress_.end() ? nullptr : found->second;
}

void AudioUnitProcessor::timerCallback() {
  // First, so that hosts record what MIDI moves as they record a finger.
  midiLearn_.poll(juce::Time::getMillisecondCounterHiRes() / 1000);
  for (AudioUnitParameter* parameter : parameters_) parameter->reportPendingChange();
}

const juce::String AudioUnitProcessor::getName() const {
  return juce::String::fromUTF8(entry_.name.c_str());
}

bool AudioUnitProcessor::isBusesLayoutSupported(const BusesLayout& layout) const {
  // A single channel is heard on all that the audio unit has, and may be what becomes of them.
  const auto fits = [](int channels, int wanted) { return channels == wanted || channels == 1; };
  const int inputs = audioUnit_->inputChannels();
  const int outputs = audioUnit_->outputChannels();
  const int sideChain = audioUnit_->sideChainChannels();
  const int given = layout.getMainInputChannels();
  const int taken = layout.getMainOutputChannels();
  if (inputs > 0 && !fits(given, inputs)) return false;
  if (outputs > 0 && !fits(taken, outputs)) return false;
  // Nobody means to lose a side of what goes in.
  if (inputs > 1 && given == inputs && taken == 1 && outputs > 1) return false;
  if (sideChain == 0 || layout.inputBuses.size() < 2) return true;
  const int followed = layout.getNumChannels(true, 1);
  return followed == 0 || fits(followed, sideChain);
}

void AudioUnitProcessor::prepareToPlay(double sampleRate, int maximumFrames) {
  maximumFrames_ = static_cast<std::uint32_t>(std::max(1, maximumFrames));
  audioUnit_->allocateRenderResources(sampleRate, maximumFrames_);
  guard_.allocate(sampleRate, maximumFrames_);
  setLatencySamples(audioUnit_->latencyFrames());
}

void AudioUnitProcessor::releaseResources() {
  maximumFrames_ = 0;
  audioUnit_->deallocateRenderResources();
}

std::size_t AudioUnitProcessor::collectMidi(const juce::MidiBuffer& midi) {
  std::size_t count = 0;
  for (const juce::MidiMessageMetadata message : midi) {
    // Long messages are not music.
    if (message.numBytes < 1 || message.numBytes > 3) continue;
    if (count == midiEvents_.size()) break;
    platform::MidiEvent& event = midiEvents_[count++];
    event.frame = static_cast<std::uint32_t>(std::max(0, message.samplePosition));
    event.size = static_cast<std::uint8_t>(message.numBytes);
    for (int i = 0; i < 3; ++i) event.bytes[i] = i < message.numBytes ? message.data[i] : 0;
  }
  return count;
}

platform::HostTransport AudioUnitProcessor::transport() const {
  platform::HostTransport transport;
  if (juce::AudioPlayHead* playHead = getPlayHead()) {
    if (const auto position = playHead->getPosition()) {
      transport.tempo = position->getBpm().orFallback(transport.tempo);
      transport.beatPosition = position->getPpqPosition().orFallback(0);
      transport.isPlaying = position->getIsPlaying();
    }
  }
  return transport;
}

void AudioUnitProcessor::render(juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi,
                                bool bypassed) {
  // Of the side chain too, whose channels follow those of the sound itself.
  const auto channelsOf = [this](bool isInput, int bus, std::size_t wanted) {
    return bus < getBusCount(isInput)
               ? std::min(wanted, static_cast<std::size_t>(getChannelCountOfBus(isInput, bus)))
               : 0;
  };
  const std::size_t inputs = channelsOf(true, 0, inputs_.size());
  const std::size_t sideChain = channelsOf(true, 1, sideChain_.size());
  const std::size_t outputs = channelsOf(false, 0, outputs_.size());
  const auto channels = static_cast<std::size_t>(buffer.getNumChannels());
  if (maximumFrames_ == 0 || channels < std::max(inputs + sideChain, outputs)) {
    buffer.clear();
    return;
  }

  const auto frames = static_cast<std::uint32_t>(buffer.getNumSamples());
  std::size_t eventCount = acceptsMidi() ? collectMidi(midi) : 0;
  if (hearsBlocks_.load(std::memory_order_relaxed))
    for (std::size_t i = 0; i < eventCount; ++i)
      midiLearn_.receive({midiEvents_[i].bytes, midiEvents_[i].size});
  // An effect has no use for it itself.
  if (!audioUnit_->acceptsMidi()) eventCount = 0;
  platform::HostTransport now = transport();
  std::size_t nextEvent = 0;
  // Some hosts bring more than they announced.
  for (std::uint32_t start = 0; start < frames; start += maximumFrames_) {
    const std::uint32_t count = std::min(maximumFrames_, frames - start);
    const bool isLast = start + count == frames;
    const std::size_t firstEvent = nextEvent;
    while (nextEvent < eventCount && (isLast || midiEvents_[nextEvent].frame < start + count)) {
      std::uint32_t& frame = midiEvents_[nextEvent++].frame;
      frame = std::min(frame, start + count - 1) - start;
    }
    for (std::size_t i = 0; i < inputs; ++i)
      inputs_[i] = buffer.getReadPointer(static_cast<int>(i), static_cast<int>(start));
    for (std::size_t i = 0; i < sideChain; ++i)
      sideChain_[i] = buffer.getReadPointer(static_cast<int>(inputs + i), static_cast<int>(start));
    for (std::size_t i = 0; i < outputs; ++i)
      outputs_[i] = buffer.getWritePointer(static_cast<int>(i), static_cast<int>(start));
    guard_.render({{inputs_.data(), inputs},
                   {sideChain_.data(), sideChain},
                   {outputs_.data(), outputs},
                   count,
                   {midiEvents_.data() + firstEvent, nextEvent - firstEvent},
                   now},
                  bypassed);
    now.beatPosition += now.isPlaying ? count / getSampleRate() * now.tempo / 60 : 0;
  }
  for (std::size_t i = outputs; i < channels; ++i)
    buffer.clear(static_cast<int>(i), 0, static_cast<int>(frames));
  midi.clear();
}

juce::AudioProcessorEditor* AudioUnitProcessor::createEditor() {
  return new AudioUnitEditor(*this);
}

int AudioUnitProcessor::getNumPrograms() {
  // JUCE wants at least one.
  return std::max(1, static_cast<int>(audioUnit_->factoryPresets().size()));
}

int AudioUnitProcessor::getCurrentProgram() {
  const auto& presets = audioUnit_->factoryPresets();
  const int current = audioUnit_->currentPreset();
  const auto found = std::find_if(presets.begin(), presets.end(),
                                  [&](const auto& preset) { return preset.number == current; });
  return found == presets.end() ? 0 : static_cast<int>(found - presets.begin());
}

void AudioUnitProcessor::setCurrentProgram(int index) {
  const auto& presets = audioUnit_->factoryPresets();
  if (index < 0 || index >= static_cast<int>(presets.size())) return;
  // Hosts repeat the program after they have restored a state, which must survive that.
  if (index == getCurrentProgram()) return;
  audioUnit_->setCurrentPreset(presets[static_cast<std::size_t>(index)].number);
}

const juce::String AudioUnitProcessor::getProgramName(int index) {
  const auto& presets = audioUnit_->factoryPresets();
  if (index < 0 || index >= static_cast<int>(presets.size())) return {};
  return juce::String::fromUTF8(presets[static_cast<std::size_t>(index)].name.c_str());
}

void AudioUnitProcessor::getStateInformation(juce::MemoryBlock& state) {
  platform::PropertyList whole = audioUnit_->fullState();
  midiLearn_.addTo(whole);
  const std::string xml = foundation::writeXmlPropertyList(whole);
  state.replaceAll(xml.data(), xml.size());
}

void AudioUnitProcessor::setStateInformation(const void* data, int size) {
  if (!data || size <= 0) return;
  std::string error;
  auto state = foundation::parsePropertyList(
      {static_cast<const std::uint8_t*>(data), static_cast<std::size_t>(size)}, error);
  if (!state) {
    std::fprintf(stderr, "%s: the host's state cannot be read: %s\n", entry_.name.c_str(),
                 error.c_str());
    return;
  }
  midiLearn_.takeFrom(*state);
  audioUnit_->setFullState(*state);
}

}  // namespace juce_backend
