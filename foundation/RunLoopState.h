#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <vector>

#include "foundation/RunLoop.h"

namespace foundation {

struct Timer::Entry {
  std::weak_ptr<RunLoop::State> loop;
  double interval = 0;
  double deadline = 0;
  /// Orders timers that are due at the same moment.
  std::uint64_t number = 0;
  Repeat repeat = Repeat::once;
  std::function<void()> action;
  bool valid = true;
};

struct DisplayLink::Entry {
  std::weak_ptr<RunLoop::State> loop;
  std::function<void()> action;
  bool valid = true;
  bool paused = false;
};

/// What a RunLoop hides. Timers and links hold it weakly, so they may outlive the loop; the loop
/// holds their entries while it calls them, so they may die in their own callbacks.
struct RunLoop::State {
  explicit State(Driver& theDriver) : driver(theDriver) {}

  /// The main run loop's, or null. Any thread.
  static std::shared_ptr<State> ofMain();

  /// False when the loop has ended. Any thread.
  bool post(std::function<void()> task);
  void runAfter(double seconds, std::function<void()> task);
  void runTasks(std::uint64_t end);
  void runTimers();
  void remove(const Timer::Entry& entry);
  void remove(const DisplayLink::Entry& entry);

  Driver& driver;
  /// Changed with `mutex` held, so that other threads may read it then.
  bool running = true;

  std::mutex mutex;
  /// Guarded by `mutex`, like the two counts: tasks taken out and put in so far.
  std::deque<std::function<void()>> tasks;
  std::uint64_t tasksTaken = 0;
  std::uint64_t tasksPosted = 0;

  std::vector<std::shared_ptr<Timer::Entry>> timers;
  std::uint64_t timersMade = 0;
  std::vector<std::shared_ptr<DisplayLink::Entry>> links;
  /// Timers that nobody else holds.
  std::list<Timer> delayed;
};

}  // namespace foundation
