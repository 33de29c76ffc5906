#pragma once

#include <string>

namespace foundation {

/// Tells whether anything in a folder may have changed since it began to watch: its files, their
/// content, their attributes. Where that cannot be known for sure (a network, a system without such
/// news) it says so at once. What is done to a file through a name of it elsewhere it does not see.
/// One thread at a time.
class FolderWatch {
 public:
  /// Begins before whoever uses it lists the folder.
  explicit FolderWatch(const std::string& path);
  ~FolderWatch();
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

  /// True from the first change on.
  bool mayHaveChanged();

 private:
  const std::string path_;
  int descriptor_ = -1;
  unsigned long long device_ = 0, file_ = 0;
};

}  // namespace foundation
