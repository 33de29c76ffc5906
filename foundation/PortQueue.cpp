#include "foundation/PortQueue.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "foundation/LoopWaker.h"

namespace foundation {

namespace {

using QueueList = std::vector<std::shared_ptr<PortQueue>>;

// Never destroyed: a port may live in a static object that dies later.
QueueList& openQueues() {
  static QueueList& list = *new QueueList;
  return list;
}

}  // namespace

PortQueue::PortQueue(std::size_t capacity, std::function<void(std::uint64_t)> received,
                     std::function<void()> overflowed)
    : ring_(capacity), received_(std::move(received)), overflowed_(std::move(overflowed)) {}

void PortQueue::open(std::shared_ptr<PortQueue> queue) { openQueues().push_back(std::move(queue)); }

void PortQueue::close() {
  open_ = false;
  QueueList& list = openQueues();
  list.erase(std::remove_if(list.begin(), list.end(),
                            [this](const auto& queue) { return queue.get() == this; }),
             list.end());
}

bool PortQueue::post(std::uint64_t message) noexcept {
  if (refusing_.load(std::memory_order_relaxed) || !ring_.push(message)) {
    // Written even where it is set already: the drain that clears it then sees all that this
    // thread did before, so reading everything anew in `overflowed` misses nothing.
    refusing_.exchange(true);
    LoopWaker::wake();
    return false;
  }
  LoopWaker::wake();
  return true;
}

void PortQueue::drainAll() {
  const QueueList queues = openQueues();
  for (const auto& queue : queues) queue->drain();
}

void PortQueue::drain() {
  const std::uint64_t end = ring_.pushed();
  std::uint64_t message = 0;
  // A callback may run the loop, and so this drain, anew: the ring's own position counts.
  while (open_ && static_cast<std::int64_t>(end - ring_.popped()) > 0 && ring_.pop(message))
    if (received_) received_(message);
  const bool emptied = static_cast<std::int64_t>(end - ring_.popped()) <= 0;
  if (open_ && emptied && refusing_.exchange(false) && overflowed_) overflowed_();
}

}  // namespace foundation
