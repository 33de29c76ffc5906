#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>

namespace foundation {

/// Tells what has changed in one folder, as far as the system gives news of it. All watches of the
/// process share what the system counts, and neither beginning nor ending one waits for it. A process
/// that was forked takes no news from the one that it comes from. Any thread, one at a time.
class FolderWatch {
 public:
  explicit FolderWatch(const std::string& path);
  ~FolderWatch();
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

  /// The names in the folder of what may have changed since the last call, or the beginning. None
  /// when anything may have; then this watch has no more to tell.
  std::optional<std::set<std::string>> changes();

 private:
  struct Instance;

  void note(std::uint32_t event, const char* name);

  const std::string path_;
  std::uint64_t device_ = 0, file_ = 0;
  /// Null for a watch that has nothing to tell.
  Instance* instance_ = nullptr;
  int watch_ = -1;
  // Under the instance's lock
  std::set<std::string> names_;
  bool isLost_ = false;
};

}  // namespace foundation
