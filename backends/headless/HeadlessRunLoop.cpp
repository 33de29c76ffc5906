#include "backends/headless/HeadlessRunLoop.h"

#include <algorithm>

#include "foundation/DispatchQueue.h"
#include "platform/Fatal.h"

namespace headless {

namespace {

constexpr int maxTurns = 10000;

/// Deadlines are sums of fractions: one that is meant for the end of a stretch of time may come out
/// a hair later.
constexpr double tolerance = 1e-9;

}  // namespace

bool HeadlessRunLoop::runDue() {
  if (inTurn_) {
    // Else what they post would be queued before or after what the turn itself queues next, by chance.
    foundation::DispatchQueue::waitForGlobal();
    return true;
  }
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

void HeadlessRunLoop::beginTurn() {
  if (inTurn_) platform::fatal("A turn of the run loop is open already");
  inTurn_ = true;
}

void HeadlessRunLoop::endTurn() {
  if (!inTurn_) platform::fatal("No turn of the run loop is open");
  inTurn_ = false;
  runDue();
}

void HeadlessRunLoop::advance(double seconds) {
  if (inTurn_) platform::fatal("The clock cannot be moved within a turn of the run loop");
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
