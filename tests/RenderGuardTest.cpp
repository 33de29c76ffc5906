// What stands between a format and an audio unit, by itself and before every plug-in of the examples.

#include "Quillon/RenderGuard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "Quillon/CommonAudioUnit.h"
#include "examples/Gallery/GalleryPlugin.h"
#include "examples/Halden/HaldenPlugin.h"
#include "examples/Selvik/SelvikPlugin.h"
#include "tests/support/AllocationCounter.h"

const orvane::PluginEntry& orvanePluginEntry();

namespace {

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float denormal = std::numeric_limits<float>::denorm_min();
constexpr std::uint32_t frames = 64;

/// An audio unit behind a guard, and the host's buffers.
struct Bench {
  explicit Bench(platform::AudioUnit& unit) : guard(unit) {
    unit.allocateRenderResources(48000, frames);
    guard.allocate(48000, frames);
    for (std::size_t i = 0; i < 2; ++i) {
      inputs[i] = in[i].data();
      outputs[i] = out[i].data();
    }
    block.inputs = {inputs.data(), static_cast<std::size_t>(unit.inputChannels())};
    block.outputs = outputs;
    block.frames = frames;
  }
  /// The loudest sample that comes out; not finite when one is not.
  float loudest() {
    const support::AllocationCounter counter;
    guard.render(block);
    EXPECT_EQ(counter.count(), 0u);
    float result = 0;
    for (const auto& channel : out)
      for (const float sample : channel)
        if (!(std::abs(sample) <= result)) result = std::abs(sample);
    return result;
  }

