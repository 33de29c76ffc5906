#include "foundation/LocalFileManager.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "foundation/SafeFile.h"
#include "platform/FilePath.h"

namespace foundation {

using platform::DirectoryEntry;
using platform::FileError;
using platform::FileStatus;
using platform::PropertyList;
using Error = platform::FileManager::Error;
namespace fs = std::filesystem;

namespace {

/// Far above any preset or pack of them.
constexpr std::uint64_t maxFileSize = std::uint64_t{256} << 20;
/// Folders that are worth keeping a listing of, and how many of them.
constexpr std::size_t minKept = 200, maxListings = 4;
/// Entries of one that are looked at each time.
constexpr std::size_t maxUnwatched = 50;
constexpr int maxLinks = 40;
constexpr std::chrono::hours temporaryAge{24};
constexpr std::size_t blockSize = std::size_t{1} << 18;

/// A folder, without "/" at its end: paths name presets, and have to be the same each time.
std::string environment(const char* name) {
  const char* value = std::getenv(name);
  std::string folder = value && value[0] == '/' ? value : "";
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder;
}

std::int64_t nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1000000000 + time.tv_nsec;
}

platform::FileStamp stampOf(const struct stat& status) {
  return {static_cast<std::uint64_t>(status.st_ino), nanoseconds(status.st_mtim),
          nanoseconds(status.st_ctim), static_cast<std::uint64_t>(status.st_size)};
}

/// A folder that only this user can enter, so that nobody prepares traps in it.
bool isPrivateFolder(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         status.st_uid == ::geteuid() && (status.st_mode & 022) == 0;
}

/// The process of a folder that makeTemporaryFolder has made, or 0.
pid_t processOf(const std::string& name) {
  const std::size_t dash = name.find('-');
  return dash == name.npos ? 0 : static_cast<pid_t>(std::atol(name.substr(0, dash).c_str()));
}

/// What processes have left that were killed.
void removeAbandoned(const std::string& folder) {
  std::error_code error, ignored;
  const auto now = fs::file_time_type::clock::now();
  std::vector<fs::path> abandoned;
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    const pid_t process = processOf(entry.path().filename());
    // A process elsewhere, which cannot be seen from here, may still use its files.
    if (process > 0 && ::kill(process, 0) != 0 && errno == ESRCH &&
        now - entry.last_write_time(ignored) > temporaryAge)
      abandoned.push_back(entry.path());
  }
  for (const fs::path& path : abandoned) fs::remove_all(path, ignored);
}

/// Of this process alone.
std::string makeTemporaryFolder() {
  std::string parent = environment("TMPDIR");
  if (parent.empty()) parent = "/tmp";
  const std::string user = parent + "/orvane-" + std::to_string(::geteuid());
  ::mkdir(user.c_str(), 0700);
  std::string folder = parent + "/orvane-XXXXXX";
  if (isPrivateFolder(user)) {
    removeAbandoned(user);
    folder = user + '/' + std::to_string(::getpid()) + "-XXXXXX";
  }
  return (::mkdtemp(folder.data()) ? folder : parent) + '/';
}

/// Closes what it opened.
class Descriptor {
 public:
  explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
  ~Descriptor() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return descriptor_; }

 private:
  const int descriptor_;
};

/// Waits until all of a folder is on its disk.
void waitForAll(const std::string& folder) {
  const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY));
  if (descriptor.get() >= 0) ::syncfs(descriptor.get());
}

/// What a path leads to when it is a link, or a link to a link, also when nothing is there; empty for
/// links that lead in a circle.
std::string targetOf(std::string path) {
  struct stat status {};
  for (int steps = 0; steps < maxLinks; ++steps) {
    if (::lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return path;
    std::error_code error;
    const fs::path next = fs::read_symlink(path, error);
    if (error) return path;
    path = next.is_absolute() ? next.string() : folderOf(path) + '/' + next.string();
  }
  return {};
}

/// Opens for reading; none with an error for anything but a regular file. Pipes and devices, which
/// could keep us waiting for ever, are looked at without waiting.
int openRegular(const std::string& path, struct stat& status, int& errorNumber) {
  errorNumber = hasNul(path) ? EINVAL : 0;
  if (errorNumber) return -1;
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (descriptor < 0 || ::fstat(descriptor, &status) != 0) {
    errorNumber = errno;
  } else if (!S_ISREG(status.st_mode)) {
    errorNumber = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
  }
  if (errorNumber && descriptor >= 0) ::close(descriptor);
  return errorNumber ? -1 : descriptor;
}

}  // namespace

