// The key-value store that the processes of an app group share.

#include "foundation/UserDefaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <thread>

#include "foundation/Console.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/FileLock.h"
#include "foundation/LocalFileManager.h"
#include "foundation/PropertyListCoding.h"
#include "foundation/RunLoop.h"
#include "tests/support/ManualDriver.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using foundation::UserDefaults;
using platform::PropertyList;
using Array = PropertyList::Array;

class UserDefaultsTest : public testing::Test {
 protected:
  std::string file() const { return folder / "group.test/Library/Preferences/group.test.plist"; }
  std::optional<PropertyList> stored(const std::string& key) const {
    const std::string text = support::textOf(file());
    std::string error;
    const auto list = foundation::parsePropertyList(
        {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, error);
    const PropertyList* value = list ? list->find(key) : nullptr;
    return value ? std::optional(*value) : std::nullopt;
  }
  /// As another process would.
  void storeElsewhere(const PropertyList::Dictionary& values) const {
    std::filesystem::create_directories(std::filesystem::path(file()).parent_path());
    std::ofstream(file(), std::ios::binary) << foundation::writeXmlPropertyList(values);
  }
  UserDefaults open() const { return *UserDefaults::open("group.test"); }

  support::TemporaryFolder folder;
  foundation::LocalFileManager files{folder.path()};
  foundation::DefaultFileManager scope{files};
  std::vector<std::string> printed;
  foundation::ConsoleListener listener{
      [this](const std::string& line) { printed.push_back(line); }};
};

TEST_F(UserDefaultsTest, ValuesAreStoredWholeBesideWhatElseIsThere) {
  storeElsewhere({{"other", 5}});
  EXPECT_FALSE(open().array("list"));
  open().setObject("list", {"a", "b"});
  open().setObject("list", {"b", "c", "b"});
  EXPECT_EQ(*open().array("list"), (Array{"b", "c", "b"}));
  EXPECT_EQ(*stored("list"), (Array{"b", "c", "b"}));
  EXPECT_EQ(*stored("other"), 5);
  EXPECT_FALSE(open().array("other"));
}

TEST_F(UserDefaultsTest, ASuiteWithoutAContainerDoesNotOpen) {
  EXPECT_FALSE(UserDefaults::open(""));
  EXPECT_FALSE(UserDefaults::open("../elsewhere"));
}

TEST_F(UserDefaultsTest, AValueThatIsRemovedAndSetAgainIsNeverSeenMissing) {
  support::ManualDriver driver;
  foundation::RunLoop loop(driver);
  open().setObject("list", {"a"});
  open().removeObject("list");
  open().synchronize();
  EXPECT_FALSE(open().array("list"));
  EXPECT_EQ(*stored("list"), Array{"a"});
  open().setObject("list", {"a", "b"});
  open().synchronize();
  EXPECT_EQ(*stored("list"), (Array{"a", "b"}));
  loop.runDue();
  EXPECT_EQ(*stored("list"), (Array{"a", "b"}));
  open().removeObject("list");
  loop.runDue();
  EXPECT_FALSE(stored("list"));
}

TEST_F(UserDefaultsTest, ARemovalThatCouldNotBeWrittenIsMadeUpFor) {
  open().setObject("list", {"a"});
  open().setObject("other", {"b"});
  open().removeObject("list");
  const std::string saved = support::textOf(file());
  std::filesystem::remove(file());
  std::filesystem::create_directory(file());
  open().synchronize();
  EXPECT_FALSE(printed.empty());
  std::filesystem::remove(file());
  std::ofstream(file()) << saved;
  open().synchronize();
  EXPECT_FALSE(stored("list")) << "without a loop it is done at once";
  EXPECT_EQ(*stored("other"), Array{"b"});
  storeElsewhere({{"list", Array{"theirs"}}});
  open().setObject("other", {"c"});
  EXPECT_EQ(*stored("list"), Array{"theirs"}) << "removed once, and not again";
}

TEST_F(UserDefaultsTest, WhatAnotherProcessHasChangedMeanwhileIsKept) {
  open().setObject("list", {"a", "b", "c"});
  storeElsewhere({{"list", Array{"b", "c", "theirs"}}});
  open().setObject("list", {"a", "c", "mine"});
  EXPECT_EQ(*stored("list"), (Array{"c", "theirs", "mine"}));
  EXPECT_EQ(*open().array("list"), (Array{"c", "theirs", "mine"}));
}

TEST_F(UserDefaultsTest, AChangeWaitsForAnotherProcessThatWrites) {
  open().setObject("list", {"a"});
  std::atomic<bool> isWritten{false};
  std::thread writing;
  {
    const foundation::FileLock theirs(file() + ".lock");
    writing = std::thread([&] {
      open().setObject("list", {"a", "b"});
      isWritten = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(isWritten);
    storeElsewhere({{"list", Array{"a", "theirs"}}});
  }
  writing.join();
  EXPECT_EQ(*stored("list"), (Array{"a", "theirs", "b"}));
}

TEST_F(UserDefaultsTest, ABrokenFileIsToldAndKeptAside) {
  storeElsewhere({});
  std::ofstream(file()) << "<plist>";
  EXPECT_FALSE(open().array("list"));
  ASSERT_EQ(printed.size(), 1u);
  EXPECT_THAT(printed[0], testing::HasSubstr("the XML property list is damaged"));
  open().setObject("list", {"a"});
  EXPECT_EQ(*open().array("list"), Array{"a"});
  std::ofstream(file()) << "once more";
  open().setObject("list", {"b"});
  EXPECT_EQ(support::textOf(file() + ".damaged"), "<plist>");
  EXPECT_EQ(support::textOf(file() + ".damaged-2"), "once more");
}

TEST_F(UserDefaultsTest, WhatCanNeitherBeReadNorKeptAsideIsLeftAsItIs) {
  struct Troubled : foundation::LocalFileManager {
    using LocalFileManager::LocalFileManager;
    std::optional<PropertyList::Data> contents(const std::string& path, platform::FileError& error,
                                               std::uint64_t offset, std::size_t count) override {
      if (canRead) return LocalFileManager::contents(path, error, offset, count);
      error.localizedDescription = "no more files can be opened";
      return std::nullopt;
    }
    Error copyItem(const std::string&, const std::string&) override {
      return platform::FileError{.localizedDescription = "the disk is full"};
    }
    bool canRead = true;
  };
  Troubled troubled{folder.path()};
  const foundation::DefaultFileManager inPlace{troubled};
  storeElsewhere({{"list", Array{"a"}}});
  troubled.canRead = false;
  open().setObject("list", {"b"});
  EXPECT_EQ(*stored("list"), Array{"a"});
  troubled.canRead = true;
  std::ofstream(file()) << "damaged";
  open().setObject("list", {"b"});
  EXPECT_EQ(support::textOf(file()), "damaged");
}

TEST_F(UserDefaultsTest, AFailedWriteIsToldAndMadeUpForLater) {
  open().setObject("list", {"a"});
  std::filesystem::remove(file());
  std::filesystem::create_directory(file());
  open().setObject("list", {"a", "b"});
  EXPECT_FALSE(printed.empty());
  std::filesystem::remove(file());
  storeElsewhere({{"list", Array{"a", "theirs"}}});
  open().setObject("list", {"a", "b", "c"});
  EXPECT_EQ(*stored("list"), (Array{"a", "theirs", "b", "c"}));
}

}  // namespace
