#pragma once

#include <atomic>
#include <string>

#include "foundation/FolderCloud.h"

namespace foundation {

/// Downloads from a plain folder that stands for the far side of the cloud, for tests and for
/// trying what a slow or broken network does.
class FolderDownloader : public CloudDownloader {
 public:
  /// Files below `local` lie at the same place below `remote`.
  FolderDownloader(std::string remote, std::string local);

  /// Seconds that each download takes on the main run loop's clock; without a loop it never comes.
  /// Any thread, like setFailing.
  void setDelay(double seconds) { delay_ = seconds; }
  void setFailing(bool failing) { failing_ = failing; }
  /// Downloads that were asked for so far.
  int count() const { return count_; }

  void download(const std::string& path, std::function<void(bool)> done) override;

 private:
  const std::string remote_, local_;
  std::atomic<double> delay_{0};
  std::atomic<bool> failing_{false};
  std::atomic<int> count_{0};
};

}  // namespace foundation
