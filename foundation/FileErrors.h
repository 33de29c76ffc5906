#pragma once

#include <string>
#include <string_view>

#include "platform/FileManager.h"

namespace foundation {

/// `verb` is what could not be done to the file: "saved".
platform::FileError fileError(std::string_view path, std::string_view verb, int errorNumber);
platform::FileError fileError(std::string_view path, std::string_view verb, std::string_view why);

}  // namespace foundation
