// Automation of a VST3 within a block, as the component behind gets it.

#include "backends/juce/AutomatedComponent.h"

#include <gmock/gmock.h>

#include <array>
#include <span>
#include <string>
#include <tuple>
#include <vector>

#include "tests/support/AllocationCounter.h"

// The identities of the interfaces, which plug-ins get from JUCE's wrapper.
#include <pluginterfaces/base/coreiids.cpp>
#include <pluginterfaces/base/funknown.cpp>

namespace Steinberg::Vst {
DEF_CLASS_IID(IComponent)
DEF_CLASS_IID(IAudioProcessor)
}  // namespace Steinberg::Vst

namespace {

using namespace Steinberg;
using namespace Steinberg::Vst;

/// References are counted, nothing else is known.
template <class Interface>
struct Counted : Interface {
  virtual ~Counted() = default;
  tresult PLUGIN_API queryInterface(const TUID, void** found) override {
    *found = nullptr;
    return kNoInterface;
  }
  uint32 PLUGIN_API addRef() override { return ++references; }
  uint32 PLUGIN_API release() override { return --references; }
  uint32 references = 0;
};

struct Queue : Counted<IParamValueQueue> {
  Queue(ParamID id, std::vector<std::pair<int32, double>> points)
      : id(id), points(std::move(points)) {}
  ParamID PLUGIN_API getParameterId() override { return id; }
  int32 PLUGIN_API getPointCount() override { return static_cast<int32>(points.size()); }
  tresult PLUGIN_API getPoint(int32 index, int32& offset, ParamValue& value) override {
    std::tie(offset, value) = points[static_cast<std::size_t>(index)];
    return kResultTrue;
  }
  tresult PLUGIN_API addPoint(int32, ParamValue, int32&) override { return kResultFalse; }
  ParamID id;
  std::vector<std::pair<int32, double>> points;
};

struct Changes : Counted<IParameterChanges> {
  int32 PLUGIN_API getParameterCount() override { return static_cast<int32>(queues.size()); }
  IParamValueQueue* PLUGIN_API getParameterData(int32 index) override {
    return &queues[static_cast<std::size_t>(index)];
  }
  IParamValueQueue* PLUGIN_API addParameterData(const ParamID&, int32&) override { return nullptr; }
  std::vector<Queue> queues;
};

struct Events : Counted<IEventList> {
  int32 PLUGIN_API getEventCount() override { return static_cast<int32>(offsets.size()); }
  tresult PLUGIN_API getEvent(int32 index, Event& event) override {
    event.sampleOffset = offsets[static_cast<std::size_t>(index)];
    return kResultTrue;
  }
  tresult PLUGIN_API addEvent(Event&) override { return kResultFalse; }
  std::vector<int32> offsets;
};

constexpr ParamID level = 7, wave = 8;

/// Writes the level into each sample and keeps what else it is told.
struct Sound : Counted<IAudioProcessor> {
  tresult PLUGIN_API setBusArrangements(SpeakerArrangement*, int32, SpeakerArrangement*,
                                        int32) override {
    return kResultTrue;
  }
  tresult PLUGIN_API getBusArrangement(BusDirection, int32, SpeakerArrangement&) override {
    return kResultTrue;
  }
  tresult PLUGIN_API canProcessSampleSize(int32) override { return kResultTrue; }
  uint32 PLUGIN_API getLatencySamples() override { return 5; }
  tresult PLUGIN_API setupProcessing(ProcessSetup&) override { return kResultTrue; }
  tresult PLUGIN_API setProcessing(TBool) override { return kResultTrue; }
  uint32 PLUGIN_API getTailSamples() override { return 9; }
  tresult PLUGIN_API process(ProcessData& data) override {
    for (int32 i = 0;
         data.inputParameterChanges && i < data.inputParameterChanges->getParameterCount(); ++i) {
      IParamValueQueue& queue = *data.inputParameterChanges->getParameterData(i);
      for (int32 point = 0; point < queue.getPointCount(); ++point) {
        int32 offset = 0;
        ParamValue value = 0;
        queue.getPoint(point, offset, value);
        if (queue.getParameterId() == level)
          now = value;
        else if (waveCount < waves.size())
          waves[waveCount++] = {done + offset, value};
      }
    }
    Event event{};
    for (int32 i = 0; data.inputEvents && i < data.inputEvents->getEventCount(); ++i) {
      data.inputEvents->getEvent(i, event);
      if (noteCount < notes.size()) notes[noteCount++] = done + event.sampleOffset;
    }
    if (data.processContext) beat = data.processContext->projectTimeMusic;
    for (int32 i = 0; i < data.numSamples; ++i)
      data.outputs[0].channelBuffers32[0][i] =
          static_cast<float>(now) + data.inputs[0].channelBuffers32[0][i];
    data.outputs[0].silenceFlags = now > 0 ? 0 : 1;
    outputChanges += data.outputParameterChanges ? 1 : 0;
    done += data.numSamples;
    ++calls;
    return kResultTrue;
  }
  double now = -1, beat = -1;
  int32 done = 0;
  int calls = 0, outputChanges = 0;
  std::array<std::pair<int32, double>, 16> waves{};
  std::array<int32, 16> notes{};
  std::size_t waveCount = 0, noteCount = 0;
};

struct Component : Counted<IComponent> {
  tresult PLUGIN_API initialize(FUnknown*) override { return kResultTrue; }
  tresult PLUGIN_API terminate() override { return kResultTrue; }
  tresult PLUGIN_API getControllerClassId(TUID) override { return kResultTrue; }
  tresult PLUGIN_API setIoMode(IoMode) override { return kResultTrue; }
  int32 PLUGIN_API getBusCount(MediaType, BusDirection) override { return 1; }
  tresult PLUGIN_API getBusInfo(MediaType, BusDirection, int32, BusInfo&) override {
    return kResultTrue;
  }
  tresult PLUGIN_API getRoutingInfo(RoutingInfo&, RoutingInfo&) override { return kResultTrue; }
  tresult PLUGIN_API activateBus(MediaType, BusDirection, int32, TBool) override {
    return kResultTrue;
  }
  tresult PLUGIN_API setActive(TBool) override { return kResultTrue; }
  tresult PLUGIN_API setState(IBStream*) override { return kResultTrue; }
  tresult PLUGIN_API getState(IBStream*) override { return kResultTrue; }
};

class AutomatedComponentTest : public testing::Test {
 protected:
  static constexpr std::size_t frames = 128;
  AutomatedComponentTest() {
    made = new juce_backend::AutomatedComponent(
        IPtr<IComponent>(&component), IPtr<IAudioProcessor>(&sound),
        std::make_shared<std::set<ParamID>>(std::set<ParamID>{level}));
    ProcessSetup setup{kRealtime, kSample32, frames, 48000};
    made->setupProcessing(setup);
  }
  ~AutomatedComponentTest() override {
    EXPECT_EQ(made->release(), 0u);
    EXPECT_EQ(sound.references + component.references, 0u);
  }
  void play(std::vector<Queue> queues) {
    changes.queues = std::move(queues);
    Changes told;
    float* inputs[] = {in.data()};
    float* outputs[] = {out.data()};
    AudioBusBuffers input, output;
    input.numChannels = output.numChannels = 1;
    input.channelBuffers32 = inputs;
    output.channelBuffers32 = outputs;
    ProcessContext context{};
    context.state = ProcessContext::kPlaying;
    context.tempo = 120;
    ProcessData data;
    data.symbolicSampleSize = kSample32;
    data.numSamples = frames;
    data.numInputs = data.numOutputs = 1;
    data.inputs = &input;
    data.outputs = &output;
    data.inputParameterChanges = &changes;
    data.outputParameterChanges = &told;
    data.inputEvents = &events;
    data.processContext = &context;
    sound.done = sound.calls = sound.outputChanges = 0;
    sound.waveCount = sound.noteCount = 0;
    const support::AllocationCounter counter;
    EXPECT_EQ(made->process(data), kResultTrue);
    EXPECT_EQ(counter.count(), 0u);
    EXPECT_EQ(sound.done, static_cast<int32>(frames));
    EXPECT_EQ(sound.outputChanges, 1);
    silence = output.silenceFlags;
  }

