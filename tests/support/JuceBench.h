#pragma once

#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "Orvane/PluginEntry.h"
#include "tests/support/TestEditor.h"

namespace support {

/// An audio unit that keeps what it was asked to render.
class RenderLog : public quillon::CommonAudioUnit {
 public:
  struct Block {
    std::uint32_t frames;
    std::vector<std::pair<std::uint32_t, int>> notes;
    double beatPosition;
  };

  RenderLog()
      : CommonAudioUnit(
            {{.key = "cutoff",
              .address = 7,
              .displayName = "Cutoff",
              .minValue = 20,
              .maxValue = 20000,
              .defaultValue = 200,
              .unit = platform::AudioUnitParameterUnit::hertz},
             {.key = "wave",
              .address = 3,
              .displayName = "Wave",
              .maxValue = 2,
              .unit = platform::AudioUnitParameterUnit::indexed,
              .valueStrings = {"Sine", "Saw", "Noise"}},
             {.key = "on", .address = 4, .unit = platform::AudioUnitParameterUnit::boolean},
             {.key = "mix",
              .address = 9,
              .displayName = "Mix",
              .maxValue = 100,
              .defaultValue = 25,
              .unit = platform::AudioUnitParameterUnit::percent}},
            {{{.number = 10, .name = "Init"}, {}},
             {{.number = 20, .name = "Loud"}, {{"mix", 90}}}}) {
    blocks.reserve(64);
  }

  bool acceptsMidi() const override { return true; }
  double tailSeconds() const override { return 1.5; }
  int latencyFrames() const override { return 32; }
  void render(const platform::RenderBlock& block) override {
    if (logs) {
      Block entry{block.frames, {}, block.transport.beatPosition};
      for (const platform::MidiEvent& event : block.midi)
        entry.notes.emplace_back(event.frame, event.bytes[1]);
      const std::lock_guard lock(mutex_);
      blocks.push_back(std::move(entry));
    }
    CommonAudioUnit::render(block);
  }
  /// The notes so far, also while a device renders.
  std::vector<int> notes() {
    const std::lock_guard lock(mutex_);
    std::vector<int> result;
    for (const Block& block : blocks)
      for (const auto& [frame, note] : block.notes) result.push_back(note);
    return result;
  }

  bool logs = true;
  /// For who renders it by itself.
  std::vector<Block> blocks;

 private:
  std::mutex mutex_;
};

/// A plug-in of one page with all parameters of a RenderLog.
inline orvane::PluginEntry renderLogEntry() {
  orvane::PluginEntry entry;
  entry.identifier = "org.example.renderlog";
  entry.name = "Render log";
  entry.preferredSize = {600, 400};
  entry.makeAudioUnit = [] { return std::make_unique<RenderLog>(); };
  entry.makeViewController = [] {
    auto design = std::make_shared<GivenDesign>();
    design->addPage("Main", {section("All", {"cutoff", "wave", "on", "mix"})});
    for (const char* key : {"cutoff", "mix"})
      design->givenKeys.push_back(paramKey(key, kestroui::ControlType::knob));
    design->givenKeys.push_back(paramKey("wave", kestroui::ControlType::radioButtons));
    design->givenKeys.push_back(paramKey("on", kestroui::ControlType::onOff));
    return std::make_unique<TestController>(std::move(design));
  };
  return entry;
}

}  // namespace support
