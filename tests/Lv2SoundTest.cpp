// The sound of a plug-in as an LV2 host drives it.

#include <gmock/gmock.h>

#include <limits>
#include <memory>
#include <numeric>
#include <set>

#include "Quillon/CommonAudioUnit.h"
#include "backends/lv2/EditorMessages.h"
#include "backends/lv2/PluginState.h"
#include "backends/lv2/PortLayout.h"
#include "backends/lv2/SoundDescriptor.h"
#include "tests/support/AllocationCounter.h"
#include "tests/support/GivenUnit.h"
#include "tests/support/Lv2Host.h"
#include "tests/support/OddPlugin.h"

namespace {

using lv2_backend::EditorMessage;
using support::OddAudioUnit;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

class Lv2SoundTest : public testing::Test {
 protected:
  static constexpr std::uint32_t firstParameter = 6;
  static constexpr std::uint32_t portCount = firstParameter + OddAudioUnit::parameterCount;

  Lv2SoundTest() { setDefaults(instance); }

  static float& port(support::Lv2Instance& of, int parameter) {
    return of.controls[firstParameter + static_cast<std::uint32_t>(parameter)];
  }
  float& port(int parameter) { return port(instance, parameter); }
  static void setDefaults(support::Lv2Instance& of) {
    OddAudioUnit unit;
    of.controls[firstParameter - 1] = 1;
    for (int i = 0; i < OddAudioUnit::parameterCount; ++i)
      port(of, i) = unit.defaultValueForKey(unit.parametersKeys()[static_cast<std::size_t>(i)]);
  }
  /// A message of the editor at the start of the next cycle.
  template <class Forge>
  void send(Forge forgeMessage) {
    std::vector<std::uint64_t> bytes(512);
    LV2_Atom_Forge forge{};
    lv2_atom_forge_init(&forge, features.map());
    lv2_atom_forge_set_buffer(&forge, reinterpret_cast<std::uint8_t*>(bytes.data()),
                              bytes.size() * 8);
    forgeMessage(forge);
    instance.input.atom(0, reinterpret_cast<const LV2_Atom*>(bytes.data()));
  }
  std::vector<EditorMessage> messages() {
    std::vector<EditorMessage> result;
    for (const LV2_Atom* atom : instance.output.events())
      // Between them are the MIDI messages, of which the editor may learn one.
      if (atom->type == urids.atomObject)
        result.push_back(
            EditorMessage::read(*reinterpret_cast<const LV2_Atom_Object*>(atom), urids));
    return result;
  }
  void openEditor() {
    send([this](LV2_Atom_Forge& forge) { EditorMessage::forgeOpened(forge, urids); });
    instance.run(16);
    instance.runWorker();
  }

