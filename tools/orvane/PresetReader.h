#pragma once

#include <vector>

#include "Quillon/CommonAudioUnit.h"
#include "tools/orvane/DescribedPlugin.h"
#include "tools/orvane/ObjectReader.h"
#include "tools/orvane/ParameterReader.h"

namespace tool {

/// Reads the factory presets of a description, whose values must be ones that the parameters take.
std::vector<quillon::PresetDescription> readPresets(
    ObjectReader& plugin, Problems& problems, const std::vector<DescribedParameter>& parameters,
    const ParameterIndex& index);

}  // namespace tool
