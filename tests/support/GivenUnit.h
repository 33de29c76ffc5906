#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "Orvane/PluginEntry.h"
#include "Quillon/CommonAudioUnit.h"
#include "tests/support/TestEditor.h"

namespace support {

/// A plug-in that passes its inputs on, of any number of channels.
class GivenUnit : public quillon::CommonAudioUnit {
 public:
  struct Channels {
    int inputs, outputs;
    bool midi = false;
    int sideChain = 0;
  };

  explicit GivenUnit(Channels channels, std::vector<quillon::ParameterDescription> parameters = {})
      : CommonAudioUnit(std::move(parameters)), channels_(channels) {}

  int inputChannels() const override { return channels_.inputs; }
  int outputChannels() const override { return channels_.outputs; }
  int sideChainChannels() const override { return channels_.sideChain; }
  bool acceptsMidi() const override { return channels_.midi; }
  /// More than any range holds.
  float defaultValueForKey(std::string_view) const override { return 1e9f; }

 private:
  Channels channels_;
};

/// An entry of a plug-in with an empty design.
inline orvane::PluginEntry entryOf(
    std::function<std::unique_ptr<platform::AudioUnit>()> makeAudioUnit) {
  orvane::PluginEntry entry;
  entry.identifier = "org.orvane.given";
  entry.name = "Given";
  entry.version = "2.13.4";
  entry.makeAudioUnit = std::move(makeAudioUnit);
  entry.makeViewController = [] {
    return std::make_unique<TestController>(std::make_shared<GivenDesign>());
  };
  return entry;
}

}  // namespace support
