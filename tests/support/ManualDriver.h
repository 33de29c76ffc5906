#pragma once

#include <algorithm>
#include <atomic>
#include <cmath>

#include "foundation/RunLoop.h"
#include "platform/Fatal.h"

namespace support {

/// Drives the main run loop by hand on a clock that moves only when a test says so: timers run in
/// the order in which they are due and a display shows 60 frames in each second.
///
///     support::ManualLoop loop;      // the driver and the process's run loop
///     controller.start();
///     loop.advance(0.25);            // two ticks of a 0.1 s timer, 15 frames of a display link
class ManualDriver : public foundation::RunLoop::Driver {
 public:
  static constexpr double framesPerSecond = 60;

  double now() const override { return now_; }
  void wake() override {
    wakes_.fetch_add(1, std::memory_order_relaxed);
    awake_.store(true, std::memory_order_release);
  }
  void scheduleChanged() override { ++scheduleChanges_; }

  /// Wakes since the driver was made.
  int wakes() const { return wakes_.load(std::memory_order_relaxed); }
  int scheduleChanges() const { return scheduleChanges_; }

  /// Runs what is queued, and what that queues in turn, without moving the clock.
  void settle() {
    foundation::RunLoop& loop = foundation::RunLoop::main();
    awake_.store(true, std::memory_order_relaxed);
    for (int turn = 0; awake_.exchange(false, std::memory_order_acq_rel); ++turn) {
      if (turn > 100000) platform::fatal("The run loop's queue never empties");
      loop.runDue();
    }
  }

  /// Moves the clock on, stopping wherever a timer is due or a frame is shown.
  void advance(double seconds) {
    const double end = now_ + seconds;
    settle();
    for (;;) {
      const double timer = foundation::RunLoop::main().nextDeadline();
      const double frame = (frames_ + 1) / framesPerSecond;
      const double next = std::min(timer, frame);
      // Deadlines are sums of fractions: one that is due at `end` may come out a hair later.
      if (!(next <= end + 1e-9)) break;
      now_ = std::max(now_, next);
      settle();
      if (frame <= next) {
        frames_ += 1;
        if (foundation::RunLoop::main().wantsDisplayFrames())
          foundation::RunLoop::main().displayFrame();
        settle();
      }
    }
    now_ = std::max(now_, end);
  }

  /// Moves the clock on without running anything, as an event loop that was kept busy does.
  void stall(double seconds) {
    now_ += seconds;
    frames_ = std::floor(now_ * framesPerSecond);
  }

 private:
  double now_ = 0;
  double frames_ = 0;
  int scheduleChanges_ = 0;
  std::atomic<int> wakes_{0};
  std::atomic<bool> awake_{false};
};

/// The driver together with the run loop that it drives, for a fixture's member.
class ManualLoop {
 public:
  void advance(double seconds) { driver.advance(seconds); }
  void settle() { driver.settle(); }

  ManualDriver driver;
  foundation::RunLoop loop{driver};
};

}  // namespace support
