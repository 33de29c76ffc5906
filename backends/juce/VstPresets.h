#pragma once

#include <cstdint>
#include <string>

#include "Orvane/HostPresetFolder.h"
#include "Orvane/PluginEntry.h"

namespace juce_backend {

/// Where VST3 hosts look for the presets of a plug-in; empty for a user without a home.
std::string vstPresetFolder(const orvane::PluginEntry& entry);

/// The user's presets as .vstpreset files, of the component with which JUCE answers for these
/// four-character codes.
orvane::HostPresetFolder::Form vstPresetForm(std::uint32_t manufacturerCode,
                                             std::uint32_t pluginCode);

}  // namespace juce_backend
