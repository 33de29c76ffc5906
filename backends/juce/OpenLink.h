#pragma once

#include <string>

namespace juce_backend {

/// Opens a link with the program that the desktop has for it. Only what leads to a page or to a
/// letter: "http", "https" and "mailto". False for any other and when there is no such program.
bool openLink(const std::string& url);

}  // namespace juce_backend
