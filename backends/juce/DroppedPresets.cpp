#include "backends/juce/DroppedPresets.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/FilePath.h"

namespace juce_backend {

namespace fs = std::filesystem;

namespace {

/// A dragged folder of the user's whole disk must not hold up the drag.
constexpr std::size_t maxEntries = 20000;

}  // namespace

std::vector<std::string> droppedPresets(const juce::StringArray& paths,
                                        const std::string& extension) {
  std::vector<std::string> presets;
  const auto add = [&](const std::string& path) {
    std::error_code error;
    if (platform::pathExtension(path) == extension && fs::is_regular_file(path, error))
      presets.push_back(path);
  };
  for (const juce::String& dragged : paths) {
    const std::string path = dragged.toStdString();
    std::error_code error;
    if (!fs::is_directory(path, error)) {
      add(path);
      continue;
    }
    const auto begin = static_cast<std::ptrdiff_t>(presets.size());
    std::size_t seen = 0;
    for (fs::directory_iterator entry(path, error), end; !error && entry != end;
         entry.increment(error)) {
      if (++seen > maxEntries) break;
      add(entry->path().string());
    }
    std::sort(presets.begin() + begin, presets.end());
  }
  return presets;
}

}  // namespace juce_backend
