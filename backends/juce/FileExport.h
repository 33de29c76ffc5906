#pragma once

#include <optional>
#include <string>
#include <vector>

namespace juce_backend {

/// Files that leave for places of the user's own choice. Any thread.
namespace FileExport {

struct Copy {
  std::string from;
  std::string to;
};

/// The copies that bring files, and folders with all that is in them, below `folder`.
std::vector<Copy> copiesInto(const std::string& folder, const std::vector<std::string>& paths);
/// How many of them would take the place of a file.
std::size_t replacedBy(const std::vector<Copy>& copies);
/// Copies each file whole or not at all, in place of what is there. What went wrong, for people, or
/// none; the rest is copied all the same.
std::optional<std::string> run(const std::vector<Copy>& copies);

}  // namespace FileExport

}  // namespace juce_backend
