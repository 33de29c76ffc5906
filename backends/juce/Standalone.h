#pragma once

#include <string>

#include "Orvane/PluginEntry.h"

namespace juce_backend {

struct StandaloneOptions {
  /// Where the window's size is kept; empty for the user's own settings folder.
  std::string settingsFolder{};
};

/// Runs a plug-in as a program until its window is closed: the editor in a window, sound and MIDI
/// where devices exist, notes from the computer's keyboard for keys that no control wants. Without
/// a display it writes pictures of all pages instead and prints where. Returns the exit code.
int runStandalone(const orvane::PluginEntry& entry, const StandaloneOptions& options = {});

/// Whether the X server that DISPLAY names answers. JUCE ends the process when it does not.
bool isDisplayAvailable();

}  // namespace juce_backend
