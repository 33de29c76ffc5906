#pragma once

#include <algorithm>
#include <atomic>

#include "foundation/RunLoop.h"

namespace headless {

/// The driver of a run loop whose time stands still until it is moved. Only `wake` may be called
/// on another thread.
class VirtualClock : public foundation::RunLoop::Driver {
 public:
  double now() const override { return now_; }
  void wake() override { woken_.store(true, std::memory_order_release); }
  void scheduleChanged() override {}

  /// Moves on to `time` in seconds; never back.
  void moveTo(double time) { now_ = std::max(now_, time); }
  /// Whether something has asked for runDue since the last call.
  bool takeWake() { return woken_.exchange(false, std::memory_order_acq_rel); }

 private:
  double now_ = 0;
  std::atomic<bool> woken_{false};
};

}  // namespace headless
