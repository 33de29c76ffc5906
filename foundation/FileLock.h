#pragma once

#include <string>

namespace foundation {

/// Keeps all other processes and threads that lock the same file waiting as long as it lives. It
/// ends with the process, however that ends.
class FileLock {
 public:
  /// Makes the file, whose content nobody reads. Without effect where it cannot be made.
  explicit FileLock(const std::string& path);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

 private:
  int descriptor_;
};

}  // namespace foundation
