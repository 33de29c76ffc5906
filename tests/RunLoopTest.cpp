// The main run loop as its users see it: what runs when, in which order, and what happens when a
// callback destroys what is calling it.

#include "foundation/RunLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <limits>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include "foundation/DispatchQueue.h"
#include "tests/support/ManualDriver.h"

namespace {

using foundation::DispatchQueue;
using foundation::DisplayLink;
using foundation::RunLoop;
using foundation::Timer;

class RunLoopTest : public testing::Test {
 protected:
  support::ManualLoop loop_;
  std::vector<int> log_;
  std::function<void()> logs(int number) {
    return [this, number] { log_.push_back(number); };
  }
};

TEST_F(RunLoopTest, TasksRunInTheOrderInWhichTheyWerePosted) {
  for (int i = 0; i < 5; ++i) DispatchQueue::mainAsync(logs(i));
  EXPECT_TRUE(log_.empty());
  loop_.settle();
  EXPECT_EQ(log_, (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST_F(RunLoopTest, ATaskThatPostsItselfForEverLeavesTheTurnToTheOthers) {
  std::function<void()> again = [&] {
    log_.push_back(0);
    DispatchQueue::mainAsync(again);
  };
  DispatchQueue::mainAsync(again);
  DispatchQueue::mainAsync(logs(1));
  Timer timer(0.1, Timer::Repeat::once, logs(2));
  loop_.driver.stall(0.2);
  loop_.loop.runDue();
  EXPECT_EQ(log_, (std::vector<int>{0, 1, 2}));
  loop_.loop.runDue();
  EXPECT_EQ(log_, (std::vector<int>{0, 1, 2, 0}));
}

TEST_F(RunLoopTest, ATaskThatRunsTheLoopAnewKeepsTheOrder) {
  DispatchQueue::mainAsync([&] {
    log_.push_back(0);
    DispatchQueue::mainAsync(logs(3));
    loop_.loop.runDue();
    log_.push_back(4);
  });
  DispatchQueue::mainAsync(logs(1));
  DispatchQueue::mainAsync(logs(2));
  loop_.settle();
  EXPECT_EQ(log_, (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST_F(RunLoopTest, ManyPostsWakeTheDriverOnce) {
  loop_.settle();
  const int before = loop_.driver.wakes();
  for (int i = 0; i < 10; ++i) DispatchQueue::mainAsync(logs(i));
  EXPECT_EQ(loop_.driver.wakes(), before + 1);
  loop_.loop.runDue();
  DispatchQueue::mainAsync(logs(0));
  EXPECT_EQ(loop_.driver.wakes(), before + 2);
}

TEST_F(RunLoopTest, TasksFromSeveralThreadsAllArriveInTheirThreadsOrder) {
  constexpr int threads = 3, each = 1000;
  std::vector<int> next(threads, 0);
  std::atomic<int> wrong{0};
  std::vector<std::thread> posters;
  for (int t = 0; t < threads; ++t)
    posters.emplace_back([&, t] {
      for (int i = 0; i < each; ++i)
        DispatchQueue::mainAsync([&, t, i] { wrong += next[t]++ != i; });
    });
  for (auto& poster : posters) poster.join();
  loop_.settle();
  EXPECT_EQ(next, std::vector<int>(threads, each));
  EXPECT_EQ(wrong, 0);
}

TEST_F(RunLoopTest, TimersRunInTimeOrder) {
  Timer late(0.3, Timer::Repeat::once, logs(4));
  Timer early(0.1, Timer::Repeat::once, logs(1));
  Timer middle(0.2, Timer::Repeat::once, logs(2));
  Timer sameTime(0.2, Timer::Repeat::once, logs(3));
  loop_.driver.stall(1);
  loop_.settle();
  EXPECT_EQ(log_, (std::vector<int>{1, 2, 3, 4}));
  EXPECT_FALSE(late.isValid());
}

TEST_F(RunLoopTest, ARepeatingTimerKeepsItsBeat) {
  Timer timer(0.1, Timer::Repeat::forever, logs(1));
  loop_.advance(1);
  EXPECT_EQ(log_.size(), 10u);
}

TEST_F(RunLoopTest, ALateRepeatingTimerMakesUpNoMissedTurns) {
  Timer timer(0.1, Timer::Repeat::forever, logs(1));
  loop_.driver.stall(0.55);
  loop_.settle();
  loop_.settle();
  EXPECT_EQ(log_.size(), 1u);
  EXPECT_NEAR(loop_.loop.nextDeadline(), 0.6, 1e-9);
}

TEST_F(RunLoopTest, ATimerThatAnotherHasRunByRunningTheLoopIsNotRunTwice) {
  Timer first(0.1, Timer::Repeat::forever, [] { RunLoop::main().runDue(); });
  Timer second(0.1, Timer::Repeat::forever, logs(1));
  loop_.advance(0.1);
  EXPECT_EQ(log_.size(), 1u);
}

TEST_F(RunLoopTest, AnIntervalOfNothingDoesNotSpin) {
  for (double interval : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
    log_.clear();
    Timer timer(interval, Timer::Repeat::forever, logs(1));
    loop_.advance(0.01);
    EXPECT_NEAR(static_cast<double>(log_.size()), 100, 1) << interval;
  }
}

TEST_F(RunLoopTest, NothingDueMeansNoDeadline) {
  EXPECT_EQ(loop_.loop.nextDeadline(), std::numeric_limits<double>::infinity());
  const int before = loop_.driver.scheduleChanges();
  {
    Timer timer(0.5, Timer::Repeat::once, logs(1));
    EXPECT_EQ(loop_.loop.nextDeadline(), 0.5);
  }
  EXPECT_EQ(loop_.loop.nextDeadline(), std::numeric_limits<double>::infinity());
  EXPECT_EQ(loop_.driver.scheduleChanges(), before + 2);
}

TEST_F(RunLoopTest, ATimerMayDieInItsOwnCallback) {
  auto timer = std::make_unique<Timer>();
  *timer = Timer(0.1, Timer::Repeat::forever, [&] {
    timer.reset();
    log_.push_back(1);
  });
  loop_.advance(1);
  EXPECT_EQ(log_.size(), 1u);
}

TEST_F(RunLoopTest, ATimerMayBeReplacedInItsOwnCallback) {
  Timer timer;
  timer = Timer(0.1, Timer::Repeat::once, [&] {
    log_.push_back(1);
    timer = Timer(0.2, Timer::Repeat::once, logs(2));
  });
  loop_.advance(1);
  EXPECT_EQ(log_, (std::vector<int>{1, 2}));
}

TEST_F(RunLoopTest, ATimerStoppedByAnEarlierOneOfTheSameTurnStaysSilent) {
  Timer second;
  Timer first(0.1, Timer::Repeat::once, [&] { second.invalidate(); });
  second = Timer(0.1, Timer::Repeat::once, logs(2));
  loop_.advance(1);
  EXPECT_TRUE(log_.empty());
}

TEST_F(RunLoopTest, AMovedTimerGoesOn) {
  Timer first(0.1, Timer::Repeat::once, logs(1));
  Timer second(std::move(first));
  EXPECT_TRUE(second.isValid());
  loop_.advance(1);
  EXPECT_EQ(log_.size(), 1u);
}

TEST_F(RunLoopTest, ADisplayLinkIsCalledOnceAFrameWhileItIsNotPaused) {
  const int before = loop_.driver.scheduleChanges();
  DisplayLink link(logs(1));
  EXPECT_EQ(loop_.driver.scheduleChanges(), before + 1) << "the driver stands still until then";
  loop_.advance(0.5);
  EXPECT_EQ(log_.size(), 30u);
  link.setPaused(true);
  EXPECT_FALSE(loop_.loop.wantsDisplayFrames());
  loop_.advance(0.5);
  EXPECT_EQ(log_.size(), 30u);
  link.setPaused(false);
  EXPECT_EQ(loop_.driver.scheduleChanges(), before + 3);
  loop_.advance(0.5);
  EXPECT_EQ(log_.size(), 60u);
}

TEST_F(RunLoopTest, ADisplayLinkThatAnotherPausesIsSilentInTheSameFrame) {
  std::optional<DisplayLink> second;
  DisplayLink first([&] { second->setPaused(true); });
  second.emplace(logs(2));
  loop_.advance(0.1);
  EXPECT_TRUE(log_.empty());
}

TEST_F(RunLoopTest, ADisplayLinkMayDieInItsOwnCallbackOrInAnother) {
  std::optional<DisplayLink> self, other;
  self.emplace([&] {
    log_.push_back(1);
    other.reset();
    self.reset();
  });
  other.emplace(logs(2));
  loop_.advance(0.1);
  EXPECT_EQ(log_, (std::vector<int>{1}));
  EXPECT_FALSE(loop_.loop.wantsDisplayFrames());
}

TEST(RunLoopLifeTest, WhatOutlivesTheLoopStaysSilent) {
  int calls = 0;
  std::optional<Timer> timer;
  std::optional<DisplayLink> link;
  {
    support::ManualLoop loop;
    timer.emplace(0.1, Timer::Repeat::forever, [&] { ++calls; });
    link.emplace([&] { ++calls; });
    DispatchQueue::mainAsync([&] { ++calls; });
  }
  EXPECT_EQ(RunLoop::mainIfAny(), nullptr);
  EXPECT_FALSE(timer->isValid());
  support::ManualLoop next;
  next.advance(1);
  link->setPaused(true);
  EXPECT_EQ(calls, 0);
}

TEST(RunLoopLifeTest, ATaskMayDestroyTheLoop) {
  support::ManualDriver driver;
  auto loop = std::make_unique<RunLoop>(driver);
  int calls = 0;
  DispatchQueue::mainAsync([&] { loop.reset(); });
  DispatchQueue::mainAsync([&] { ++calls; });
  loop->runDue();
  EXPECT_EQ(calls, 0);
}

TEST(RunLoopLifeTest, WhatDroppedTasksOwnMayPostWhileItDies) {
  struct Poster {
    ~Poster() {
      DispatchQueue::mainAsync([] {});
    }
  };
  {
    support::ManualLoop loop;
    DispatchQueue::mainAsync([owned = std::make_shared<Poster>()] {});
  }
  EXPECT_EQ(RunLoop::mainIfAny(), nullptr);
}

TEST(RunLoopLifeTest, ALoopEndsOnlyWhenNoThreadIsInsideItsDriver) {
  struct SlowDriver : support::ManualDriver {
    std::atomic<bool> isSlow{false}, isInside{false}, hasLeft{false};
    void wake() override {
      if (!isSlow) return;
      isInside = true;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
      hasLeft = true;
    }
  } driver;
  auto loop = std::make_unique<RunLoop>(driver);
  loop->runDue();
  driver.isSlow = true;
  std::thread poster([] { DispatchQueue::mainAsync([] {}); });
  while (!driver.isInside) std::this_thread::yield();
  loop.reset();
  EXPECT_TRUE(driver.hasLeft);
  poster.join();
}

TEST(RunLoopDeathTest, MisuseIsFatal) {
  EXPECT_DEATH(RunLoop::main(), "There is no main run loop");
  EXPECT_DEATH(Timer(1, Timer::Repeat::once, [] {}), "There is no main run loop");
  support::ManualLoop loop;
  EXPECT_DEATH(RunLoop second(loop.driver), "There is a main run loop already");
}

}  // namespace
