// Keyed archives exchanged with an independent implementation, both ways. It runs where that
// implementation was found when the tests were built.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "foundation/KeyedArchive.h"
#include "foundation/PropertyListCoding.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using platform::PropertyList;
using Array = PropertyList::Array;
using Dictionary = PropertyList::Dictionary;

const std::string oracle = ORVANE_BIN_DIR "/archive_oracle";

std::vector<std::uint8_t> bytesOf(const std::string& path) {
  const std::string text = support::textOf(path);
  return {text.begin(), text.end()};
}

class ArchiveOracleTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(oracle))
      GTEST_SKIP() << "libgnustep-base-dev, gobjc and clang were not there to build the oracle";
  }
  bool run(const std::string& arguments, const std::string& output = "/dev/null") const {
    const std::string command =
        "LC_ALL=C.UTF-8 '" + oracle + "' " + arguments + " > '" + output + "'";
    return std::system(command.c_str()) == 0;
  }
  support::TemporaryFolder folder;
};

TEST_F(ArchiveOracleTest, WhatItWritesIsRead) {
  const Array list{"one", "shared text", "shared text", {}};
  Dictionary expected{
      {"nested", Dictionary{{"list", list}, {"the same list", list}, {"empty", Dictionary{}}}},
      {"yes", true},
      {"no", false},
      {"negative", -5},
      {"int", 300},
      {"most", std::int64_t{9223372036854775807}},
      {"real", 0.1},
      {"float", 440.5},
      {"text", "W\xc3\xa4rme \xf0\x9f\x8e\xb9"},
      {"no text", ""},
      {"data", PropertyList::Data{0, 1, 254, 255}},
      {"mutable data", PropertyList::Data{0, 1}},
      {"date", PropertyList::Date{700000000.5}},
      {"Categories", Array{"bass", "lead"}},
  };
  std::string error;
  ASSERT_TRUE(run("write '" + (folder / "a") + "'"));
  const auto binary = foundation::readKeyedArchive(bytesOf(folder / "a"), error);
  ASSERT_TRUE(binary) << error;
  EXPECT_EQ(foundation::writeXmlPropertyList(*binary), foundation::writeXmlPropertyList(expected));
  EXPECT_EQ(*binary, PropertyList(expected));

  // Its XML writes dates in whole seconds and characters beyond the first plane in a way of its own.
  ASSERT_TRUE(run("write '" + (folder / "x") + "' xml"));
  auto xml = foundation::readKeyedArchive(bytesOf(folder / "x"), error);
  ASSERT_TRUE(xml) << error;
  for (const char* key : {"date", "text"}) {
    expected.erase(key);
    xml->as<Dictionary>()->erase(key);
  }
  EXPECT_EQ(*xml, PropertyList(expected));
}

TEST_F(ArchiveOracleTest, ItReadsWhatIsWritten) {
  const PropertyList tree = Dictionary{
      {"array", Array{"one", "one", {}, Array{}, Dictionary{}}},
      {"data", PropertyList::Data{0, 1, 254, 255}},
      {"date", PropertyList::Date{700000000.5}},
      {"integers", Array{0, 1, 255, 256, 65536, std::int64_t{1} << 40, -1, -5,
                         std::numeric_limits<std::int64_t>::min()}},
      {"reals", Array{0.1, -0.5, 1e300}},
      {"text", "W\xc3\xa4rme \xf0\x9f\x8e\xb9"},
      {"yes", true},
      {"z\xc3\xbc", std::string(300, 'x')},
  };
  const auto bytes = foundation::writeKeyedArchive(tree);
  std::ofstream(folder / "a", std::ios::binary) << std::string(bytes.begin(), bytes.end());
  ASSERT_TRUE(run("read '" + (folder / "a") + "'", folder / "out"));
  EXPECT_EQ(support::textOf(folder / "out"),
            " dictionary 8\n"
            "/array array 5\n/array/0 string one\n/array/1 string one\n/array/2 null\n"
            "/array/3 array 0\n/array/4 dictionary 0\n"
            "/data data 00 01 fe ff\n/date date 700000000.500\n"
            "/integers array 9\n/integers/0 integer 0\n/integers/1 integer 1\n"
            "/integers/2 integer 255\n/integers/3 integer 256\n/integers/4 integer 65536\n"
            "/integers/5 integer 1099511627776\n/integers/6 integer -1\n/integers/7 integer -5\n"
            "/integers/8 integer -9223372036854775808\n"
            "/reals array 3\n/reals/0 real 0.10000000000000001\n/reals/1 real -0.5\n"
            "/reals/2 real 1.0000000000000001e+300\n"
            "/text string W\xc3\xa4rme \xf0\x9f\x8e\xb9\n/yes integer 1\n"
            "/z\xc3\xbc string " +
                std::string(300, 'x') + "\n");
}

}  // namespace
