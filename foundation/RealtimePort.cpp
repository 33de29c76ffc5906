#include "foundation/RealtimePort.h"

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

#include "foundation/LoopWaker.h"
#include "foundation/MessageRing.h"

namespace foundation {

/// Lives on while a drain is under way that its port has not survived.
struct RealtimePort::State {
  State(std::size_t capacity, std::function<void(std::uint64_t)> theReceived,
        std::function<void()> theOverflowed)
      : ring(capacity), received(std::move(theReceived)), overflowed(std::move(theOverflowed)) {}

  void drain();

  // Never destroyed: a port may live in a static object that dies later.
  static std::vector<std::shared_ptr<State>>& all() {
    static auto& list = *new std::vector<std::shared_ptr<State>>;
    return list;
  }

  MessageRing ring;
  std::function<void(std::uint64_t)> received;
  std::function<void()> overflowed;
  std::atomic<bool> refusing{false};
  /// Until its port dies; then no callback comes any more, not even from a drain under way.
  bool open = true;
};

RealtimePort::RealtimePort(std::size_t capacity, std::function<void(std::uint64_t)> received,
                           std::function<void()> overflowed)
    : state_(std::make_shared<State>(capacity, std::move(received), std::move(overflowed))) {
  State::all().push_back(state_);
}

RealtimePort::~RealtimePort() {
  state_->open = false;
  std::erase(State::all(), state_);
}

bool RealtimePort::post(std::uint64_t message) noexcept {
  const bool accepted =
      !state_->refusing.load(std::memory_order_relaxed) && state_->ring.push(message);
  // Written even where it is set already: the drain that clears it then sees all that this
  // thread did before, so reading everything anew in `overflowed` misses nothing.
  if (!accepted) state_->refusing.exchange(true);
  LoopWaker::wake();
  return accepted;
}

void RealtimePort::drainAll() {
  const auto states = State::all();
  for (const auto& state : states) state->drain();
}

void RealtimePort::State::drain() {
  const std::uint64_t end = ring.pushed();
  std::uint64_t message = 0;
  // A callback may run the loop, and so this drain, anew: the ring's own position counts.
  while (open && static_cast<std::int64_t>(end - ring.popped()) > 0 && ring.pop(message))
    if (received) received(message);
  const bool emptied = static_cast<std::int64_t>(end - ring.popped()) <= 0;
  if (open && emptied && refusing.exchange(false) && overflowed) overflowed();
}

}  // namespace foundation
