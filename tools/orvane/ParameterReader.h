#pragma once

#include <map>
#include <string>
#include <vector>

#include "tools/orvane/DescribedPlugin.h"
#include "tools/orvane/ObjectReader.h"

namespace tool {

/// Where each parameter key of a description stands in its list of parameters.
using ParameterIndex = std::map<std::string, std::size_t>;

/// Reads the list of parameters of a description.
std::vector<DescribedParameter> readParameters(ObjectReader& plugin, Problems& problems,
                                               ParameterIndex& index);

}  // namespace tool
