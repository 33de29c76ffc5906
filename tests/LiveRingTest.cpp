// Sound on its way from the render thread to a display.

#include "Quillon/LiveRing.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "Quillon/CommonAudioUnit.h"

namespace quillon {
namespace {

TEST(LiveRing, GivesTheNewestSamplesOldestFirst) {
  LiveRing ring(4);
  std::array<float, 8> seen{};
  EXPECT_EQ(ring.newest(seen), 0u);
  ring.append(1);
  ring.append(std::array{2.0f, 3.0f});
  ASSERT_EQ(ring.newest(seen), 3u);
  EXPECT_EQ(seen[0], 1);
  EXPECT_EQ(seen[2], 3);
  ring.append(std::array{4.0f, 5.0f, 6.0f});
  ASSERT_EQ(ring.newest(seen), 4u);
  EXPECT_EQ(seen[0], 3);
  EXPECT_EQ(seen[3], 6);
  ASSERT_EQ(ring.newest(std::span(seen).first(2)), 2u);
  EXPECT_EQ(seen[0], 5);
  EXPECT_EQ(ring.written(), 6u);
}

TEST(LiveRing, IsReadWhileItIsWritten) {
  LiveRing ring(256);
  std::thread audio([&] {
    for (int i = 0; i < 20000; ++i) ring.append(static_cast<float>(i));
  });
  std::array<float, 128> seen{};
  while (ring.written() < 20000)
    for (std::size_t i = 0, count = ring.newest(seen); i < count; ++i) ASSERT_GE(seen[i], 0);
  audio.join();
  ASSERT_EQ(ring.newest(seen), seen.size());
  EXPECT_EQ(seen.back(), 19999);
}

class Scope : public CommonAudioUnit {
 public:
  Scope() : CommonAudioUnit({{.key = "scope", .address = 0}}) {
    left = &addLiveBuffer("scope", 64);
    right = &addLiveBuffer("scope", 64);
  }
  using CommonAudioUnit::setSampleData;
  LiveRing *left, *right;
};

TEST(LiveRing, BelongsToAParameterOfItsAudioUnit) {
  Scope unit;
  EXPECT_EQ(unit.liveBuffers("scope"),
            (std::vector<const platform::LiveBuffer*>{unit.left, unit.right}));
  EXPECT_TRUE(unit.liveBuffers("other").empty());
  EXPECT_EQ(unit.sampleData("scope"), nullptr);
  const auto data = std::make_shared<platform::SampleData>();
  unit.setSampleData("scope", data);
  EXPECT_EQ(unit.sampleData("scope"), data);
}

}  // namespace
}  // namespace quillon
