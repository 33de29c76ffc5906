#pragma once

#include <functional>
#include <optional>
#include <string>

namespace orvane {

/// Finds the folder of the user's documents in the cloud and has its files brought here.
/// User-interface thread, which never waits for the cloud.
class ICloudManager {
 public:
  /// Without an identifier, the program's own container.
  explicit ICloudManager(std::optional<std::string> identifier);

  /// The path of the container's documents; none without a cloud. Asked anew each time.
  std::optional<std::string> iCloudURL() const;
  /// Makes the documents' folder.
  void initialize() const;
  /// Has each file of the folder that is in the cloud only brought here, one after the other, and
  /// calls `completion` with its path then, on a thread of the global queue.
  void sync(const std::optional<std::string>& url,
            std::function<void(const std::string& path)> completion) const;

  const std::optional<std::string> identifier;
};

}  // namespace orvane
