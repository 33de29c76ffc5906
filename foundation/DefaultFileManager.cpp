#include "foundation/DefaultFileManager.h"

#include "foundation/DispatchQueue.h"
#include "foundation/FolderCloud.h"
#include "foundation/LocalFileManager.h"

namespace foundation {

using platform::FileManager;

DefaultFileManager::~DefaultFileManager() { DispatchQueue::waitForGlobal(); }

FileManager& DefaultFileManager::current() {
  FileManager* const given = Override<FileManager*>::with(
      [](FileManager* const* manager) { return manager ? *manager : nullptr; });
  if (given) return *given;
  // Never destroyed: threads may still use it while the program ends.
  static auto& usersOwn =
      *new LocalFileManager(LocalFileManager::usersDataFolder(),
                            LocalFileManager::Groups::eachItsOwn, UsersCloud::ofEnvironment());
  static const struct AtExit {
    ~AtExit() { usersOwn.removeTemporaryDirectory(); }
  } atExit;
  return usersOwn;
}

}  // namespace foundation
