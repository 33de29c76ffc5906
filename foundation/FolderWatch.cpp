#include "foundation/FolderWatch.h"

#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace foundation {

namespace {

/// ext, XFS, Btrfs, F2FS, tmpfs, overlays: what only this system writes to. A folder of another
/// kind may change without news.
constexpr unsigned long localFileSystems[] = {0xef53,     0x58465342, 0x9123683e,
                                              0xf2f52010, 0x01021994, 0x794c7630};

bool isLocal(const std::string& path) {
  struct statfs status {};
  if (::statfs(path.c_str(), &status) != 0) return false;
  return std::count(std::begin(localFileSystems), std::end(localFileSystems),
                    static_cast<unsigned long>(status.f_type) & 0xffffffff) > 0;
}

}  // namespace

FolderWatch::FolderWatch(const std::string& path) : path_(path) {
  struct stat status {};
  if (!isLocal(path) || ::stat(path.c_str(), &status) != 0) return;
  device_ = status.st_dev;
  file_ = status.st_ino;
  descriptor_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  constexpr std::uint32_t events = IN_MODIFY | IN_ATTRIB | IN_CLOSE_WRITE | IN_CREATE | IN_DELETE |
                                   IN_MOVE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
  if (descriptor_ < 0 || ::inotify_add_watch(descriptor_, path.c_str(), events) >= 0) return;
  ::close(descriptor_);
  descriptor_ = -1;
}

FolderWatch::~FolderWatch() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

bool FolderWatch::mayHaveChanged() {
  if (descriptor_ < 0) return true;
  // Another folder may have taken the place of the one that is watched.
  struct stat status {};
  bool unchanged =
      ::stat(path_.c_str(), &status) == 0 && status.st_dev == device_ && status.st_ino == file_;
  char event[sizeof(inotify_event) + 256];
  unchanged = unchanged && ::read(descriptor_, event, sizeof event) < 0 && errno == EAGAIN;
  if (unchanged) return false;
  ::close(descriptor_);
  descriptor_ = -1;
  return true;
}

}  // namespace foundation
