#include "foundation/FolderWatch.h"

#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace foundation {

namespace {

/// ext, XFS, Btrfs, F2FS, tmpfs, overlays: what only this system writes to. A folder of another
/// kind may change without news.
constexpr unsigned long localFileSystems[] = {0xef53,     0x58465342, 0x9123683e,
                                              0xf2f52010, 0x01021994, 0x794c7630};
constexpr std::uint32_t watched = IN_MODIFY | IN_ATTRIB | IN_CLOSE_WRITE | IN_CREATE | IN_DELETE |
                                  IN_MOVE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
/// After these there is no more to tell of the folder itself.
constexpr std::uint32_t isOver =
    IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED | IN_Q_OVERFLOW;
/// A folder with more changes is looked at whole.
constexpr std::size_t maxNames = 100;

bool isLocal(const std::string& path) {
  struct statfs status {};
  if (::statfs(path.c_str(), &status) != 0) return false;
  return std::count(std::begin(localFileSystems), std::end(localFileSystems),
                    static_cast<unsigned long>(status.f_type) & 0xffffffff) > 0;
}

}  // namespace

/// The process's one queue of news. It stays open: the system takes its time to close one.
struct FolderWatch::Instance {
  const pid_t process;
  const int descriptor;
  std::mutex mutex{};
  /// By the system's number. Two watches of one folder have the same.
  std::map<int, std::vector<FolderWatch*>> watches{};

  /// Null where the system grants none.
  static Instance* ofThisProcess() {
    static std::atomic<Instance*> current{nullptr};
    Instance* known = current.load();
    // After a fork the queue, and perhaps its lock, is the other process's.
    while (!known || known->process != ::getpid()) {
      const int descriptor = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
      if (descriptor < 0) return nullptr;
      auto* const made = new Instance{::getpid(), descriptor};
      Instance* const old = known;
      if (current.compare_exchange_strong(known, made)) {
        if (old) ::close(old->descriptor);
        return made;
      }
      ::close(descriptor);
      delete made;
    }
    return known;
  }

  /// Gives every watch its news. Under the lock.
  void drain() {
    alignas(inotify_event) char buffer[16384];
    for (;;) {
      const ssize_t size = ::read(descriptor, buffer, sizeof buffer);
      if (size <= 0) return;
      for (const char* at = buffer; at < buffer + size;) {
        inotify_event event{};
        std::memcpy(&event, at, sizeof event);
        const char* const name = event.len > 0 ? at + sizeof event : "";
        for (auto& [number, all] : watches)
          if (number == event.wd || (event.mask & IN_Q_OVERFLOW))
            for (FolderWatch* watch : all) watch->note(event.mask, name);
        at += sizeof event + event.len;
      }
    }
  }
};

FolderWatch::FolderWatch(const std::string& path) : path_(path) {
  struct stat status {};
  if (!isLocal(path) || ::stat(path.c_str(), &status) != 0) return;
  device_ = status.st_dev;
  file_ = status.st_ino;
  Instance* const instance = Instance::ofThisProcess();
  if (!instance) return;
  const std::lock_guard lock(instance->mutex);
  watch_ = ::inotify_add_watch(instance->descriptor, path.c_str(), watched);
  if (watch_ < 0) return;
  instance_ = instance;
  // What others of the folder wait for is not news to this one.
  instance_->drain();
  instance_->watches[watch_].push_back(this);
}

FolderWatch::~FolderWatch() {
  if (!instance_ || instance_ != Instance::ofThisProcess()) return;
  const std::lock_guard lock(instance_->mutex);
  auto& all = instance_->watches[watch_];
  std::erase(all, this);
  if (!all.empty()) return;
  instance_->watches.erase(watch_);
  ::inotify_rm_watch(instance_->descriptor, watch_);
}

void FolderWatch::note(std::uint32_t event, const char* name) {
  if ((event & isOver) != 0 || names_.size() >= maxNames) isLost_ = true;
  if (!isLost_ && *name != '\0') names_.insert(name);
}

std::optional<std::set<std::string>> FolderWatch::changes() {
  if (!instance_ || instance_ != Instance::ofThisProcess()) return std::nullopt;
  // Another folder may have taken the place of the one that is watched.
  struct stat status {};
  const bool isThere =
      ::stat(path_.c_str(), &status) == 0 && status.st_dev == device_ && status.st_ino == file_;
  const std::lock_guard lock(instance_->mutex);
  instance_->drain();
  isLost_ = isLost_ || !isThere;
  if (isLost_) return std::nullopt;
  return std::exchange(names_, {});
}

}  // namespace foundation
