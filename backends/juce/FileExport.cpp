#include "backends/juce/FileExport.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "foundation/DefaultFileManager.h"
#include "platform/FileManager.h"
#include "platform/FilePath.h"

namespace juce_backend {

namespace fs = std::filesystem;
using platform::FileManager;

std::vector<FileExport::Copy> FileExport::copiesInto(const std::string& folder,
                                                     const std::vector<std::string>& paths) {
  std::vector<Copy> copies;
  for (const std::string& path : paths) {
    const fs::path target = fs::path(folder) / platform::lastPathComponent(path);
    std::error_code error;
    if (!fs::is_directory(path, error)) {
      copies.push_back({path, target.string()});
      continue;
    }
    for (const auto& entry : fs::recursive_directory_iterator(path, error))
      if (entry.is_regular_file(error))
        copies.push_back(
            {entry.path().string(), (target / entry.path().lexically_relative(path)).string()});
  }
  return copies;
}

std::size_t FileExport::replacedBy(const std::vector<Copy>& copies) {
  return static_cast<std::size_t>(std::count_if(copies.begin(), copies.end(), [](const Copy& copy) {
    std::error_code error;
    return fs::exists(fs::symlink_status(copy.to, error));
  }));
}

std::optional<std::string> FileExport::run(const std::vector<Copy>& copies) {
  FileManager& files = foundation::DefaultFileManager::current();
  std::optional<std::string> first;
  std::size_t failures = 0;
  for (const Copy& copy : copies) {
    platform::FileError readError;
    FileManager::Error error;
    const auto bytes = files.contents(copy.from, readError);
    const std::string folder = fs::path(copy.to).parent_path().string();
    if (!bytes) {
      error = readError;
    } else {
      if (!files.isDirectory(folder))
        error = files.createDirectory(folder, FileManager::Intermediates::create);
      if (!error) error = files.write(*bytes, copy.to);
    }
    if (!error) continue;
    ++failures;
    if (!first) first = error->localizedDescription;
  }
  if (failures > 1) *first += ". " + std::to_string(failures - 1) + " more could not be saved.";
  return first;
}

}  // namespace juce_backend
