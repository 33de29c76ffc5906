// The base of a plug-in's sound: its state, presets, randomizing and live values, with what the
// world may hand it.

#include "Quillon/CommonAudioUnit.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "Quillon/FullState.h"
#include "foundation/Console.h"
#include "foundation/KeyedArchive.h"
#include "foundation/PropertyListCoding.h"

namespace {

using platform::PropertyList;
using quillon::CommonAudioUnit;
using quillon::PresetDescription;
using Dictionary = PropertyList::Dictionary;
using Unit = platform::AudioUnitParameterUnit;

class Synth : public CommonAudioUnit {
 public:
  Synth()
      : CommonAudioUnit(
            {{.key = "cutoff",
              .address = 7,
              .minValue = 20,
              .maxValue = 20000,
              .defaultValue = 1000,
              .unit = Unit::hertz,
              .publishesLive = true},
             {.key = "wave",
              .address = 1,
              .minValue = 0,
              .maxValue = 2,
              .unit = Unit::indexed,
              .valueStrings = {"Saw", "Square", "Sine"}},
             {.key = "on", .address = 2, .defaultValue = 1, .unit = Unit::boolean},
             {.key = "output", .address = 3, .defaultValue = 0.5f, .randomizable = false}},
            {{.preset = {.number = 0, .name = "Init", .bank = "BANK A"}},
             {.preset = {.number = 5, .name = "Bright", .bank = "BANK B"},
              .values = {{"cutoff", 90000}, {"wave", 2}}}}) {}

