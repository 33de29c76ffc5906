#include <cmath>

#include "Orvane/KestroAUViewController.h"
#include "Orvane/PluginEntry.h"
#include "Quillon/CommonAudioUnit.h"
#include "Quillon/Smoother.h"

using namespace orvane;

// The sound: two parameters and a render function.
class GainAudioUnit : public quillon::CommonAudioUnit {
 public:
  GainAudioUnit()
      : CommonAudioUnit({{.key = "gain",
                          .address = 0,
                          .displayName = "Gain",
                          .minValue = -60,
                          .maxValue = 12,
                          .unit = platform::AudioUnitParameterUnit::decibels},
                         {.key = "mute",
                          .address = 1,
                          .displayName = "Mute",
                          .unit = platform::AudioUnitParameterUnit::boolean}}) {}

  void allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) override {
    CommonAudioUnit::allocateRenderResources(sampleRate, maximumFrames);
    level_.reset(sampleRate, 0.02, 0);
  }

  void render(const platform::RenderBlock& block) override {
    level_.setTarget(value(1) > 0.5f ? 0 : std::pow(10.0f, value(0) / 20));
    for (std::uint32_t frame = 0; frame < block.frames; ++frame) {
      const float level = level_.next();
      for (std::size_t c = 0; c < block.outputs.size(); ++c)
        block.outputs[c][frame] = block.inputs[c][frame] * level;
    }
  }

 private:
  quillon::Smoother level_;  // a jump of the knob is a short fade
};

// The editor: one page, one section, a knob and a switch. The rest comes from the library.
class GainDesign : public AUDesign {
 public:
  std::vector<std::shared_ptr<Page>> pages() const override {
    const std::vector<UIColumn> columns{{{{"gain", {}, 1, 0, 1}}, 2}, {{{"mute", {}, 1, 0, 1}}, 1}};
    const auto section = std::make_shared<Section>(
        columns, "OUTPUT", platform::Color::rgb(0x4fc1b6), std::nullopt, std::nullopt, false, true);
    return {std::make_shared<Page>(std::vector<UISection>{{section, 1, 0, 1, 0}}, "")};
  }
};

class GainViewController : public KestroAUViewController {
  std::shared_ptr<AUDesign> design() override { return std::make_shared<GainDesign>(); }
};

// What a host asks for first.
const PluginEntry& orvanePluginEntry() {
  static const PluginEntry entry{"org.orvane.gain",
                                 "Gain",
                                 "1.0.0",
                                 "The smallest plug-in",
                                 "Orvane",
                                 {},
                                 [] { return std::make_unique<GainAudioUnit>(); },
                                 [] { return std::make_unique<GainViewController>(); },
                                 {480, 320}};
  return entry;
}
