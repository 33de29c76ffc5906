#include "benchmarks/EventLoop.h"

#include <juce_events/juce_events.h>

namespace juce {
// What MessageManager::runDispatchLoop calls, which can be left only once.
bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
}  // namespace juce

namespace bench {

void turnLoop() { juce::dispatchNextMessageOnSystemQueue(false); }

void runLoopFor(int milliseconds) {
  bool over = false;
  juce::Timer::callAfterDelay(milliseconds, [&over] { over = true; });
  while (!over) turnLoop();
}

}  // namespace bench
