// What the fuzzers begin with, and what they have found: none of it does harm.

#include <gtest/gtest.h>

#include <filesystem>

#include "fuzz/PropertyListTargets.h"
#include "tests/support/TemporaryFolder.h"

namespace {

void runCorpus(const std::string& name, void (*target)(std::span<const std::uint8_t>)) {
  const std::string folder = ORVANE_SOURCE_DIR "/fuzz/corpus/" + name;
  const auto files = support::namesIn(folder);
  EXPECT_GE(files.size(), 10u);
  for (const std::string& file : files) {
    SCOPED_TRACE(file);
    const std::string text = support::textOf(folder + '/' + file);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    target({bytes, text.size()});
    target({bytes, text.size() / 2});
  }
}

TEST(FuzzCorpusTest, XmlListsDoNoHarm) { runCorpus("xml", fuzz::xmlList); }
TEST(FuzzCorpusTest, BinaryListsDoNoHarm) { runCorpus("binary", fuzz::binaryList); }
TEST(FuzzCorpusTest, KeyedArchivesDoNoHarm) { runCorpus("archive", fuzz::keyedArchive); }

}  // namespace
