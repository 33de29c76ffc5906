#pragma once

#include <nlohmann/json.hpp>

#include "platform/PropertyList.h"

namespace tool {

/// Dictionaries and arrays as JSON has them; data as {"bytes": count} and dates as {"date": seconds
/// since 2001}, since JSON has neither. Numbers that are none are null.
nlohmann::ordered_json jsonOf(const platform::PropertyList& list);

}  // namespace tool
