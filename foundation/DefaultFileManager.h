#pragma once

#include "foundation/Override.h"
#include "platform/FileManager.h"

namespace foundation {

/// Makes a file manager the process's default one as long as it lives: a program's or a test's own
/// containers. It ends when no work on the global queue uses its manager any more. User-interface
/// thread.
class DefaultFileManager {
 public:
  /// `manager` outlives it.
  explicit DefaultFileManager(platform::FileManager& manager) : given_(&manager) {}
  ~DefaultFileManager();
  DefaultFileManager(const DefaultFileManager&) = delete;
  DefaultFileManager& operator=(const DefaultFileManager&) = delete;

  /// The process's file manager: the one of the last DefaultFileManager, or else one of the
  /// user's own folders. Any thread.
  static platform::FileManager& current();

 private:
  Override<platform::FileManager*> given_;
};

}  // namespace foundation
