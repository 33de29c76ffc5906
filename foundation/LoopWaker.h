#pragma once

#include "foundation/RunLoop.h"

namespace foundation {

/// Wakes whatever drives the main run loop, at most once between two drains. There is one for the
/// process, as there is one main run loop; it works while there is none, and across the end of one,
/// because audio threads do not know when an editor closes.
class LoopWaker {
 public:
  /// From now on `driver` is woken, once at first: messages may have been waiting for a loop.
  static void attach(RunLoop::Driver& driver);
  /// Returns when nobody is inside the driver's wake any more, after which nobody enters it.
  static void detach();
  /// Any thread: takes no lock and allocates nothing.
  static void wake() noexcept;
  /// To be called before a drain looks at its queues: what comes later wakes again.
  static void drainBegins() noexcept;
};

}  // namespace foundation
