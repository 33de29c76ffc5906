// The editor's half of the conversation with an LV2 host, without a window.

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "backends/lv2/PluginState.h"
#include "backends/lv2/PortMirror.h"
#include "backends/lv2/SoundInstance.h"
#include "tests/support/Lv2Host.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/OddPlugin.h"

namespace {

using lv2_backend::EditorMessage;
using support::OddAudioUnit;
using testing::ElementsAre;
using testing::IsEmpty;

class Lv2EditorTest : public testing::Test {
 protected:
  static constexpr std::uint32_t controlPort = 2;
  static constexpr std::uint32_t notifyPort = 3;
  static constexpr std::uint32_t levelPort = 6;
  static constexpr std::uint32_t meterPort = levelPort + OddAudioUnit::maxBlock;

  Lv2EditorTest() { reopen(&touch); }

  void reopen(const LV2UI_Touch* hostsTouch) {
    ports.reset();
    lv2_backend::EditorHost host;
    host.write = write;
    host.controller = this;
    host.map = features.map();
    host.touch = hostsTouch;
    ports = std::make_unique<lv2_backend::PortMirror>(unit, host);
  }
  void hostSets(std::uint32_t port, float value) {
    ports->portEvent(port, sizeof value, 0, &value);
  }
  template <class Forge>
  void soundSends(Forge forgeMessage) {
    support::EventBuffer buffer(features);
    lv2_atom_forge_frame_time(&buffer.forge(), 0);
    forgeMessage(buffer.forge());
    const LV2_Atom* atom = buffer.events().at(0);
    ports->portEvent(notifyPort, lv2_atom_total_size(atom), urids.atomEventTransfer, atom);
  }

  /// The sound tells its state, with these bindings.
  void answer(const orvane::MidiLearn::Bindings& bindings) {
    OddAudioUnit sounds;
    orvane::MidiLearn learn(sounds);
    for (const auto& [key, message] : bindings) learn.bind(key, message);
    const std::string text = lv2_backend::stateBesideParameters(sounds, learn);
    soundSends([&](LV2_Atom_Forge& forge) { EditorMessage::forgeState(forge, urids, text); });
  }

  static void write(LV2UI_Controller controller, std::uint32_t port, std::uint32_t size,
                    std::uint32_t protocol, const void* data) {
    auto& self = *static_cast<Lv2EditorTest*>(controller);
    if (protocol == 0 && size == sizeof(float)) {
      self.log.push_back(std::to_string(port) + "=" +
                         std::to_string(*static_cast<const float*>(data)));
    } else if (protocol == self.urids.atomEventTransfer && port == controlPort) {
      const auto message =
          EditorMessage::read(*static_cast<const LV2_Atom_Object*>(data), self.urids);
      self.log.push_back("message " + std::to_string(static_cast<int>(message.kind)));
      self.state = message.state;
    } else {
      ADD_FAILURE() << "port " << port << ", protocol " << protocol;
    }
  }
  static void touched(LV2UI_Feature_Handle handle, std::uint32_t port, bool grabbed) {
    static_cast<Lv2EditorTest*>(handle)->log.push_back((grabbed ? "grab " : "release ") +
                                                       std::to_string(port));
  }
  static std::string message(EditorMessage::Kind kind) {
    return "message " + std::to_string(static_cast<int>(kind));
  }

