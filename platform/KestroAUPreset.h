#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/AudioUnit.h"

namespace platform {

/// An audio unit's record of a factory preset, as the list of presets takes it.
struct KestroAUPreset {
  explicit KestroAUPreset(AUAudioUnitPreset unitPreset)
      : preset(std::move(unitPreset)),
        categories(preset.categories),
        bankName(preset.bank),
        presetPackID(preset.pack) {}

  AUAudioUnitPreset preset;
  std::vector<std::string> categories;
  std::string bankName;
  std::string presetPackID;
};

}  // namespace platform
