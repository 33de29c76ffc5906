#pragma once

#include <string>
#include <string_view>

#include "tools/orvane/DescribedPlugin.h"
#include "tools/orvane/Problems.h"

namespace tool {

/// Reads the text of a description and adds everything that is wrong with it to `problems`: first
/// what is wrong with single fields, then what does not fit together. The result is fit to be shown
/// only when there is no problem.
///
/// `fallbackName` names a plug-in that has no name.
DescribedPlugin readDescription(std::string_view text, const std::string& fallbackName,
                                Problems& problems);

}  // namespace tool
