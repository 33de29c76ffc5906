#pragma once

#include <string>

#include "foundation/FolderCloud.h"

namespace headless {

/// Downloads from a plain folder that stands for the far side of the cloud: for scripts, which have
/// no other.
class FolderDownloader : public foundation::CloudDownloader {
 public:
  /// Files below `local` lie at the same place below `remote`.
  FolderDownloader(std::string remote, std::string local);

  void download(const std::string& path, std::function<void(bool)> done) override;

 private:
  const std::string remote_, local_;
};

}  // namespace headless
