#pragma once

#include <string>
#include <vector>

#include <juce_core/juce_core.h>

namespace juce_backend {

/// The preset files among dragged paths and in dragged folders, the latter without those below, in
/// the order of their names.
std::vector<std::string> droppedPresets(const juce::StringArray& paths,
                                        const std::string& extension);

}  // namespace juce_backend
