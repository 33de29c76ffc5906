#pragma once

#include <vector>

#include "Quillon/CommonAudioUnit.h"

namespace halden {

std::vector<quillon::PresetDescription> presetDescriptions();

}  // namespace halden
