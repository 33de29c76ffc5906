#pragma once

#include <string_view>

#include "platform/Responder.h"

namespace tool {

/// The key press that a script names: "return", "shift+tab", "control+left", "a". Throws a Failure
/// for a name that is none.
platform::KeyEvent keyEventOf(std::string_view name);

}  // namespace tool
