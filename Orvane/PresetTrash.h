#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/FileManager.h"

namespace orvane {

/// What the user has deleted or saved over, for thirty days: in a folder beside that of the presets,
/// each file under its own name in a folder that is called by the time (UTC), so that it is found
/// without this program too. Whatever else lies there is left alone. The store of presets makes one
/// where it needs it.
class PresetTrash {
 public:
  using Clock = std::chrono::system_clock;
  static constexpr const char* folderName = "PresetTrash";
  static constexpr std::chrono::hours keptFor{30 * 24};

  struct Entry {
    /// Of the file itself.
    std::string path;
    Clock::time_point time;
  };

  /// `folder` need not be there; it is made for the first file.
  PresetTrash(platform::FileManager& files, std::string folder);

  /// Moves a file, or a link itself, here. Where it is now; none, with an `error`, when it could not
  /// be moved.
  std::optional<std::string> take(const std::string& path, platform::FileError& error,
                                  Clock::time_point now = Clock::now());
  /// Keeps what a file of this name held.
  std::optional<std::string> keep(std::span<const std::uint8_t> bytes, const std::string& name,
                                  platform::FileError& error, Clock::time_point now = Clock::now());
  /// Removes for good what `take` or `keep` has told, or what is left of it.
  void forget(const std::string& kept);
  void removeOld(Clock::time_point now = Clock::now());
  /// In the order of the file system.
  std::vector<Entry> entries() const;

 private:
  /// Makes the folder of one entry.
  std::optional<std::string> makePlace(platform::FileError& error, Clock::time_point now);

  platform::FileManager& files_;
  const std::string folder_;
};

}  // namespace orvane
