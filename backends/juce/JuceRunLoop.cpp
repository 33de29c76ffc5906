#include "backends/juce/JuceRunLoop.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>

#include "platform/Fatal.h"

namespace juce_backend {
namespace {

constexpr int framePeriod = 16;

}  // namespace

JuceRunLoop::JuceRunLoop()
    : wakeDescriptor_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
      deadlineTimer_([this] { runDue(); }),
      frameTimer_([this] { frame(); }),
      loop_(*this) {
  if (wakeDescriptor_ < 0) platform::fatal("No event descriptor is left for the run loop");
  // JUCE collects the callbacks that are due and then calls them, also those of loops that have been
  // destroyed meanwhile.
  const auto wakened = [this, alive = std::weak_ptr<const bool>(alive_)](int descriptor) {
    if (alive.expired()) return;
    eventfd_t ignored = 0;
    ::eventfd_read(descriptor, &ignored);
    runDue();
  };
  juce::LinuxEventLoop::registerFdCallback(wakeDescriptor_, wakened);
}

JuceRunLoop::~JuceRunLoop() {
  juce::LinuxEventLoop::unregisterFdCallback(wakeDescriptor_);
  ::close(wakeDescriptor_);
}

double JuceRunLoop::now() const { return juce::Time::getMillisecondCounterHiRes() * 0.001; }

void JuceRunLoop::wake() { ::eventfd_write(wakeDescriptor_, 1); }

void JuceRunLoop::scheduleChanged() { schedule(); }

void JuceRunLoop::requestFrame(FrameClient& client) {
  if (std::find(waitingClients_.begin(), waitingClients_.end(), &client) == waitingClients_.end())
    waitingClients_.push_back(&client);
  schedule();
}

void JuceRunLoop::cancelFrame(FrameClient& client) {
  waitingClients_.erase(std::remove(waitingClients_.begin(), waitingClients_.end(), &client),
                        waitingClients_.end());
  std::replace(calledClients_.begin(), calledClients_.end(), &client,
               static_cast<FrameClient*>(nullptr));
}

void JuceRunLoop::runDue() {
  loop_.runDue();
  schedule();
}

void JuceRunLoop::frame() {
  lastFrame_ = now();
  loop_.displayFrame();
  // A client may ask for the next frame, or be destroyed, while one is called.
  calledClients_.swap(waitingClients_);
  for (std::size_t i = 0; i < calledClients_.size(); ++i)
    if (calledClients_[i]) calledClients_[i]->displayFrame();
  calledClients_.clear();
  schedule();
}

void JuceRunLoop::schedule() {
  const double deadline = loop_.nextDeadline();
  if (std::isinf(deadline)) {
    deadlineTimer_.stopTimer();
  } else {
    const double wait = std::ceil((deadline - now()) * 1000);
    deadlineTimer_.startTimer(static_cast<int>(std::clamp(wait, 1.0, 1e6)));
  }

  if (!loop_.wantsDisplayFrames() && waitingClients_.empty()) {
    frameTimer_.stopTimer();
    return;
  }
  // After a rest the first frame does not wait for a whole period.
  const int wanted = (now() - lastFrame_) * 1000 >= framePeriod ? 1 : framePeriod;
  const int current = frameTimer_.isTimerRunning() ? frameTimer_.getTimerInterval() : 0;
  if (current != framePeriod && current != wanted) frameTimer_.startTimer(wanted);
}

}  // namespace juce_backend
