#include "backends/headless/FolderDownloader.h"

#include <utility>

#include "foundation/DefaultFileManager.h"
#include "foundation/DispatchQueue.h"

namespace headless {

FolderDownloader::FolderDownloader(std::string remote, std::string local)
    : remote_(std::move(remote)), local_(std::move(local)) {}

void FolderDownloader::download(const std::string& path, std::function<void(bool)> done) {
  const bool isOurs = path.starts_with(local_ + '/');
  foundation::DispatchQueue::globalAsync(
      [isOurs, path, done = std::move(done),
       source = remote_ + path.substr(isOurs ? local_.size() : 0)] {
        if (!isOurs) return done(false);
        const auto error = foundation::DefaultFileManager::current().copyItem(source, path);
        // Another coordinated read may have been quicker.
        done(!error || error->code == platform::FileError::Code::fileExists);
      });
}

}  // namespace headless