  quillon::RenderGuard guard;
  std::array<std::array<float, frames>, 2> in{}, out{};
  std::array<const float*, 2> inputs{};
  std::array<float*, 2> outputs{};
  platform::RenderBlock block;
};

TEST(RenderGuardTest, OnlySoundReachesAnAudioUnitAndTheHost) {
  struct Unit : quillon::CommonAudioUnit {
    Unit() : CommonAudioUnit({}) {}
    void render(const platform::RenderBlock& block) override {
      std::copy_n(block.inputs[0], frames, heard.begin());
      tempo = block.transport.tempo;
      beat = block.transport.beatPosition;
      CommonAudioUnit::render(block);
      if (made != 0) block.outputs[1][5] = made;
    }
    std::array<float, frames> heard{};
    double tempo = 0, beat = 0;
    float made = 0;
  } unit;
  Bench bench(unit);
  bench.in[0].fill(0.25f);
  for (const float bad : {nan, -infinity, 1e30f, -2e6f}) {
    bench.in[0][3] = bad;
    bench.block.transport = {double{nan}, double{infinity}, true};
    EXPECT_EQ(bench.loudest(), 0.25f);
    EXPECT_EQ(unit.heard[2], 0.25f);
    EXPECT_EQ(unit.heard[3], 0);
    EXPECT_FALSE(bench.in[0][3] == 0) << "the host's own";
    EXPECT_EQ(unit.tempo, 120);
    EXPECT_EQ(unit.beat, 0);
    unit.made = bad;
    EXPECT_EQ(bench.loudest(), 0.25f);
    EXPECT_EQ(bench.out[1][5], 0);
    unit.made = 0;
  }
  bench.in[0][3] = 9e5f;
  EXPECT_EQ(bench.loudest(), 9e5f) << "loud, but sound";
}

/// Gives out twice what goes in on the left, and what it follows on the right.
struct FollowingUnit : quillon::CommonAudioUnit {
  FollowingUnit() : CommonAudioUnit({}) {}
  int sideChainChannels() const override { return 2; }
  int latencyFrames() const override { return latency; }
  void render(const platform::RenderBlock& block) override {
    for (std::uint32_t i = 0; i < block.frames; ++i) {
      const float left = block.inputs[0][i];
      block.outputs[0][i] = 2 * left;
      block.outputs[1][i] = block.sideChain.empty() ? block.inputs[1][i]
                                                    : block.sideChain[0][i] + block.sideChain[1][i];
    }
  }
  int latency = 0;
};

TEST(RenderGuardTest, OfASingleChannelEveryOtherIsMadeAndBecomesOneAgain) {
  FollowingUnit unit;
  Bench bench(unit);
  // In place: the right of the outputs is where the side chain comes in.
  bench.out[0].fill(0.25f);
  bench.out[1].fill(0.5f);
  const std::array<const float*, 2> in{bench.out[0].data(), bench.out[1].data()};
  bench.block.inputs = std::span(in).first(1);
  bench.block.sideChain = std::span(in).subspan(1);
  EXPECT_EQ(bench.loudest(), 1);
  EXPECT_EQ(bench.out[0][9], 0.5f);
  EXPECT_EQ(bench.out[1][9], 1) << "both sides of the side chain";

  bench.out[0].fill(0.25f);
  bench.block.sideChain = {};
  bench.block.outputs = std::span(bench.outputs).first(1);
  bench.loudest();
  EXPECT_EQ(bench.out[0][9], (0.5f + 0.25f) / 2);
}

TEST(RenderGuardTest, BypassFadesToTheSoundBeforeWhichIsAsLateAsTheAudioUnit) {
  FollowingUnit unit;
  unit.latency = 3;
  Bench bench(unit);
  float next = 0, last = 0, largestStep = 0;
  const auto play = [&](int blocks, bool bypassed) {
    for (int block = 0; block < blocks; ++block) {
      for (float& sample : bench.in[0]) sample = next += 0.0001f;
      bench.guard.render(bench.block, bypassed);
      for (const float sample : bench.out[0]) {
        largestStep = std::max(largestStep, std::abs(sample - last));
        last = sample;
      }
    }
  };
  play(2, false);
  EXPECT_FLOAT_EQ(last, 2 * next);
  play(1, true);
  EXPECT_GT(last, next) << "still fading";
  play(20, true);
  EXPECT_NEAR(last, next - 0.0003f, 1e-5);
  play(20, false);
  EXPECT_FLOAT_EQ(last, 2 * next);
  EXPECT_LT(largestStep, 0.002f);

  bench.guard.allocate(48000, frames);
  play(1, true);
  EXPECT_NEAR(last, next - 0.0003f, 1e-5) << "a host that begins so hears no fade";
}

TEST(RenderGuardTest, EveryPluginSoundsOnAfterWhatIsNoNumber) {
  for (const orvane::PluginEntry* entry : {&orvanePluginEntry(), &gallery::pluginEntry(),
                                           &selvik::pluginEntry(), &halden::pluginEntry()}) {
    const auto unit = entry->createAudioUnit();
    const platform::MidiEvent note{0, {0x90, 60, 100}, 3};
    for (const float bad : {nan, infinity, -infinity, 1e38f, 9e5f, denormal}) {
      SCOPED_TRACE(entry->name + " and " + std::to_string(bad));
      Bench bench(*unit);
      const auto before = unit->fullState();
      for (platform::AUParameter* parameter : unit->parameterTree().allParameters())
        parameter->setValue(bad);
      unit->hasUI(true);
      for (int block = 0; block < 40; ++block) {
        for (auto& channel : bench.in) channel.fill(bad);
        bench.block.transport = {double{bad}, double{bad}, true};
        ASSERT_TRUE(std::isfinite(bench.loudest()));
      }
      unit->setFullState(before);
      bench.block.transport = {};
      float after = 0;
      for (int block = 0; block < 400; ++block) {
        for (auto& channel : bench.in) channel.fill(block % 2 ? 0.5f : -0.5f);
        bench.block.midi = {&note, block == 40 ? 1u : 0u};
        const float loudest = bench.loudest();
        ASSERT_TRUE(std::isfinite(loudest));
        if (block > 40) after = std::max(after, loudest);
      }
      EXPECT_GT(after, 0.01f);
    }
  }
}

}  // namespace
