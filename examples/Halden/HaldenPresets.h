#pragma once

#include <string_view>
#include <vector>

#include "Quillon/CommonAudioUnit.h"

namespace halden {

/// All factory presets, bank after bank; the first is what a new instrument plays.
const std::vector<quillon::PresetDescription>& presetDescriptions();

/// Appends the presets of one bank to `presets`, numbered on from those. The text is of the form
/// that presets/Banks.h tells. Throws std::invalid_argument, naming the preset and the place.
void readBank(std::string_view bank, std::string_view text,
              std::vector<quillon::PresetDescription>& presets);

}  // namespace halden
