#include "foundation/FolderCloud.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "foundation/Bundle.h"
#include "foundation/DispatchQueue.h"
#include "foundation/SafeFile.h"
#include "platform/FilePath.h"

namespace foundation {

namespace fs = std::filesystem;

namespace {

bool exists(const std::string& path) {
  std::error_code error;
  return fs::exists(path, error);
}

bool isWithin(const std::string& path, const std::string& folder) {
  return !folder.empty() && path.starts_with(folder + '/');
}

/// The file that a placeholder stands for.
std::string realFileOf(const std::string& placeholder) {
  std::string name = platform::fileStem(placeholder);
  if (name.size() > 1 && name[0] == '.') name.erase(0, 1);
  return folderOf(placeholder) + '/' + name;
}

}  // namespace

FolderCloud::FolderCloud(std::string folder, std::shared_ptr<CloudDownloader> downloader,
                         std::map<std::string, std::string> others)
    : folder_(std::move(folder)), downloader_(std::move(downloader)), others_(std::move(others)) {}

std::optional<std::string> FolderCloud::container(const std::optional<std::string>& identifier) {
  const auto other = identifier ? others_.find(*identifier) : others_.end();
  if (identifier && other == others_.end()) return std::nullopt;
  const std::string& folder = identifier ? other->second : folder_;
  std::error_code error;
  if (folder.empty() || !fs::is_directory(folder, error)) return std::nullopt;
  return folder;
}

std::shared_ptr<UsersCloud> UsersCloud::in(const std::string& folder) {
  std::string root = folder;
  while (root.size() > 1 && root.back() == '/') root.pop_back();
  if (!root.starts_with('/')) return nullptr;
  return std::make_shared<UsersCloud>(Absolute{std::move(root)});
}

std::shared_ptr<UsersCloud> UsersCloud::ofEnvironment() {
  const char* folder = std::getenv("ORVANE_CLOUD");
  return in(folder ? folder : "");
}

std::optional<std::string> UsersCloud::container(const std::optional<std::string>& identifier) {
  const auto root = identifier ? std::nullopt : FolderCloud::container(std::nullopt);
  // Its disk or its account may be missing just now: then nothing is made in its place.
  if (!root) return std::nullopt;
  const auto info = Bundle::mainInfoDictionary();
  const auto* entry =
      info && info->contains("CFBundleIdentifier") ? &info->at("CFBundleIdentifier") : nullptr;
  const auto* name = entry ? entry->as<std::string>() : nullptr;
  std::string own = *root + '/' + (name && platform::isFileName(*name) ? *name : "Orvane");
  std::error_code error;
  fs::create_directory(own, error);
  return error ? std::nullopt : std::optional(std::move(own));
}

bool FolderCloud::isUbiquitousItem(const std::string& path) {
  if (!exists(path)) return false;
  if (isWithin(path, folder_)) return true;
  for (const auto& [identifier, folder] : others_)
    if (isWithin(path, folder)) return true;
  return false;
}

void FolderCloud::coordinateReading(const std::string& path,
                                    std::function<void(std::optional<std::string>)> accessor) {
  std::string file = platform::pathExtension(path) == "icloud" ? realFileOf(path) : path;
  if (!downloader_ || file == path || exists(file)) {
    const bool found = exists(file);
    DispatchQueue::globalAsync([found, file = std::move(file), accessor = std::move(accessor)] {
      accessor(found ? std::optional(file) : std::nullopt);
    });
    return;
  }
  downloader_->download(file, [path, file, accessor = std::move(accessor)](bool came) {
    if (came) {
      std::error_code ignored;
      fs::remove(path, ignored);
    }
    accessor(came ? std::optional(file) : std::nullopt);
  });
}

}  // namespace foundation
