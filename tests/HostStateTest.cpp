// What hosts store of a plug-in: from format to format, from version to version, and damaged.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "backends/juce/AudioUnitProcessor.h"
#include "backends/lv2/PluginState.h"
#include "examples/Gallery/GalleryPlugin.h"
#include "examples/Halden/HaldenPlugin.h"
#include "examples/Selvik/SelvikPlugin.h"
#include "foundation/Console.h"
#include "tests/support/AllocationCounter.h"
#include "tests/support/GivenUnit.h"

namespace {

using juce_backend::AudioUnitProcessor;

struct Format {
  const char* name;
  std::string (*save)(AudioUnitProcessor& plugin);
  void (*load)(AudioUnitProcessor& plugin, const std::string& state);
};

constexpr Format formats[] = {
    {"VST3",
     [](AudioUnitProcessor& plugin) {
       juce::MemoryBlock state;
       plugin.getStateInformation(state);
       return std::string(static_cast<const char*>(state.getData()), state.getSize());
     },
     [](AudioUnitProcessor& plugin, const std::string& state) {
       plugin.setStateInformation(state.data(), static_cast<int>(state.size()));
     }},
    {"LV2",
     [](AudioUnitProcessor& plugin) {
       return lv2_backend::stateText(plugin.audioUnit(), plugin.midiLearn());
     },
     [](AudioUnitProcessor& plugin, const std::string& state) {
       lv2_backend::setState(plugin.audioUnit(), plugin.midiLearn(), state);
     }}};

std::vector<float> valuesOf(platform::AudioUnit& unit) {
  std::vector<float> values;
  for (platform::AUParameter* parameter : unit.parameterTree().allParameters())
    values.push_back(parameter->value());
  return values;
}

/// The user has been at it: a preset, a finger, a binding.
void use(AudioUnitProcessor& plugin, unsigned seed) {
  platform::AudioUnit& unit = plugin.audioUnit();
  if (!unit.factoryPresets().empty()) unit.setCurrentPreset(unit.factoryPresets().back().number);
  std::mt19937 random(seed);
  for (platform::AUParameter* parameter : unit.parameterTree().allParameters())
    parameter->setValue(std::lerp(parameter->minValue(), parameter->maxValue(),
                                  static_cast<float>(random() % 1000) / 999));
  plugin.midiLearn().bind(unit.parametersKeys().front(), {0xb0, 74});
}

class HostStateTest : public testing::Test {
 protected:
  juce::ScopedJuceInitialiser_GUI juceIsUp_;
  const foundation::ConsoleListener silent_{[](const std::string&) {}};
};

TEST_F(HostStateTest, isTheSameBytesAfterARoundTripAndLoadsInEveryFormat) {
  for (const auto* entry :
       {&gallery::pluginEntry(), &selvik::pluginEntry(), &halden::pluginEntry()}) {
    AudioUnitProcessor plugin(*entry);
    use(plugin, 7);
    for (const Format& from : formats) {
      const std::string state = from.save(plugin);
      for (const Format& to : formats) {
        SCOPED_TRACE(entry->name + " from " + from.name + " to " + to.name);
        AudioUnitProcessor other(*entry);
        to.load(other, state);
        EXPECT_EQ(valuesOf(other.audioUnit()), valuesOf(plugin.audioUnit()));
        EXPECT_EQ(other.audioUnit().currentPresetName(), plugin.audioUnit().currentPresetName());
        EXPECT_EQ(other.midiLearn().bindings(), plugin.midiLearn().bindings());
        EXPECT_EQ(from.save(other), state);
      }
    }
  }
}

orvane::PluginEntry version(std::vector<quillon::ParameterDescription> parameters) {
  return support::entryOf([parameters = std::move(parameters)] {
    return std::make_unique<quillon::CommonAudioUnit>(parameters);
  });
}

TEST_F(HostStateTest, ofAnotherVersionLoadsAsFarAsItIsKnownAndLosesNothing) {
  const auto knob = [](std::string key, std::uint64_t address, float maximum, float standard) {
    return quillon::ParameterDescription{
        .key = std::move(key), .address = address, .maxValue = maximum, .defaultValue = standard};
  };
  const orvane::PluginEntry first = version({knob("a", 0, 1, 0.1f), knob("b", 1, 100, 50)});
  const orvane::PluginEntry second =
      version({knob("a", 0, 1, 0.2f), knob("b", 1, 10, 5), knob("c", 2, 1, 0.3f)});
  for (const Format& format : formats) {
    SCOPED_TRACE(format.name);
    AudioUnitProcessor older(first), newer(second), olderAgain(first);
    older.audioUnit().setParameter("a", 0.75f);
    older.audioUnit().setParameter("b", 60);
    newer.audioUnit().setParameter("c", 1);
    format.load(newer, format.save(older));
    EXPECT_EQ(valuesOf(newer.audioUnit()), (std::vector<float>{0.75f, 10, 0.3f}))
        << "clamped, and the default of what the state does not know";
    newer.audioUnit().setParameter("c", 0.9f);
    format.load(olderAgain, format.save(newer));
    EXPECT_EQ(valuesOf(olderAgain.audioUnit()), (std::vector<float>{0.75f, 10}));
    AudioUnitProcessor newerAgain(second);
    format.load(newerAgain, format.save(olderAgain));
    EXPECT_EQ(newerAgain.audioUnit().parameter("c")->value(), 0.9f)
        << "through a version that does not know it";
  }
}

/// One of the ways in which files and pipes spoil bytes.
std::string mutant(std::string state, std::mt19937& random) {
  const auto place = [&] { return state.empty() ? 0 : random() % state.size(); };
  for (unsigned changes = 1 + random() % 4; changes > 0 && !state.empty(); --changes) {
    const std::size_t at = place(),
                      length = std::min<std::size_t>(random() % 64, state.size() - at);
    switch (random() % 6) {
      case 0:
        state[at] = static_cast<char>(random());
        break;
      case 1:
        state[at] = static_cast<char>(state[at] ^ (1 << random() % 8));
        break;
      case 2:
        state.erase(at, length);
        break;
      case 3:
        state.insert(at, state.substr(place(), length));
        break;
      case 4:
        state.resize(at);
        break;
      case 5: {
        const char* const odd[] = {"nan", "-1e999", "<dict>", "&amp;", "999999999999999999999",
                                   "\0"};
        state.replace(at, std::min<std::size_t>(length, 8), odd[random() % 6]);
      }
    }
  }
  return state;
}

TEST_F(HostStateTest, thatIsDamagedNeverTakesMoreThanTheSound) {
  // A host lab asks for more.
  const char* const wanted = std::getenv("ORVANE_MUTANTS");
  const int count = wanted ? std::atoi(wanted) : 400;
  for (const Format& format : formats) {
    AudioUnitProcessor plugin(selvik::pluginEntry());
    use(plugin, 3);
    const std::string good = format.save(plugin);
    const std::vector<float> expected = valuesOf(plugin.audioUnit());
    const std::size_t usual = [&] {
      const support::AllocationCounter counter;
      format.load(plugin, good);
      return counter.count();
    }();
    std::mt19937 random(11);
    testing::internal::CaptureStderr();
    for (int i = 0; i < count; ++i) {
      const std::string state = mutant(good, random);
      const support::AllocationCounter counter;
      format.load(plugin, state);
      ASSERT_LE(counter.count(), 3 * usual + 10 * state.size()) << format.name << " mutant " << i;
      for (platform::AUParameter* parameter : plugin.audioUnit().parameterTree().allParameters())
        ASSERT_TRUE(parameter->value() >= parameter->minValue() &&
                    parameter->value() <= parameter->maxValue())
            << format.name << " mutant " << i << ": " << parameter->key();
    }
    testing::internal::GetCapturedStderr();
    format.load(plugin, good);
    EXPECT_EQ(valuesOf(plugin.audioUnit()), expected) << format.name;
    EXPECT_EQ(format.save(plugin), good) << format.name;
  }
}

}  // namespace
