#include "tests/support/OddPlugin.h"

#include <algorithm>

#include "tests/support/TestEditor.h"

namespace support {
namespace {

namespace Flags = platform::AudioUnitParameterFlags;
using Unit = platform::AudioUnitParameterUnit;

std::vector<quillon::ParameterDescription> parameters() {
  return {
      {.key = "level", .address = 10, .displayName = "Level", .defaultValue = 0.25f},
      {.key = "cutoff",
       .address = 11,
       .displayName = "Cut\"off\\",
       .minValue = 20,
       .maxValue = 20000,
       .defaultValue = 632.4555f,
       .unit = Unit::hertz,
       .publishesLive = true},
      {.key = "wave form",
       .address = 12,
       .displayName = "Wellenform \u00e4",
       .maxValue = 3,
       .defaultValue = 1,
       .unit = Unit::indexed,
       .valueStrings = {"S\u00e4ge", "Sq\"uare", "Same", "Same"}},
      {.key = "sync", .address = 13, .displayName = "Sync", .unit = Unit::boolean},
      {.key = "1semi",
       .address = 14,
       .displayName = "Semi\nTones",
       .minValue = -12,
       .maxValue = 12,
       .unit = Unit::relativeSemiTones},
      {.key = "twin-a", .address = 15, .unit = Unit::milliseconds},
      {.key = "twin+a", .address = 16, .maxValue = 1e-4f, .unit = Unit::seconds},
      {.key = "maxBlock",
       .address = 17,
       .displayName = "Longest block",
       .maxValue = 100000,
       .flags = Flags::readable},
  };
}

std::vector<quillon::PresetDescription> presets() {
  return {
      {{0, "First \u201cquoted\u201d", "Bank & Co"}, {{"level", 0.5f}, {"wave form", 2}}},
      {{5, "No bank", ""}, {{"cutoff", 100}}},
  };
}

std::shared_ptr<GivenDesign> oddDesign() {
  auto design = std::make_shared<GivenDesign>();
  design->addPage("ONE", {section("TONE", {"level", "unknown key"}),
                          section("TONE", {"cutoff"}, "sync"), section("EMPTY", {})});
  design->addPage("TWO", {section("TONE", {"1semi", "level"}), section("", {"wave form"})});
  design->givenKeys = {paramKey("1semi", kestroui::ControlType::knob, {"twin-a"})};
  return design;
}

}  // namespace

OddAudioUnit::OddAudioUnit()
    : CommonAudioUnit(parameters(), presets()), scope_(addLiveBuffer("level", 4096)) {}

void OddAudioUnit::allocateRenderResources(double sampleRate, std::uint32_t maximumFrames) {
  CommonAudioUnit::allocateRenderResources(sampleRate, maximumFrames);
  parameterTree().at(maxBlock).setValue(0);
}

void OddAudioUnit::render(const platform::RenderBlock& block) {
  auto& longest = parameterTree().at(maxBlock);
  longest.setValue(std::max(longest.value(), static_cast<float>(block.frames)));
  std::fill_n(block.outputs[0], block.frames, value(level));
  std::fill_n(block.outputs[1], block.frames, static_cast<float>(block.transport.beatPosition));
  for (const platform::MidiEvent& event : block.midi)
    if (event.size == 3 && (event.bytes[0] & 0xf0) == 0x90)
      block.outputs[0][event.frame] += 1 + static_cast<float>(event.bytes[2]);
  if (value(sync) > 0.5f) scope_.append({block.outputs[0], block.frames});
  publishLive(cutoff, value(cutoff) * 2);
  publishModulating(cutoff, isUIVisible() && value(semitones) == 0);
}

void OddAudioUnit::hasUI(bool visible) {
  CommonAudioUnit::hasUI(visible);
  isWatched = visible;
}

const orvane::PluginEntry& oddPluginEntry() {
  static const orvane::PluginEntry entry = [] {
    orvane::PluginEntry e;
    e.identifier = "org.orvane.odd plug\u00e4";
    e.name = "Odd \"Plug\"\\";
    e.version = "2.13.4";
    e.description = "Says \u00abwhat\u00bb reached it";
    e.manufacturer = "A & B <c>";
    e.makeAudioUnit = [] { return std::make_unique<OddAudioUnit>(); };
    e.makeViewController = [] { return std::make_unique<TestController>(oddDesign()); };
    return e;
  }();
  return entry;
}

}  // namespace support
