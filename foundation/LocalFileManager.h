#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "foundation/FolderWatch.h"
#include "platform/FileManager.h"

namespace foundation {

/// The file manager of a real file system. A container of an app group is a plain folder.
class LocalFileManager : public platform::FileManager {
 public:
  enum class Groups { eachItsOwn, oneForAll };

  /// `groups` holds a folder for each app group, or is the one container of all of them; empty for
  /// none. `temporary` ends in "/"; when it is empty, there is one of the user's own.
  explicit LocalFileManager(std::string groups, Groups kind = Groups::eachItsOwn,
                            std::shared_ptr<platform::CloudStorage> cloud = nullptr,
                            std::string temporary = {});

  /// Where the user's programs keep their data, for plug-ins of this family; empty when the user
  /// has no home.
  static std::string usersDataFolder();

  std::optional<std::string> groupContainer(const std::string& groupIdentifier) override;
  std::shared_ptr<platform::CloudStorage> cloud() override { return cloud_; }
  std::string temporaryDirectory() override;

  std::optional<std::vector<platform::DirectoryEntry>> contentsOfDirectory(
      const std::string& path) override;
  std::optional<platform::FileStatus> status(const std::string& path, Links links) override;
  bool isDirectory(const std::string& path) override;
  bool fileExists(const std::string& path) override;
  Error createDirectory(const std::string& path, Intermediates intermediates) override;
  Error copyItem(const std::string& from, const std::string& to) override;
  Error moveItem(const std::string& from, const std::string& to) override;
  Error removeItem(const std::string& path) override;
  std::optional<platform::PropertyList::Data> contents(const std::string& path,
                                                       platform::FileError& error,
                                                       std::uint64_t offset = 0,
                                                       std::size_t count = everything) override;
  Error write(std::span<const std::uint8_t> bytes, const std::string& path) override;

 private:
  /// A large folder as it was listed last, while nothing in it has changed.
  struct Listing {
    std::unique_ptr<FolderWatch> watch;
    std::vector<platform::DirectoryEntry> entries;
  };

  Error copyFile(const std::string& from, const std::string& to);
  Error copyFolder(const std::string& from, const std::string& to);

  const std::string groups_;
  const Groups kind_;
  const std::shared_ptr<platform::CloudStorage> cloud_;
  std::mutex mutex_;
  std::string temporary_;
  /// By path.
  std::map<std::string, Listing> listings_;
};

}  // namespace foundation
