#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/CloudStorage.h"

namespace orvane {

/// Reads items of the cloud one after the other, beside the user-interface thread: the next one is
/// asked for when `accessor` has had the one before, or has learnt that it does not come.
class CoordinatedReading {
 public:
  using Accessor =
      std::function<void(const std::string& item, const std::optional<std::string>& path)>;

  /// Goes on by itself and holds what it needs. `wants` is asked on the global queue too.
  static void start(std::shared_ptr<platform::CloudStorage> cloud, std::vector<std::string> items,
                    std::function<bool(const std::string& item)> wants, Accessor accessor);
};

}  // namespace orvane
