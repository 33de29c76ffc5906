#include "foundation/FolderDownloader.h"

#include <utility>

#include "platform/DispatchQueue.h"
#include "platform/FileManager.h"

namespace foundation {

using platform::DispatchQueue;
using platform::FileError;
using platform::FileManager;

FolderDownloader::FolderDownloader(std::string remote, std::string local)
    : remote_(std::move(remote)), local_(std::move(local)) {}

void FolderDownloader::download(const std::string& path, std::function<void(bool)> done) {
  ++count_;
  const bool isOurs = path.starts_with(local_ + '/');
  const std::string source = remote_ + (isOurs ? path.substr(local_.size()) : "");
  const bool works = isOurs && !failing_;
  DispatchQueue::Task fetch = [works, source, path, done = std::move(done)] {
    bool came = false;
    if (works) {
      const auto error = FileManager::defaultManager().copyItem(source, path);
      // Another coordinated read may have been quicker.
      came = !error || error->code == FileError::Code::fileExists;
    }
    done(came);
  };
  const double delay = delay_;
  if (delay > 0)
    DispatchQueue::mainAsyncAfter(
        delay, [fetch = std::move(fetch)] { DispatchQueue::globalAsync(fetch); });
  else
    DispatchQueue::globalAsync(std::move(fetch));
}

}  // namespace foundation
