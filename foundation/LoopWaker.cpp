#include "foundation/LoopWaker.h"

#include <atomic>
#include <thread>

namespace foundation {

namespace {

std::atomic<RunLoop::Driver*> currentDriver{nullptr};
std::atomic<int> threadsInside{0};
std::atomic<bool> wakePending{false};

}  // namespace

void LoopWaker::attach(RunLoop::Driver& driver) {
  wakePending.store(false);
  currentDriver.store(&driver);
  wake();
}

void LoopWaker::detach() {
  currentDriver.store(nullptr);
  while (threadsInside.load() != 0) std::this_thread::yield();
}

void LoopWaker::wake() noexcept {
  // In one total order with detach: either the driver is seen to be gone here, or this thread is
  // seen to be inside there.
  threadsInside.fetch_add(1);
  if (RunLoop::Driver* driver = currentDriver.load())
    if (!wakePending.exchange(true)) driver->wake();
  threadsInside.fetch_sub(1);
}

void LoopWaker::drainBegins() noexcept { wakePending.exchange(false); }

}  // namespace foundation
