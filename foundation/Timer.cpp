#include <algorithm>
#include <cmath>
#include <utility>

#include "foundation/RunLoop.h"
#include "foundation/RunLoopState.h"

namespace foundation {

namespace {

constexpr double shortestInterval = 0.0001;

}  // namespace

Timer::Timer() = default;

Timer::Timer(double interval, Repeat repeat, std::function<void()> action)
    : entry_(std::make_shared<Entry>()) {
  RunLoop& loop = RunLoop::main();
  RunLoop::State& state = *loop.state_;
  // Written so that a NaN becomes the shortest interval too.
  entry_->interval = interval > shortestInterval ? interval : shortestInterval;
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

}  // namespace foundation
