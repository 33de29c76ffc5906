#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "Orvane/AUFilterViewContainer.h"
#include "backends/headless/HeadlessHost.h"
#include "examples/Halden/HaldenAudioUnit.h"
#include "examples/Halden/HaldenPlugin.h"
#include "examples/Halden/MonitorContainer.h"

namespace halden {
namespace {

std::vector<float> sineWave(double hertz, double sampleRate, float level = 1) {
  std::vector<float> samples(Spectrum::length);
  for (std::size_t i = 0; i < samples.size(); ++i)
    samples[i] = level * static_cast<float>(std::sin(2 * 3.14159265358979 * hertz *
                                                     static_cast<double>(i) / sampleRate));
  return samples;
}

std::size_t bandOf(double hertz) {
  return static_cast<std::size_t>(std::log(hertz / 20) / std::log(1000.0) * Spectrum::bandCount);
}

TEST(HaldenSpectrumTest, ShowsASineAtItsPitchAndLevel) {
  for (double rate : {44100.0, 96000.0}) {
    for (double hertz : {110.0, 1000.0, 12000.0}) {
      Spectrum spectrum;
      EXPECT_TRUE(spectrum.read(sineWave(hertz, rate, 0.5f), rate));
      const auto& levels = spectrum.levels();
      const auto loudest = std::max_element(levels.begin(), levels.end());
      EXPECT_NEAR(static_cast<double>(loudest - levels.begin()), bandOf(hertz), 1.01) << hertz;
      EXPECT_NEAR(*loudest, -6, 1.5) << hertz;
      EXPECT_LT(levels[bandOf(hertz / 2.5)], *loudest - 35) << hertz;
    }
  }
}

TEST(HaldenSpectrumTest, FallsToSilenceAndRestsThere) {
  Spectrum spectrum;
  const std::vector<float> silence(Spectrum::length);
  EXPECT_FALSE(spectrum.read(silence, 48000));
  spectrum.read(sineWave(1000, 48000), 48000);
  int readings = 0;
  while (spectrum.read(silence, 48000)) ++readings;
  EXPECT_GT(readings, 40);
  EXPECT_LT(readings, 80);
  // Too few samples, and none that is a number.
  EXPECT_TRUE(spectrum.read(std::vector<float>(Spectrum::length / 2, 1.0f), 48000));
  spectrum.read(std::vector<float>(Spectrum::length, std::nanf("")), 48000);
  for (float level : spectrum.levels()) EXPECT_TRUE(std::isfinite(level));
}

class HaldenMonitorTest : public testing::Test {
 protected:
  HaldenMonitorTest() {
    host.appear();
    unit().allocateRenderResources(48000, 512);
  }

  HaldenAudioUnit& unit() { return dynamic_cast<HaldenAudioUnit&>(*host.editor().audioUnit()); }
  MonitorContainer& monitor() {
    return dynamic_cast<MonitorContainer&>(*host.editor().container("scopeTime"));
  }
  void play(double seconds, bool key) {
    std::vector<float> left(512), right(512);
    float* outputs[2] = {left.data(), right.data()};
    const platform::MidiEvent note{0, {key ? std::uint8_t{0x90} : std::uint8_t{0x80}, 60, 100}, 3};
    platform::RenderBlock block;
    block.outputs = outputs;
    block.frames = 512;
    block.midi = {&note, 1};
    for (double t = 0; t < seconds; t += 512 / 48000.0) {
      unit().render(block);
      block.midi = {};
      loop.advance(512 / 48000.0);
    }
  }

  headless::HeadlessRunLoop loop;
  headless::HeadlessHost host{loop, pluginEntry()};
};

TEST_F(HaldenMonitorTest, TheMenuBarChoosesWhatItShows) {
  EXPECT_EQ(host.editor().menuBar().displays().size(), 3u);
  for (int index : {1, 2, 0}) {
    host.editor().menuBar().delegate->menuBarDidChangeDisplay(index);
    EXPECT_EQ(monitor().mode(), static_cast<MonitorMode>(index));
    // One face at a time, in the same place.
    int shown = 0;
    for (toolkit::View* face : monitor().subviews())
      if (!face->isHidden() && face->frame().width > 0.5 * monitor().bounds().width) ++shown;
    EXPECT_EQ(shown, 1) << index;
    play(0.1, true);
    play(0.1, false);
  }
  // The same audio unit connected again keeps what is shown.
  host.editor().menuBar().delegate->menuBarDidChangeDisplay(1);
  host.editor().connectViewWithAU();
  EXPECT_EQ(monitor().mode(), MonitorMode::spectrum);
  play(0.1, true);
}

TEST_F(HaldenMonitorTest, TheFilterViewShowsTheTypeThatIsChosen) {
  auto& view = dynamic_cast<orvane::AUFilterViewContainer&>(*host.editor().container("cutoff"));
  for (float type : {3.0f, 0.0f, 2.0f}) {
    unit().setParameter("filterType", type);
    loop.advance(0.05);
    EXPECT_EQ(
        view.filterView().filterMagnitudes(),
        unit().magnitudesForFrequencies(view.filterView().frequencies(), "", "cutoff", "resonance"))
        << type;
  }
}

}  // namespace
}  // namespace halden
