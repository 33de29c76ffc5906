#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <utility>

#include "backends/headless/FolderDownloader.h"
#include "foundation/DispatchQueue.h"

namespace support {

/// What a slow or broken network makes of downloads from a folder.
class TroubledDownloader : public headless::FolderDownloader {
 public:
  using FolderDownloader::FolderDownloader;

  /// Seconds that each download takes on the main run loop's clock.
  std::atomic<double> delay{0};
  std::atomic<bool> failing{false};
  /// Downloads that were asked for so far.
  std::atomic<int> count{0};

  void download(const std::string& path, std::function<void(bool)> done) override {
    ++count;
    if (failing) return foundation::DispatchQueue::globalAsync([done] { done(false); });
    if (delay <= 0) return FolderDownloader::download(path, std::move(done));
    foundation::DispatchQueue::mainAsyncAfter(
        delay, [this, path, done] { FolderDownloader::download(path, done); });
  }
};

}  // namespace support
