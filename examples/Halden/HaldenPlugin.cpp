#include "examples/Halden/HaldenPlugin.h"

#include "examples/Halden/HaldenAudioUnit.h"
#include "examples/Halden/HaldenViewController.h"

namespace halden {
namespace {

constexpr std::uint32_t code(const char (&text)[5]) {
  std::uint32_t value = 0;
  for (int i = 0; i < 4; ++i) value = value << 8 | static_cast<unsigned char>(text[i]);
  return value;
}

}  // namespace

const orvane::PluginEntry& pluginEntry() {
  static const orvane::PluginEntry entry = [] {
    orvane::PluginEntry e;
    e.identifier = "org.orvane.halden";
    e.name = "Halden";
    e.version = "1.0.0";
    e.description = "Polyphonic subtractive synthesiser";
    e.manufacturer = "Orvane";
    e.component = {code("aumu"), code("Hldn"), code("Orvn")};
    e.makeAudioUnit = [] { return std::make_unique<HaldenAudioUnit>(); };
    e.makeViewController = [] { return std::make_unique<HaldenViewController>(); };
    e.preferredSize = {1024, 696};
    return e;
  }();
  return entry;
}

}  // namespace halden
