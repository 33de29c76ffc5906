#include "Orvane/ICloudMigrationHelper.h"

#include <atomic>
#include <memory>
#include <utility>
#include <vector>

#include "Orvane/CoordinatedReading.h"
#include "Orvane/ICloudManager.h"
#include "foundation/Console.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/DispatchQueue.h"
#include "platform/FileManager.h"
#include "platform/FilePath.h"

namespace orvane {

using foundation::printToConsole;
using platform::FileManager;

namespace {

constexpr double secondsToNextRun = 1;

void moveFile(FileManager& files, const std::string& item, const std::optional<std::string>& path,
              const std::string& targetFolder) {
  FileManager::Error error;
  if (path) {
    error = files.moveItem(*path, targetFolder + '/' + platform::lastPathComponent(*path));
  } else {
    error.emplace().localizedDescription =
        '"' + platform::lastPathComponent(item) + "\" could not be downloaded";
  }
  if (error) printToConsole("Unable to copy preset file... " + error->localizedDescription);
}

}  // namespace

void ICloudMigrationHelper::movePresetsFromPreviousICloud(
    const std::string& previousIdentifier, const std::string& extraResourceFolderName) {
  const ICloudManager current(std::nullopt), previous(previousIdentifier);
  FileManager& files = foundation::DefaultFileManager::current();
  const auto from = previous.iCloudURL(), to = current.iCloudURL();
  std::vector<std::string> names{"Presets"};
  if (platform::isFileName(extraResourceFolderName)) names.push_back(extraResourceFolderName);

  if (from) {
    std::size_t left = 0;
    for (const std::string& name : names)
      if (const auto entries = files.contentsOfDirectory(*from + '/' + name))
        left += entries->size();
    if (left == 0)
      if (const auto error = files.removeItem(*from))
        printToConsole("Unable to remove " + error->localizedDescription);
  }
  if (!from || !to) return;

  // One next run for all files of this one: it sees them all, and a run for each of them would
  // double the runs every second as soon as two files cannot be moved.
  const auto again = [previousIdentifier, extraResourceFolderName,
                      isPlanned = std::make_shared<std::atomic<bool>>(false)] {
    if (isPlanned->exchange(true)) return;
    foundation::DispatchQueue::mainAsyncAfter(
        secondsToNextRun, [previousIdentifier, extraResourceFolderName] {
          movePresetsFromPreviousICloud(previousIdentifier, extraResourceFolderName);
        });
  };
  for (const std::string& name : names) {
    const std::string source = *from + '/' + name, target = *to + '/' + name;
    const auto entries = files.contentsOfDirectory(source);
    if (!entries) continue;
    std::vector<std::string> items;
    for (const auto& entry : *entries) items.push_back(source + '/' + entry.name);
    CoordinatedReading::start(
        files.cloud(), std::move(items), [](const std::string&) { return true; },
        [&files, target, again](const std::string& item, const std::optional<std::string>& path) {
          moveFile(files, item, path, target);
          again();
        });
  }
}

}  // namespace orvane