LocalFileManager::LocalFileManager(std::string groups, Groups kind,
                                   std::shared_ptr<platform::CloudStorage> cloud,
                                   std::string temporary, std::chrono::milliseconds maxListingAge)
    : groups_(std::move(groups)),
      kind_(kind),
      cloud_(std::move(cloud)),
      maxListingAge_(maxListingAge),
      temporary_(std::move(temporary)) {}

std::string LocalFileManager::usersDataFolder() {
  std::string folder = environment("XDG_DATA_HOME");
  if (folder.empty() && !environment("HOME").empty())
    folder = environment("HOME") + "/.local/share";
  return folder.empty() ? folder : folder + "/orvane";
}

std::optional<std::string> LocalFileManager::groupContainer(const std::string& groupIdentifier) {
  if (groups_.empty() || !platform::isFileName(groupIdentifier)) return std::nullopt;
  const std::string path = kind_ == Groups::oneForAll ? groups_ : groups_ + '/' + groupIdentifier;
  if (!isDirectory(path) && createDirectory(path, Intermediates::create)) return std::nullopt;
  return path;
}

std::string LocalFileManager::temporaryDirectory() {
  const std::lock_guard lock(mutex_);
  if (temporary_.empty()) temporary_ = makeTemporaryFolder();
  return temporary_;
}

void LocalFileManager::removeTemporaryDirectory() {
  const std::lock_guard lock(mutex_);
  std::error_code ignored;
  // A forked process has its parent's in mind.
  const std::string name = platform::lastPathComponent(temporary_);
  if (processOf(name) == ::getpid()) fs::remove_all(temporary_, ignored);
  temporary_.clear();
}

SafeFile::Lasting LocalFileManager::lastingOf(const std::string& path) {
  const std::lock_guard lock(mutex_);
  const bool isTemporary = !temporary_.empty() && path.starts_with(temporary_);
  return isTemporary ? SafeFile::Lasting::inThisSession : SafeFile::Lasting::throughPowerCuts;
}

std::optional<std::vector<DirectoryEntry>> LocalFileManager::contentsOfDirectory(
    const std::string& path) {
  if (hasNul(path)) return std::nullopt;
  {
    const std::lock_guard lock(mutex_);
    const auto found = listings_.find(path);
    if (found != listings_.end()) {
      if (found->second.isUpToDate(path, maxListingAge_)) return found->second.entries;
      listings_.erase(found);
    }
  }
  const std::unique_ptr<DIR, int (*)(DIR*)> directory(::opendir(path.c_str()), ::closedir);
  if (!directory) return std::nullopt;
  Listing listing;
  while (const dirent* found = ::readdir(directory.get())) {
    const std::string name = found->d_name;
    if (name == "." || name == ".." || SafeFile::isUnfinished(name)) continue;
    listing.look(::dirfd(directory.get()), name, listing.entries.end());
    if (listing.watch || listing.entries.size() < minKept) continue;
    // What was seen until now may have changed before it was watched.
    listing = {std::make_unique<FolderWatch>(path)};
    ::rewinddir(directory.get());
  }
  if (!listing.watch || listing.unwatched.size() > maxUnwatched) return std::move(listing.entries);
  const std::lock_guard lock(mutex_);
  if (listings_.size() >= maxListings) listings_.clear();
  return (listings_[path] = std::move(listing)).entries;
}

