#include "foundation/RealtimePort.h"

#include <utility>

#include "foundation/PortQueue.h"

namespace foundation {

struct RealtimePort::State : PortQueue {
  using PortQueue::PortQueue;
};

RealtimePort::RealtimePort(std::size_t capacity, std::function<void(std::uint64_t)> received,
                           std::function<void()> overflowed)
    : state_(std::make_shared<State>(capacity, std::move(received), std::move(overflowed))) {
  PortQueue::open(state_);
}

RealtimePort::~RealtimePort() { state_->close(); }

bool RealtimePort::post(std::uint64_t message) noexcept { return state_->post(message); }

}  // namespace foundation
