#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <thread>

#include "Quillon/FullState.h"
#include "backends/juce/AudioUnitProcessor.h"
#include "backends/juce/VstPresets.h"
#include "tests/support/AllocationCounter.h"
#include "tests/support/GivenUnit.h"
#include "tests/support/JuceBench.h"
#include "tests/support/OffScreenWindow.h"

namespace {

using juce_backend::AudioUnitParameter;
using juce_backend::AudioUnitProcessor;

struct Listener : juce::AudioProcessorListener {
  void audioProcessorParameterChanged(juce::AudioProcessor*, int index, float value) override {
    log += "set" + std::to_string(index) + "=" + std::to_string(std::lround(value * 100)) + " ";
  }
  void audioProcessorChanged(juce::AudioProcessor*, const ChangeDetails&) override {}
  void audioProcessorParameterChangeGestureBegin(juce::AudioProcessor*, int index) override {
    log += "begin" + std::to_string(index) + " ";
  }
  void audioProcessorParameterChangeGestureEnd(juce::AudioProcessor*, int index) override {
    log += "end" + std::to_string(index) + " ";
  }
  std::string log;
};

class JuceProcessorTest : public testing::Test {
 protected:
  JuceProcessorTest() { processor_.addListener(&listener_); }
  ~JuceProcessorTest() override { processor_.removeListener(&listener_); }

  AudioUnitParameter& parameter(int index) {
    return static_cast<AudioUnitParameter&>(*processor_.getParameters()[index]);
  }
  support::RenderLog& unit() { return static_cast<support::RenderLog&>(processor_.audioUnit()); }
  float value(const char* key) { return unit().parameter(key)->value(); }