  using CommonAudioUnit::publishLive;
  using CommonAudioUnit::publishModulating;
  using CommonAudioUnit::setFactoryPresets;
};

TEST(CommonAudioUnitTest, ParametersAreReachedByKey) {
  Synth synth;
  EXPECT_EQ(synth.parametersKeys(), (std::vector<std::string>{"cutoff", "wave", "on", "output"}));
  EXPECT_EQ(synth.parameter("wave")->address(), 1u);
  EXPECT_EQ(synth.parameter("what"), nullptr);
  EXPECT_EQ(synth.stringValuesFor("wave").size(), 3u);
  EXPECT_TRUE(synth.stringValuesFor("cutoff").empty());
  EXPECT_TRUE(synth.stringValuesFor("what").empty());
  EXPECT_EQ(synth.defaultValueForKey("cutoff"), 1000);
  EXPECT_EQ(synth.defaultValueForKey("what"), 0);
  synth.setParameter("cutoff", 5);
  synth.setParameter("what", 5);
  EXPECT_EQ(synth.value(*synth.indexOfKey("cutoff")), 20);
}

TEST(CommonAudioUnitTest, AFactoryPresetSetsEveryParameter) {
  Synth synth;
  EXPECT_EQ(synth.currentPreset(), -1);
  EXPECT_EQ(synth.currentPresetName(), "");
  synth.setParameter("output", 1);
  synth.setCurrentPreset(5);
  EXPECT_EQ(synth.currentPreset(), 5);
  EXPECT_EQ(synth.currentPresetName(), "Bright");
  EXPECT_EQ(synth.parameter("cutoff")->value(), 20000);
  EXPECT_EQ(synth.parameter("wave")->value(), 2);
  EXPECT_EQ(synth.parameter("output")->value(), 0.5f);
  synth.setCurrentPreset(1);
  EXPECT_EQ(synth.currentPreset(), 5);
}

TEST(CommonAudioUnitTest, WrongPresetsAreRefusedByNameAndChangeNothing) {
  Synth synth;
  const struct {
    PresetDescription preset;
    const char* message;
  } cases[] = {
      {{.preset = {.number = 1, .name = "A"}, .values = {{"what", 1.f}}},
       "preset 'A': there is no parameter 'what'"},
      {{.preset = {.number = 1, .name = "A"}, .values = {{"wave", std::nanf("")}}},
       "preset 'A': the value of 'wave' is not a finite number"},
      {{.preset = {.number = 0, .name = "A"}}, "preset 'A': number 0 appears twice"},
      {{.preset = {.number = -1, .name = "A"}}, "preset 'A': the number is negative"},
  };
  for (const auto& [preset, message] : cases) {
    try {
      synth.setFactoryPresets({{.preset = {.number = 0, .name = "First"}}, preset});
      ADD_FAILURE() << "accepted, though " << message;
    } catch (const std::invalid_argument& error) {
      EXPECT_STREQ(error.what(), message);
    }
    EXPECT_EQ(synth.factoryPresets().size(), 2u);
  }
}

TEST(CommonAudioUnitTest, StateComesBackAsItWas) {
  Synth first, second;
  first.setCurrentPreset(5);
  first.setParameter("cutoff", 632.4555f);
  first.setParameter("on", 0);
  second.setFullState(first.fullState());
  for (const std::string& key : first.parametersKeys())
    EXPECT_EQ(second.parameter(key)->value(), first.parameter(key)->value()) << key;
  EXPECT_EQ(second.currentPreset(), 5);
  EXPECT_EQ(second.currentPresetName(), "Bright");
  EXPECT_EQ(second.fullState(), first.fullState());
}

TEST(CommonAudioUnitTest, OfLoadsOnSeveralThreadsOneCountsAsAWhole) {
  std::vector<quillon::ParameterDescription> parameters;
  std::vector<PresetDescription> presets{{.preset = {.number = 0, .name = "0"}},
                                         {.preset = {.number = 1, .name = "1"}}};
  for (std::uint64_t i = 0; i < 40; ++i) {
    parameters.push_back({.key = "p" + std::to_string(i), .address = i});
    presets[1].values[parameters.back().key] = 1;
  }
  CommonAudioUnit unit(std::move(parameters), std::move(presets));
  unit.setCurrentPreset(1);
  const PropertyList saved = unit.fullState();
  std::atomic<bool> isOver{false};
  std::thread host([&] {
    for (int i = 0; i < 400; ++i) unit.setFullState(saved);
    isOver = true;
  });
  std::thread editor([&] {
    while (!isOver) unit.setCurrentPreset(0);
  });
  bool isWhole = true;
  const auto look = [&] {
    const PropertyList state = quillon::unfolded(unit.fullState());
    const double wanted = *state.find("presetName") == PropertyList("1") ? 1 : 0;
    for (const auto& [key, value] : *state.find("parameters")->as<Dictionary>())
      isWhole = isWhole && value.number() == wanted;
  };
  while (!isOver) look();
  host.join();
  editor.join();
  look();
  EXPECT_TRUE(isWhole);
}

TEST(CommonAudioUnitTest, ObserversOfALoadFindAllOfIt) {
  Synth synth;
  std::vector<float> last;
  synth.parameterTree().tokenByAddingParameterObserver(
      [&](platform::AUParameterAddress, float) { last.push_back(synth.value(1)); });
  synth.setCurrentPreset(5);
  EXPECT_EQ(last, std::vector<float>(4, 2));
}

TEST(CommonAudioUnitTest, MissingAndBrokenValuesTakeTheirDefaults) {
  const double nan = std::nan("");
  const struct {
    PropertyList value;
    float cutoff;
  } cases[] = {
      {500, 500},    {500.5, 500.5f}, {true, 20},           {1e300, 20000}, {-1e300, 20},
      {"500", 1000}, {nan, 1000},     {Dictionary{}, 1000}, {{}, 1000},
  };
  for (const auto& [value, cutoff] : cases) {
    Synth synth;
    synth.setParameter("cutoff", 333);
    synth.setParameter("output", 1);
    synth.setFullState(Dictionary{{"parameters", Dictionary{{"cutoff", value}}}});
    EXPECT_EQ(synth.parameter("cutoff")->value(), cutoff);
    EXPECT_EQ(synth.parameter("output")->value(), 0.5f);
  }
  for (const PropertyList& state :
       {PropertyList(Dictionary{}), PropertyList(Dictionary{{"parameters", 1}})}) {
    Synth synth;
    synth.setParameter("cutoff", 333);
    synth.setFullState(state);
    EXPECT_EQ(synth.parameter("cutoff")->value(), 1000);
  }
}

TEST(CommonAudioUnitTest, TheStateIsAnArchiveAndAPresetsBytesAreTakenForOne) {
  Synth synth;
  synth.setCurrentPreset(5);
  synth.setParameter("cutoff", 500);
  const PropertyList full = synth.fullState();
  EXPECT_EQ(*full.find("presetName"), "Bright");
  std::string error;
  const auto state =
      foundation::readKeyedArchive(*full.find("data")->as<PropertyList::Data>(), error);
  ASSERT_TRUE(state) << error;
  EXPECT_EQ(state->find("parameters")->find("cutoff")->number(), 500);

  const PropertyList preset = Dictionary{{"Categories", PropertyList::Array{"bass"}},
                                         {"parameters", Dictionary{{"cutoff", 700}}}};
  const std::string xml = foundation::writeXmlPropertyList(preset);
  for (const auto& bytes : {PropertyList::Data(xml.begin(), xml.end()),
                            PropertyList::Data(foundation::writeKeyedArchive(preset))}) {
    Synth other;
    other.setParameter("wave", 2);
    other.setFullState(Dictionary{{"data", bytes}, {"presetName", "Mine"}});
    EXPECT_EQ(other.parameter("cutoff")->value(), 700);
    EXPECT_EQ(other.parameter("wave")->value(), other.defaultValueForKey("wave"));
    EXPECT_EQ(other.currentPresetName(), "Mine");
    EXPECT_EQ(other.currentPreset(), -1);
    EXPECT_EQ(*quillon::unfolded(other.fullState()).find("Categories"),
              PropertyList::Array{"bass"});
  }
}

TEST(CommonAudioUnitTest, DataThatHoldNoStateAreToldAndChangeNothing) {
  std::vector<std::string> printed;
  const foundation::ConsoleListener listener(
      [&](const std::string& line) { printed.push_back(line); });
  const auto archive = foundation::writeKeyedArchive(Dictionary{});
  Synth synth;
  synth.setCurrentPreset(5);
  for (const PropertyList::Data& bytes : {PropertyList::Data(), PropertyList::Data{1, 2},
                                          PropertyList::Data(archive.begin(), archive.end() - 40),
                                          foundation::writeKeyedArchive(PropertyList::Array{})})
    synth.setFullState(Dictionary{{"data", bytes}, {"presetName", "Mine"}});
  EXPECT_EQ(synth.currentPresetName(), "Bright");
  EXPECT_EQ(printed.size(), 4u);
  EXPECT_EQ(printed[0], "The state cannot be read: the property list is empty");
}

TEST(CommonAudioUnitTest, AStateThatIsNoDictionaryChangesNothing) {
  const foundation::ConsoleListener listener([](const std::string&) {});
  Synth synth;
  synth.setCurrentPreset(5);
  for (const PropertyList& state : {PropertyList(), PropertyList(1), PropertyList("x")})
    synth.setFullState(state);
  EXPECT_EQ(synth.currentPreset(), 5);
  EXPECT_EQ(synth.parameter("wave")->value(), 2);
}

TEST(CommonAudioUnitTest, WhatItDoesNotKnowSurvivesInTheStateUntilAnotherIsLoaded) {
  Synth synth;
  const unsigned before = synth.presetGeneration();
  const PropertyList categories = PropertyList::Array{"bass"};
  synth.setFullState(Dictionary{{"Categories", categories},
                                {"parameters", Dictionary{{"later", 3.5}, {"wave", 1}}}});
  synth.setParameter("wave", 2);
  const PropertyList state = quillon::unfolded(synth.fullState());
  EXPECT_EQ(*state.find("Categories"), categories);
  EXPECT_EQ(state.find("parameters")->find("later")->number(), 3.5);
  EXPECT_EQ(state.find("parameters")->find("wave")->number(), 2);
  EXPECT_NE(synth.presetGeneration(), before);
  for (const bool isFactory : {false, true}) {
    EXPECT_TRUE(synth.setFullState(state));
    if (isFactory)
      synth.setCurrentPreset(5);
    else
      EXPECT_TRUE(synth.setFullState(Dictionary{}));
    const PropertyList empty = quillon::unfolded(synth.fullState());
    EXPECT_EQ(empty.find("Categories"), nullptr);
    EXPECT_EQ(empty.find("parameters")->find("later"), nullptr);
  }
  const unsigned loaded = synth.presetGeneration();
  EXPECT_FALSE(synth.setFullState(Dictionary{{"data", PropertyList::Data{'x'}}}));
  EXPECT_EQ(synth.presetGeneration(), loaded);
}

TEST(CommonAudioUnitTest, AStateNamesItsPresetOnlyWhileThatExists) {
  const struct {
    Dictionary state;
    int number;
    const char* name;
  } cases[] = {
      {{{"presetName", "Bright"}, {"presetNumber", 5}}, 5, "Bright"},
      {{{"presetName", "Mine"}}, -1, "Mine"},
      {{{"presetName", "Mine"}, {"presetNumber", 5}}, -1, "Mine"},
      {{{"presetName", "Bright"}, {"presetNumber", 6}}, -1, "Bright"},
      {{{"presetName", 1}, {"presetNumber", "5"}}, -1, ""},
      {{}, -1, ""},
  };
  for (const auto& [state, number, name] : cases) {
    Synth synth;
    synth.setCurrentPreset(0);
    synth.setFullState(state);
    EXPECT_EQ(synth.currentPreset(), number);
    EXPECT_EQ(synth.currentPresetName(), name);
  }
}

TEST(CommonAudioUnitTest, RandomizingStaysInRangeAndOnWholeSteps) {
  Synth synth;
  synth.seedRandomize(1);
  bool waves[3] = {};
  int below = 0;
  for (int i = 0; i < 300; ++i) {
    synth.randomize();
    const float cutoff = synth.parameter("cutoff")->value();
    EXPECT_TRUE(cutoff >= 20 && cutoff <= 20000);
    below += cutoff < 632.5f;
    const float wave = synth.parameter("wave")->value();
    ASSERT_EQ(wave, std::round(wave));
    waves[static_cast<int>(wave)] = true;
    const float on = synth.parameter("on")->value();
    EXPECT_TRUE(on == 0 || on == 1);
    EXPECT_EQ(synth.parameter("output")->value(), 0.5f);
  }
  EXPECT_TRUE(waves[0] && waves[1] && waves[2]);
  // Even over the pitch, of which 632.5 Hz is the middle.
  EXPECT_NEAR(below, 150, 40);
  Synth other;
  synth.seedRandomize(9);
  other.seedRandomize(9);
  synth.randomize();
  other.randomize();
  EXPECT_EQ(synth.parameter("cutoff")->value(), other.parameter("cutoff")->value());
}

TEST(CommonAudioUnitTest, LiveValuesAreShownOnlyWherePublished) {
  Synth synth;
  const auto* live = synth.getOutputValues("cutoff");
  const auto* modulating = synth.isModulating("cutoff");
  ASSERT_TRUE(live && modulating);
  EXPECT_EQ(*live, 1000);
  EXPECT_FALSE(*modulating);
  synth.publishLive(0, 1500);
  synth.publishModulating(0, true);
  EXPECT_EQ(*live, 1500);
  EXPECT_TRUE(*modulating);
  for (const char* key : {"wave", "what"}) {
    EXPECT_EQ(synth.getOutputValues(key), nullptr);
    EXPECT_EQ(synth.isModulating(key), nullptr);
  }
}

TEST(CommonAudioUnitTest, SoundPassesThroughUnlessAPlugInMakesItsOwn) {
  Synth synth;
  synth.allocateRenderResources(48000, 4);
  std::array<float, 4> input{1, 2, 3, 4}, left{}, right{9, 9, 9, 9};
  const float* inputs[] = {input.data()};
  float* outputs[] = {left.data(), right.data()};
  synth.render({.inputs = inputs, .outputs = outputs, .frames = 4, .midi = {}, .transport = {}});
  EXPECT_EQ(left, input);
  EXPECT_EQ(right, (std::array<float, 4>{}));
  float* inPlace[] = {input.data()};
  synth.render({.inputs = inputs, .outputs = inPlace, .frames = 4, .midi = {}, .transport = {}});
  EXPECT_EQ(input[3], 4);
}

}  // namespace
