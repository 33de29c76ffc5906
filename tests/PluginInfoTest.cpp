#include "Orvane/PluginInfo.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "foundation/Bundle.h"

namespace orvane {
namespace {

using foundation::MainBundle;
using platform::PropertyList;
using Entries = PropertyList::Dictionary;

const Entries whole{{"CFBundleDisplayName", "Foam"},
                    {"CFBundleShortVersionString", "1.4.2"},
                    {"CFBundleVersion", "37"}};

Entries without(const std::string& key) {
  Entries entries = whole;
  entries.erase(key);
  return entries;
}

Entries with(const std::string& key, PropertyList value) {
  Entries entries = whole;
  entries[key] = std::move(value);
  return entries;
}

TEST(PluginInfo, IsWhatTheMainBundleSays) {
  const MainBundle bundle(whole);
  EXPECT_EQ(PluginInfo::appName(), "Foam");
  EXPECT_EQ(PluginInfo::major(), PropertyList("1.4.2"));
  EXPECT_EQ(PluginInfo::minor(), PropertyList("37"));
  EXPECT_EQ(PluginInfo::completeVersion(), "1.4.2.37");
}

TEST(PluginInfo, AProgramCarriesItsOwn) {
  EXPECT_EQ(PluginInfo::appName(), "Test");
  EXPECT_EQ(PluginInfo::completeVersion(), "1.2.3.45");
  EXPECT_EQ(PluginInfo::storeIdentifier(), "6789");
}

TEST(PluginInfo, ANameThatIsAssignedStaysUntilAnotherBundleIsTheMainOne) {
  {
    const MainBundle bundle(whole);
    PluginInfo::setAppName("Spray");
    EXPECT_EQ(PluginInfo::appName(), "Spray");
    EXPECT_EQ(PluginInfo::completeVersion(), "1.4.2.37");
  }
  EXPECT_EQ(PluginInfo::appName(), "Test");
  const MainBundle again(whole);
  EXPECT_EQ(PluginInfo::appName(), "Foam");
}

TEST(PluginInfo, BundlesGoInAnyOrderAndTheLastThatIsLeftCounts) {
  auto first = std::make_unique<MainBundle>(whole);
  auto second = std::make_unique<MainBundle>(with("CFBundleDisplayName", "Spray"));
  EXPECT_EQ(PluginInfo::appName(), "Spray");
  first.reset();
  EXPECT_EQ(PluginInfo::appName(), "Spray");
  second.reset();
  EXPECT_EQ(PluginInfo::appName(), "Test");
}

TEST(PluginInfo, NumbersAreKeptAsTheyStand) {
  const MainBundle bundle(with("CFBundleVersion", 37));
  EXPECT_EQ(PluginInfo::minor(), PropertyList(37));
  EXPECT_DEATH(PluginInfo::completeVersion(), "CFBundleVersion");
}

TEST(PluginInfo, WhatIsMissingStopsTheProgramOnlyWhereItIsNeeded) {
  {
    const MainBundle bundle(without("CFBundleVersion"));
    EXPECT_EQ(PluginInfo::minor(), std::nullopt);
    EXPECT_EQ(PluginInfo::major(), PropertyList("1.4.2"));
    EXPECT_EQ(PluginInfo::appName(), "Foam");
    EXPECT_DEATH(PluginInfo::completeVersion(), "CFBundleVersion");
  }
  {
    const MainBundle bundle(without("CFBundleShortVersionString"));
    EXPECT_EQ(PluginInfo::major(), std::nullopt);
    EXPECT_DEATH(PluginInfo::completeVersion(), "CFBundleShortVersionString");
  }
  for (const Entries& entries :
       {without("CFBundleDisplayName"), with("CFBundleDisplayName", 5), Entries{}}) {
    const MainBundle bundle(entries);
    EXPECT_DEATH(PluginInfo::appName(), "CFBundleDisplayName");
    EXPECT_DEATH(PluginInfo::setAppName("Spray"), "CFBundleDisplayName");
  }
}

TEST(PluginInfo, ReadersMayRace) {
  const MainBundle bundle(whole);
  std::vector<std::thread> readers;
  for (int i = 0; i < 4; ++i)
    readers.emplace_back([] {
      for (int turn = 0; turn < 200; ++turn) {
        EXPECT_EQ(PluginInfo::appName(), "Foam");
        EXPECT_EQ(PluginInfo::completeVersion(), "1.4.2.37");
      }
    });
  for (std::thread& reader : readers) reader.join();
}

}  // namespace
}  // namespace orvane
