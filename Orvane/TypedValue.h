#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/AUParameter.h"

namespace orvane {

/// A value of a parameter as somebody types it: a number in the parameter's own unit, or a name
/// where the values have names. `names` are the design's own, from the range's minimum up; empty
/// where it has none, and then the parameter's hold.
namespace TypedValue {

/// What typed back gives `value` again, as near as five digits tell it: "1200 Hz", "Saw". More
/// digits only where five would read otherwise. Empty for a value that is no number.
std::string text(const platform::AUParameter& parameter, const std::vector<std::string>& names,
                 float value);

/// A name counts in upper and lower case, and before the number that it may begin with. Else it is
/// the number that the text begins with, rounded where only whole values are taken; 0 without one.
float value(const platform::AUParameter& parameter, const std::vector<std::string>& names,
            std::string_view text);

}  // namespace TypedValue

}  // namespace orvane
