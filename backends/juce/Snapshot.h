#pragma once

#include <string>
#include <vector>

#include "Orvane/PluginEntry.h"
#include "toolkit/Window.h"

namespace juce_backend {

/// Pictures of editors as the screen would show them; needs no display. User-interface thread.

/// Paints `window` as it is into a PNG file, `scale` pixels a point. False when the file cannot be
/// written: `error` then says why in one line.
bool writeSnapshot(toolkit::Window& window, double scale, const std::string& path,
                   std::string& error);

/// Makes the plug-in's editor and paints each of its pages into `folder`, which is made when it is
/// missing. Returns the files' paths; fewer than there are pages, and `error`, when one cannot be
/// written. No run loop may exist.
std::vector<std::string> writePages(const orvane::PluginEntry& entry, const platform::Size& size,
                                    double scale, const std::string& folder, std::string& error);

}  // namespace juce_backend
