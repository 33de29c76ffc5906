#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Orvane/HostPresetFolder.h"
#include "Orvane/PluginEntry.h"
#include "backends/lv2/PortLayout.h"

namespace lv2_backend {

/// What is said of one preset, a factory's or a user's.
struct PresetStatement {
  /// In angle brackets; the bank's may be empty.
  std::string address, plugin, bank;
  std::string name;
  /// What stands beside the ports; see PluginState.h.
  std::string state;
  /// By symbol.
  std::vector<std::pair<std::string, float>> values;
};
std::string turtleOf(const PresetStatement& preset);

/// The bundle in which LV2 hosts find the user's presets of a plug-in; empty for a user without a home.
std::string userPresetBundle(const orvane::PluginEntry& entry);

/// The user's presets as a bundle. `audioUnit` is only looked at now.
orvane::HostPresetFolder::Form userPresetForm(const orvane::PluginEntry& entry,
                                              platform::AudioUnit& audioUnit);

}  // namespace lv2_backend
