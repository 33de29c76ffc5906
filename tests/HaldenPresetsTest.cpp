#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <stdexcept>
#include <string>

#include "examples/Halden/HaldenPresets.h"
#include "examples/Halden/dsp/OnePole.h"
#include "tests/support/HaldenPlayer.h"

namespace halden {
namespace {

bool isIn(const platform::AUAudioUnitPreset& preset, const std::string& category) {
  return std::count(preset.categories.begin(), preset.categories.end(), category) > 0;
}

/// How much of a sound lies below about 300 Hz, from 0 to 1.
double lowShare(const std::vector<float>& samples, double sampleRate) {
  OnePole first, second;
  const float share = OnePole::share(300, static_cast<float>(sampleRate));
  double low = 0, all = 0;
  for (float sample : samples) {
    low += std::pow(second.low(first.low(sample, share), share), 2);
    all += std::pow(sample, 2);
  }
  return low / all;
}

TEST(HaldenPresetsTest, EachSoundsAtAUsefulLevelAndAsItsCategorySays) {
  HaldenPlayer player(24000);
  std::set<std::string> names, banks, categories;
  for (const auto& preset : player.unit.factoryPresets()) {
    SCOPED_TRACE(preset.name);
    EXPECT_TRUE(names.insert(preset.name).second);
    banks.insert(preset.bank);
    categories.insert(preset.categories.begin(), preset.categories.end());
    player.clear();
    player.unit.setCurrentPreset(preset.number);
    player.unit.allocateRenderResources(player.sampleRate, 256);
    const bool isBass = isIn(preset, "bass");
    for (int note : isBass ? std::vector<int>{36} : std::vector<int>{48, 60, 67})
      player.noteOn(note);
    player.renderSeconds(1.3);

    double loudest = 0, sum = 0;
    bool isFinite = true;
    for (double t = 0; t < 1.2; t += 0.1) loudest = std::max(loudest, player.rms(t, t + 0.1));
    for (float sample : player.left) {
      isFinite = isFinite && std::isfinite(sample);
      sum += sample;
    }
    ASSERT_TRUE(isFinite);
    EXPECT_GT(decibels(loudest), -24);
    EXPECT_LT(decibels(loudest), -9);
    EXPECT_LT(player.peak(), 1);
    EXPECT_LT(std::abs(sum / static_cast<double>(player.left.size())), 0.004);
    // A note fades in, however fast: the first sample of a click would be as loud as any.
    EXPECT_LT(std::abs(player.left[1]), 0.05f);
    if (isBass) {
      EXPECT_GT(lowShare(player.left, player.sampleRate), 0.5);
    }
    if (isIn(preset, "pad")) {
      EXPECT_LT(player.rms(0, 0.03), 0.2 * loudest);
    }
    for (const std::string& category : preset.categories)
      for (char letter : category) EXPECT_TRUE(letter >= 'a' && letter <= 'z') << category;
  }
  EXPECT_GE(names.size(), 64u);
  EXPECT_GE(banks.size(), 3u);
  EXPECT_GE(categories.size(), 8u);
}

TEST(HaldenPresetsTest, ATextGivesNamesCategoriesAndValuesOrSaysWhatIsWrong) {
  std::vector<quillon::PresetDescription> presets;
  readBank("TEST", "A: pad motion\n  cutoff 90.5, osc1Octave -2,\n  lfo1Division 1 bar\nB:\n",
           presets);
  ASSERT_EQ(presets.size(), 2u);
  EXPECT_EQ(presets[0].preset.categories, (std::vector<std::string>{"pad", "motion"}));
  EXPECT_EQ(presets[0].values, (std::map<std::string, float>{
                                   {"cutoff", 90.5f}, {"osc1Octave", -2}, {"lfo1Division", 11}}));
  EXPECT_EQ(presets[1].preset.number, 1);
  EXPECT_TRUE(presets[1].values.empty());

  for (const char* wrong : {"  cutoff 90\n", "A:\n  cutof 90\n", "A:\n  cutoff\n",
                            "A:\n  cutoff 90x\n", "A:\n  cutoff 10\n", "A:\n  osc2On 1\n",
                            "A:\n  osc1Wave saw\n", "A:\n  glide 1, glide 2\n"}) {
    presets.clear();
    EXPECT_THROW(readBank("TEST", wrong, presets), std::invalid_argument) << wrong;
  }
}

}  // namespace
}  // namespace halden
