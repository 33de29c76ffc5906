#pragma once

#include <gtest/gtest.h>
#include <cstdlib>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace support {

/// An empty folder that is gone, with all that is in it, at the end of the test.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "orvane-test-XXXXXX").string();
    if (!::mkdtemp(name.data())) ADD_FAILURE() << "no temporary folder";
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + '/' + name; }

  /// Makes the folders on the way as well.
  std::string write(const std::string& name, const std::string& text) const {
    const std::filesystem::path file = path_ + '/' + name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    return file.string();
  }

 private:
  std::string path_;
};

/// All of a file; empty when there is none.
inline std::string textOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What a folder really holds, unfinished files included.
inline std::set<std::string> namesIn(const std::string& folder) {
  std::set<std::string> names;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error))
    names.insert(entry.path().filename().string());
  return names;
}

}  // namespace support
