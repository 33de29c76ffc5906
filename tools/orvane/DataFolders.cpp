#include "tools/orvane/DataFolders.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "backends/headless/FolderDownloader.h"
#include "foundation/FolderCloud.h"
#include "tools/orvane/Problems.h"

namespace tool {

namespace fs = std::filesystem;
using foundation::LocalFileManager;

namespace {

/// Within the cloud container, what stands for its far side.
constexpr const char* remoteFolder = "/.remote";

/// Absolute, so that a preset's path names it wherever it is read.
std::string madeFolder(const std::string& path) {
  std::error_code error;
  fs::create_directories(path, error);
  if (!error && !fs::is_directory(path, error))
    error = std::make_error_code(std::errc::not_a_directory);
  if (error) throw Failure(path + ": cannot be made: " + error.message());
  std::string absolute = fs::absolute(path).lexically_normal().string();
  while (absolute.size() > 1 && absolute.back() == '/') absolute.pop_back();
  return absolute;
}

std::string newTemporaryFolder() {
  std::string path = (fs::temp_directory_path() / "orvane-data-XXXXXX").string();
  if (!::mkdtemp(path.data())) throw Failure(path + ": cannot be made");
  return path;
}

}  // namespace

DataFolders::DataFolders(const ArgumentParser& arguments, WithoutData without) {
  if (const auto given = arguments.text("--data")) data_ = madeFolder(*given);
  std::shared_ptr<platform::CloudStorage> cloud;
  if (const auto given = arguments.text("--cloud")) {
    cloud_ = madeFolder(*given);
    cloud = std::make_shared<foundation::FolderCloud>(
        *cloud_, std::make_shared<headless::FolderDownloader>(*cloud_ + remoteFolder, *cloud_));
  }
  if (!data_ && without == WithoutData::temporary) temporary_ = newTemporaryFolder();
  const bool isUsersOwn = !data_ && temporary_.empty();
  files_ = std::make_unique<LocalFileManager>(
      isUsersOwn ? LocalFileManager::usersDataFolder() : data_.value_or(temporary_),
      isUsersOwn ? LocalFileManager::Groups::eachItsOwn : LocalFileManager::Groups::oneForAll,
      cloud);
  scope_.emplace(*files_);
}

DataFolders::~DataFolders() {
  scope_.reset();
  std::error_code ignored;
  if (!temporary_.empty()) fs::remove_all(temporary_, ignored);
}

}  // namespace tool
