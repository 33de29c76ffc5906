// The road from the audio thread: nothing lost, merged or reordered up to the capacity, and a clear
// word when it was exceeded.

#include "foundation/RealtimePort.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "foundation/DispatchQueue.h"
#include "tests/support/AllocationCounter.h"
#include "tests/support/ManualDriver.h"

namespace {

using foundation::DispatchQueue;
using foundation::RealtimePort;

class RealtimePortTest : public testing::Test {
 protected:
  std::unique_ptr<RealtimePort> makePort(std::size_t capacity) {
    return std::make_unique<RealtimePort>(
        capacity, [this](std::uint64_t message) { received_.push_back(message); },
        [this] { ++overflows_; });
  }

  std::vector<std::uint64_t> received_;
  int overflows_ = 0;
};

TEST_F(RealtimePortTest, MessagesArriveInOrderAndOneByOne) {
  support::ManualLoop loop;
  const auto port = makePort(8);
  for (std::uint64_t message : {7u, 7u, 3u, 7u}) EXPECT_TRUE(port->post(message));
  EXPECT_TRUE(received_.empty());
  loop.settle();
  EXPECT_EQ(received_, (std::vector<std::uint64_t>{7, 7, 3, 7}));
  EXPECT_EQ(overflows_, 0);
}

TEST_F(RealtimePortTest, CapacityIsRoundedUpToAPowerOfTwo) {
  support::ManualLoop loop;
  for (const auto& [asked, given] : {std::pair{0u, 2u}, {2u, 2u}, {5u, 8u}, {8u, 8u}, {9u, 16u}}) {
    const auto port = makePort(asked);
    unsigned accepted = 0;
    while (port->post(accepted)) ++accepted;
    EXPECT_EQ(accepted, given) << asked;
  }
}

TEST_F(RealtimePortTest, AFullPortRefusesUntilItIsEmptiedAndSaysSoOnce) {
  support::ManualLoop loop;
  const auto port = makePort(4);
  for (std::uint64_t i = 0; i < 4; ++i) EXPECT_TRUE(port->post(i));
  EXPECT_FALSE(port->post(4));
  EXPECT_FALSE(port->post(5));
  loop.settle();
  EXPECT_EQ(received_, (std::vector<std::uint64_t>{0, 1, 2, 3}));
  EXPECT_EQ(overflows_, 1);
  EXPECT_TRUE(port->post(6));
  loop.settle();
  EXPECT_EQ(received_.back(), 6u);
  EXPECT_EQ(overflows_, 1);
}

TEST_F(RealtimePortTest, AFullPortTakesNothingUntilItHasSaidSo) {
  support::ManualLoop loop;
  std::optional<RealtimePort> port;
  std::string log;
  port.emplace(
      2,
      [&](std::uint64_t message) {
        log += std::to_string(message);
        // There is room by now, but what comes here would be older than what is read anew.
        EXPECT_FALSE(port->post(9));
      },
      [&] {
        log += "!";
        EXPECT_TRUE(port->post(4));
      });
  for (std::uint64_t message : {1u, 2u, 3u}) EXPECT_EQ(port->post(message), message < 3);
  loop.loop.runDue();
  EXPECT_EQ(log, "12!");
}

TEST_F(RealtimePortTest, MessagesOfADrainPostedMeanwhileWaitForTheNext) {
  support::ManualLoop loop;
  std::optional<RealtimePort> port;
  int calls = 0;
  port.emplace(
      8,
      [&](std::uint64_t) {
        ++calls;
        port->post(1);
      },
      [] {});
  port->post(0);
  loop.loop.runDue();
  EXPECT_EQ(calls, 1);
  loop.loop.runDue();
  EXPECT_EQ(calls, 2);
}

TEST_F(RealtimePortTest, AMessageIsHeardBeforeATaskThatWasPostedAfterIt) {
  support::ManualLoop loop;
  const auto port = makePort(8);
  DispatchQueue::mainAsync([&] {
    port->post(1);
    DispatchQueue::mainAsync([&] { received_.push_back(2); });
  });
  loop.settle();
  EXPECT_EQ(received_, (std::vector<std::uint64_t>{1, 2}));

  // As from another thread in the middle of a turn.
  std::optional<RealtimePort> second;
  std::string log;
  second.emplace(
      8,
      [&](std::uint64_t message) {
        log += std::to_string(message);
        if (message == 2) return;
        second->post(2);
        DispatchQueue::mainAsync([&] { log += "task"; });
      },
      [] {});
  second->post(1);
  loop.settle();
  EXPECT_EQ(log, "12task");
}

TEST_F(RealtimePortTest, ManyPostsToManyPortsWakeTheDriverOnce) {
  support::ManualLoop loop;
  const auto first = makePort(8), second = makePort(8);
  loop.settle();
  const int before = loop.driver.wakes();
  for (int i = 0; i < 10; ++i) {
    first->post(1);
    second->post(1);
  }
  EXPECT_EQ(loop.driver.wakes(), before + 1);
}

TEST_F(RealtimePortTest, MessagesWaitForALoop) {
  const auto port = makePort(8);
  EXPECT_TRUE(port->post(1));
  support::ManualLoop loop;
  EXPECT_EQ(loop.driver.wakes(), 1);
  loop.settle();
  EXPECT_EQ(received_, (std::vector<std::uint64_t>{1}));
}

TEST_F(RealtimePortTest, APortThatOutlivesItsLoopServesTheNext) {
  auto first = std::make_unique<support::ManualLoop>();
  const auto port = makePort(8);
  first.reset();
  EXPECT_TRUE(port->post(1));
  support::ManualLoop second;
  second.settle();
  EXPECT_EQ(received_.size(), 1u);
}

TEST_F(RealtimePortTest, PortsMayDieInTheirOwnCallbacks) {
  support::ManualLoop loop;
  std::optional<RealtimePort> inReceived, inOverflowed;
  int calls = 0;
  inReceived.emplace(
      8,
      [&](std::uint64_t) {
        ++calls;
        inReceived.reset();
      },
      [] {});
  inOverflowed.emplace(
      2, [](std::uint64_t) {},
      [&] {
        ++calls;
        inOverflowed.reset();
      });
  inReceived->post(1);
  inReceived->post(2);
  while (inOverflowed->post(0)) {
  }
  loop.settle();
  EXPECT_EQ(calls, 2);
  EXPECT_FALSE(inReceived || inOverflowed);
}

TEST_F(RealtimePortTest, PostingAllocatesNothing) {
  support::ManualLoop loop;
  const auto port = makePort(4);
  const support::AllocationCounter counter;
  for (int i = 0; i < 10; ++i) port->post(1);
  EXPECT_EQ(counter.count(), 0u);
}

TEST_F(RealtimePortTest, SeveralThreadsKeepTheirOrderWhileTheLoopDrains) {
  constexpr std::uint64_t threads = 3, each = 20000;
  support::ManualLoop loop;
  std::vector<std::uint64_t> next(threads, 0);
  std::uint64_t wrong = 0;
  RealtimePort port(
      64,
      [&](std::uint64_t message) {
        // A refused message leaves a gap, but order holds.
        std::uint64_t& expected = next[message >> 32];
        wrong += (message & 0xffffffff) < expected;
        expected = (message & 0xffffffff) + 1;
      },
      [this] { ++overflows_; });
  std::atomic<std::uint64_t> accepted{0};
  std::atomic<std::uint64_t> running{threads};
  std::vector<std::thread> posters;
  for (std::uint64_t t = 0; t < threads; ++t)
    posters.emplace_back([&, t] {
      for (std::uint64_t i = 0; i < each;) {
        if (!port.post(t << 32 | i)) {
          std::this_thread::yield();
          continue;
        }
        ++accepted;
        ++i;
      }
      --running;
    });
  // Only as the driver is woken, so that a lost wake would hang here.
  int wakes = 0;
  while (running > 0 || loop.driver.wakes() != wakes) {
    if (loop.driver.wakes() == wakes) {
      std::this_thread::yield();
      continue;
    }
    wakes = loop.driver.wakes();
    loop.loop.runDue();
  }
  for (auto& poster : posters) poster.join();
  EXPECT_EQ(accepted, threads * each);
  EXPECT_EQ(next, std::vector<std::uint64_t>(threads, each));
  EXPECT_EQ(wrong, 0u);
}

TEST_F(RealtimePortTest, LoopsMayComeAndGoWhileAThreadPosts) {
  const auto port = makePort(64);
  std::atomic<bool> stop{false};
  std::thread poster([&] {
    while (!stop) port->post(1);
  });
  // On a busy machine the poster may come late.
  for (int i = 0; i < 200 || received_.empty(); ++i) {
    support::ManualLoop loop;
    loop.loop.runDue();
    std::this_thread::yield();
  }
  stop = true;
  poster.join();
  EXPECT_FALSE(received_.empty());
}

}  // namespace
