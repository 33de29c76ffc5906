#pragma once

#include <functional>

namespace foundation {

/// Where tasks run that are handed over: on the user-interface thread, or beside it.
class DispatchQueue {
 public:
  using Task = std::function<void()>;

  /// The main run loop. A task is dropped when there is none, or none any more when its turn comes.
  /// Any thread.
  static void mainAsync(Task task);
  /// The same, at least `seconds` later on the run loop's clock.
  static void mainAsyncAfter(double seconds, Task task);

  /// A thread beside the user-interface thread. Tasks begin in the order in which they were handed
  /// over and some run at the same time, so none may wait for another. What has not begun when the
  /// program ends is dropped. Any thread but the audio thread.
  static void globalAsync(Task task);
  /// Returns when the global queue has nothing left to do.
  static void waitForGlobal();
};

}  // namespace foundation
