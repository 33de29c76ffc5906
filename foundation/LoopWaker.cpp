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
  // In this order: who finds nothing pending finds the driver.
  currentDriver.store(&driver);
  wakePending.store(false);
  wake();
}

void LoopWaker::detach() {
  currentDriver.store(nullptr);
  while (threadsInside.load() != 0) std::this_thread::yield();
}

void LoopWaker::wake() noexcept {
  // The drain that takes this back sees all that was pushed before, so one wake-up serves many.
  if (wakePending.exchange(true)) return;
  // In one total order with detach: either the driver is seen to be gone here, or this thread is
  // seen to be inside there.
  threadsInside.fetch_add(1);
  if (RunLoop::Driver* driver = currentDriver.load()) driver->wake();
  threadsInside.fetch_sub(1);
}

void LoopWaker::drainBegins() noexcept { wakePending.exchange(false); }

}  // namespace foundation