void LocalFileManager::Listing::look(int folder, const std::string& name, Entries::iterator place) {
  struct stat link {
  }, status{};
  if (::fstatat(folder, name.c_str(), &link, AT_SYMLINK_NOFOLLOW) != 0) {
    if (place != entries.end()) entries.erase(place);
    return;
  }
  // A link to nowhere is listed as well.
  if (!S_ISLNK(link.st_mode) || ::fstatat(folder, name.c_str(), &status, 0) != 0) status = link;
  if (!S_ISREG(link.st_mode) || link.st_nlink != 1) unwatched.insert(name);
  if (place == entries.end()) place = entries.insert(place, DirectoryEntry{name, false, {}});
  place->isDirectory = S_ISDIR(status.st_mode) != 0;
  place->stamp = stampOf(status);
}

bool LocalFileManager::Listing::isUpToDate(const std::string& folder,
                                           std::chrono::milliseconds maxAge) {
  if (std::chrono::steady_clock::now() - made > maxAge) return false;
  const auto changes = watch->changes();
  if (!changes) return false;
  std::set<std::string> names = std::exchange(unwatched, {});
  names.insert(changes->begin(), changes->end());
  if (names.empty()) return true;
  const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY));
  if (descriptor.get() < 0) return false;
  for (const std::string& name : names)
    if (!SafeFile::isUnfinished(name))
      look(descriptor.get(), name,
           std::find_if(entries.begin(), entries.end(),
                        [&](const DirectoryEntry& each) { return each.name == name; }));
  return true;
}

std::optional<FileStatus> LocalFileManager::status(const std::string& path, Links links) {
  struct stat status {};
  const int flags = links == Links::itself ? AT_SYMLINK_NOFOLLOW : 0;
  if (hasNul(path) || ::fstatat(AT_FDCWD, path.c_str(), &status, flags) != 0) return std::nullopt;
  using Kind = FileStatus::Kind;
  const Kind kind = S_ISREG(status.st_mode)   ? Kind::file
                    : S_ISDIR(status.st_mode) ? Kind::folder
                    : S_ISLNK(status.st_mode) ? Kind::link
                                              : Kind::other;
  return FileStatus{kind, stampOf(status)};
}

