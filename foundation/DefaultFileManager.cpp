#include "foundation/DefaultFileManager.h"

#include <atomic>

#include "foundation/DispatchQueue.h"
#include "foundation/LocalFileManager.h"

namespace foundation {

using platform::FileManager;

namespace {

std::atomic<FileManager*> currentManager{nullptr};

}  // namespace

DefaultFileManager::DefaultFileManager(FileManager& manager)
    : previous_(currentManager.exchange(&manager)) {}

DefaultFileManager::~DefaultFileManager() {
  DispatchQueue::waitForGlobal();
  currentManager.store(previous_);
}

FileManager& DefaultFileManager::current() {
  if (FileManager* manager = currentManager.load()) return *manager;
  // Never destroyed: threads may still use it while the program ends.
  static auto& usersOwn = *new LocalFileManager(LocalFileManager::usersDataFolder());
  return usersOwn;
}

}  // namespace foundation
