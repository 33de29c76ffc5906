#include "foundation/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace foundation {

FileLock::FileLock(const std::string& path)
    : descriptor_(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
  if (descriptor_ < 0) return;
  while (::flock(descriptor_, LOCK_EX) != 0 && errno == EINTR) {
  }
}

FileLock::~FileLock() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace foundation
