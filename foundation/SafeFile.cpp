#include "foundation/SafeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <random>
#include <system_error>
#include <utility>

#include "foundation/DispatchQueue.h"
#include "foundation/UnicodeText.h"
#include "platform/FilePath.h"

namespace foundation {

using platform::FileError;
using Error = platform::FileManager::Error;

namespace {

constexpr std::string_view unfinishedPrefix = ".orvane-unfinished-";
constexpr int maxNames = 100;

}  // namespace

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == path.npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

bool hasNul(std::string_view path) { return path.find('\0') != path.npos; }

FileError fileError(std::string_view path, std::string_view verb, std::string_view why) {
  std::string name = xmlText(platform::lastPathComponent(path));
  for (char& c : name)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = ' ';
  return {FileError::Code::other,
          '"' + name + "\" could not be " + std::string(verb) + ": " + std::string(why)};
}

FileError fileError(std::string_view path, std::string_view verb, int errorNumber) {
  FileError error = fileError(path, verb, std::generic_category().message(errorNumber));
  if (errorNumber == EEXIST || errorNumber == ENOTEMPTY) error.code = FileError::Code::fileExists;
  if (errorNumber == ENAMETOOLONG || errorNumber == EINVAL || errorNumber == EILSEQ)
    error.code = FileError::Code::invalidName;
  return error;
}

SafeFile::SafeFile(std::string path, std::string verb, Lasting lasting)
    : path_(std::move(path)), verb_(std::move(verb)), lasting_(lasting) {}

SafeFile::~SafeFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

bool SafeFile::isUnfinished(std::string_view name) { return name.starts_with(unfinishedPrefix); }

std::string SafeFile::unfinishedName() {
  static const unsigned processTag = std::random_device{}();
  static std::atomic<unsigned> count{0};
  char tag[64];
  std::snprintf(tag, sizeof tag, "%x-%08x-%x", static_cast<unsigned>(::getpid()), processTag,
                ++count);
  return std::string(unfinishedPrefix) + tag;
}

void SafeFile::syncFolder(const std::string& path) {
  DispatchQueue::globalAsync([path] { waitForFolder(path); });
}

void SafeFile::waitForFolder(const std::string& path) {
  const int descriptor = ::open(folderOf(path).c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

Error SafeFile::failure(int errorNumber) const { return fileError(path_, verb_, errorNumber); }

Error SafeFile::open() {
  if (hasNul(path_)) return failure(EINVAL);
  for (int i = 0; i < maxNames; ++i) {
    const std::string name = folderOf(path_) + '/' + unfinishedName();
    descriptor_ = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor_ >= 0) {
      temporary_ = name;
      return {};
    }
    if (errno != EEXIST) break;
  }
  return failure(errno);
}

Error SafeFile::append(std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return failure(written < 0 ? errno : ENOSPC);
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return {};
}

Error SafeFile::finishWriting() {
  if (lasting_ == Lasting::throughPowerCuts && ::fsync(descriptor_) != 0) return failure(errno);
  if (::close(std::exchange(descriptor_, -1)) != 0) return failure(errno);
  return {};
}

Error SafeFile::commitReplacing() {
  // Whoever may read the old file may read the new one.
  struct stat old {};
  if (::stat(path_.c_str(), &old) == 0 && S_ISREG(old.st_mode))
    ::fchmod(descriptor_, old.st_mode & 07777);
  if (Error error = finishWriting()) return error;
  if (::rename(temporary_.c_str(), path_.c_str()) != 0) return failure(errno);
  temporary_.clear();
  if (lasting_ == Lasting::throughPowerCuts) syncFolder(path_);
  return {};
}

Error SafeFile::commitNew() {
  if (Error error = finishWriting()) return error;
  if (::link(temporary_.c_str(), path_.c_str()) == 0) {
    ::unlink(temporary_.c_str());
  } else if (errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS || errno == EMLINK) {
    // A file system without links: between the look and the rename another process may come first.
    struct stat there {};
    if (::lstat(path_.c_str(), &there) == 0) return failure(EEXIST);
    if (::rename(temporary_.c_str(), path_.c_str()) != 0) return failure(errno);
  } else {
    return failure(errno);
  }
  temporary_.clear();
  if (lasting_ == Lasting::throughPowerCuts) syncFolder(path_);
  return {};
}

}  // namespace foundation
