// Parameters and their observers: what is refused, what is clamped, who is told, and that all of it
// holds while threads set values and observers come and go.

#include "Quillon/ParameterTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/AllocationCounter.h"

namespace {

using platform::AUParameterAddress;
using platform::AUParameterObserverToken;
using quillon::ParameterDescription;
using quillon::ParameterTree;
using testing::ElementsAre;
using testing::Pair;
using Unit = platform::AudioUnitParameterUnit;

std::vector<ParameterDescription> twoParameters() {
  return {{.key = "cutoff", .address = 7, .minValue = 20, .maxValue = 20000, .defaultValue = 1000},
          {.key = "gain", .address = 3, .displayName = "Gain", .minValue = -60, .maxValue = 6}};
}

TEST(ParameterTreeTest, ParametersAreFoundByOrderKeyAndAddress) {
  const ParameterTree tree(twoParameters());
  EXPECT_THAT(tree.keys(), ElementsAre("cutoff", "gain"));
  EXPECT_EQ(tree.allParameters()[1], &tree.at(1));
  EXPECT_EQ(tree.indexOfKey("gain"), 1u);
  EXPECT_EQ(tree.indexOfKey("Gain"), std::nullopt);
  EXPECT_EQ(tree.parameterWithAddress(7), &tree.at(0));
  EXPECT_EQ(tree.parameterWithAddress(8), nullptr);
  EXPECT_EQ(tree.at(0).displayName(), "cutoff");
  EXPECT_EQ(tree.at(0).value(), 1000);
}

TEST(ParameterTreeTest, WrongDescriptionsAreRefusedByName) {
  const float nan = std::nanf("");
  const float infinite = std::numeric_limits<float>::infinity();
  const struct {
    ParameterDescription parameter;
    const char* message;
  } cases[] = {
      {{.key = "gain", .address = 9}, "parameter 'gain': the key appears twice"},
      {{.key = "mix", .address = 7}, "parameter 'mix': address 7 belongs to 'cutoff' already"},
      {{.key = "mix", .minValue = 2}, "parameter 'mix': min is greater than max"},
      {{.key = "mix", .minValue = nan}, "parameter 'mix': min is not a finite number"},
      {{.key = "mix", .maxValue = infinite}, "parameter 'mix': max is not a finite number"},
      {{.key = "mix", .defaultValue = nan}, "parameter 'mix': default is not a finite number"},
      {{.key = "mix", .defaultValue = 2}, "parameter 'mix': default lies outside min to max"},
      {{.key = ""}, "parameter number 2: the key is empty"},
  };
  for (const auto& [parameter, message] : cases) {
    auto parameters = twoParameters();
    parameters.push_back(parameter);
    try {
      ParameterTree tree(std::move(parameters));
      ADD_FAILURE() << "accepted, though " << message;
    } catch (const std::invalid_argument& error) {
      EXPECT_STREQ(error.what(), message);
    }
  }
}

TEST(ParameterTreeTest, ValuesAreClampedAndWhatIsNoNumberIsIgnored) {
  const ParameterTree tree(twoParameters());
  auto& cutoff = tree.at(0);
  const float infinite = std::numeric_limits<float>::infinity();
  for (const auto& [set, read] : {std::pair{500.f, 500.f},
                                  {1.f, 20.f},
                                  {30000.f, 20000.f},
                                  {-infinite, 20.f},
                                  {infinite, 20000.f}}) {
    cutoff.setValue(set);
    EXPECT_EQ(cutoff.value(), read);
  }
  cutoff.setValue(std::nanf(""));
  EXPECT_EQ(cutoff.value(), 20000);
}

TEST(ParameterTreeTest, WhatCountsOrSwitchesHasWholeValues) {
  const ParameterTree tree(
      {{.key = "choice", .address = 1, .minValue = -3, .maxValue = 3, .unit = Unit::indexed},
       {.key = "switch", .address = 2, .unit = Unit::boolean},
       {.key = "count",
        .address = 3,
        .minValue = -0.5f,
        .maxValue = 7.8f,
        .unit = Unit::relativeSemiTones,
        .flags = platform::AudioUnitParameterFlags::wholeValues},
       {.key = "none",
        .address = 4,
        .minValue = 0.3f,
        .maxValue = 0.6f,
        .defaultValue = 0.4f,
        .unit = Unit::indexed},
       {.key = "value", .address = 5, .unit = Unit::relativeSemiTones}});
  const struct {
    std::size_t index;
    float set, read;
  } cases[] = {{0, -2.6f, -3}, {0, 1.4f, 1}, {1, 0.4f, 0}, {1, 0.6f, 1},   {2, 3.121f, 3},
               {2, 7.8f, 7},   {2, -9, 0},   {3, 1, 0.6f}, {4, 0.3f, 0.3f}};
  for (const auto& [index, set, read] : cases) {
    for (const bool isStored : {false, true}) {
      tree.at(index).setValue(tree.at(index).description().defaultValue);
      if (isStored)
        tree.at(index).store(set);
      else
        tree.at(index).setValue(set);
      EXPECT_EQ(tree.at(index).value(), read) << index << " " << set;
    }
  }
}

class ParameterObserverTest : public testing::Test {
 protected:
  using Heard = std::vector<std::pair<AUParameterAddress, float>>;

