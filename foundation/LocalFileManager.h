#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>

#include "foundation/FolderWatch.h"
#include "foundation/SafeFile.h"
#include "platform/FileManager.h"

namespace foundation {

/// The file manager of a real file system. A container of an app group is a plain folder.
class LocalFileManager : public platform::FileManager {
 public:
  enum class Groups { eachItsOwn, oneForAll };

  /// `groups` holds a folder for each app group, or is the one container of all of them; empty for
  /// none. `temporary` ends in "/"; when it is empty, there is one of this process's own. A listing of a
  /// large folder may rest on news of it for `maxListingAge`: some changes make none, such as those
  /// through another name that a file has got elsewhere.
  explicit LocalFileManager(std::string groups, Groups kind = Groups::eachItsOwn,
                            std::shared_ptr<platform::CloudStorage> cloud = nullptr,
                            std::string temporary = {},
                            std::chrono::milliseconds maxListingAge = std::chrono::minutes(1));

  /// Where the user's programs keep their data, for plug-ins of this family; empty when the user
  /// has no home.
  static std::string usersDataFolder();

  std::optional<std::string> groupContainer(const std::string& groupIdentifier) override;
  std::shared_ptr<platform::CloudStorage> cloud() override { return cloud_; }
  /// Made when it is first asked for.
  std::string temporaryDirectory() override;
  /// With all that is in it, when it is one that this object has made.
  void removeTemporaryDirectory();

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
  /// A large folder as it was listed last.
  struct Listing {
    using Entries = std::vector<platform::DirectoryEntry>;

    /// Brings the entry at `place`, or a new one at the end, up to date.
    void look(int folder, const std::string& name, Entries::iterator place);
    /// Follows the news of single files; false when there is more to follow.
    bool isUpToDate(const std::string& folder, std::chrono::milliseconds maxAge);

    std::unique_ptr<FolderWatch> watch{};
    Entries entries{};
    /// What changes without news from this folder: folders, links and files of several names.
    std::set<std::string> unwatched{};
    std::chrono::steady_clock::time_point made = std::chrono::steady_clock::now();
  };

  /// What is temporary need not outlive this session.
  SafeFile::Lasting lastingOf(const std::string& path);
  Error copyFile(const std::string& from, const std::string& to);
  Error copyFolder(const std::string& from, const std::string& to);

  const std::string groups_;
  const Groups kind_;
  const std::shared_ptr<platform::CloudStorage> cloud_;
  const std::chrono::milliseconds maxListingAge_;
  std::mutex mutex_;
  std::string temporary_;
  /// By path.
  std::map<std::string, Listing> listings_;
};

}  // namespace foundation
