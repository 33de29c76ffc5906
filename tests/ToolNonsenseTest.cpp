// Descriptions and scripts that were damaged at random: whatever they say, the tool answers.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

#include "tests/support/RunTool.h"

namespace {

using support::dataFile;
using support::isOneLine;
using support::linesOf;
using support::runTool;
using support::TemporaryFile;
using support::ToolResult;

std::string textOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::size_t below(std::mt19937& random, std::size_t end) { return random() % end; }

/// `text` with a few pieces removed, repeated, exchanged or made up.
std::string damaged(std::string text, std::mt19937& random) {
  static const std::string pieces[] = {"{",          "}",    "[",    "]",       ",",   ":",
                                       "\"",         "null", "-1",   "0",       "1e9", "\\u0000",
                                       "\"row\": 3", "true", "\"\"", "\xF0\x9F"};
  for (std::size_t times = 1 + below(random, 4); times > 0 && !text.empty(); --times) {
    const std::size_t at = below(random, text.size());
    const std::size_t length = 1 + below(random, std::min<std::size_t>(40, text.size() - at));
    switch (below(random, 4)) {
      case 0:
        text.erase(at, length);
        break;
      case 1:
        text.insert(at, text.substr(at, length));
        break;
      case 2:
        text.replace(at, 1, pieces[below(random, std::size(pieces))]);
        break;
      default:
        text[at] = static_cast<char>(random());
        break;
    }
  }
  return text;
}

TEST(ToolNonsense, DamagedDescriptionsEndInProblemsOrAnEditor) {
  const std::string original = textOf(dataFile("example.json"));
  std::mt19937 random(20240501);
  for (int i = 0; i < 400; ++i) {
    const TemporaryFile file(damaged(original, random));
    const ToolResult result = runTool({"tree", file.path(), "--size", "300x200"});
    SCOPED_TRACE(textOf(file.path()));
    if (result.code == 0) {
      EXPECT_EQ(result.err, "");
      EXPECT_EQ(result.out.substr(0, 1), "{");
    } else {
      ASSERT_EQ(result.code, 1);
      ASSERT_TRUE(isOneLine(result.err)) << result.err;
      ASSERT_TRUE(result.err.starts_with(file.path() + ": ")) << result.err;
    }
  }
}

TEST(ToolNonsense, DamagedScriptsAreAnsweredLineByLine) {
  const std::string original =
      "size 400 300\npage 1\ntap \"Main\"\ntap key:cutoff\ndoubletap KnobContainer#1\n"
      "drag key:mode 3 4\nwheel at:100,120 -2\nkey shift+tab\ntype abc\nset cutoff 440\n"
      "get cutoff\nlive cutoff 1\nmodulate cutoff on\npreset Bright\nnext\nprevious\npresets\n"
      "together\npress key:cutoff\nset mode 1\nmove 3 -9\nreceive 176,7,9\npage 0\nlift\nend\n"
      "disappear\nappear\nwait 0.05\nframes\nstate\nexpect mode 1\n";
  std::mt19937 random(7);
  for (int i = 0; i < 150; ++i) {
    const std::string script = damaged(original, random);
    SCOPED_TRACE(script);
    const ToolResult result = runTool({"drive", dataFile("example.json")}, script);
    ASSERT_EQ(result.code, 0) << result.err;
    for (const std::string& line : linesOf(result.out))
      ASSERT_TRUE(line.starts_with("{\"ok\":true") || line.starts_with("{\"ok\":false,\"error\":"))
          << line;
  }
}

TEST(ToolNonsense, AVeryLongLineIsOneError) {
  const ToolResult result =
      runTool({"drive", dataFile("example.json")}, std::string(5000000, 'x') + "\nstate\n");
  EXPECT_EQ(linesOf(result.out).size(), 2u);
  EXPECT_LT(linesOf(result.out)[0].size(), 500u);
}

}  // namespace
