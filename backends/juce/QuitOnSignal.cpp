#include "backends/juce/QuitOnSignal.h"

#include <juce_events/juce_events.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>

namespace juce_backend {
namespace {

/// A handler has nothing else to reach, and may do nothing but write to it.
volatile std::sig_atomic_t descriptor = -1;

void wake(int) {
  const std::uint64_t one = 1;
  [[maybe_unused]] const auto written = ::write(descriptor, &one, sizeof one);
}

}  // namespace

QuitOnSignal::QuitOnSignal() {
  descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  juce::LinuxEventLoop::registerFdCallback(descriptor, [](int readable) {
    eventfd_t count = 0;
    if (::eventfd_read(readable, &count) == 0) juce::JUCEApplicationBase::quit();
  });
  struct sigaction action {};
  action.sa_handler = wake;
  action.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < std::size(signals); ++i)
    ::sigaction(signals[i], &action, &before_[i]);
}

QuitOnSignal::~QuitOnSignal() {
  for (std::size_t i = 0; i < std::size(signals); ++i)
    ::sigaction(signals[i], &before_[i], nullptr);
  juce::LinuxEventLoop::unregisterFdCallback(descriptor);
  ::close(descriptor);
  descriptor = -1;
}

}  // namespace juce_backend
