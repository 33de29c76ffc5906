#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "KestroUI/Container.h"
#include "examples/Selvik/SelvikAudioUnit.h"
#include "examples/Selvik/SelvikPlugin.h"
#include "tests/support/AllocationCounter.h"
#include "tests/support/TestEditor.h"

namespace selvik {
namespace {

/// Plays a sound of any length through the effect and keeps what comes out on the left.
class SelvikPlayer {
 public:
  explicit SelvikPlayer(double rate = 48000) : sampleRate(rate) {
    unit.allocateRenderResources(rate, 256);
  }
  void set(const std::map<std::string, float>& values) {
    for (const auto& [key, value] : values) unit.setParameter(key, value);
    unit.allocateRenderResources(sampleRate, 256);
  }
  /// Of `seconds`; `sound` gives a sample for a time.
  template <class Sound>
  void play(double seconds, const Sound& sound) {
    std::vector<float> samples[2];
    float* both[2];
    platform::RenderBlock block;
    for (double end = time_ + seconds; time_ < end - 1e-9;) {
      for (auto& side : samples) side.resize(256);
      for (std::size_t i = 0; i < 256; ++i)
        samples[0][i] = samples[1][i] =
            static_cast<float>(sound(time_ + static_cast<double>(i) / sampleRate));
      both[0] = samples[0].data();
      both[1] = samples[1].data();
      const float* in[2] = {both[0], both[1]};
      // In place, as most hosts do.
      block.inputs = in;
      block.outputs = both;
      block.frames = 256;
      unit.render(block);
      left.insert(left.end(), samples[0].begin(), samples[0].end());
      time_ += 256 / sampleRate;
    }
  }
  double rms(double from, double to) const {
    double sum = 0;
    const auto first = static_cast<std::size_t>(from * sampleRate);
    const auto last = static_cast<std::size_t>(to * sampleRate);
    for (std::size_t i = first; i < last; ++i) sum += double{left[i]} * left[i];
    return std::sqrt(sum / static_cast<double>(last - first));
  }

  SelvikAudioUnit unit;
  double sampleRate;
  std::vector<float> left;

