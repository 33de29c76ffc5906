#include <algorithm>
#include <utility>

#include "foundation/RunLoop.h"
#include "foundation/RunLoopState.h"

namespace foundation {

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