  Sound sound;
  Component component;
  Changes changes;
  Events events;
  std::array<float, frames> in{}, out{};
  uint64 silence = 9;
  juce_backend::AutomatedComponent* made;
};

TEST_F(AutomatedComponentTest, aCurveIsFollowedAlongItsLinesFromWhereTheLastBlockEnded) {
  play({{level, {{0, 0.0}}}});
  EXPECT_EQ(sound.calls, 1) << "nothing moves within the block";
  in[100] = 10;
  play({{level, {{63, 0.5}, {64, 0.0}, {127, 0.25}}}});
  EXPECT_EQ(sound.calls, 4);
  EXPECT_NEAR(out[0], 0.5 * 32 / 64, 0.01);
  EXPECT_NEAR(out[40], 0.5, 1e-6);
  EXPECT_NEAR(out[70], 0.25 * 31 / 63, 0.01);
  EXPECT_NEAR(out[100], 10.25, 1e-6) << "in its own place";
  EXPECT_NEAR(sound.beat, 96 / 48000.0 * 2, 1e-9);
  EXPECT_EQ(silence, 0u);
  play({{level, {{100, 0.0}}}});
  EXPECT_GT(out[0], 0.15) << "from a quarter down";
}

TEST_F(AutomatedComponentTest, choicesAndNotesComeWhereTheHostHasThemAndOnce) {
  events.offsets = {0, 31, 32, 32, 90, 500};
  play({{wave, {{5, 0.0}, {33, 1.0}, {127, 0.5}}}, {level, {{0, 1.0}}}});
  using testing::ElementsAre;
  EXPECT_THAT(std::span(sound.waves).first(sound.waveCount),
              ElementsAre(std::pair(5, 0.0), std::pair(33, 1.0), std::pair(127, 0.5)));
  EXPECT_THAT(std::span(sound.notes).first(sound.noteCount), ElementsAre(0, 31, 32, 32, 90, 500));
  EXPECT_EQ(out[0], 1);
}

TEST_F(AutomatedComponentTest, isTheComponentAndTheProcessorThatHostsAskFor) {
  for (const FUID& id : {FUnknown::iid, IPluginBase::iid, IComponent::iid, IAudioProcessor::iid}) {
    void* found = nullptr;
    ASSERT_EQ(made->queryInterface(id, &found), kResultOk);
    EXPECT_NE(found, static_cast<void*>(static_cast<IComponent*>(&component)));
    static_cast<FUnknown*>(found)->release();
  }
  void* found = made;
  EXPECT_EQ(made->queryInterface(FUID(1, 2, 3, 4), &found), kNoInterface);
}

}  // namespace
