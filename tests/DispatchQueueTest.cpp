// Work beside the user-interface thread, and its way back.

#include "foundation/DispatchQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <thread>

#include "foundation/RunLoop.h"
#include "tests/support/ManualDriver.h"

namespace {

using foundation::DispatchQueue;

TEST(DispatchQueueTest, WorkRunsElsewhereAndAnswersOnTheMainRunLoop) {
  support::ManualDriver driver;
  foundation::RunLoop loop(driver);
  const auto here = std::this_thread::get_id();
  std::atomic<bool> ranElsewhere{false};
  bool answeredHere = false;
  DispatchQueue::globalAsync([&] {
    ranElsewhere = std::this_thread::get_id() != here;
    DispatchQueue::mainAsync([&] { answeredHere = std::this_thread::get_id() == here; });
  });
  DispatchQueue::waitForGlobal();
  EXPECT_TRUE(ranElsewhere);
  EXPECT_FALSE(answeredHere);
  loop.runDue();
  EXPECT_TRUE(answeredHere);
}

TEST(DispatchQueueTest, AllWorkIsDoneAfterWaiting) {
  std::atomic<int> count{0};
  for (int i = 0; i < 100; ++i)
    DispatchQueue::globalAsync([&] {
      ++count;
      DispatchQueue::globalAsync([&] { ++count; });
    });
  DispatchQueue::waitForGlobal();
  EXPECT_EQ(count, 200);
  const auto owned = std::make_shared<int>(0);
  DispatchQueue::globalAsync([owned] {
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    *owned = 1;
  });
  DispatchQueue::waitForGlobal();
  EXPECT_EQ(*owned, 1) << "what has begun is waited for as well";
  EXPECT_EQ(owned.use_count(), 1);
}

TEST(DispatchQueueTest, ATaskThatTakesLongHoldsUpNoOther) {
  std::promise<void> second;
  std::atomic<bool> ranBeside{false};
  DispatchQueue::globalAsync([&, ran = second.get_future().share()] {
    ranBeside = ran.wait_for(std::chrono::seconds(10)) == std::future_status::ready;
  });
  DispatchQueue::globalAsync([&] { second.set_value(); });
  DispatchQueue::waitForGlobal();
  EXPECT_TRUE(ranBeside);
}

TEST(DispatchQueueTest, WhatATaskOwnsMayPostWhileItDies) {
  std::atomic<int> posted{0};
  const auto post = [&](void*) { DispatchQueue::globalAsync([&] { ++posted; }); };
  DispatchQueue::globalAsync([owned = std::shared_ptr<void>(nullptr, post)] {});
  DispatchQueue::waitForGlobal();
  EXPECT_EQ(posted, 1);
}

TEST(DispatchQueueTest, ADelayedTaskRunsOnTheClockOfTheLoop) {
  support::ManualDriver driver;
  foundation::RunLoop loop(driver);
  int runs = 0;
  DispatchQueue::mainAsyncAfter(1, [&] { ++runs; });
  driver.advance(0.9);
  EXPECT_EQ(runs, 0);
  driver.advance(2);
  EXPECT_EQ(runs, 1);
}

TEST(DispatchQueueTest, TasksOfALoopThatEndsAreDropped) {
  const auto owned = std::make_shared<int>(0);
  DispatchQueue::mainAsync([owned] { ++*owned; });
  {
    support::ManualDriver driver;
    foundation::RunLoop loop(driver);
    DispatchQueue::mainAsyncAfter(1, [owned] { ++*owned; });
    loop.runDue();
    DispatchQueue::mainAsync([owned] { ++*owned; });
  }
  DispatchQueue::mainAsync([owned] { ++*owned; });
  EXPECT_EQ(*owned, 0);
  EXPECT_EQ(owned.use_count(), 1);
}

}  // namespace
