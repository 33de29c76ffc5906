#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace foundation {

/// The road from any thread, the audio thread included, to the user-interface thread: small
/// messages that arrive in the order in which they were posted, none merged. It is bounded: when
/// it is full, further messages are refused until the user-interface thread has emptied it, and
/// that drain ends by calling `overflowed` once, so that the owner can read everything anew.
/// Messages that are posted while there is no main run loop wait for one. Made and destroyed on the
/// user-interface thread; nobody may post while it is destroyed.
class RealtimePort {
 public:
  /// `capacity` is rounded up to a power of two. Both callbacks run on the user-interface thread,
  /// driven by the main run loop.
  RealtimePort(std::size_t capacity, std::function<void(std::uint64_t)> received,
               std::function<void()> overflowed);
  /// Messages that have not arrived yet are dropped.
  ~RealtimePort();
  RealtimePort(const RealtimePort&) = delete;
  RealtimePort& operator=(const RealtimePort&) = delete;

  /// Any thread: takes no lock, allocates nothing, wakes the loop at most once per drain. False
  /// when the port was full.
  bool post(std::uint64_t message) noexcept;

 private:
  friend class RunLoop;
  struct State;

  /// Delivers what had been posted to any port of the process when this was called.
  static void drainAll();

  std::shared_ptr<State> state_;
};

}  // namespace foundation
