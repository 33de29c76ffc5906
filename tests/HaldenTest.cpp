#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "examples/Halden/HaldenDesign.h"
#include "examples/Halden/HaldenParameters.h"
#include "examples/Halden/dsp/FilterResponse.h"
#include "tests/support/AllocationCounter.h"
#include "tests/support/HaldenPlayer.h"

namespace halden {
namespace {

constexpr float sine = 0;
constexpr int a4 = 69;

/// The strongest bend between neighbouring samples: what a click is heard by.
float roughness(const std::vector<float>& samples, std::size_t from, std::size_t to) {
  float peak = 0;
  for (std::size_t i = from + 3; i < to; ++i) {
    const float third = samples[i] - 3 * samples[i - 1] + 3 * samples[i - 2] - samples[i - 3];
    peak = std::max(peak, std::abs(third));
  }
  return peak;
}

TEST(HaldenTest, IsInTuneWithEveryWaveAtEverySampleRate) {
  for (double rate : {22050.0, 44100.0, 48000.0, 96000.0, 192000.0}) {
    for (float wave = 0; wave < 5; ++wave) {
      HaldenPlayer player(rate);
      player.setBare({{"osc1Wave", wave}});
      player.noteOn(a4);
      player.renderSeconds(1.2);
      EXPECT_NEAR(cents(player.frequency(0.2), 440), 0, 0.5) << rate << " Hz, wave " << wave;
    }
  }
}

TEST(HaldenTest, FollowsOctaveFineTuneBendAndWheel) {
  const struct {
    std::map<std::string, float> values;
    int bend;
    double expected;
  } cases[] = {{{{"osc1Octave", 1}}, 0, 1200},
               {{{"osc1Octave", -2}}, 0, -2400},
               {{{"osc1Fine", -30}}, 0, -30},
               {{{"tune", 100}}, 0, 100},
               {{}, 8191, 200},
               {{{"bendRange", 12}}, -8192, -1200}};
  for (const auto& c : cases) {
    HaldenPlayer player;
    player.setBare({{"osc1Wave", sine}});
    player.set(c.values);
    const int bend = c.bend + 8192;
    player.midi(0xe0, bend & 127, bend >> 7);
    player.noteOn(a4);
    player.renderSeconds(1.2);
    EXPECT_NEAR(cents(player.frequency(0.2), 440), c.expected, 0.5);
  }
}

TEST(HaldenTest, FiltersByThreeDecibelsAtTheCutoffAndTwentyFourAnOctaveAbove) {
  const auto level = [](std::map<std::string, float> values) {
    HaldenPlayer player;
    values.insert({{"osc1Wave", sine},
                   {"filterEnvelope", 0},
                   {"filterDrive", 0},
                   {"keytrack", 0},
                   {"resonance", 0},
                   {"velocityCutoff", 0}});
    player.setBare(values);
    player.noteOn(a4);
    player.renderSeconds(1);
    return decibels(player.rms(0.5, 1));
  };
  const double open = level({{"filterOn", 0}});
  EXPECT_NEAR(level({{"filterOn", 1}, {"filterType", 0}, {"cutoff", 440}}) - open, -3, 0.2);
  EXPECT_NEAR(level({{"filterOn", 1}, {"filterType", 0}, {"cutoff", 220}}) - open, -24, 0.5);
  EXPECT_NEAR(level({{"filterOn", 1}, {"filterType", 1}, {"cutoff", 440}}) - open, -3, 0.2);
  EXPECT_NEAR(level({{"filterOn", 1}, {"filterType", 2}, {"cutoff", 440}}) - open, -1.5, 0.2);
  EXPECT_NEAR(level({{"filterOn", 1}, {"filterType", 3}, {"cutoff", 440}}) - open, -3, 0.2);
  EXPECT_LT(level({{"filterOn", 1}, {"filterType", 4}, {"cutoff", 440}}) - open, -50);
}

TEST(HaldenTest, DrawsTheResponseThatItsFilterHas) {
  // A level so low that nothing bends.
  const auto level = [](std::map<std::string, float> values, int note) {
    HaldenPlayer player;
    values.insert({{"osc1Wave", sine},
                   {"filterEnvelope", 0},
                   {"filterDrive", 0},
                   {"keytrack", 0},
                   {"velocityCutoff", 0},
                   {"cutoff", 440},
                   {"volume", -30}});
    player.setBare(values);
    player.noteOn(note);
    player.renderSeconds(1);
    return decibels(player.rms(0.5, 1));
  };
  for (float type = 0; type < filterTypeCount; ++type) {
    for (int note : {45, 62, 84}) {
      HaldenAudioUnit unit;
      unit.allocateRenderResources(48000, 256);
      unit.setParameter("filterType", type);
      unit.setParameter("cutoff", 440);
      unit.setParameter("resonance", 25);
      const double hertz = 440 * std::exp2((note - a4) / 12.0);
      const double drawn = unit.magnitudesForFrequencies({hertz}, "", "cutoff", "resonance")[0];
      const double heard = level({{"filterOn", 1}, {"filterType", type}, {"resonance", 25}}, note) -
                           level({{"filterOn", 0}}, note);
      EXPECT_NEAR(heard, drawn, 0.3) << "type " << type << ", note " << note;
      // The same for live values, where the editor gives decibels for the resonance.
      EXPECT_NEAR(unit.magnitudesForFrequencies({hertz}, "", 440.0f, 7.5f)[0], drawn, 1e-3);
    }
  }
}

TEST(HaldenTest, PlaysItsStepsFromTheFirstKeyOn) {
  HaldenPlayer player;
  player.setBare({{"osc1Wave", sine},
                  {"stepsOn", 1},
                  {"stepsCutoff", 0},
                  {"stepsPitch", 12},
                  {"stepsDivision", 8},
                  {"stepsCount", 2},
                  {"step1", 100},
                  {"step2", -20}});
  player.unit.hasUI(true);
  player.renderSeconds(0.7);
  player.noteOn(a4);
  player.clear();
  // A beat takes half a second; a fifth of twelve semitones is two and a bit, played as two.
  for (const double expected : {1200.0, -200.0, 1200.0}) {
    player.clear();
    player.renderSeconds(0.5);
    EXPECT_NEAR(cents(player.frequency(0.1), 440), expected, 2);
  }
  EXPECT_TRUE(*player.unit.isModulating("step1"));
  EXPECT_NEAR(*player.unit.getOutputValues("step1"), 1, 0.02);
}

TEST(HaldenTest, SequencersMoveLevelPanAndCutoffWithoutAClick) {
  HaldenPlayer player(24000);
  std::map<std::string, float> values{
      {"osc1Wave", sine},    {"filterOn", 1},     {"cutoff", 300},
      {"filterEnvelope", 0}, {"stepsOn", 1},      {"stepsCutoff", 48},
      {"curveOn", 1},        {"curveLevel", 100}, {"curvePan", 100}};
  for (int i = 1; i <= 16; ++i) {
    values["step" + std::to_string(i)] = i % 2 ? 100 : -100;
    values["curve" + std::to_string(i)] = i % 3 ? 100 : 0;
  }
  player.setBare(values);
  player.noteOn(45);
  player.renderSeconds(4);
  // A jump of the level would be as rough as the sound is loud.
  EXPECT_GT(player.peak(), 0.1f);
  EXPECT_LT(roughness(player.left, 2400, player.left.size()), 0.01f);
}

TEST(HaldenTest, FollowsTheVelocityCurveAndTheMutes) {
  const auto level = [](std::map<std::string, float> values, int velocity) {
    HaldenPlayer player;
    values.insert({{"velocityLevel", 100}, {"osc1Wave", sine}});
    player.setBare(values);
    player.noteOn(a4, velocity);
    player.renderSeconds(0.5);
    return decibels(player.rms(0.2, 0.5));
  };
  EXPECT_GT(level({}, 127) - level({}, 40), 6);
  const std::map<std::string, float> flat{
      {"velocity1", 100}, {"velocity2", 100}, {"velocity3", 100}, {"velocity4", 100}};
  EXPECT_NEAR(level(flat, 127), level(flat, 40), 0.01);
  EXPECT_NEAR(level(flat, 127), level({}, 127), 0.01);

  EXPECT_GT(level({{"osc1Level", -48}, {"subLevel", 0}}, 127), -20);
  EXPECT_LT(level({{"osc1Level", -48}, {"subLevel", 0}, {"subMute", 1}}, 127), -120);
  EXPECT_LT(level({{"osc1Level", -48}, {"noiseLevel", 0}, {"noiseMute", 1}}, 127), -120);
}

TEST(HaldenTest, NoParameterClicksWhenItJumpsDuringANote) {
  for (const auto& description : parameterDescriptions()) {
    const bool isMeter = !(description.flags & platform::AudioUnitParameterFlags::writable);
    if (isMeter || description.key == "panic") continue;
    // The first of a row stands for the others.
    const auto address = static_cast<Param>(description.address);
    if (address > Param::step1 && address <= Param::step16) continue;
    if (address > Param::curve1 && address <= Param::curve16) continue;
    for (const bool up : {true, false}) {
      HaldenPlayer player(24000);
      // Everything at work, on a low sine: it has no edges of its own to hide a click behind.
      player.setBare({{"osc1Wave", 0},
                      {"osc2On", 1},
                      {"osc2Wave", 0},
                      {"filterOn", 1},
                      {"chorusOn", 1},
                      {"delayOn", 1},
                      {"reverbOn", 1},
                      {"driveOn", 1},
                      {"unisonOn", 1},
                      {"volume", -12},
                      {"delaySync", 0},
                      {"cutoff", 800},
                      {"subLevel", -6},
                      {"resonance", 20},
                      {"filterEnvelope", 0}});
      player.unit.setParameter(description.key, up ? description.minValue : description.maxValue);
      player.noteOn(45);
      player.renderSeconds(0.4);
      player.unit.setParameter(description.key, up ? description.maxValue : description.minValue);
      player.renderSeconds(0.5);
      const std::size_t jump = 9600;
      const float before = roughness(player.left, jump - 3600, jump);
      const float during = roughness(player.left, jump, jump + 4800);
      const float after = roughness(player.left, jump + 7200, jump + 12000);
      EXPECT_LT(during, 3 * std::max(before, after) + 0.002f)
          << description.key << (up ? " up" : " down") << ": " << before << " before, " << after
          << " after";
      EXPECT_LT(player.peak(), 1);
    }
  }
}

TEST(HaldenTest, GivesTheSameSamplesInBlocksOfAnySize) {
  std::vector<float> reference;
  for (std::uint32_t block : {512u, 1u, 7u, 64u, 480u}) {
    HaldenPlayer player(48000, block);
    player.set({{"delayOn", 1}, {"lfo1Sync", 1}, {"lfo1Cutoff", 24}, {"fmAmount", 30}});
    player.transport.isPlaying = true;
    player.noteOn(48, 90, 5);
    player.noteOn(60, 100, 1234);
    player.midi(0xe0, 0, 100, 2000);
    player.noteOff(48, 6001);
    player.render(12000);
    if (reference.empty()) reference = player.left;
    float widest = 0;
    for (std::size_t i = 0; i < reference.size(); ++i)
      widest = std::max(widest, std::abs(player.left[i] - reference[i]));
    EXPECT_LT(widest, 1e-5f) << "in blocks of " << block;
  }
}

TEST(HaldenTest, StartsANoteAtItsSample) {
  for (std::uint32_t frame : {0u, 1u, 37u, 255u, 256u, 1000u}) {
    HaldenPlayer player;
    player.setBare({{"osc1Wave", 2}});
    player.noteOn(a4, 127, frame);
    player.render(2048);
    std::size_t first = 0;
    while (first < player.left.size() && player.left[first] == 0) ++first;
    EXPECT_GE(first, frame);
    EXPECT_LE(first, frame + 1);
  }
}

TEST(HaldenTest, PlaysSixteenNotesAndStealsWithoutAClick) {
  HaldenPlayer player;
  player.setBare({{"osc1Wave", sine}, {"ampAttack", 20}, {"volume", -20}});
  for (int i = 0; i < 16; ++i) player.noteOn(30 + i);
  player.renderSeconds(1);
  for (int i = 0; i < 24; ++i) {
    player.noteOn(46 + i);
    player.renderSeconds(0.03);
    player.unit.hasUI(true);
  }
  EXPECT_EQ(player.unit.parameter("voiceCount")->value(), 16);
  // Each voice is 0.04 high: one that broke off would be a hundred times as rough.
  EXPECT_LT(roughness(player.left, 48000, player.left.size()), 0.0006f);

  for (int note = 0; note < 128; ++note) player.noteOn(note);
  player.renderSeconds(0.1);
  EXPECT_LE(player.peak(), 1);
  for (int note = 0; note < 128; ++note) player.noteOff(note);
  player.clear();
  player.renderSeconds(2);
  EXPECT_LT(player.rms(1.5, 2), 1e-12);
}

TEST(HaldenTest, KeepsNotesWhileThePedalIsDown) {
  HaldenPlayer player;
  player.setBare({{"ampRelease", 50}});
  player.midi(0xb0, 64, 127);
  player.noteOn(a4);
  player.noteOff(a4, 2000);
  player.renderSeconds(1);
  EXPECT_GT(player.rms(0.9, 1), 0.05);
  player.midi(0xb0, 64, 0);
  player.clear();
  player.renderSeconds(0.5);
  EXPECT_LT(player.rms(0.3, 0.5), 1e-6);
}

TEST(HaldenTest, MonoPlaysTheNewestKeyAndGoesBackToTheOneStillDown) {
  for (float mode : {1.0f, 2.0f}) {
    HaldenPlayer player;
    player.setBare({{"osc1Wave", sine}, {"voiceMode", mode}});
    player.noteOn(57);
    player.renderSeconds(0.3);
    player.noteOn(a4);
    player.clear();
    player.renderSeconds(0.6);
    EXPECT_NEAR(cents(player.frequency(0.1), 440), 0, 1);
    player.noteOff(a4);
    player.clear();
    player.renderSeconds(0.6);
    EXPECT_NEAR(cents(player.frequency(0.1), 220), 0, 1);
    player.noteOff(57);
    player.clear();
    player.renderSeconds(3);
    EXPECT_LT(player.rms(2.5, 3), 1e-12);
  }
}

TEST(HaldenTest, GlidesInTheGivenTimeAndLegatoDoesNotStartTheEnvelopeAgain) {
  HaldenPlayer player;
  player.setBare({{"osc1Wave", sine},
                  {"voiceMode", 2},
                  {"glide", 400},
                  {"ampSustain", 20},
                  {"ampDecay", 100}});
  player.noteOn(57);
  player.renderSeconds(0.5);
  const double held = player.rms(0.4, 0.5);
  player.clear();
  player.noteOn(a4);
  player.renderSeconds(1.2);
  // Half-way in pitch at half the time, and there at the end of it.
  const auto around = [&](double seconds) {
    HaldenPlayer part;
    const auto at = static_cast<std::ptrdiff_t>(seconds * 48000);
    part.left.assign(player.left.begin() + at - 1500, player.left.begin() + at + 1500);
    return part.frequency(0);
  };
  EXPECT_NEAR(cents(around(0.2), 311.13), 0, 30);
  EXPECT_NEAR(cents(around(0.5), 440), 0, 8);
  EXPECT_NEAR(player.rms(0.02, 0.1) / held, 1, 0.1);
}

TEST(HaldenTest, PanicSilencesEverythingThatSounds) {
  HaldenPlayer player;
  player.setBare({{"ampRelease", 5000}});
  for (int note = 40; note < 50; ++note) player.noteOn(note);
  player.renderSeconds(0.3);
  player.unit.setParameter("panic", 1);
  player.clear();
  player.renderSeconds(0.3);
  EXPECT_LT(player.rms(0.1, 0.3), 1e-3);
}

TEST(HaldenTest, WhatItsEditorStepsThroughIsWholeWhoeverSetsIt) {
  HaldenAudioUnit unit;
  for (const auto& key : HaldenDesign().paramKeys()) {
    if (key->settings().controlType != kestroui::ControlType::stepper) continue;
    platform::AUParameter& parameter = *unit.parameter(key->key());
    parameter.setValue(parameter.minValue() + 1.3f);
    EXPECT_EQ(parameter.value(), parameter.minValue() + 1) << key->key();
  }
}

TEST(HaldenTest, ItsTailIsThatOfItsSettings) {
  for (const auto& values : std::vector<std::map<std::string, float>>{
           {{"ampRelease", 200}},
           {{"ampRelease", 3000}},
           {{"delayOn", 1}, {"delayMix", 100}, {"delayFeedback", 40}, {"delayDivision", 8}},
           {{"reverbOn", 1}, {"reverbMix", 100}, {"reverbDecay", 3}, {"ampRelease", 5}}}) {
    HaldenPlayer player(22050);
    player.setBare(values);
    player.transport.tempo = 90;
    player.noteOn(60);
    player.renderSeconds(0.5);
    player.noteOff(60);
    player.renderSeconds(9);
    const float quiet = player.peak() / 1000;
    std::size_t last = player.left.size();
    while (std::max(std::abs(player.left[last - 1]), std::abs(player.right[last - 1])) < quiet)
      --last;
    const double heard = static_cast<double>(last) / player.sampleRate - 0.5;
    EXPECT_LE(heard, player.unit.tailSeconds() + 0.05) << values.begin()->first;
    EXPECT_GT(heard, 0.5 * player.unit.tailSeconds()) << values.begin()->first;
  }
}

TEST(HaldenTest, EndsInPerfectSilenceWithoutDenormalNumbers) {
  HaldenPlayer player;
  for (int number : {0, 1, 26}) {
    const auto& preset = player.unit.factoryPresets()[static_cast<std::size_t>(number)];
    player.clear();
    player.unit.setCurrentPreset(preset.number);
    player.noteOn(50);
    player.noteOff(50, 24000);
    player.renderSeconds(1);
    player.clear();
    // 120 dB down, and a moment to be sure of it.
    player.renderSeconds(2 * player.unit.tailSeconds() + 1.5);
    int denormals = 0;
    for (float sample : player.left) denormals += std::fpclassify(sample) == FP_SUBNORMAL;
    EXPECT_EQ(denormals, 0) << preset.name;
    player.clear();
    player.renderSeconds(0.5);
    EXPECT_EQ(player.peak(), 0) << preset.name;
  }
}

TEST(HaldenTest, RendersWithoutAllocating) {
  HaldenPlayer player;
  player.set({{"stepsOn", 1}, {"curveOn", 1}, {"driveOn", 1}, {"delayOn", 1}});
  player.unit.hasUI(true);
  std::vector<float> left(256), right(256);
  float* outputs[2] = {left.data(), right.data()};
  std::vector<platform::MidiEvent> events;
  for (int i = 0; i < 20; ++i)
    events.push_back(
        {static_cast<std::uint32_t>(i), {0x90, static_cast<std::uint8_t>(40 + i), 90}, 3});
  platform::RenderBlock block;
  block.outputs = outputs;
  block.frames = 256;
  support::AllocationCounter counter;
  for (int i = 0; i < 400; ++i) {
    block.midi = {events.data(), i % 100 == 0 ? events.size() : 0};
    player.unit.render(block);
  }
  EXPECT_EQ(counter.count(), 0u);
}

TEST(HaldenTest, StaysFiniteAndBoundedInAStormOfRandomParametersAndNotes) {
  std::mt19937 random(17);
  for (double rate : {22050.0, 48000.0, 192000.0}) {
    HaldenPlayer player(rate, 128);
    player.unit.seedRandomize(5);
    const auto& all = player.unit.parameterTree().allParameters();
    const int blocks = rate > 100000 ? 300 : 1200;
    for (int i = 0; i < blocks; ++i) {
      if (i % 40 == 0) player.unit.randomize();
      for (int n = 0; n < 3; ++n) {
        platform::AUParameter& parameter = *all[random() % all.size()];
        const float ends[] = {parameter.minValue(), parameter.maxValue(),
                              std::numeric_limits<float>::quiet_NaN()};
        parameter.setValue(ends[random() % 3]);
      }
      player.midi(random() % 3 ? 0x90 : 0xb0, static_cast<int>(random() % 128),
                  static_cast<int>(random() % 128), random() % 128);
      player.midi(0xe0, static_cast<int>(random() % 128), static_cast<int>(random() % 128), 127);
      player.transport = {i % 7 ? 20.0 + i : std::nan(""), i % 11 ? i * 0.3 : INFINITY, i % 2 == 0};
      player.render(128);
    }
    bool finite = true;
    for (float sample : player.left) finite = finite && std::isfinite(sample);
    for (float sample : player.right) finite = finite && std::isfinite(sample);
    EXPECT_TRUE(finite) << rate;
    EXPECT_LE(player.peak(), 1) << rate;
    EXPECT_GT(player.peak(), 0.01f) << rate;
  }
}

TEST(HaldenTest, RecoversWhenABadNumberGetsIn) {
  Synth synth;
  synth.prepare(48000);
  ParamValues params;
  const auto descriptions = parameterDescriptions();
  for (std::size_t i = 0; i < paramCount; ++i) params.at(i) = descriptions[i].defaultValue;
  std::vector<float> left(4800), right(4800);
  const platform::MidiEvent note{0, {0x90, 60, 100}, 3};
  const auto play = [&] {
    synth.render(params, {&note, 1}, {}, left.data(), right.data(), 4800);
    for (float sample : left) EXPECT_TRUE(std::isfinite(sample));
  };
  params[Param::fmRatio] = params[Param::osc1Pan] = std::numeric_limits<float>::quiet_NaN();
  params[Param::resonance] = std::numeric_limits<float>::infinity();
  play();
  for (std::size_t i = 0; i < paramCount; ++i) params.at(i) = descriptions[i].defaultValue;
  play();
  EXPECT_GT(*std::max_element(left.begin(), left.end()), 0.05f);
}

TEST(HaldenTest, ComesBackFromItsStateAndSoundsTheSame) {
  HaldenPlayer first, second;
  first.unit.seedRandomize(3);
  first.unit.randomize();
  second.unit.setFullState(first.unit.fullState());
  for (const std::string& key : first.unit.parametersKeys())
    EXPECT_EQ(first.unit.parameter(key)->value(), second.unit.parameter(key)->value()) << key;
  for (HaldenPlayer* player : {&first, &second}) {
    player->noteOn(55);
    player->renderSeconds(0.3);
  }
  EXPECT_EQ(first.left, second.left);
}

TEST(HaldenTest, KeepsAnLfoInStepWithTheSong) {
  for (double tempo : {90.0, 120.0, 174.0}) {
    HaldenPlayer player(48000, 64);
    player.set({{"lfo1Sync", 1}, {"lfo1Division", 8}, {"lfo1Wave", 0}});
    player.unit.hasUI(true);
    player.transport = {tempo, 17, true};
    const auto* light = player.unit.getOutputValues("lfo1Light");
    for (int i = 0; i < 1500; ++i) {
      player.render(64);
      if (i < 20) continue;
      // A sine that takes one beat; the light shows it from 0 to 1, rounded off by 2 ms.
      const double beat = player.transport.beatPosition - 0.003 * tempo / 60;
      EXPECT_NEAR(*light, 0.5 + 0.5 * std::sin(2 * 3.14159265358979 * beat), 0.03) << beat;
    }
  }
}

TEST(HaldenTest, ShowsTheLiveCutoffOnlyToAnEditorAndOnlyWhileItMoves) {
  HaldenPlayer player;
  const auto* flag = player.unit.isModulating("cutoff");
  const auto* cutoff = player.unit.getOutputValues("cutoff");
  ASSERT_TRUE(flag && cutoff);
  player.set({{"filterEnvelope", 24},
              {"filterSustain", 100},
              {"filterAttack", 1},
              {"velocityCutoff", 0},
              {"keytrack", 0},
              {"lfo1On", 0},
              {"cutoff", 500}});
  player.noteOn(60);
  player.renderSeconds(0.5);
  EXPECT_FALSE(*flag);
  player.unit.hasUI(true);
  player.renderSeconds(0.1);
  EXPECT_TRUE(*flag);
  EXPECT_NEAR(*cutoff, 2000, 20);
  player.set({{"filterEnvelope", 0}});
  player.renderSeconds(0.1);
  EXPECT_FALSE(*flag);
  player.set({{"lfo1On", 1}, {"lfo1Cutoff", 12}});
  player.renderSeconds(0.1);
  EXPECT_TRUE(*flag);
  player.unit.hasUI(false);
  player.renderSeconds(0.1);
  EXPECT_FALSE(*flag);
}

}  // namespace
}  // namespace halden