 private:
  double time_ = 0;
};

double tone(double hertz, double time) {
  return 0.5 * std::sin(2 * 3.14159265358979 * hertz * time);
}

TEST(SelvikTest, AnswersAtItsTimeAndDoublesNothing) {
  for (const auto& [sync, seconds] : {std::pair{0.0f, 0.3}, std::pair{1.0f, 0.375}}) {
    SelvikPlayer player;
    player.set({{"sync", sync}, {"time", 300}, {"threshold", 0}, {"mix", 100}});
    player.play(1, [](double time) { return time < 0.01 ? tone(1000, time) : 0; });
    EXPECT_NEAR(player.rms(0, 0.01), 0.354, 0.01);
    EXPECT_LT(player.rms(0.02, seconds - 0.005), 1e-4) << seconds;
    EXPECT_GT(player.rms(seconds, seconds + 0.01), 0.1) << seconds;
  }
}

TEST(SelvikTest, StepsAsideOnlyForWhatItListensTo) {
  const auto reductionFor = [](double hertz) {
    SelvikPlayer player;
    player.set({{"SidechainLowPassFrequency", 200},
                {"SidechainHighPassFrequency", 40},
                {"threshold", -30},
                {"ratio", 4}});
    player.play(1, [hertz](double time) { return tone(hertz, time); });
    return player.unit.getOutputValues("reduction")->load();
  };
  // The peak of the sound is 24 dB above the threshold; a fourth of that stays.
  EXPECT_NEAR(reductionFor(90), 0.75 * 23, 1.5);
  EXPECT_EQ(reductionFor(4000), 0);
}

TEST(SelvikTest, StepsAsideForTheSideChainOnceItIsTold) {
  SelvikPlayer player;
  player.set({{"threshold", -30}});
  std::vector<float> sound(256, 0.001f), loud(256);
  for (std::size_t i = 0; i < 256; ++i) loud[i] = static_cast<float>(tone(1000, i / 48000.0));
  float* out[2] = {sound.data(), sound.data()};
  const float *in[2] = {sound.data(), sound.data()}, *chain[2] = {loud.data(), loud.data()};
  const auto reduction = [&](float external, bool isConnected) {
    player.set({{"external", external}});
    platform::RenderBlock block{in, {}, out, 256, {}, {}};
    if (isConnected) block.sideChain = chain;
    for (int i = 0; i < 20; ++i) player.unit.render(block);
    return player.unit.getOutputValues("reduction")->load();
  };
  EXPECT_EQ(reduction(0, true), 0);
  EXPECT_GT(reduction(1, true), 10);
  EXPECT_EQ(reduction(1, false), 0) << "it has only itself to listen to";
}

TEST(SelvikTest, ComesBackInItsReleaseTime) {
  SelvikPlayer player;
  player.set({{"threshold", -40}, {"ratio", 20}, {"release", 300}, {"feedback", 95}, {"mix", 100}});
  const auto* reduction = player.unit.getOutputValues("reduction");
  player.play(1, [](double time) { return tone(300, time); });
  const float held = *reduction;
  player.play(0.3, [](double) { return 0.0; });
  EXPECT_NEAR(held - *reduction, 8.7, 1) << "a time constant is 8.7 dB";
  player.play(2, [](double) { return 0.0; });
  EXPECT_EQ(*reduction, 0);
}

TEST(SelvikTest, LetsHearWhatItListensTo) {
  SelvikPlayer player;
  player.set({{"SidechainLowPassFrequency", 300}, {"listen", 1}, {"mix", 0}});
  player.play(0.5, [](double time) { return tone(6000, time); });
  EXPECT_LT(player.rms(0.2, 0.5), 0.003);
  // The switch is a short fade.
  player.unit.setParameter("listen", 0);
  player.play(0.5, [](double time) { return tone(6000, time); });
  EXPECT_NEAR(player.rms(0.8, 1), 0.354, 0.01);
}

TEST(SelvikTest, StaysFiniteWithoutAllocatingInAStormOfValues) {
  std::mt19937 random(5);
  for (double rate : {22050.0, 48000.0, 192000.0}) {
    SelvikPlayer player(rate);
    player.unit.hasUI(true);
    player.unit.seedRandomize(9);
    const auto& all = player.unit.parameterTree().allParameters();
    std::vector<float> left(256), right(256);
    float* both[2] = {left.data(), right.data()};
    const float* in[2] = {left.data(), right.data()};
    platform::RenderBlock block;
    block.inputs = in;
    block.outputs = both;
    block.frames = 256;
    float loudest = 0;
    for (int i = 0; i < 800; ++i) {
      platform::AUParameter& parameter = *all[random() % all.size()];
      parameter.setValue(i % 3 ? parameter.maxValue() : parameter.minValue());
      block.transport.tempo = i % 7 ? 120 : std::nan("");
      for (std::size_t n = 0; n < 256; ++n)
        left[n] = right[n] = static_cast<float>(random() % 2000) / 1000.0f - 1;
      support::AllocationCounter counter;
      player.unit.render(block);
      EXPECT_EQ(counter.count(), 0u);
      for (float sample : left) loudest = std::max(loudest, std::abs(sample));
      ASSERT_TRUE(std::isfinite(loudest)) << rate;
    }
    EXPECT_LT(loudest, 200) << rate;
  }
}

TEST(SelvikTest, ItsTailIsThatOfItsSettings) {
  const struct {
    std::map<std::string, float> values;
    double shortest;
  } cases[] = {{{{"time", 200}, {"sync", 0}, {"feedback", 0}}, 0.19},
               {{{"time", 100}, {"sync", 0}, {"feedback", 80}}, 2},
               {{{"sync", 1}, {"division", 8}, {"feedback", 50}}, 3},
               {{{"time", 100}, {"sync", 0}, {"feedback", 95}, {"lowCut", 9000}}, 0.5},
               {{{"mix", 0}}, 0}};
  for (const auto& [values, shortest] : cases) {
    SelvikPlayer player(22050);
    player.set({{"threshold", 0}, {"mix", 100}});
    player.set(values);
    player.play(0.05, [](double time) { return tone(3000, time); });
    player.play(8, [](double) { return 0.0; });
    std::size_t last = player.left.size();
    while (std::abs(player.left[last - 1]) < 0.0005f) --last;
    const double heard = static_cast<double>(last) / player.sampleRate - 0.055;
    EXPECT_LE(heard, player.unit.tailSeconds() + 0.01) << shortest;
    EXPECT_GE(player.unit.tailSeconds(), shortest);
    EXPECT_LE(player.unit.tailSeconds(), 2 * heard + 0.1) << shortest;
  }
}

TEST(SelvikTest, SoundsOnAfterASampleThatIsNoNumber) {
  for (const double bad : {std::nan(""), HUGE_VAL, 1e38}) {
    SelvikPlayer player;
    player.set({});
    player.play(0.5, [&](double time) { return time == 0 ? bad : tone(1000, time); });
    EXPECT_NEAR(player.rms(0.2, 0.5), 0.354, 0.1);
  }
}

TEST(SelvikTest, EveryPresetEchoesAndEveryParameterHasAControl) {
  support::ManualLoop loop;
  const auto unit = pluginEntry().createAudioUnit();
  const auto editor = pluginEntry().createViewController();
  editor->setAudioUnit(unit.get());
  support::EditorWindow window({900, 540});
  window.show(*editor);
  std::set<std::string> shown;
  for (const auto& [key, container] : editor->controls().controls())
    for (const auto& driven : container->paramKeys()) shown.insert(driven->key());
  for (const std::string& key : unit->parametersKeys()) EXPECT_TRUE(shown.count(key)) << key;
  for (float sync : {1.0f, 0.0f}) {
    unit->setParameter("sync", sync);
    loop.settle();
    EXPECT_EQ(editor->container("time")->isHidden(), sync == 1);
    EXPECT_EQ(editor->container("division")->isHidden(), sync == 0);
  }

  SelvikPlayer player;
  for (const auto& preset : player.unit.factoryPresets()) {
    player.unit.setCurrentPreset(preset.number);
    player.set({});
    player.left.clear();
    player.play(0.1, [](double time) { return tone(1000, time); });
    player.play(2, [](double) { return 0.0; });
    EXPECT_GT(player.rms(0.11, 2), 0.003) << preset.name;
  }
}

}  // namespace
}  // namespace selvik
