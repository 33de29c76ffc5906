#pragma once

#include <functional>
#include <optional>
#include <string>

namespace platform {

/// Folders that are also kept elsewhere, for all of the user's devices. A file that is not here yet
/// is listed as a placeholder with the extension "icloud"; coordinated reading brings the file.
/// Any thread.
class CloudStorage {
 public:
  virtual ~CloudStorage() = default;

  /// The folder of a container, by its identifier, or without one the program's own; none when the
  /// user has no account or there is no such container.
  virtual std::optional<std::string> container(const std::optional<std::string>& identifier) = 0;
  /// Whether this item belongs to the cloud.
  virtual bool isUbiquitousItem(const std::string& path) = 0;
  /// Makes sure that the real file is here, which may take as long as the network does, and then
  /// calls `accessor` once on a thread of the global queue: with the path of the file, or without
  /// one when it could not be brought. Returns at once. Nothing is called once the program ends.
  virtual void coordinateReading(const std::string& path,
                                 std::function<void(std::optional<std::string>)> accessor) = 0;
};

}  // namespace platform
