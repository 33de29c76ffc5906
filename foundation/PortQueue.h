#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>

#include "foundation/MessageRing.h"

namespace foundation {

/// What stands behind a RealtimePort: the ring, the callbacks and a place in the list of all ports
/// of the process, which every turn of the main run loop drains.
class PortQueue {
 public:
  PortQueue(std::size_t capacity, std::function<void(std::uint64_t)> received,
            std::function<void()> overflowed);

  /// Puts a queue into the list; user-interface thread, as all but post.
  static void open(std::shared_ptr<PortQueue> queue);
  /// Takes it out; no callback comes any more, not even from a drain that is under way.
  void close();

  bool post(std::uint64_t message) noexcept;

  /// Delivers what had been posted to any open queue when this was called.
  static void drainAll();

 private:
  void drain();

  MessageRing ring_;
  std::function<void(std::uint64_t)> received_;
  std::function<void()> overflowed_;
  std::atomic<bool> refusing_{false};
  bool open_ = true;
};

}  // namespace foundation
