// Time on the virtual clock: what runs when, and that nothing runs by itself.

#include "backends/headless/HeadlessRunLoop.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>

#include "foundation/DispatchQueue.h"
#include "foundation/RunLoop.h"

namespace headless {
namespace {

using foundation::DispatchQueue;
using foundation::DisplayLink;
using foundation::RunLoop;
using foundation::Timer;

TEST(HeadlessRunLoop, RunsTimersInTheOrderOfTheirDeadlines) {
  HeadlessRunLoop loop;
  std::string order;
  Timer late(0.3, Timer::Repeat::once, [&] { order += "c"; });
  Timer often(0.1, Timer::Repeat::forever, [&] { order += "a"; });
  Timer between(0.15, Timer::Repeat::once, [&] { order += "b"; });
  loop.advance(0.25);
  EXPECT_EQ(order, "aba");
  loop.advance(0.05);
  EXPECT_EQ(order.size(), 5u) << order;
  EXPECT_DOUBLE_EQ(loop.now(), 0.3);
}

TEST(HeadlessRunLoop, ATimerSeesTheTimeAtWhichItWasDue) {
  HeadlessRunLoop loop;
  double seen = 0;
  Timer timer(0.25, Timer::Repeat::once, [&] { seen = RunLoop::main().now(); });
  loop.advance(2);
  EXPECT_DOUBLE_EQ(seen, 0.25);
}

TEST(HeadlessRunLoop, ShowsSixtyFramesASecondWhileALinkWantsThem) {
  HeadlessRunLoop loop;
  loop.advance(1);
  EXPECT_EQ(loop.displayFrames(), 0u);
  int calls = 0;
  {
    DisplayLink link([&] { ++calls; });
    loop.advance(1);
    EXPECT_EQ(calls, 60);
    loop.advance(0.5);
    link.setPaused(true);
    loop.advance(1);
    EXPECT_EQ(calls, 90);
  }
  loop.advance(1);
  EXPECT_EQ(loop.displayFrames(), 90u);
}

TEST(HeadlessRunLoop, ManySmallStepsShowAsManyFramesAsOneLargeStep) {
  HeadlessRunLoop loop;
  int calls = 0;
  DisplayLink link([&] { ++calls; });
  for (int i = 0; i < 1000; ++i) loop.advance(0.001);
  EXPECT_EQ(calls, 60);
}

TEST(HeadlessRunLoop, RunsTasksPostedByTasksAndByOtherThreads) {
  HeadlessRunLoop loop;
  int ran = 0;
  std::thread([&] {
    DispatchQueue::mainAsync([&] {
      ++ran;
      DispatchQueue::mainAsync([&] { ++ran; });
    });
  }).join();
  EXPECT_EQ(ran, 0);
  EXPECT_TRUE(loop.runDue());
  EXPECT_EQ(ran, 2);
}

TEST(HeadlessRunLoopDeathTest, MisuseOfATurnIsFatal) {
  HeadlessRunLoop loop;
  EXPECT_DEATH(loop.endTurn(), "No turn of the run loop is open");
  loop.beginTurn();
  EXPECT_DEATH(loop.beginTurn(), "A turn of the run loop is open already");
  EXPECT_DEATH(loop.advance(1), "The clock cannot be moved within a turn");
}

TEST(HeadlessRunLoop, AnOpenTurnHoldsBackWhatIsQueuedInItsOrder) {
  HeadlessRunLoop loop;
  struct Counting : HeadlessRunLoop::Screen {
    void refresh() override { ++refreshed; }
    int refreshed = 0;
  } screen;
  loop.addScreen(screen);
  std::string order;
  loop.beginTurn();
  EXPECT_TRUE(loop.isInTurn());
  DispatchQueue::globalAsync([&] { DispatchQueue::mainAsync([&] { order += "a"; }); });
  EXPECT_TRUE(loop.runDue());
  DispatchQueue::mainAsync([&] { order += "b"; });
  EXPECT_TRUE(loop.runDue());
  EXPECT_EQ(order + std::to_string(screen.refreshed), "0");
  loop.endTurn();
  EXPECT_FALSE(loop.isInTurn());
  EXPECT_EQ(order, "ab");
  EXPECT_GE(screen.refreshed, 1);
  loop.removeScreen(screen);
}

TEST(HeadlessRunLoop, GivesUpOnATaskThatPostsItselfForEver) {
  HeadlessRunLoop loop;
  std::function<void()> again = [&] { DispatchQueue::mainAsync(again); };
  again();
  EXPECT_FALSE(loop.runDue());
}

}  // namespace
}  // namespace headless