  juce::ScopedJuceInitialiser_GUI juceIsUp_;
  orvane::PluginEntry entry_ = support::renderLogEntry();
  AudioUnitProcessor processor_{entry_};
  Listener listener_;
};

TEST_F(JuceProcessorTest, hostsSeeEveryParameterWithItsIdentityAndScale) {
  ASSERT_EQ(processor_.getParameters().size(), 4);
  const struct {
    int index;
    const char *id, *name;
    float normalised, value;
    const char* text;
    int steps;
  } cases[] = {
      {0, "cutoff", "Cutoff", 0, 20, "20.0 Hz", 0x7fffffff},
      {0, "cutoff", "Cutoff", 0.5f, 632.456f, "632 Hz", 0x7fffffff},
      {0, "cutoff", "Cutoff", 1, 20000, "20.0 kHz", 0x7fffffff},
      {1, "wave", "Wave", 0.5f, 1, "Saw", 3},
      {1, "wave", "Wave", 0.8f, 2, "Noise", 3},
      {2, "on", "on", 1, 1, "On", 2},
      {3, "mix", "Mix", 0.25f, 25, "25 %", 0x7fffffff},
  };
  for (const auto& c : cases) {
    AudioUnitParameter& p = parameter(c.index);
    EXPECT_EQ(p.getParameterID(), c.id);
    EXPECT_EQ(p.getName(100), c.name);
    EXPECT_EQ(p.getNumSteps(), c.steps);
    EXPECT_EQ(p.getText(c.normalised, 0), c.text);
    p.setValue(c.normalised);
    EXPECT_NEAR(unit().parameter(c.id)->value(), c.value, c.value * 1e-4);
  }
  EXPECT_NEAR(parameter(0).getDefaultValue(), 1.0 / 3, 1e-4);
  EXPECT_TRUE(parameter(2).isBoolean());
  EXPECT_EQ(parameter(1).getAllValueStrings(), juce::StringArray({"Sine", "Saw", "Noise"}));
}

TEST_F(JuceProcessorTest, hostsSeeParametersInTheGroupsOfTheDesign) {
  orvane::PluginEntry entry = support::renderLogEntry();
  entry.makeViewController = [] {
    auto design = std::make_shared<support::GivenDesign>();
    design->addPage("Main", {support::section("Tone", {"mix", "cutoff"}),
                             support::section("Shape", {"wave", "mix"})});
    return std::make_unique<support::TestController>(std::move(design));
  };
  AudioUnitProcessor processor(entry);
  std::string groups;
  for (const auto* group : processor.getParameterTree().getSubgroups(true)) {
    groups += group->getName().toStdString() + ":";
    for (const auto* parameter : group->getParameters(false))
      groups += " " + parameter->getName(100).toStdString();
    groups += "; ";
  }
  EXPECT_EQ(groups, "Tone: Cutoff Mix; Shape: Wave; ");
  ASSERT_EQ(processor.getParameters().size(), 4);
  EXPECT_EQ(processor.getParameterTree().getParameters(false).size(), 1) << "no section has \"on\"";
}

TEST_F(JuceProcessorTest, typedTextsBecomeValues) {
  const struct {
    int index;
    const char* text;
    float value;
  } cases[] = {{0, "2 kHz", 2000}, {0, "440", 440}, {0, "999999", 20000}, {1, "noise", 2},
               {1, "1", 1},        {2, "On", 1},    {3, "60 %", 60}};
  for (const auto& c : cases)
    EXPECT_NEAR(parameter(c.index).fromNormalised(parameter(c.index).getValueForText(c.text)),
                c.value, c.value * 1e-4)
        << c.text;
  EXPECT_EQ(parameter(3).getValueForText("nonsense"), parameter(3).getValue());
}

TEST_F(JuceProcessorTest, whatTheHostSetsIsNotReportedBackToIt) {
  parameter(3).setValue(0.8f);
  EXPECT_FLOAT_EQ(value("mix"), 80);
  EXPECT_EQ(listener_.log, "");
}

TEST_F(JuceProcessorTest, whatTheEditorSetsReachesTheHostWithinItsGesture) {
  platform::AUParameter& mix = *unit().parameter("mix");
  mix.beginGesture();
  mix.setValue(50);
  mix.endGesture();
  EXPECT_EQ(listener_.log, "begin3 set3=50 end3 ");
}

TEST_F(JuceProcessorTest, whatAnotherThreadSetsReachesTheHostFromTheMessageThread) {
  std::thread([&] {
    const support::AllocationCounter counter;
    unit().parameter("mix")->setValue(75);
    EXPECT_EQ(counter.count(), 0u);
  }).join();
  EXPECT_EQ(listener_.log, "");
  parameter(3).reportPendingChange();
  parameter(3).reportPendingChange();
  EXPECT_EQ(listener_.log, "set3=75 ");
}

TEST_F(JuceProcessorTest, aStateSurvivesTheWayThroughTheHost) {
  parameter(0).setValue(0.5f);
  parameter(1).setValue(1);
  juce::MemoryBlock state;
  processor_.getStateInformation(state);
  AudioUnitProcessor other(entry_);
  other.setStateInformation(state.getData(), static_cast<int>(state.getSize()));
  EXPECT_FLOAT_EQ(other.audioUnit().parameter("cutoff")->value(), value("cutoff"));
  EXPECT_FLOAT_EQ(other.audioUnit().parameter("wave")->value(), 2);

  other.setStateInformation("garbage", 7);
  other.setStateInformation(nullptr, 0);
  EXPECT_FLOAT_EQ(other.audioUnit().parameter("wave")->value(), 2);
}

TEST_F(JuceProcessorTest, midiBindingsMoveParametersAndAreKeptWithTheHostsState) {
  juce::MemoryBlock old, state;
  processor_.getStateInformation(old);
  processor_.midiLearn().bind("mix", {0xb0, 74});
  processor_.getStateInformation(state);

  AudioUnitProcessor other(entry_);
  other.setStateInformation(state.getData(), static_cast<int>(state.getSize()));
  EXPECT_EQ(other.midiLearn().bindings(), processor_.midiLearn().bindings());
  EXPECT_EQ(other.audioUnit().fullState().find("midiMap"), nullptr) << "presets have no bindings";
  other.setPlayConfigDetails(2, 2, 48000, 64);
  other.prepareToPlay(48000, 64);
  juce::AudioBuffer<float> buffer(2, 64);
  juce::MidiBuffer midi;
  midi.addEvent(juce::MidiMessage::controllerEvent(1, 74, 127), 3);
  other.processBlock(buffer, midi);
  EXPECT_EQ(other.audioUnit().parameter("mix")->value(), 100);

  other.setStateInformation(old.getData(), static_cast<int>(old.getSize()));
  EXPECT_TRUE(other.midiLearn().bindings().empty());
}

TEST_F(JuceProcessorTest, anEffectHearsMidiToLearnWhereTheFormatBringsIt) {
  using MidiInput = AudioUnitProcessor::MidiInput;
  const orvane::PluginEntry entry = support::entryOf([] {
    return std::make_unique<support::GivenUnit>(
        support::GivenUnit::Channels{2, 2, false},
        std::vector<quillon::ParameterDescription>{{.key = "mix", .address = 1}});
  });
  for (const MidiInput input : {MidiInput::on, MidiInput::off}) {
    AudioUnitProcessor effect(entry, input);
    EXPECT_EQ(effect.acceptsMidi(), input == MidiInput::on);
    effect.midiLearn().bind("mix", {0xb0, 74});
    effect.setPlayConfigDetails(2, 2, 48000, 64);
    effect.prepareToPlay(48000, 64);
    juce::AudioBuffer<float> buffer(2, 64);
    juce::MidiBuffer midi;
    midi.addEvent(juce::MidiMessage::controllerEvent(1, 74, 127), 3);
    effect.processBlock(buffer, midi);
    EXPECT_EQ(effect.audioUnit().parameter("mix")->value(), input == MidiInput::on ? 1 : 0);
  }
}

TEST_F(JuceProcessorTest, factoryPresetsAreProgramsAndARepeatedOneKeepsTheState) {
  ASSERT_EQ(processor_.getNumPrograms(), 2);
  EXPECT_EQ(processor_.getProgramName(1), "Loud");
  EXPECT_EQ(processor_.getProgramName(7), "");
  processor_.setCurrentProgram(1);
  EXPECT_FLOAT_EQ(value("mix"), 90);
  parameter(3).setValue(0.1f);
  processor_.setCurrentProgram(1);
  processor_.setCurrentProgram(-1);
  EXPECT_FLOAT_EQ(value("mix"), 10);
}

TEST_F(JuceProcessorTest, whatAHostSetsOnAThreadOfItsOwnStandsAtOnceAndStays) {
  juce::MemoryBlock saved;
  parameter(3).setValue(0.1f);
  processor_.getStateInformation(saved);
  const auto restore = [&] {
    processor_.setStateInformation(saved.getData(), static_cast<int>(saved.getSize()));
  };
  const struct {
    const char* what;
    std::function<void()> host;
    int program;
    float mix;
  } cases[] = {
      {"a program", [&] { processor_.setCurrentProgram(1); }, 1, 90},
      {"another program",
       [&] {
         processor_.setCurrentProgram(1);
         processor_.setCurrentProgram(0);
       },
       0, 25},
      {"a state after a program",
       [&] {
         processor_.setCurrentProgram(1);
         restore();
       },
       0, 10},
      {"a value after a program",
       [&] {
         processor_.setCurrentProgram(1);
         parameter(3).setValue(0.4f);
       },
       1, 40},
  };
  for (const auto& c : cases) {
    processor_.setCurrentProgram(0);
    parameter(3).setValue(0.5f);
    std::thread([&] {
      c.host();
      EXPECT_EQ(processor_.getCurrentProgram(), c.program) << c.what;
      EXPECT_FLOAT_EQ(value("mix"), c.mix) << c.what;
    }).join();
    // Longer than a message thread may put it off.
    support::runFor(0.06);
    EXPECT_FLOAT_EQ(value("mix"), c.mix) << c.what;
  }
}

TEST_F(JuceProcessorTest, aBlockThatIsTooLongIsRenderedInPartsWithItsNotesInPlace) {
  processor_.setPlayConfigDetails(2, 2, 48000, 64);
  processor_.prepareToPlay(48000, 64);
  EXPECT_EQ(processor_.getLatencySamples(), 32);
  juce::AudioBuffer<float> buffer(2, 150);
  juce::MidiBuffer midi;
  for (int frame : {0, 63, 64, 149})
    midi.addEvent(juce::MidiMessage::noteOn(1, frame / 2, 1.0f), frame);
  const juce::uint8 sysex[] = {1, 2, 3, 4};
  midi.addEvent(juce::MidiMessage::createSysExMessage(sysex, 4), 10);
  processor_.processBlock(buffer, midi);

  using Notes = std::vector<std::pair<std::uint32_t, int>>;
  ASSERT_EQ(unit().blocks.size(), 3u);
  EXPECT_EQ(unit().blocks[0].notes, (Notes{{0, 0}, {63, 31}}));
  EXPECT_EQ(unit().blocks[1].notes, (Notes{{0, 32}}));
  EXPECT_EQ(unit().blocks[2].notes, (Notes{{21, 74}}));
  EXPECT_EQ(unit().blocks[2].frames, 22u);
}

TEST_F(JuceProcessorTest, processingAllocatesNothing) {
  unit().logs = false;
  processor_.setPlayConfigDetails(2, 2, 48000, 64);
  processor_.prepareToPlay(48000, 64);
  juce::AudioBuffer<float> buffer(2, 128);
  juce::MidiBuffer midi;
  for (int i = 0; i < 100; ++i) midi.addEvent(juce::MidiMessage::noteOn(1, 60, 1.0f), i);
  processor_.midiLearn().bind("mix", {0x90, 60});
  // As the host does, on a thread of its own: on the message thread its listeners are told at once.
  std::size_t allocations = 1;
  std::thread([&] {
    const support::AllocationCounter counter;
    processor_.processBlock(buffer, midi);
    allocations = counter.count();
  }).join();
  EXPECT_EQ(allocations, 0u);
}

TEST_F(JuceProcessorTest, aBlockBeforePreparingOrWithTooFewChannelsIsSilent) {
  juce::AudioBuffer<float> buffer(2, 16);
  juce::MidiBuffer midi;
  buffer.setSample(0, 0, 1);
  processor_.processBlock(buffer, midi);
  EXPECT_EQ(buffer.getMagnitude(0, 16), 0);
  processor_.prepareToPlay(48000, 16);
  juce::AudioBuffer<float> mono(1, 16);
  processor_.processBlock(mono, midi);
  EXPECT_TRUE(unit().blocks.empty());
}

TEST_F(JuceProcessorTest, aPresetForHostsHoldsTheSoundAndLeavesTheMidiBindings) {
  parameter(3).setValue(0.7f);
  const auto form = juce_backend::vstPresetForm(0x4f727661, 0x526c6f67);
  const std::string file =
      *form.contents({"Loud one", "Loud one.vstpreset"}, quillon::unfolded(unit().fullState()));
  EXPECT_EQ(file.substr(0, 8), std::string("VST3\x01\0\0\0", 8));
  EXPECT_EQ(file.substr(8, 32), "ABCDEF019182FAEB4F727661526C6F67");
  const auto number = [&](std::size_t place) {
    std::uint64_t value = 0;
    std::memcpy(&value, file.data() + place, 8);
    return static_cast<std::size_t>(value);
  };
  const std::size_t list = number(40);
  ASSERT_EQ(file.substr(list, 12), std::string("List\x01\0\0\0Comp", 12));
  const std::string component = file.substr(number(list + 12), number(list + 20));
  EXPECT_EQ(list + 28, file.size());

  AudioUnitProcessor other(entry_);
  other.midiLearn().bind("cutoff", {0xb0, 20});
  other.setStateInformation(component.data(), static_cast<int>(component.size()));
  EXPECT_FLOAT_EQ(other.audioUnit().parameter("mix")->value(), 70);
  EXPECT_EQ(other.audioUnit().currentPresetName(), "Loud one");
  EXPECT_EQ(other.midiLearn().bindings().size(), 1u);
  juce::MemoryBlock session;
  processor_.getStateInformation(session);
  other.setStateInformation(session.getData(), static_cast<int>(session.getSize()));
  EXPECT_TRUE(other.midiLearn().bindings().empty()) << "those of the session";
}

TEST_F(JuceProcessorTest, busesAreMonoOrStereoWithASideChainThatHostsMayLeaveOff) {
  struct Follower : support::GivenUnit {
    Follower() : GivenUnit({2, 2, false, 2}) {}
    void render(const platform::RenderBlock& block) override {
      GivenUnit::render(block);
      if (!block.sideChain.empty()) block.outputs[0][0] += block.sideChain[1][0];
    }
  };
  const orvane::PluginEntry entry = support::entryOf([] { return std::make_unique<Follower>(); });
  AudioUnitProcessor processor(entry);
  ASSERT_EQ(processor.getBusCount(true), 2);
  EXPECT_FALSE(processor.getBus(true, 1)->isEnabled());
  using Set = juce::AudioChannelSet;
  const Set none = Set::disabled(), mono = Set::mono(), stereo = Set::stereo();
  const struct {
    Set in, sideChain, out;
    bool isSupported;
    float left;
  } cases[] = {{stereo, none, stereo, true, 0.5f},
               {stereo, stereo, stereo, true, 0.5f + 0.125f},
               {stereo, mono, stereo, true, 0.5f + 0.125f},
               {mono, mono, stereo, true, 0.5f + 0.125f},
               {mono, none, mono, true, 0.5f},
               {mono, stereo, mono, true, 0.5f + 0.125f / 2},
               {stereo, none, mono, false, 0},
               {Set::quadraphonic(), none, stereo, false, 0},
               {stereo, Set::quadraphonic(), stereo, false, 0}};
  for (const auto& c : cases) {
    juce::AudioProcessor::BusesLayout layout;
    layout.inputBuses = {c.in, c.sideChain};
    layout.outputBuses = {c.out};
    SCOPED_TRACE(c.in.getDescription() + ", " + c.sideChain.getDescription() + " to " +
                 c.out.getDescription());
    processor.releaseResources();
    ASSERT_EQ(processor.setBusesLayout(layout), c.isSupported);
    if (!c.isSupported) continue;
    processor.prepareToPlay(48000, 16);
    juce::AudioBuffer<float> buffer(std::max(c.in.size() + c.sideChain.size(), c.out.size()), 16);
    juce::MidiBuffer midi;
    for (const bool bypassed : {false, true}) {
      for (int channel = 0; channel < buffer.getNumChannels(); ++channel)
        buffer.clear(channel, 0, 16),
            buffer.setSample(channel, 0, channel < c.in.size() ? 0.5f : 0.125f);
      if (bypassed) {
        processor.prepareToPlay(48000, 16);
        processor.processBlockBypassed(buffer, midi);
      } else {
        processor.processBlock(buffer, midi);
      }
      EXPECT_EQ(buffer.getSample(0, 0), bypassed ? 0.5f : c.left);
    }
  }
}

TEST_F(JuceProcessorTest, channelsThatThePluginHasNotAreSilentAndItsOwnSound) {
  processor_.prepareToPlay(48000, 16);
  juce::AudioBuffer<float> wide(5, 16);
  for (int channel = 0; channel < 5; ++channel)
    juce::FloatVectorOperations::fill(wide.getWritePointer(channel), 0.7f, 16);
  juce::MidiBuffer midi;
  midi.addEvent(juce::MidiMessage::noteOn(1, 60, 1.0f), 3);
  processor_.processBlock(wide, midi);
  EXPECT_EQ(unit().blocks.size(), 1u);
  for (int channel = 2; channel < 5; ++channel)
    EXPECT_EQ(wide.getMagnitude(channel, 0, 16), 0) << "what the host left there";
  EXPECT_TRUE(midi.isEmpty()) << "no plug-in behind this one hears the notes";
}

}  // namespace
