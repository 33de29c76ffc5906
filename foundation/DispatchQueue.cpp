#include "foundation/DispatchQueue.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "foundation/RunLoopState.h"

namespace foundation {

namespace {

/// A few threads that are started when there is work for them and end with the program.
class GlobalQueue {
 public:
  ~GlobalQueue() {
    std::deque<DispatchQueue::Task> dropped;
    {
      const std::lock_guard lock(mutex_);
      stopping_ = true;
      dropped.swap(tasks_);
    }
    work_.notify_all();
    for (std::thread& thread : threads_) thread.join();
  }

  void add(DispatchQueue::Task task) {
    {
      const std::lock_guard lock(mutex_);
      if (stopping_) return;
      tasks_.push_back(std::move(task));
      if (tasks_.size() > waiting_ && threads_.size() < maxThreads)
        threads_.emplace_back([this] { run(); });
    }
    work_.notify_one();
  }

  void wait() {
    std::unique_lock lock(mutex_);
    idle_.wait(lock, [this] { return tasks_.empty() && busy_ == 0; });
  }

 private:
  static constexpr std::size_t maxThreads = 4;

  void run() {
    std::unique_lock lock(mutex_);
    for (;;) {
      ++waiting_;
      work_.wait(lock, [this] { return stopping_ || !tasks_.empty(); });
      --waiting_;
      if (stopping_) return;
      DispatchQueue::Task task = std::move(tasks_.front());
      tasks_.pop_front();
      ++busy_;
      lock.unlock();
      task();
      // What it owns may post, and goes before it counts as done.
      task = nullptr;
      lock.lock();
      --busy_;
      if (tasks_.empty() && busy_ == 0) idle_.notify_all();
    }
  }

  std::mutex mutex_;
  std::condition_variable work_, idle_;
  std::deque<DispatchQueue::Task> tasks_;
  std::vector<std::thread> threads_;
  std::size_t waiting_ = 0, busy_ = 0;
  bool stopping_ = false;
};

GlobalQueue& globalQueue() {
  static GlobalQueue queue;
  return queue;
}

}  // namespace

void DispatchQueue::mainAsync(Task task) {
  if (const auto state = RunLoop::State::ofMain()) state->post(std::move(task));
}

void DispatchQueue::mainAsyncAfter(double seconds, Task task) {
  mainAsync([seconds, task = std::move(task)]() mutable {
    if (const auto state = RunLoop::State::ofMain()) state->runAfter(seconds, std::move(task));
  });
}

void DispatchQueue::globalAsync(Task task) { globalQueue().add(std::move(task)); }

void DispatchQueue::waitForGlobal() { globalQueue().wait(); }

}  // namespace foundation