  AUParameterObserverToken observe(Heard& heard) {
    return tree_.tokenByAddingParameterObserver(
        [&](AUParameterAddress address, float value) { heard.emplace_back(address, value); });
  }

  ParameterTree tree_{twoParameters()};
};

TEST_F(ParameterObserverTest, EveryObserverButTheOriginatorHearsTheStoredValue) {
  Heard first, second;
  const auto firstToken = observe(first);
  const auto secondToken = observe(second);
  tree_.at(0).setValue(50, firstToken);
  tree_.at(1).setValue(100);
  EXPECT_THAT(first, ElementsAre(Pair(3, 6)));
  EXPECT_THAT(second, ElementsAre(Pair(7, 50), Pair(3, 6)));
  tree_.at(0).setValue(std::nanf(""));
  EXPECT_EQ(second.size(), 2u);
  tree_.removeParameterObserver(secondToken);
  tree_.removeParameterObserver(secondToken);
  tree_.at(0).setValue(60);
  EXPECT_EQ(first.size(), 2u);
  EXPECT_EQ(second.size(), 2u);
}

TEST_F(ParameterObserverTest, AnOldTokenDoesNotNameANewObserver) {
  Heard first, second;
  const auto old = observe(first);
  tree_.removeParameterObserver(old);
  observe(second);
  tree_.removeParameterObserver(old);
  tree_.at(0).setValue(50, old);
  EXPECT_EQ(second.size(), 1u);
}

TEST_F(ParameterObserverTest, NothingIsANothingObserver) {
  EXPECT_EQ(tree_.tokenByAddingParameterObserver(nullptr), nullptr);
  tree_.removeParameterObserver(nullptr);
  tree_.at(0).setValue(50);
}

TEST_F(ParameterObserverTest, ObserversMayAddOthersAndSetOtherParameters) {
  std::vector<Heard> added(40);
  std::size_t count = 0;
  tree_.tokenByAddingParameterObserver([&](AUParameterAddress address, float) {
    if (address != 7) return;
    if (count < added.size()) observe(added[count++]);
    tree_.at(1).setValue(1);
  });
  for (std::size_t i = 0; i < added.size(); ++i) tree_.at(0).setValue(50);
  EXPECT_GE(added.front().size(), added.size());
}

TEST_F(ParameterObserverTest, SettingAllocatesNothing) {
  std::atomic<int> calls{0};
  for (int i = 0; i < 40; ++i)
    tree_.tokenByAddingParameterObserver([&](AUParameterAddress, float) { ++calls; });
  const support::AllocationCounter counter;
  tree_.at(0).setValue(50);
  EXPECT_EQ(counter.count(), 0u);
  EXPECT_EQ(calls, 40);
}

TEST_F(ParameterObserverTest, GesturesAreToldUntilTheObserverGoes) {
  std::vector<std::pair<AUParameterAddress, bool>> heard;
  tree_.setGestureObserver([&](AUParameterAddress address, bool began) {
    heard.emplace_back(address, began);
    if (!began) tree_.setGestureObserver({});
  });
  tree_.at(1).beginGesture();
  tree_.at(1).endGesture();
  tree_.at(1).beginGesture();
  EXPECT_THAT(heard, ElementsAre(Pair(3, true), Pair(3, false)));
}

TEST_F(ParameterObserverTest, NoCallComesAfterRemovalWhileThreadsSetValues) {
  std::atomic<bool> stop{false};
  std::atomic<std::uint64_t> permanentCalls{0};
  tree_.tokenByAddingParameterObserver([&](AUParameterAddress, float) { ++permanentCalls; });
  std::vector<std::thread> setters;
  for (int t = 0; t < 3; ++t)
    setters.emplace_back([&, t] {
      for (int i = 0; !stop; ++i) tree_.at(t % 2).setValue(static_cast<float>(i % 100));
    });
  while (permanentCalls == 0) std::this_thread::yield();

  std::uint64_t heard = 0;
  for (int i = 0; i < 1000; ++i) {
    // Freed right after the removal: a call that came later would touch what is gone.
    auto calls = std::make_unique<std::atomic<std::uint64_t>>(0);
    const auto token = tree_.tokenByAddingParameterObserver(
        [calls = calls.get()](AUParameterAddress, float) { ++*calls; });
    // Some stay long enough to be called.
    if (i % 20 == 0)
      for (const auto until = permanentCalls + 3; permanentCalls < until;)
        std::this_thread::yield();
    tree_.removeParameterObserver(token);
    heard += *calls;
  }
  stop = true;
  for (auto& setter : setters) setter.join();
  EXPECT_GT(heard, 0u);
}

}  // namespace
