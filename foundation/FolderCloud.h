#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/CloudStorage.h"

namespace foundation {

/// Brings the files that placeholders stand for.
class CloudDownloader {
 public:
  virtual ~CloudDownloader() = default;
  /// Fetches the file to `path` and then calls `done` once, on a thread of the global queue, with
  /// whether it is there. Returns at once. Any thread.
  virtual void download(const std::string& path, std::function<void(bool)> done) = 0;
};

/// A cloud whose containers are plain folders. "Bass.preset.icloud", or ".Bass.preset.icloud", is
/// the placeholder of "Bass.preset" beside it and goes when that has come.
class FolderCloud : public platform::CloudStorage {
 public:
  /// `folder` is the program's own container; `others` are those that have an identifier. A
  /// container whose folder does not exist is not available.
  explicit FolderCloud(std::string folder, std::shared_ptr<CloudDownloader> downloader = nullptr,
                       std::map<std::string, std::string> others = {});

  std::optional<std::string> container(const std::optional<std::string>& identifier) override;
  bool isUbiquitousItem(const std::string& path) override;
  void coordinateReading(const std::string& path,
                         std::function<void(std::optional<std::string>)> accessor) override;

 private:
  const std::string folder_;
  const std::shared_ptr<CloudDownloader> downloader_;
  const std::map<std::string, std::string> others_;
};

/// The cloud of a user who keeps a folder in step with other computers, by whatever program: within it
/// each plug-in has a container called by its bundle's identifier. Without that folder there is no
/// cloud at that moment.
class UsersCloud : public FolderCloud {
  struct Absolute {
    std::string path;
  };

 public:
  explicit UsersCloud(Absolute folder) : FolderCloud(std::move(folder.path)) {}
  /// Null for an empty folder, and for one that is not absolute.
  static std::shared_ptr<UsersCloud> in(const std::string& folder);
  /// That which the environment names as ORVANE_CLOUD.
  static std::shared_ptr<UsersCloud> ofEnvironment();

  std::optional<std::string> container(const std::optional<std::string>& identifier) override;
};

}  // namespace foundation
