#pragma once

#include <functional>
#include <memory>

namespace foundation {

/// The user-interface thread's loop: its queue, its clock, its timers and its display links. A
/// backend makes the one of the process and drives it from its own event loop; a script drives it
/// with a virtual clock.
class RunLoop {
 public:
  /// What a loop asks of the event loop that drives it.
  class Driver {
   public:
    virtual ~Driver() = default;
    /// Seconds on a clock that never goes back.
    virtual double now() const = 0;
    /// Makes the driving thread call runDue soon. Any thread, the audio thread included: takes no
    /// lock, allocates nothing, one system call at most.
    virtual void wake() = 0;
    /// A timer was set, moved or stopped, or a display link came or went: nextDeadline and
    /// wantsDisplayFrames may answer anew. User-interface thread.
    virtual void scheduleChanged() = 0;
  };

  /// Makes the process's one loop; a second while it lives is fatal. `driver` outlives it.
  explicit RunLoop(Driver& driver);
  /// Drops the tasks that are still queued. Timers and links that outlive the loop stay silent;
  /// ports wait for the next loop.
  ~RunLoop();
  RunLoop(const RunLoop&) = delete;
  RunLoop& operator=(const RunLoop&) = delete;

  /// The process's loop; fatal when there is none.
  static RunLoop& main();
  /// The process's loop, or null.
  static RunLoop* mainIfAny();

  /// Seconds on the driver's clock.
  double now() const;

  // For the driver

  /// Runs what is due: ports, tasks and timers, until none is left that was due when it began.
  void runDue();
  /// When the next timer is due, on the driver's clock; infinity when none is set.
  double nextDeadline() const;
  /// True while a display link lives that is not paused.
  bool wantsDisplayFrames() const;
  /// Calls every display link that is not paused, once.
  void displayFrame();

 private:
  friend class Timer;
  friend class DisplayLink;
  friend class RealtimePort;
  friend class DispatchQueue;
  struct State;
  std::shared_ptr<State> state_;
};

/// Calls back on the main run loop after an interval. Stops when it is destroyed, also from within
/// its own callback. User-interface thread only.
class Timer {
 public:
  enum class Repeat { once, forever };

  /// A timer that is not set.
  Timer();
  /// Due every `interval` seconds from now on (at least 0.0001); a repeating timer whose loop ran
  /// late does not make up for missed turns.
  Timer(double interval, Repeat repeat, std::function<void()> action);
  ~Timer();
  Timer(Timer&&) noexcept;
  Timer& operator=(Timer&&) noexcept;

  bool isValid() const;
  void invalidate();

 private:
  struct Entry;
  friend class RunLoop;
  std::shared_ptr<Entry> entry_;
};

/// Calls back once for every frame that the display shows, while not paused. Stops when it is
/// destroyed, also from within its own callback. User-interface thread only.
class DisplayLink {
 public:
  explicit DisplayLink(std::function<void()> action);
  ~DisplayLink();
  DisplayLink(const DisplayLink&) = delete;
  DisplayLink& operator=(const DisplayLink&) = delete;

  bool isPaused() const;
  void setPaused(bool paused);

 private:
  struct Entry;
  friend class RunLoop;
  std::shared_ptr<Entry> entry_;
};

}  // namespace foundation
