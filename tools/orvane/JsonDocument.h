#pragma once

#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

#include "tools/orvane/Problems.h"

namespace tool {

/// Reads a JSON text and nothing else into memory that its size bounds: text that is no JSON, or
/// nested deeper than any description is, ends in a problem whose place is "line 3, column 7".
/// Members that an object has twice are problems too; the first is kept.
///
/// Returns a null value when the text could not be read, which is then the only problem.
nlohmann::json parseJson(std::string_view text, Problems& problems);

/// "a list", "a number"
std::string_view kindOf(const nlohmann::json& value);

}  // namespace tool
