// Controls of many kinds at once, all moved by the sound.

#include <cmath>
#include <string>
#include <vector>

#include "benchmarks/EventLoop.h"
#include "benchmarks/Measure.h"
#include "benchmarks/Rows.h"

namespace bench {
namespace {

using kestroui::ControlType;

constexpr int columns = 8, rows = 4;
constexpr std::size_t keysOfOne = 4;
constexpr std::uint32_t frameSamples = 800;

// Half of them are what most editors are made of.
constexpr ControlType kinds[] = {
    ControlType::knob,
    ControlType::filter,
    ControlType::slider,
    ControlType::adsr,
    ControlType::knob,
    ControlType::compressor,
    ControlType::slider,
    ControlType::oscilloscope,
    ControlType::knob,
    ControlType::waveshaper,
    ControlType::waveformKnob,
    ControlType::phaser,
    ControlType::knob,
    ControlType::xyControl,
    ControlType::slider,
    ControlType::granulizer,
    ControlType::knob,
    ControlType::zorva,
    ControlType::led,
    ControlType::bandCompressor,
    ControlType::knob,
    ControlType::simpleCurve,
    ControlType::slider,
    ControlType::doubleSlider,
    ControlType::knob,
    ControlType::wavetable,
    ControlType::multiple,
    ControlType::tableWaveshaper,
    ControlType::knob,
    ControlType::doubleFilter,
    ControlType::mutableControl,
    ControlType::curveSequencer,
};
static_assert(std::size(kinds) == columns * rows);

std::string mixedKey(std::size_t control, std::size_t key) {
  return "c" + std::to_string(control) + "k" + std::to_string(key);
}

std::vector<quillon::ParameterDescription> descriptions() {
  std::vector<quillon::ParameterDescription> result;
  for (std::size_t control = 0; control < std::size(kinds); ++control)
    for (std::size_t key = 0; key < keysOfOne; ++key)
      result.push_back({.key = mixedKey(control, key),
                        .address = result.size(),
                        .displayName = "Value",
                        .defaultValue = benchValue(static_cast<int>(result.size())),
                        .publishesLive = true});
  return result;
}

class MixedAudioUnit : public quillon::CommonAudioUnit {
 public:
  MixedAudioUnit() : CommonAudioUnit(descriptions()) {
    for (std::size_t control = 0; control < std::size(kinds); ++control)
      if (kinds[control] == ControlType::oscilloscope)
        scopes_.push_back(&addLiveBuffer(mixedKey(control, 0), 4096));
  }

  void modulate(int step) {
    for (std::size_t i = 0; i < parameterTree().allParameters().size(); ++i) {
      publishLive(i, benchValue(step + static_cast<int>(i)));
      publishModulating(i, true);
    }
    for (quillon::LiveRing* scope : scopes_)
      for (std::uint32_t i = 0; i < frameSamples; ++i)
        scope->append(std::sin(phase_ += 0.013f + 0.002f * benchValue(step)));
  }

 private:
  std::vector<quillon::LiveRing*> scopes_;
  float phase_ = 0;
};

class MixedDesign : public orvane::AUDesign {
 public:
  std::vector<std::shared_ptr<orvane::Page>> pages() const override {
    std::vector<orvane::UIColumn> page(columns);
    for (std::size_t control = 0; control < std::size(kinds); ++control)
      page[control % columns].params.emplace_back(
          mixedKey(control, 0), std::vector<std::optional<std::string>>{}, 1, 0, 1);
    const auto section =
        std::make_shared<orvane::Section>(std::move(page), "ALL", platform::Color::rgb(0x4ea1ff),
                                          std::nullopt, std::nullopt, false, true);
    return {std::make_shared<orvane::Page>(std::vector<orvane::UISection>{{section, 1, 0, 1, 0}},
                                           "ALL")};
  }
  std::vector<std::shared_ptr<kestroui::ParamKey>> paramKeys() const override {
    std::vector<std::shared_ptr<kestroui::ParamKey>> result;
    for (std::size_t control = 0; control < std::size(kinds); ++control) {
      kestroui::ParameterUISettings settings;
      settings.displayName = "Control";
      settings.controlType = kinds[control];
      for (std::size_t key = 1; key < keysOfOne; ++key)
        settings.attachedParameters.push_back(mixedKey(control, key));
      result.push_back(
          std::make_shared<kestroui::ParamKey>(mixedKey(control, 0), std::move(settings)));
    }
    return result;
  }
};

class MixedController : public orvane::KestroAUViewController {
 public:
  explicit MixedController(MixedAudioUnit& unit) { setAudioUnit(&unit); }
  std::shared_ptr<orvane::AUDesign> design() override { return std::make_shared<MixedDesign>(); }
};

/// In a window of this size, from the change to the painted screen.
double mixedFrame(int windowWidth, int windowHeight) {
  MixedAudioUnit unit;
  OffscreenWindow window{windowWidth, windowHeight, scale};
  juce_backend::EditorComponent editor([&] { return std::make_unique<MixedController>(unit); });
  window.show(editor);
  window.paintNow();
  std::vector<double> frames;
  for (int step = 1; step <= 40; ++step)
    frames.push_back(worked([&] {
      unit.modulate(step);
      runLoopUntil([&] { return window.isDirty(); });
      window.paintNow();
    }));
  return median(frames);
}

}  // namespace

void addMixedRows(Report& report) {
  report.add({.key = "mixedFrame",
              .title = "  of 32 controls of many kinds, as large as these",
              .unit = "ms",
              .ours = mixedFrame(width * 2 / 5, height * 2 / 5),
              .goal = 4,
              .goalFor = Row::Goal::figure});
  // What costs then are the pixels: nearly all of them change.
  report.add({.key = "mixedFrameLarge",
              .title = "  of 32 controls that fill 1024x768",
              .unit = "ms",
              .ours = mixedFrame(width, height)});
}

}  // namespace bench