bool LocalFileManager::isDirectory(const std::string& path) {
  struct stat status {};
  return !hasNul(path) && ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool LocalFileManager::fileExists(const std::string& path) {
  struct stat status {};
  return !hasNul(path) && ::stat(path.c_str(), &status) == 0;
}

Error LocalFileManager::createDirectory(const std::string& path, Intermediates intermediates) {
  const auto failure = [&](int number) { return fileError(path, "created", number); };
  if (hasNul(path)) return failure(EINVAL);
  if (intermediates == Intermediates::create) {
    std::error_code error;
    fs::create_directories(path, error);
    if (error) return failure(error.value());
    return {};
  }
  if (::mkdir(path.c_str(), 0777) != 0) return failure(errno);
  SafeFile::syncFolder(path);
  return {};
}

Error LocalFileManager::copyItem(const std::string& from, const std::string& to) {
  return isDirectory(from) ? copyFolder(from, to) : copyFile(from, to);
}

Error LocalFileManager::copyFile(const std::string& from, const std::string& to) {
  struct stat status {};
  int errorNumber = 0;
  const Descriptor source(openRegular(from, status, errorNumber));
  if (source.get() < 0) return fileError(from, "copied", errorNumber);
  SafeFile target(to, "copied", lastingOf(to));
  if (Error error = target.open()) return error;
  std::vector<std::uint8_t> block(blockSize);
  for (;;) {
    const ssize_t count = ::read(source.get(), block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return fileError(from, "copied", errno);
    if (count == 0) return target.commitNew();
    if (Error error = target.append({block.data(), static_cast<std::size_t>(count)})) return error;
  }
}

Error LocalFileManager::copyFolder(const std::string& from, const std::string& to) {
  struct stat status {};
  if (hasNul(to)) return fileError(to, "copied", EINVAL);
  if (::lstat(to.c_str(), &status) == 0) return fileError(to, "copied", EEXIST);
  std::error_code error, ignored;
  // What is copied would be found, and copied, again.
  const fs::path folder = fs::canonical(from, error);
  const fs::path around = error ? fs::path() : fs::canonical(folderOf(to), error);
  if (error) return fileError(to, "copied", error.value());
  if (std::mismatch(folder.begin(), folder.end(), around.begin(), around.end()).first ==
      folder.end())
    return fileError(to, "copied", "it lies within the folder that is copied");
  const std::string unfinished = folderOf(to) + '/' + SafeFile::unfinishedName();
  fs::copy(from, unfinished, fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
  if (!error) waitForAll(unfinished);
  if (!error) fs::rename(unfinished, to, error);
  if (!error) SafeFile::syncFolder(to);
  if (!error) return {};
  fs::remove_all(unfinished, ignored);
  return fileError(to, "copied", error.value());
}

Error LocalFileManager::moveItem(const std::string& from, const std::string& to) {
  if (hasNul(from) || hasNul(to)) return fileError(from, "moved", EINVAL);
  struct stat source {
  }, target{};
  if (::lstat(from.c_str(), &source) != 0) return fileError(from, "moved", errno);
  const bool isThere = ::lstat(to.c_str(), &target) == 0;
  // Where capitals do not count, a file is found under both spellings.
  if (isThere && (source.st_dev != target.st_dev || source.st_ino != target.st_ino))
    return fileError(to, "moved", EEXIST);
  int failed =
      ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), isThere ? 0 : RENAME_NOREPLACE) == 0
          ? 0
          : errno;
  // A file system that cannot refuse by itself: between the look and the rename another process may
  // come first.
  if (failed == EINVAL || failed == ENOSYS)
    failed = ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
  if (failed == EXDEV) {
    if (Error error = copyItem(from, to)) return error;
    // Another disk may forget the copy that this one was removed for.
    SafeFile::waitForFolder(to);
    return removeItem(from);
  }
  if (failed) return fileError(from, "moved", failed);
  SafeFile::syncFolder(to);
  if (folderOf(from) != folderOf(to)) SafeFile::syncFolder(from);
  return {};
}

Error LocalFileManager::removeItem(const std::string& path) {
  if (hasNul(path)) return fileError(path, "removed", EINVAL);
  std::error_code error;
  const auto removed = fs::remove_all(path, error);
  if (error) return fileError(path, "removed", error.value());
  if (removed == 0) return fileError(path, "removed", ENOENT);
  SafeFile::syncFolder(path);
  return {};
}

std::optional<PropertyList::Data> LocalFileManager::contents(const std::string& path,
                                                             FileError& error, std::uint64_t offset,
                                                             std::size_t count) {
  struct stat status {};
  int errorNumber = 0;
  const Descriptor file(openRegular(path, status, errorNumber));
  if (file.get() < 0) {
    error = fileError(path, "read", errorNumber);
    return std::nullopt;
  }
  const auto size = static_cast<std::uint64_t>(status.st_size);
  const std::uint64_t wanted = std::min<std::uint64_t>(count, size - std::min(offset, size));
  if (wanted > maxFileSize) {
    error = fileError(path, "read", "it is too large");
    return std::nullopt;
  }
  PropertyList::Data bytes(static_cast<std::size_t>(wanted));
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t got = ::pread(file.get(), bytes.data() + done, bytes.size() - done,
                                static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) {
      error = fileError(path, "read", errno);
      return std::nullopt;
    }
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  bytes.resize(done);
  return bytes;
}

Error LocalFileManager::write(std::span<const std::uint8_t> bytes, const std::string& path) {
  if (hasNul(path)) return fileError(path, "saved", EINVAL);
  const std::string real = targetOf(path);
  if (real.empty()) return fileError(path, "saved", ELOOP);
  struct stat there {};
  // The folder alone would allow to replace a file that its owner has locked; root may everything.
  if (::stat(real.c_str(), &there) == 0 &&
      ((there.st_mode & 0222) == 0 || (::access(real.c_str(), W_OK) != 0 && errno == EACCES)))
    return fileError(path, "saved", "the file is read-only");
  SafeFile file(real, "saved", lastingOf(real));
  if (Error error = file.open()) return error;
  if (Error error = file.append(bytes)) return error;
  return file.commitReplacing();
}

}  // namespace foundation
