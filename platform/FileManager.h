#pragma once

#include <compare>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/CloudStorage.h"
#include "platform/PropertyList.h"

namespace platform {

/// Why a file operation failed.
struct FileError {
  enum class Code { other = 512, invalidName = 514, fileExists = 516 };

  Code code = Code::other;
  /// One line for people: what was tried with which file, and why it failed.
  std::string localizedDescription;
};

/// Changes whenever the content of a file may have changed.
struct FileStamp {
  std::uint64_t file = 0;
  std::int64_t modified = 0;
  std::int64_t changed = 0;
  std::uint64_t size = 0;

  friend auto operator<=>(const FileStamp&, const FileStamp&) = default;
};

/// What a path names, and when it changed last.
struct FileStatus {
  enum class Kind { file, folder, link, other };

  Kind kind = Kind::other;
  FileStamp stamp;
};

struct DirectoryEntry {
  std::string name;
  bool isDirectory = false;
  FileStamp stamp;
};

/// The files of this installation: the containers that plug-ins share and whatever lies in them.
/// Nothing throws; what fails leaves everything as it was. Any thread.
class FileManager {
 public:
  using Error = std::optional<FileError>;
  enum class Intermediates { mustExist, create };
  /// Whether a symbolic link stands for what it leads to, or for itself.
  enum class Links { follow, itself };
  static constexpr std::size_t everything = std::numeric_limits<std::size_t>::max();

  virtual ~FileManager() = default;

  /// The folder that the plug-ins of an app group share, which exists then; none for an empty
  /// identifier and where there cannot be one.
  virtual std::optional<std::string> groupContainer(const std::string& groupIdentifier) = 0;
  /// The user's cloud, or null for a user without one. Shared with what is on its way from there.
  virtual std::shared_ptr<CloudStorage> cloud() = 0;
  /// This process's own. Ends in "/". What is in it may be gone when the process has ended.
  virtual std::string temporaryDirectory() = 0;

  /// In the order of the file system, without "." and ".."; none when it cannot be listed.
  virtual std::optional<std::vector<DirectoryEntry>> contentsOfDirectory(
      const std::string& path) = 0;
  /// None when there is nothing of that name, or nothing where it leads.
  virtual std::optional<FileStatus> status(const std::string& path, Links links) = 0;
  virtual bool isDirectory(const std::string& path) = 0;
  virtual bool fileExists(const std::string& path) = 0;
  /// FileError::Code::fileExists when something of that name is there, a folder included.
  virtual Error createDirectory(const std::string& path, Intermediates intermediates) = 0;
  /// A file, or a folder with all that is in it. Never replaces anything: see createDirectory.
  virtual Error copyItem(const std::string& from, const std::string& to) = 0;
  /// A file, a folder, or a link itself; to another file system its content. Never replaces anything:
  /// see createDirectory. One file may be moved to another spelling of its own name.
  virtual Error moveItem(const std::string& from, const std::string& to) = 0;
  /// A file, or a folder with all that is in it.
  virtual Error removeItem(const std::string& path) = 0;

  /// At most `count` bytes of a regular file from `offset` on; none with an `error` when they
  /// cannot be read.
  virtual std::optional<PropertyList::Data> contents(const std::string& path, FileError& error,
                                                     std::uint64_t offset = 0,
                                                     std::size_t count = everything) = 0;
  /// Replaces the file whole or not at all, whenever the process is killed and whatever fails: who
  /// reads meanwhile, or afterwards, finds the old content or the new one. A link stays, and the
  /// file that it leads to is replaced; one that may not be written is left alone.
  virtual Error write(std::span<const std::uint8_t> bytes, const std::string& path) = 0;

  /// Around the use of a file that the user has picked outside the containers.
  virtual void startAccessingSecurityScopedResource(const std::string& /*path*/) {}
  virtual void stopAccessingSecurityScopedResource(const std::string& /*path*/) {}
};

}  // namespace platform
