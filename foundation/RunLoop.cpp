#include "foundation/RunLoop.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <utility>

#include "foundation/LoopWaker.h"
#include "foundation/RealtimePort.h"
#include "foundation/RunLoopState.h"
#include "platform/Fatal.h"

namespace foundation {

using platform::fatal;

namespace {

/// Of a timer, in seconds.
constexpr double minInterval = 0.0001;

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
  RealtimePort::drainAll();
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

// Timers

Timer::Timer() = default;

Timer::Timer(double interval, Repeat repeat, std::function<void()> action)
    : entry_(std::make_shared<Entry>()) {
  RunLoop& loop = RunLoop::main();
  RunLoop::State& state = *loop.state_;
  // Written so that a NaN becomes the shortest interval too.
  entry_->interval = interval > minInterval ? interval : minInterval;
  entry_->deadline = loop.now() + entry_->interval;
  entry_->number = state.timersMade++;
  entry_->repeat = repeat;
  entry_->action = std::move(action);
  entry_->loop = loop.state_;
  state.timers.push_back(entry_);
  state.driver.scheduleChanged();
}

Timer::~Timer() { invalidate(); }

Timer::Timer(Timer&&) noexcept = default;

Timer& Timer::operator=(Timer&& other) noexcept {
  if (this == &other) return *this;
  invalidate();
  entry_ = std::move(other.entry_);
  return *this;
}

bool Timer::isValid() const { return entry_ && entry_->valid && !entry_->loop.expired(); }

void Timer::invalidate() {
  if (!entry_) return;
  const std::shared_ptr<Entry> entry = std::move(entry_);
  entry_.reset();
  if (!entry->valid) return;
  entry->valid = false;
  if (const auto state = entry->loop.lock()) state->remove(*entry);
}

void RunLoop::State::remove(const Timer::Entry& entry) {
  timers.erase(std::remove_if(timers.begin(), timers.end(),
                              [&](const auto& timer) { return timer.get() == &entry; }),
               timers.end());
  if (running) driver.scheduleChanged();
}

void RunLoop::State::runTimers() {
  if (!running || timers.empty()) return;
  const double now = driver.now();
  std::vector<std::shared_ptr<Timer::Entry>> due;
  for (const auto& timer : timers)
    if (timer->deadline <= now) due.push_back(timer);
  if (due.empty()) return;
  std::sort(due.begin(), due.end(), [](const auto& a, const auto& b) {
    return a->deadline != b->deadline ? a->deadline < b->deadline : a->number < b->number;
  });

  for (const auto& timer : due) {
    // An earlier callback may have stopped it, or run the loop and so this timer.
    if (!running) return;
    if (!timer->valid || timer->deadline > now) continue;
    if (timer->repeat == Timer::Repeat::once) {
      timer->valid = false;
      remove(*timer);
    } else {
      const double missed = std::floor((now - timer->deadline) / timer->interval);
      timer->deadline += (missed + 1) * timer->interval;
      if (timer->deadline <= now) timer->deadline = now + timer->interval;
      driver.scheduleChanged();
    }
    if (timer->action) timer->action();
  }
}

// Display links

DisplayLink::DisplayLink(std::function<void()> action) : entry_(std::make_shared<Entry>()) {
  const std::shared_ptr<RunLoop::State>& state = RunLoop::main().state_;
  entry_->loop = state;
  entry_->action = std::move(action);
  state->links.push_back(entry_);
  state->driver.scheduleChanged();
}

DisplayLink::~DisplayLink() {
  entry_->valid = false;
  if (const auto state = entry_->loop.lock()) state->remove(*entry_);
}

bool DisplayLink::isPaused() const { return entry_->paused; }

void DisplayLink::setPaused(bool paused) {
  if (entry_->paused == paused) return;
  entry_->paused = paused;
  const auto state = entry_->loop.lock();
  if (state && state->running) state->driver.scheduleChanged();
}

void RunLoop::State::remove(const DisplayLink::Entry& entry) {
  links.erase(std::remove_if(links.begin(), links.end(),
                             [&](const auto& link) { return link.get() == &entry; }),
              links.end());
  if (running) driver.scheduleChanged();
}

}  // namespace foundation
