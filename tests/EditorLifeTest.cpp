// Many editors open and close over one audio unit while its parameters change on several threads.

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>

#include "KestroUI/ValueContainers.h"
#include "tests/support/TestEditor.h"

namespace orvane {
namespace {

constexpr int editors = 1000;

class LiveUnit : public quillon::CommonAudioUnit {
 public:
  LiveUnit()
      : CommonAudioUnit(
            {{.key = "a", .address = 1, .publishesLive = true},
             {.key = "b", .address = 2, .publishesLive = true},
             {.key = "on", .address = 3, .unit = platform::AudioUnitParameterUnit::boolean}}) {}
  using CommonAudioUnit::publishLive;
  using CommonAudioUnit::publishModulating;
};

TEST(EditorLife, EditorsOpenAndCloseWhileThreadsSetParameters) {
  support::ManualLoop loop;
  LiveUnit unit;
  const auto design = std::make_shared<support::GivenDesign>();
  design->addPage("One", {support::section("A", {"a", "b"}, "on")});
  design->addPage("Two", {support::section("B", {"b"})});

  std::atomic<bool> stop{false};
  std::array<std::thread, 3> threads;
  for (std::size_t i = 0; i < threads.size(); ++i)
    threads[i] = std::thread([&, i] {
      for (int n = 0; !stop.load(std::memory_order_relaxed); ++n) {
        const float value = static_cast<float>(n % 101) / 100;
        unit.parameter(i == 2 ? "on" : i == 1 ? "b" : "a")->setValue(value);
        unit.publishLive(i % 2, value);
        unit.publishModulating(i % 2, n % 3 != 0);
        if (n % 64 == 0) std::this_thread::yield();
      }
    });

  for (int n = 0; n < editors; ++n) {
    auto controller = std::make_unique<support::TestController>(design);
    controller->setAudioUnit(&unit);
    support::EditorWindow window({640, 480});
    window.show(*controller);
    loop.loop.runDue();
    loop.loop.displayFrame();
    window.window.prepareFrame();
    if (n % 3 == 0) controller->settingsViewController().setCurrentPage(1);
    if (n % 5 == 0) controller->connectViewWithAU();
    loop.loop.runDue();
    // Some hosts say that the editor goes, some only destroy it.
    if (n % 2 == 0) window.host.disappear();
    controller.reset();
    loop.loop.runDue();
  }
  stop = true;
  for (std::thread& thread : threads) thread.join();

  support::TestController last(design);
  last.setAudioUnit(&unit);
  last.view();
  loop.settle();
  EXPECT_EQ(last.container("a")->value(), unit.parameter("a")->value());
  EXPECT_FALSE(unit.isUIVisible());
}

}  // namespace
}  // namespace orvane