  support::Lv2Features features{64};
  lv2_backend::SoundDescriptor descriptor{support::oddPluginEntry()};
  lv2_backend::Urids urids{*features.map()};
  support::Lv2Instance instance{descriptor, features, portCount};
};

TEST_F(Lv2SoundTest, IsNotMadeWithoutTheHostsMapOfAddresses) {
  EXPECT_EQ(descriptor.instantiate(&descriptor, 48000, "", support::Lv2Features::none()), nullptr);
}

TEST_F(Lv2SoundTest, FollowsTheControlPorts) {
  instance.activate();
  instance.run(8);
  EXPECT_THAT(instance.left, Each(0.25f));
  port(OddAudioUnit::level) = 0.75f;
  instance.run(8);
  EXPECT_THAT(instance.left, Each(0.75f));
  port(OddAudioUnit::level) = 9;
  instance.run(8);
  EXPECT_THAT(instance.left, Each(1.0f)) << "outside the range";
  EXPECT_EQ(port(OddAudioUnit::level), 9) << "the host's own";
}

TEST_F(Lv2SoundTest, PlaysNotesAtTheirFrameHoweverTheCycleIsCut) {
  instance.activate();
  port(OddAudioUnit::level) = 0;
  instance.input.midi(0, {0x90, 60, 1});
  instance.input.midi(63, {0x90, 60, 2});
  instance.input.midi(64, {0x90, 60, 3});
  instance.input.position(100, 1, 0, 120);
  instance.input.midi(100, {0x90, 60, 4});
  instance.input.midi(199, {0x90, 60, 5});
  instance.input.midi(199, {0xf0, 1, 2, 3, 0xf7});
  instance.run(200);
  std::vector<float> expected(200);
  expected[0] = 2;
  expected[63] = 3;
  expected[64] = 4;
  expected[100] = 5;
  expected[199] = 6;
  EXPECT_EQ(instance.left, expected);
  EXPECT_EQ(port(OddAudioUnit::maxBlock), 64) << "what the host promised at most";
}

TEST_F(Lv2SoundTest, KeepsMessagesOfACycleWithoutFramesForTheNext) {
  instance.activate();
  port(OddAudioUnit::level) = 0;
  instance.input.midi(0, {0x90, 60, 7});
  instance.run(0);
  instance.run(2);
  EXPECT_THAT(instance.left, ElementsAre(8, 0));
}

TEST_F(Lv2SoundTest, PlaysLateMessagesAtOnceAndForgetsThoseOfBeforeItWasSwitchedOn) {
  instance.activate();
  port(OddAudioUnit::level) = 0;
  instance.input.position(2, 1, 0, 120);
  instance.input.midi(1, {0x90, 60, 1});
  instance.input.midi(9, {0x90, 60, 2});
  instance.run(4);
  EXPECT_THAT(instance.left, ElementsAre(0, 0, 2, 0));
  instance.run(2);
  EXPECT_THAT(instance.left, ElementsAre(3, 0));
  instance.input.midi(0, {0x90, 60, 7});
  instance.run(0);
  instance.activate();
  instance.run(2);
  EXPECT_THAT(instance.left, Each(0.0f));
}

TEST_F(Lv2SoundTest, PlaysAllNotesOfAFloodThatIsSpreadOverFrames) {
  instance.activate();
  port(OddAudioUnit::level) = 0;
  for (int frame = 0; frame < 2; ++frame) {
    for (int i = 0; i < 2500; ++i) instance.input.midi(frame, {0x90, 60, 0});
    instance.run(frame == 0 ? 0 : 2);
  }
  EXPECT_THAT(instance.left, ElementsAre(2500, 2500));
}

TEST_F(Lv2SoundTest, CountsTheBeatsBetweenTheHostsReports) {
  instance.activate();
  instance.input.position(0, 1, 4, 60);
  instance.run(48);
  EXPECT_THAT(instance.right, Each(4.0f));
  instance.run(48);
  EXPECT_THAT(instance.right, Each(testing::FloatEq(4.001f))) << "48 of 48000 frames at 60 bpm";
  instance.input.position(24, 0, 8, 60);
  instance.run(48);
  EXPECT_FLOAT_EQ(instance.right[23], 4.002f);
  EXPECT_EQ(instance.right[24], 8);
  instance.run(48);
  EXPECT_THAT(instance.right, Each(8.0f)) << "stopped";
}

TEST_F(Lv2SoundTest, CountsTheBeatsOfBarsOfAnyLength) {
  instance.activate();
  instance.input.bar(0, 2, 1.5f, 3);
  instance.run(4);
  EXPECT_THAT(instance.right, Each(7.5f));
  instance.input.bar(0, 2, 1.5f, 4);
  instance.run(4);
  EXPECT_THAT(instance.right, Each(9.5f));
}

TEST_F(Lv2SoundTest, TakesNumbersOfAnyTypeAndGoesOnWithoutThoseThatCannotBe) {
  instance.activate();
  instance.input.position(0, 1, 4, 60);
  instance.run(48);
  instance.input.position(0, 1, std::numeric_limits<double>::quiet_NaN(), 0);
  instance.run(48);
  EXPECT_THAT(instance.right, Each(testing::FloatEq(4.001f)));
  instance.run(48);
  EXPECT_THAT(instance.right, Each(testing::FloatEq(4.002f))) << "a tempo of 0 is none";
  instance.input.bar(0, 2, 1.5f, 0);
  instance.run(4);
  EXPECT_THAT(instance.right, Each(9.5f)) << "nor are bars without beats";
  send([this](LV2_Atom_Forge& forge) {
    LV2_Atom_Forge_Frame object;
    lv2_atom_forge_object(&forge, &object, 0, urids.timePosition);
    lv2_atom_forge_key(&forge, urids.timeBar);
    lv2_atom_forge_int(&forge, 3);
    lv2_atom_forge_key(&forge, urids.timeBarBeat);
    lv2_atom_forge_double(&forge, 0.5);
    lv2_atom_forge_key(&forge, urids.timeBeatsPerMinute);
    lv2_atom_forge_string(&forge, "fast", 4);
    lv2_atom_forge_pop(&forge, &object);
  });
  instance.run(4);
  EXPECT_THAT(instance.right, Each(12.5f));
}

TEST_F(Lv2SoundTest, ReportsLatencyAndMeters) {
  instance.activate();
  instance.run(10);
  EXPECT_EQ(instance.controls[firstParameter - 2], 7);
  EXPECT_EQ(port(OddAudioUnit::maxBlock), 10);
}

TEST_F(Lv2SoundTest, IsBypassedByTheHostsPortAndGoesOnMeanwhile) {
  instance.activate();
  instance.run(64);
  instance.controls[firstParameter - 1] = 0;
  for (int i = 0; i < 20; ++i) instance.run(64);
  EXPECT_THAT(instance.left, Each(0.0f)) << "an instrument is silent";
  EXPECT_EQ(port(OddAudioUnit::maxBlock), 64);
  instance.controls[firstParameter - 1] = 1;
  for (int i = 0; i < 20; ++i) instance.run(64);
  EXPECT_THAT(instance.left, Each(0.25f));
}

TEST_F(Lv2SoundTest, SavesItsStateAndRestoresIt) {
  instance.activate();
  port(OddAudioUnit::cutoff) = 1234.5f;
  instance.run(8);
  const std::string state = instance.save();
  EXPECT_THAT(state, HasSubstr("1234.5"));

  support::Lv2Instance other(descriptor, features, portCount);
  EXPECT_EQ(other.restore(state), LV2_STATE_SUCCESS);
  EXPECT_EQ(other.save(), state);
}

TEST_F(Lv2SoundTest, LetsThePortsWinOverARestoredState) {
  instance.activate();
  port(OddAudioUnit::level) = 0.5f;
  instance.run(8);
  const std::string state = instance.save();
  port(OddAudioUnit::level) = 0.125f;
  instance.run(8);
  EXPECT_EQ(instance.restore(state), LV2_STATE_SUCCESS);
  instance.run(8);
  EXPECT_THAT(instance.left, Each(0.125f)) << "what the host shows is what sounds";
}

TEST_F(Lv2SoundTest, TakesTheNameOfAPresetWithoutValues) {
  instance.activate();
  port(OddAudioUnit::level) = 0.5f;
  instance.run(8);
  OddAudioUnit named;
  named.setCurrentPreset(0);
  EXPECT_EQ(instance.restore(lv2_backend::stateBesideParameters(named, orvane::MidiLearn(named))),
            LV2_STATE_SUCCESS);
  EXPECT_THAT(instance.save(), HasSubstr("First"));
  EXPECT_THAT(instance.save(), HasSubstr("<real>0.5</real>"));
}

TEST_F(Lv2SoundTest, KeepsMidiBindingsInItsStateAndMovesWhatIsBound) {
  instance.activate();
  OddAudioUnit other;
  orvane::MidiLearn midi(other);
  midi.bind("level", {0xb0, 74});
  const std::string bound = lv2_backend::stateText(other, midi);
  EXPECT_EQ(instance.restore(bound), LV2_STATE_SUCCESS);
  EXPECT_THAT(instance.save(), HasSubstr("midiMap"));
  instance.run(8);
  instance.input.midi(0, {0xb0, 74, 127});
  instance.run(8);
  EXPECT_THAT(instance.left, Each(1.0f));

  const std::string old = lv2_backend::stateText(other, orvane::MidiLearn(other));
  EXPECT_EQ(instance.restore(old), LV2_STATE_SUCCESS);
  EXPECT_THAT(instance.save(), testing::Not(HasSubstr("midiMap")));
}

TEST_F(Lv2SoundTest, KeepsItsStateWhenWhatIsRestoredIsNone) {
  const std::string before = instance.save();
  EXPECT_EQ(instance.restore(""), LV2_STATE_ERR_NO_PROPERTY);
  EXPECT_NE(instance.restore("<not a property list"), LV2_STATE_SUCCESS);
  EXPECT_EQ(instance.restore(before, LV2_ATOM__Int), LV2_STATE_ERR_BAD_TYPE);
  EXPECT_EQ(instance.save(), before);
}

TEST_F(Lv2SoundTest, SendsLiveValuesOnlyWhileAnEditorIsOpen) {
  instance.activate();
  instance.run(2000);
  EXPECT_THAT(messages(), testing::IsEmpty());

  openEditor();
  instance.run(800);
  auto received = messages();
  ASSERT_EQ(received.size(), 2u);
  EXPECT_EQ(received[0].kind, EditorMessage::Kind::state);
  ASSERT_EQ(received[1].kind, EditorMessage::Kind::live);
  EXPECT_THAT(received[1].values, ElementsAre(testing::FloatEq(2 * 632.4555f)));
  EXPECT_THAT(received[1].modulating, ElementsAre(1)) << "the sound was told of the editor";

  instance.run(800);
  EXPECT_THAT(messages(), testing::IsEmpty()) << "nothing has changed";
  port(OddAudioUnit::cutoff) = 100;
  instance.run(400);
  EXPECT_THAT(messages(), testing::IsEmpty()) << "not before the display's next frame";
  instance.run(400);
  EXPECT_EQ(messages().size(), 1u);
  port(OddAudioUnit::semitones) = 3;
  instance.run(800);
  received = messages();
  ASSERT_EQ(received.size(), 1u) << "modulation has ended, the value stays";
  EXPECT_THAT(received[0].modulating, ElementsAre(0));

  send([this](LV2_Atom_Forge& forge) { EditorMessage::forgeClosed(forge, urids); });
  instance.run(8);
  instance.runWorker();
  port(OddAudioUnit::cutoff) = 200;
  instance.run(2000);
  EXPECT_THAT(messages(), testing::IsEmpty());
  EXPECT_FALSE(OddAudioUnit::isWatched) << "live values may rest";

  openEditor();
  instance.run(800);
  EXPECT_EQ(messages().back().kind, EditorMessage::Kind::live)
      << "the next editor knows nothing yet";
}

TEST_F(Lv2SoundTest, TellsTheEditorWholeMessagesOrNone) {
  instance.activate();
  port(OddAudioUnit::sync) = 1;
  std::set<EditorMessage::Kind> told;
  for (instance.room = 24; instance.room < 2400; instance.room += 8) {
    openEditor();
    port(OddAudioUnit::cutoff) = 20 + static_cast<float>(instance.room);
    instance.run(800);
    ASSERT_LE(instance.output.sequence()->atom.size, instance.room);
    for (const EditorMessage& message : messages()) {
      told.insert(message.kind);
      ASSERT_NE(message.kind, EditorMessage::Kind::other) << instance.room;
      ASSERT_EQ(message.values.empty(), message.kind == EditorMessage::Kind::state);
      ASSERT_THAT(std::string(message.state), testing::AnyOf("", testing::EndsWith("</plist>\n")));
    }
  }
  EXPECT_THAT(told, ElementsAre(EditorMessage::Kind::state, EditorMessage::Kind::live,
                                EditorMessage::Kind::sound));
}

TEST_F(Lv2SoundTest, SendsTheSoundItselfWhileThereIsNewSound) {
  instance.activate();
  openEditor();
  instance.run(800);
  port(OddAudioUnit::sync) = 1;
  const auto samples = [&] {
    std::vector<float> result;
    for (const EditorMessage& message : messages())
      if (message.kind == EditorMessage::Kind::sound)
        result.insert(result.end(), message.values.begin(), message.values.end());
    return result;
  };
  instance.run(800);
  EXPECT_THAT(samples(), testing::AllOf(testing::SizeIs(800), Each(0.25f)));
  port(OddAudioUnit::level) = 0.5f;
  instance.run(800);
  EXPECT_THAT(samples(), testing::AllOf(testing::SizeIs(800), Each(0.5f)));
  port(OddAudioUnit::sync) = 0;
  instance.run(800);
  EXPECT_THAT(samples(), testing::IsEmpty());

  // Silence, until a display has nothing else to show.
  port(OddAudioUnit::sync) = 1;
  for (const float level : {0.0f, 0.5f, 0.0f}) {
    port(OddAudioUnit::level) = level;
    std::vector<std::size_t> sizes;
    for (int cycle = 0; cycle < 10; ++cycle) {
      instance.run(800);
      EXPECT_THAT(samples(), Each(level));
      sizes.push_back(samples().size());
    }
    EXPECT_EQ(sizes[5], 800u) << "4096 are kept";
    EXPECT_EQ(sizes[6], level == 0 ? 0u : 800u);
  }
  openEditor();
  instance.run(800);
  EXPECT_THAT(samples(), testing::SizeIs(testing::Ge(800))) << "an editor that has none yet";
}

TEST_F(Lv2SoundTest, PassesOnMidiThatIsBoundOrThatAControlWaitsFor) {
  OddAudioUnit other;
  orvane::MidiLearn midi(other);
  midi.bind("level", {0xb0, 74});
  instance.restore(lv2_backend::stateText(other, midi));
  instance.activate();
  openEditor();
  const auto passedOn = [this] {
    instance.input.midi(0, {0x90, 60, 1});
    instance.input.midi(1, {0xb0, 74, 127});
    instance.run(16);
    std::vector<int> statuses;
    for (const LV2_Atom* atom : instance.output.events())
      if (atom->type == urids.midiEvent)
        statuses.push_back(*reinterpret_cast<const std::uint8_t*>(atom + 1));
    return statuses;
  };
  const auto want = [this](bool wanted) {
    send([&](LV2_Atom_Forge& forge) { EditorMessage::forgeMidiWanted(forge, urids, wanted); });
  };
  EXPECT_THAT(passedOn(), ElementsAre(0xb0)) << "which moves a control";
  want(true);
  EXPECT_THAT(passedOn(), ElementsAre(0x90, 0xb0));
  want(false);
  EXPECT_THAT(passedOn(), ElementsAre(0xb0));
  want(true);
  instance.run(1);
  send([this](LV2_Atom_Forge& forge) { EditorMessage::forgeClosed(forge, urids); });
  EXPECT_THAT(passedOn(), ElementsAre(0xb0)) << "whoever waited has gone";
  want(true);
  openEditor();
  EXPECT_THAT(passedOn(), ElementsAre(0xb0)) << "the next editor has not asked";
}

TEST_F(Lv2SoundTest, AnEchoByThePortNeverTakesBackWhatMidiHasMoved) {
  OddAudioUnit other;
  orvane::MidiLearn midi(other);
  midi.bind("level", {0xb0, 74});
  instance.restore(lv2_backend::stateText(other, midi));
  instance.activate();
  instance.run(16);
  for (const std::uint8_t value : {32, 64, 127}) {
    instance.input.midi(0, {0xb0, 74, value});
    instance.run(16);
    // What the editor has made of the message before.
    port(OddAudioUnit::level) = static_cast<float>(value - 20) / 127;
    instance.run(16);
    EXPECT_THAT(instance.left, Each(value / 127.0f));
  }
  for (int i = 0; i < 400; ++i) instance.run(64);
  EXPECT_THAT(instance.left, Each(1.0f));
  port(OddAudioUnit::level) = 0.25f;
  instance.run(16);
  EXPECT_THAT(instance.left, Each(0.25f)) << "afterwards the host has it again";
}

TEST_F(Lv2SoundTest, WhatMidiHasMovedWithoutAnEditorIsSavedAndTheNextEditorTold) {
  OddAudioUnit other;
  orvane::MidiLearn midi(other);
  midi.bind("level", {0xb0, 74});
  instance.restore(lv2_backend::stateText(other, midi));
  instance.activate();
  instance.run(16);
  instance.input.midi(0, {0xb0, 74, 127});
  instance.run(16);
  const std::string session = instance.save();

  // The host restores the port as well, which has stayed where it was.
  support::Lv2Instance next(descriptor, features, portCount);
  setDefaults(next);
  EXPECT_EQ(next.restore(session), LV2_STATE_SUCCESS);
  next.activate();
  for (int cycle = 0; cycle < 3; ++cycle) {
    next.run(16);
    EXPECT_THAT(next.left, Each(1.0f));
  }
  EXPECT_EQ(next.save(), session) << "saved once more without an editor";
  port(next, OddAudioUnit::level) = 0.125f;
  next.run(16);
  EXPECT_THAT(next.left, Each(0.125f)) << "the host moves it";

  const auto told = [&] {
    for (const EditorMessage& each : messages())
      if (each.kind == EditorMessage::Kind::ownValues)
        return std::pair(each.indices.size(), each.values[0]);
    return std::pair(std::size_t{0}, 0.0f);
  };
  openEditor();
  instance.run(16);
  EXPECT_EQ(told(), std::pair(std::size_t{1}, 1.0f));
  port(OddAudioUnit::level) = 1;
  instance.run(16);
  EXPECT_EQ(told().first, 0u);
  openEditor();
  instance.run(16);
  EXPECT_EQ(told().first, 0u) << "the port has followed";
}

TEST_F(Lv2SoundTest, LearningInTheEditorPullsNothingBackThatMidiHasMoved) {
  OddAudioUnit other;
  orvane::MidiLearn midi(other);
  midi.bind("level", {0xb0, 74});
  instance.restore(lv2_backend::stateText(other, midi));
  instance.activate();
  instance.run(16);
  instance.input.midi(0, {0xb0, 74, 127});
  for (int i = 0; i < 400; ++i) instance.run(64);
  midi.bind("cutoff", {0xb0, 75});
  const std::string state = lv2_backend::stateBesideParameters(other, midi);
  send([&](LV2_Atom_Forge& forge) { EditorMessage::forgeState(forge, urids, state); });
  for (int cycle = 0; cycle < 3; ++cycle) {
    instance.run(16);
    instance.runWorker();
  }
  EXPECT_THAT(instance.save(), HasSubstr("cutoff"));
  EXPECT_THAT(instance.left, Each(1.0f));
}

TEST_F(Lv2SoundTest, WhileAControlWaitsWhatIsBoundMovesNothing) {
  OddAudioUnit other;
  orvane::MidiLearn midi(other);
  midi.bind("level", {0xb0, 74});
  instance.restore(lv2_backend::stateText(other, midi));
  instance.activate();
  openEditor();
  const std::vector<float> before = instance.left;
  send([this](LV2_Atom_Forge& forge) { EditorMessage::forgeMidiWanted(forge, urids, true); });
  instance.input.midi(1, {0xb0, 74, 127});
  instance.run(16);
  instance.run(16);
  EXPECT_EQ(instance.left, before);
}

TEST_F(Lv2SoundTest, OfAFloodOfOneControlTheEditorGetsTheLastMessage) {
  OddAudioUnit other;
  orvane::MidiLearn midi(other);
  midi.bind("level", {0xb0, 74});
  midi.bind("cutoff", {0xb1, 74});
  instance.restore(lv2_backend::stateText(other, midi));
  instance.activate();
  openEditor();
  for (int i = 0; i < 100; ++i)
    for (const int channel : {0, 1})
      instance.input.midi(0, {static_cast<std::uint8_t>(0xb0 + channel), 74,
                              static_cast<std::uint8_t>(i + channel)});
  instance.run(16);
  std::vector<int> values;
  for (const LV2_Atom* atom : instance.output.events())
    if (atom->type == urids.midiEvent)
      values.push_back(reinterpret_cast<const std::uint8_t*>(atom + 1)[2]);
  EXPECT_THAT(values, ElementsAre(99, 100));
}

TEST_F(Lv2SoundTest, OfTwoStatesInOneCycleTheSecondStays) {
  instance.activate();
  std::string last;
  for (const int preset : {0, 5}) {
    OddAudioUnit editors;
    editors.setCurrentPreset(preset);
    const std::string state =
        lv2_backend::stateBesideParameters(editors, orvane::MidiLearn(editors));
    send([&](LV2_Atom_Forge& forge) { EditorMessage::forgeState(forge, urids, state); });
    last = editors.currentPresetName();
  }
  for (int cycle = 0; cycle < 3; ++cycle) {
    instance.run(8);
    instance.runWorker();
  }
  EXPECT_THAT(instance.save(), HasSubstr(last));
}

TEST_F(Lv2SoundTest, AStateThatTheHostRestoresStaysThoughTheEditorsWasOnItsWay) {
  instance.activate();
  OddAudioUnit editors, saved;
  editors.setCurrentPreset(0);
  saved.setCurrentPreset(5);
  const std::string state = lv2_backend::stateBesideParameters(editors, orvane::MidiLearn(editors));
  send([&](LV2_Atom_Forge& forge) { EditorMessage::forgeState(forge, urids, state); });
  instance.run(8);
  EXPECT_EQ(instance.restore(lv2_backend::stateText(saved, orvane::MidiLearn(saved))),
            LV2_STATE_SUCCESS);
  instance.runWorker();
  EXPECT_THAT(instance.save(), HasSubstr(saved.currentPresetName()));
}

TEST_F(Lv2SoundTest, AllocatesNothingWhileItRuns) {
  instance.activate();
  openEditor();
  send([this](LV2_Atom_Forge& forge) { EditorMessage::forgeMidiWanted(forge, urids, true); });
  instance.run(1000);
  for (int i = 0; i < 40; ++i) {
    port(OddAudioUnit::cutoff) = 100 + static_cast<float>(i);
    instance.input.position(1, 1, i, 120);
    for (int frame = 2; frame < 900; ++frame) instance.input.midi(frame, {0x90, 60, 1});
    support::AllocationCounter counter;
    instance.run(1000);
    ASSERT_EQ(counter.count(), 0u);
    ASSERT_EQ(messages().size(), 1u);
  }
}

TEST_F(Lv2SoundTest, TakesThePresetsNameFromTheEditorAndKeepsItsValues) {
  instance.activate();
  port(OddAudioUnit::level) = 0.375f;
  instance.run(8);
  support::OddAudioUnit editorsUnit;
  editorsUnit.setCurrentPreset(5);
  const std::string name = editorsUnit.currentPresetName();
  const std::string state =
      lv2_backend::stateBesideParameters(editorsUnit, orvane::MidiLearn(editorsUnit));
  send([&](LV2_Atom_Forge& forge) { EditorMessage::forgeState(forge, urids, state); });
  instance.run(8);
  instance.runWorker();
  instance.run(8);
  EXPECT_THAT(instance.left, Each(0.375f));
  EXPECT_THAT(instance.save(), HasSubstr(name));

  // A worker that has no room once takes the next.
  editorsUnit.setCurrentPreset(0);
  const std::string next =
      lv2_backend::stateBesideParameters(editorsUnit, orvane::MidiLearn(editorsUnit));
  for (const bool refuses : {true, false}) {
    features.refusesWork = refuses;
    send([&](LV2_Atom_Forge& forge) { EditorMessage::forgeState(forge, urids, next); });
    instance.run(8);
    instance.runWorker();
    const std::string& kept = refuses ? name : editorsUnit.currentPresetName();
    EXPECT_THAT(instance.save(), HasSubstr(kept));
  }

  // The next editor learns it.
  openEditor();
  instance.run(8);
  ASSERT_EQ(messages().size(), 1u);
  EXPECT_THAT(std::string(messages()[0].state), HasSubstr(editorsUnit.currentPresetName()));
}

TEST_F(Lv2SoundTest, TellsAnOpenEditorOfARestoredState) {
  instance.activate();
  openEditor();
  instance.run(8);
  const std::string state = instance.save();
  EXPECT_EQ(instance.restore(state), LV2_STATE_SUCCESS);
  instance.run(8);
  ASSERT_EQ(messages().size(), 1u);
  EXPECT_EQ(messages()[0].kind, EditorMessage::Kind::state);
  EXPECT_THAT(std::string(messages()[0].state), testing::Not(HasSubstr("cutoff")))
      << "values are the ports' business";
}

TEST(Lv2Effect, HearsItsInputsInBlocksAndNeedsNoOtherPorts) {
  // A host that says no sensible length, or none.
  support::Lv2Features features(0);
  const orvane::PluginEntry entry = support::entryOf([] {
    return std::make_unique<support::GivenUnit>(
        support::GivenUnit::Channels{2, 2},
        std::vector<quillon::ParameterDescription>{{.key = "a", .address = 1}});
  });
  const lv2_backend::SoundDescriptor descriptor(entry);
  LV2_Handle handle = descriptor.instantiate(&descriptor, 48000, "/bundle/", features.list());
  ASSERT_NE(handle, nullptr);
  std::vector<std::vector<float>> buffers(4, std::vector<float>(9000));
  std::iota(buffers[0].begin(), buffers[0].end(), 1.0f);
  std::iota(buffers[1].begin(), buffers[1].end(), -9000.0f);
  for (std::uint32_t i = 0; i < 4; ++i) descriptor.connect_port(handle, i, buffers[i].data());
  descriptor.activate(handle);
  descriptor.run(handle, 9000);
  EXPECT_EQ(buffers[2], buffers[0]);
  EXPECT_EQ(buffers[3], buffers[1]);
  descriptor.cleanup(handle);
}

TEST(Lv2Effect, SendsASoundOnceThatSeveralDisplaysShow) {
  struct Shared : OddAudioUnit {
    std::vector<const platform::LiveBuffer*> liveBuffers(std::string_view) const override {
      return OddAudioUnit::liveBuffers("level");
    }
  } unit;
  EXPECT_EQ(lv2_backend::LiveSounds(unit).buffers().size(), 1u);
}

TEST(Lv2Ports, HaveSymbolsThatAreIdentifiersAndUnique) {
  OddAudioUnit unit;
  const lv2_backend::PortLayout layout(unit);
  std::vector<std::string> symbols;
  for (const auto& port : layout.parameters()) symbols.push_back(port.symbol);
  EXPECT_THAT(symbols, ElementsAre("level", "cutoff", "wave_form", "sync", "_1semi", "twin_a",
                                   "twin_a_2", "maxBlock"));

  quillon::CommonAudioUnit clashing({{.key = "latency", .address = 1},
                                     {.key = "control", .address = 2},
                                     {.key = "out_1", .address = 3}});
  std::vector<std::string> clashed;
  const lv2_backend::PortLayout clashes(clashing);
  for (const auto& port : clashes.parameters()) clashed.push_back(port.symbol);
  EXPECT_THAT(clashed, ElementsAre("latency_2", "control_2", "out_1_2"));

  lv2_backend::SymbolSet set;
  for (const auto& [text, symbol] : std::vector<std::pair<std::string, std::string>>{
           {"", "_"}, {"a", "a"}, {"a", "a_2"}, {"a_2", "a_2_2"}, {"\u00e4", "__"}, {"9", "_9"}})
    EXPECT_EQ(set.add(text), symbol) << text;
}

}  // namespace
