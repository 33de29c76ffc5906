#include "backends/juce/JuceRunLoop.h"

#include <gtest/gtest.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <thread>

#include "foundation/DispatchQueue.h"
#include "foundation/RealtimePort.h"
#include "tests/support/OffScreenWindow.h"

namespace {

using juce_backend::JuceRunLoop;

class JuceRunLoopTest : public testing::Test {
 protected:
  /// Runs JUCE's loop for so many seconds.
  void run(double seconds) {
    foundation::Timer end(seconds, foundation::Timer::Repeat::once,
                          [] { juce::MessageManager::getInstance()->stopDispatchLoop(); });
    juce::MessageManager::getInstance()->runDispatchLoop();
  }

  juce::ScopedJuceInitialiser_GUI juceIsUp_;
  juce::SharedResourcePointer<JuceRunLoop> runLoop_;
};

struct CountingClient : JuceRunLoop::FrameClient {
  void displayFrame() override { ++frames; }
  int frames = 0;
};

TEST_F(JuceRunLoopTest, bringsTasksAndMessagesOfOtherThreadsInOrder) {
  std::vector<std::uint64_t> received;
  int overflows = 0;
  foundation::RealtimePort port(
      1024, [&](std::uint64_t message) { received.push_back(message); }, [&] { ++overflows; });
  bool hasTaskRun = false;
  std::thread other([&] {
    for (std::uint64_t i = 0; i < 500; ++i) port.post(i);
    foundation::DispatchQueue::mainAsync([&] { hasTaskRun = true; });
  });
  run(0.2);
  other.join();
  ASSERT_EQ(received.size(), 500u);
  EXPECT_TRUE(std::is_sorted(received.begin(), received.end()));
  EXPECT_EQ(overflows, 0);
  EXPECT_TRUE(hasTaskRun);
}

TEST_F(JuceRunLoopTest, firesTimersInTheirOrder) {
  std::string order;
  foundation::Timer late(0.06, foundation::Timer::Repeat::once, [&] { order += 'l'; });
  foundation::Timer early(0.02, foundation::Timer::Repeat::once, [&] { order += 'e'; });
  foundation::Timer stopped(0.03, foundation::Timer::Repeat::once, [&] { order += 's'; });
  foundation::Timer repeating(0.045, foundation::Timer::Repeat::forever, [&] { order += 'r'; });
  stopped.invalidate();
  run(0.12);
  // How often the repeating one came by then depends on what else the machine does.
  EXPECT_EQ(order.substr(0, 3), "erl");
  EXPECT_EQ(order.find('s'), std::string::npos);
}

TEST_F(JuceRunLoopTest, framesComeOnlyWhileTheyAreWanted) {
  int frames = 0;
  foundation::DisplayLink link([&] { ++frames; });
  foundation::Timer pause(0.3, foundation::Timer::Repeat::once, [&] { link.setPaused(true); });
  run(0.6);
  // About eighteen; a machine with much else to do shows fewer.
  EXPECT_GE(frames, 1);
  EXPECT_LE(frames, 30);
}

TEST_F(JuceRunLoopTest, aRequestIsAnsweredOnceAndCanBeTakenBack) {
  CountingClient asked, takenBack;
  runLoop_->requestFrame(asked);
  runLoop_->requestFrame(asked);
  runLoop_->requestFrame(takenBack);
  runLoop_->cancelFrame(takenBack);
  run(0.15);
  EXPECT_EQ(asked.frames, 1);
  EXPECT_EQ(takenBack.frames, 0);
}

TEST_F(JuceRunLoopTest, aClientMayTakeAnotherOutOfTheFrameUnderWay) {
  struct Killer : JuceRunLoop::FrameClient {
    void displayFrame() override { loop->cancelFrame(*victim); }
    JuceRunLoop* loop;
    JuceRunLoop::FrameClient* victim;
  } killer;
  CountingClient victim;
  killer.loop = &runLoop_.get();
  killer.victim = &victim;
  runLoop_->requestFrame(killer);
  runLoop_->requestFrame(victim);
  run(0.15);
  EXPECT_EQ(victim.frames, 0);
}

TEST_F(JuceRunLoopTest, whatComesInTheMiddleIsHeardAtOnce) {
  support::runFor(0.05);
  bool hasRun = false, hasFired = false;
  std::thread([&] { foundation::DispatchQueue::mainAsync([&] { hasRun = true; }); }).join();
  EXPECT_TRUE(support::runUntil([&] { return hasRun; }, 2)) << "a task of another thread";
  foundation::Timer timer(0.01, foundation::Timer::Repeat::once, [&] { hasFired = true; });
  const double start = foundation::RunLoop::main().now();
  EXPECT_TRUE(support::runUntil([&] { return hasFired; }, 2)) << "a timer";
  EXPECT_LT(foundation::RunLoop::main().now() - start, 0.4);
}

TEST_F(JuceRunLoopTest, restsWhenThereIsNothingToDo) {
  int frames = 0;
  {
    foundation::DisplayLink link([&] { ++frames; });
    foundation::Timer timer(0.005, foundation::Timer::Repeat::once, [] {});
    foundation::DispatchQueue::mainAsync([] {});
    support::runUntil([&] { return frames > 0; });
  }
  support::runFor(0.05);
  int messages = 0;
  support::runUntil(
      [&] {
        while (messages < 100 && juce::dispatchNextMessageOnSystemQueue(true)) ++messages;
        return false;
      },
      0.3);
  EXPECT_LE(messages, 3) << "a timer or a descriptor that is never done";
}

TEST(JuceRunLoop, aLoopThatIsDestroyedWhileItIsDueIsNotCalledAnyMore) {
  const juce::ScopedJuceInitialiser_GUI juceIsUp;
  // Called before the loop's own, as its number is lower.
  const int closing = ::eventfd(1, EFD_NONBLOCK);
  auto loop = std::make_unique<JuceRunLoop>();
  int reused = -1;
  juce::LinuxEventLoop::registerFdCallback(closing, [&](int) {
    loop.reset();
    reused = ::eventfd(7, EFD_NONBLOCK);
  });
  foundation::DispatchQueue::mainAsync([] {});
  support::runUntil([&] { return reused >= 0; });
  eventfd_t kept = 0;
  ::eventfd_read(reused, &kept);
  EXPECT_EQ(kept, 7u) << "the dead loop has read what is not its own";
  juce::LinuxEventLoop::unregisterFdCallback(closing);
  ::close(closing);
  ::close(reused);
}

}  // namespace
