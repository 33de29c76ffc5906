#include "foundation/RunLoop.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <utility>

#include "foundation/LoopWaker.h"
#include "foundation/PortQueue.h"
#include "foundation/RunLoopState.h"
#include "platform/Fatal.h"

namespace foundation {

using platform::fatal;

namespace {

std::atomic<RunLoop*> mainLoop{nullptr};
std::mutex mainStateMutex;
/// Guarded by mainStateMutex: threads that hold on to it are heard until the loop ends.
std::weak_ptr<void> mainState;

}  // namespace

RunLoop::RunLoop(Driver& driver) : state_(std::make_shared<State>(driver)) {
  RunLoop* none = nullptr;
  if (!mainLoop.compare_exchange_strong(none, this)) fatal("There is a main run loop already");
  {
    const std::lock_guard lock(mainStateMutex);
    mainState = state_;
  }
  LoopWaker::attach(driver);
}

RunLoop::~RunLoop() {
  LoopWaker::detach();
  mainLoop.store(nullptr);
  // What the tasks own dies here and not under the lock: it may post.
  std::deque<std::function<void()>> dropped;
  const std::list<Timer> droppedTimers = std::move(state_->delayed);
  {
    const std::lock_guard lock(state_->mutex);
    state_->running = false;
    dropped.swap(state_->tasks);
    state_->tasksTaken = state_->tasksPosted;
  }
}

RunLoop& RunLoop::main() {
  RunLoop* loop = mainIfAny();
  if (!loop) fatal("There is no main run loop");
  return *loop;
}

RunLoop* RunLoop::mainIfAny() { return mainLoop.load(); }

void RunLoop::async(std::function<void()> task) { state_->post(std::move(task)); }

std::shared_ptr<RunLoop::State> RunLoop::State::ofMain() {
  const std::lock_guard lock(mainStateMutex);
  return std::static_pointer_cast<State>(mainState.lock());
}

bool RunLoop::State::post(std::function<void()> task) {
  {
    const std::lock_guard lock(mutex);
    if (!running) return false;
    tasks.push_back(std::move(task));
    ++tasksPosted;
  }
  LoopWaker::wake();
  return true;
}

void RunLoop::State::runAfter(double seconds, std::function<void()> task) {
  const auto place = delayed.insert(delayed.end(), Timer());
  *place = Timer(seconds, Timer::Repeat::once, [this, place, task = std::move(task)] {
    delayed.erase(place);
    task();
  });
}

double RunLoop::now() const { return state_->driver.now(); }

void RunLoop::runDue() {
  // A task may destroy the loop.
  const std::shared_ptr<State> state = state_;
  LoopWaker::drainBegins();
  std::uint64_t end = 0;
  {
    const std::lock_guard lock(state->mutex);
    end = state->tasksPosted;
  }
  // After the look at the tasks: a thread that posts a message and then a task is heard in order.
  PortQueue::drainAll();
  state->runTasks(end);
  state->runTimers();
}

void RunLoop::State::runTasks(std::uint64_t end) {
  while (running) {
    std::function<void()> task;
    {
      const std::lock_guard lock(mutex);
      // Taken one by one: a task may run the loop anew, and order is kept then too.
      if (tasksTaken >= end) return;
      task = std::move(tasks.front());
      tasks.pop_front();
      ++tasksTaken;
    }
    if (task) task();
  }
}

double RunLoop::nextDeadline() const {
  double next = std::numeric_limits<double>::infinity();
  for (const auto& timer : state_->timers) next = std::min(next, timer->deadline);
  return next;
}

bool RunLoop::wantsDisplayFrames() const {
  for (const auto& link : state_->links)
    if (!link->paused) return true;
  return false;
}

void RunLoop::displayFrame() {
  const std::shared_ptr<State> state = state_;
  const auto links = state->links;
  for (const auto& link : links)
    if (state->running && link->valid && !link->paused) link->action();
}

}  // namespace foundation
