#pragma once

#include "KestroUI/ParameterUISettings.h"

namespace orvane {

using ParameterUISettings = kestroui::ParameterUISettings;

}  // namespace orvane