  support::Lv2Features features;
  lv2_backend::Urids urids{*features.map()};
  LV2UI_Touch touch{this, touched};
  lv2_backend::MirrorAudioUnit unit{std::make_unique<OddAudioUnit>()};
  std::vector<std::string> log;
  std::string state;
  std::unique_ptr<lv2_backend::PortMirror> ports;
};

TEST_F(Lv2EditorTest, WritesWhatTheUserChangesInOrderWithinTheGesture) {
  platform::AUParameter& level = *unit.parameter("level");
  level.beginGesture();
  level.setValue(0.5f);
  level.setValue(0.75f);
  level.endGesture();
  EXPECT_THAT(log, ElementsAre("grab 6", "6=0.500000", "6=0.750000", "release 6"));
}

TEST_F(Lv2EditorTest, ShowsWhatTheHostSetsAndDoesNotWriteItBack) {
  hostSets(levelPort, 0.5f);
  hostSets(meterPort, 99);
  EXPECT_EQ(unit.parameter("level")->value(), 0.5f);
  EXPECT_EQ(unit.parameter("maxBlock")->value(), 99);
  hostSets(meterPort + 1, 1);
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Lv2EditorTest, IgnoresEchoesWhileTheUserHoldsTheParameter) {
  platform::AUParameter& level = *unit.parameter("level");
  level.beginGesture();
  level.setValue(0.5f);
  hostSets(levelPort, 0.25f);
  EXPECT_EQ(level.value(), 0.5f);
  level.endGesture();
  hostSets(levelPort, 0.125f);
  EXPECT_EQ(level.value(), 0.125f);
}

TEST_F(Lv2EditorTest, WritesAPresetsValuesAndThenItsName) {
  answer({});
  unit.setCurrentPreset(0);
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(log.back(), message(EditorMessage::Kind::state));
  EXPECT_THAT(log, testing::Contains("6=0.500000"));
  EXPECT_THAT(log, testing::Contains("8=2.000000"));
  EXPECT_THAT(state, testing::HasSubstr("First"));
  EXPECT_THAT(state, testing::Not(testing::HasSubstr("cutoff")));
}

TEST_F(Lv2EditorTest, KeepsToItselfWhatTheHostCannotTake) {
  reopen(nullptr);
  platform::AUParameter& level = *unit.parameter("level");
  level.beginGesture();
  level.endGesture();
  unit.parameter("maxBlock")->setValue(9);
  EXPECT_THAT(log, IsEmpty()) << "neither touch nor outputs";

  answer({});
  using Dictionary = platform::PropertyList::Dictionary;
  for (const std::size_t size : {100u, 40000u}) {
    log.clear();
    unit.setFullState(Dictionary{{"parameters", Dictionary{}}, {"notes", std::string(size, 'x')}});
    EXPECT_EQ(std::count(log.begin(), log.end(), message(EditorMessage::Kind::state)),
              size < 1000 ? 1 : 0);
  }
}

TEST_F(Lv2EditorTest, TakesTheSoundsStateSilently) {
  OddAudioUnit sound;
  sound.setCurrentPreset(5);
  hostSets(levelPort, 0.5f);
  lv2_backend::MirrorAudioUnit other(std::make_unique<OddAudioUnit>());
  other.setCurrentPreset(5);
  soundSends([&](LV2_Atom_Forge& forge) {
    EditorMessage::forgeState(forge, urids, other.stateBesideParameters());
  });
  EXPECT_EQ(unit.currentPresetName(), "No bank");
  EXPECT_EQ(unit.parameter("level")->value(), 0.5f) << "the ports' business";
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(Lv2EditorTest, TellsTheSoundOfItsBindingsAndMovesPortsByWhatIsBound) {
  answer({});
  unit.midiLearn().bind("level", {0xb0, 74});
  EXPECT_THAT(log, ElementsAre(message(EditorMessage::Kind::state)));
  EXPECT_THAT(state, testing::HasSubstr("midiMap"));
  const std::string bound = state;
  log.clear();
  soundSends([&](LV2_Atom_Forge& forge) {
    const std::uint8_t bytes[] = {0xb0, 74, 127};
    lv2_atom_forge_atom(&forge, sizeof bytes, urids.midiEvent);
    lv2_atom_forge_write(&forge, bytes, sizeof bytes);
  });
  EXPECT_THAT(log, ElementsAre("grab 6", "6=1.000000")) << "so that hosts record it";
  log.clear();
  hostSets(levelPort, 0.5f);
  EXPECT_EQ(unit.parameter("level")->value(), 1) << "an echo of a moment ago";
  ports->idle(0.4);
  EXPECT_THAT(log, IsEmpty());
  ports->idle(0.6);
  EXPECT_THAT(log, ElementsAre("release 6"));

  lv2_backend::MirrorAudioUnit next(std::make_unique<OddAudioUnit>());
  next.setStateBesideParameters(bound);
  EXPECT_EQ(next.midiLearn().bindings(), unit.midiLearn().bindings());
  next.midiLearn().removeAll();
  EXPECT_THAT(next.stateBesideParameters(), testing::Not(testing::HasSubstr("midiMap")));
}

TEST_F(Lv2EditorTest, WhatIsBoundBeforeTheSoundHasAnsweredComesOnTopOfItsBindings) {
  ports->announce();
  log.clear();
  unit.midiLearn().bind("level", {0xb0, 74});
  EXPECT_THAT(log, IsEmpty()) << "it would wipe out what the sound has";
  answer({{"cutoff", {0xb0, 1}}});
  EXPECT_EQ(unit.midiLearn().bindings(),
            (orvane::MidiLearn::Bindings{{"cutoff", {0xb0, 1}}, {"level", {0xb0, 74}}}));
  EXPECT_THAT(log, ElementsAre(message(EditorMessage::Kind::state)));
  answer({});
  EXPECT_TRUE(unit.midiLearn().bindings().empty()) << "a state that the host has restored";
}

TEST_F(Lv2EditorTest, WhatTheSoundHasMovedByItselfMovesThePortsAfterIt) {
  const std::vector<std::int32_t> places{0, 99, -1, 0};
  const std::vector<float> values{0.75f, 1, 1, std::nanf("")};
  soundSends(
      [&](LV2_Atom_Forge& forge) { EditorMessage::forgeOwnValues(forge, urids, places, values); });
  EXPECT_THAT(log, ElementsAre("grab 6", "6=0.750000", "release 6"));
  EXPECT_EQ(unit.parameter("level")->value(), 0.75f);
}

TEST_F(Lv2EditorTest, AsksForMidiWhileAControlWaitsForIt) {
  const support::ManualLoop loop;
  const auto controller = support::oddPluginEntry().makeViewController();
  controller->setAudioUnit(&unit);
  controller->view();
  orvane::MidiLearn& learn = unit.midiLearn();
  learn.setEditor(controller.get());
  learn.setLearning(true);
  const auto& [name, key] = *controller->controls().allParamKeys().begin();
  controller->container(name)->delegate->didSelectMidiMap(key, nullptr);
  ports->announce();
  learn.setLearning(false);
  EXPECT_THAT(log, ElementsAre(message(EditorMessage::Kind::opened),
                               message(EditorMessage::Kind::midiWanted),
                               message(EditorMessage::Kind::midiUnwanted)));
}

TEST_F(Lv2EditorTest, ShowsTheSoundsLiveValues) {
  const auto* value = unit.getOutputValues("cutoff");
  const auto* flag = unit.isModulating("cutoff");
  ASSERT_TRUE(value && flag);
  EXPECT_EQ(*value, unit.parameter("cutoff")->value()) << "before the sound has told";
  EXPECT_EQ(unit.getOutputValues("level"), nullptr);
  const std::vector<float> values{440};
  const std::vector<std::int32_t> flags{1};
  soundSends([&](LV2_Atom_Forge& forge) { EditorMessage::forgeLive(forge, urids, values, flags); });
  EXPECT_EQ(*value, 440);
  EXPECT_TRUE(*flag);

  const std::vector<float> tooMany{1, 2, 3};
  soundSends(
      [&](LV2_Atom_Forge& forge) { EditorMessage::forgeLive(forge, urids, tooMany, flags); });
  soundSends([&](LV2_Atom_Forge& forge) {
    LV2_Atom_Forge_Frame object;
    lv2_atom_forge_object(&forge, &object, 0, urids.liveValues);
    for (const auto& [key, type] :
         {std::pair{urids.values, urids.atomInt}, std::pair{urids.modulating, urids.atomBool}}) {
      lv2_atom_forge_key(&forge, key);
      lv2_atom_forge_vector(&forge, sizeof(std::int32_t), type, 1, flags.data());
    }
    lv2_atom_forge_pop(&forge, &object);
  });
  EXPECT_EQ(*value, 440);
}

TEST_F(Lv2EditorTest, ShowsTheSoundItself) {
  const auto buffers = unit.liveBuffers("level");
  ASSERT_EQ(buffers.size(), 1u);
  EXPECT_THAT(unit.liveBuffers("cutoff"), IsEmpty());
  const std::vector<float> samples{0.5f, -0.5f, 0.25f};
  const auto sends = [&](std::size_t sound) {
    soundSends(
        [&](LV2_Atom_Forge& forge) { EditorMessage::forgeSound(forge, urids, sound, samples); });
  };
  sends(0);
  std::vector<float> shown(8);
  EXPECT_EQ(buffers[0]->newest(shown), samples.size());
  EXPECT_THAT(std::vector<float>(shown.begin(), shown.begin() + 3),
              testing::ElementsAreArray(samples));
  sends(1);
  EXPECT_EQ(buffers[0]->written(), samples.size()) << "there is no second sound";
}

TEST_F(Lv2EditorTest, KnowsTheResponseOfFilters) {
  EXPECT_THAT(unit.magnitudesForFrequencies({100, 1000}, "lowPass", "cutoff", "level"),
              testing::SizeIs(2));
  EXPECT_THAT(unit.magnitudesForFrequencies({100, 1000}, "lowPass", 440.0f, 0.0f),
              testing::SizeIs(2));
  EXPECT_THAT(unit.magnitudesForFrequencies({100, 1000}, {.lowPassFrequency = "cutoff"}),
              testing::SizeIs(2));
}

TEST_F(Lv2EditorTest, AnnouncesItselfOnceAndTakesLeave) {
  ports->announce();
  ports->announce();
  ports.reset();
  EXPECT_THAT(
      log, ElementsAre(message(EditorMessage::Kind::opened), message(EditorMessage::Kind::closed)));
  log.clear();
  unit.parameter("level")->setValue(1);
  unit.setCurrentPreset(0);
  EXPECT_THAT(log, IsEmpty()) << "the editor has gone";
}

TEST_F(Lv2EditorTest, IgnoresWhatIsNoMessage) {
  LV2_Atom_Object object{{sizeof(LV2_Atom_Object_Body), urids.atomObject}, {0, urids.stateChanged}};
  ports->portEvent(notifyPort, sizeof object, urids.atomEventTransfer, &object);
  object.atom.size = 4000;
  ports->portEvent(notifyPort, sizeof object, urids.atomEventTransfer, &object);
  ports->portEvent(notifyPort, 4, urids.atomEventTransfer, &object);
  ports->portEvent(0, 0, 0, nullptr);
  EXPECT_THAT(log, IsEmpty());
}

}  // namespace
