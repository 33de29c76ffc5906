#pragma once

#include <cstdint>
#include <vector>

#include "backends/headless/VirtualClock.h"
#include "foundation/RunLoop.h"

namespace headless {

/// The process's run loop on a virtual clock: nothing runs by itself, and the same calls give the
/// same order every time. Timers run in the order of their deadlines, display frames sixty times a
/// second while a display link wants them.
///
///     HeadlessRunLoop loop;
///     HeadlessHost host(loop, entry);
///     loop.advance(0.25);
class HeadlessRunLoop {
 public:
  static constexpr double framesPerSecond = 60;

  /// Something that is brought up to date whenever the loop has nothing left to run.
  class Screen {
   public:
    virtual ~Screen() = default;
    virtual void refresh() = 0;
  };

  HeadlessRunLoop() = default;
  HeadlessRunLoop(const HeadlessRunLoop&) = delete;
  HeadlessRunLoop& operator=(const HeadlessRunLoop&) = delete;

  /// Seconds since the loop was made.
  double now() const { return clock_.now(); }
  /// Runs everything that is due without moving the clock, and what that makes due in turn; then
  /// refreshes the screens. False when it gave up after many turns, because of a task that posts
  /// itself again for ever. Within a turn that is open it only waits for what was handed to other
  /// threads.
  bool runDue();
  /// Moves the clock on by `seconds`, stopping at every timer and display frame on the way.
  void advance(double seconds);

  /// Opens a turn of the loop: until endTurn nothing that is queued is delivered and no screen is
  /// refreshed, as between two turns of a real event loop that is kept busy. The clock cannot be
  /// moved meanwhile, nor another turn be opened.
  void beginTurn();
  /// Closes it and runs everything that is due.
  void endTurn();
  bool isInTurn() const { return inTurn_; }

  /// Frames at which display links were called.
  std::uint64_t displayFrames() const { return displayFrames_; }

  void addScreen(Screen& screen) { screens_.push_back(&screen); }
  void removeScreen(Screen& screen) { std::erase(screens_, &screen); }

 private:
  VirtualClock clock_;
  foundation::RunLoop loop_{clock_};
  std::vector<Screen*> screens_;
  std::uint64_t displayFrames_ = 0;
  /// Ticks of the display since the loop was made, shown or not; a whole number in a type that
  /// divides without a cast.
  double ticks_ = 0;
  bool inTurn_ = false;
};

}  // namespace headless
