#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/FileManager.h"

namespace foundation {

/// A file that takes its name only when it is complete. It is written under a name of its own in
/// the same folder, waits once for the disk, and is renamed; the folder is brought to the disk
/// later, beside whoever writes. A process that is killed meanwhile leaves such a file behind.
class SafeFile {
 public:
  /// For a file that is to be at `path`; `verb` is for messages: "saved".
  enum class Lasting { throughPowerCuts, inThisSession };
  SafeFile(std::string path, std::string verb, Lasting lasting = Lasting::throughPowerCuts);
  /// Removes what was not committed.
  ~SafeFile();
  SafeFile(const SafeFile&) = delete;
  SafeFile& operator=(const SafeFile&) = delete;

  // Each returns why it failed; nothing can be done then but destroy the file.

  platform::FileManager::Error open();
  platform::FileManager::Error append(std::span<const std::uint8_t> bytes);
  /// Replaces the file of that name, if there is one.
  platform::FileManager::Error commitReplacing();
  /// Fails when something of that name is there already.
  platform::FileManager::Error commitNew();

  /// Whether a name is one of a file that was not completed.
  static bool isUnfinished(std::string_view name);
  /// A name of that kind that nobody else uses.
  static std::string unfinishedName();
  /// Brings renames and removals in the folder of `path` to the disk, without waiting for it.
  static void syncFolder(const std::string& path);
  /// The same, waiting until it is there.
  static void waitForFolder(const std::string& path);

 private:
  platform::FileManager::Error finishWriting();
  platform::FileManager::Error failure(int errorNumber) const;

  std::string path_, verb_, temporary_;
  const Lasting lasting_;
  int descriptor_ = -1;
};

/// The folder of a path: everything before its last "/".
std::string folderOf(const std::string& path);
/// A path that the system would cut off.
bool hasNul(std::string_view path);

/// `verb` is what could not be done to the file: "saved".
platform::FileError fileError(std::string_view path, std::string_view verb, int errorNumber);
platform::FileError fileError(std::string_view path, std::string_view verb, std::string_view why);

}  // namespace foundation
