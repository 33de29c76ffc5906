#include "backends/headless/HeadlessRunLoop.h"

#include <algorithm>

#include "foundation/DispatchQueue.h"

namespace headless {

namespace {

constexpr int maxTurns = 10000;

/// Deadlines are sums of fractions: one that is meant for the end of a stretch of time may come out
/// a hair later.
constexpr double tolerance = 1e-9;

}  // namespace

bool HeadlessRunLoop::runDue() {
  for (int turn = 0; turn < maxTurns; ++turn) {
    clock_.takeWake();
    loop_.runDue();
    // What was handed to other threads counts as due as well.
    foundation::DispatchQueue::waitForGlobal();
    for (Screen* screen : screens_) screen->refresh();
    // Laying out a frame may have queued something again.
    if (!clock_.takeWake() && loop_.nextDeadline() > clock_.now()) return true;
  }
  return false;
}

void HeadlessRunLoop::advance(double seconds) {
  const double end = clock_.now() + seconds;
  runDue();
  for (;;) {
    const double tick = (ticks_ + 1) / framesPerSecond;
    const double next = std::min(tick, loop_.nextDeadline());
    if (!(next <= end + tolerance)) break;
    clock_.moveTo(next);
    runDue();
    if (tick > next) continue;
    ticks_ += 1;
    if (!loop_.wantsDisplayFrames()) continue;
    ++displayFrames_;
    loop_.displayFrame();
    runDue();
  }
  clock_.moveTo(end);
  runDue();
}

}  // namespace headless
