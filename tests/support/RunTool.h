#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tools/orvane/Tool.h"

namespace support {

struct ToolResult {
  int code = 0;
  std::string out;
  std::string err;
};

/// Runs the tool in this process.
inline ToolResult runTool(const std::vector<std::string>& arguments,
                          const std::string& input = "") {
  std::istringstream in(input);
  std::ostringstream out, err;
  const int code = tool::runTool(arguments, in, out, err);
  return {code, out.str(), err.str()};
}

inline std::string dataFile(const std::string& name) {
  return ORVANE_SOURCE_DIR "/tests/data/" + name;
}

/// A file with this text that is gone at the end of the test.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& text, const std::string& suffix = ".json") {
    static std::atomic<int> count{0};
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string("orvane-") + test->test_suite_name() + '-' + test->name() + '-' +
                       std::to_string(++count) + suffix;
    std::replace(name.begin(), name.end(), '/', '-');
    path_ = (std::filesystem::temp_directory_path() / name).string();
    std::ofstream(path_, std::ios::binary) << text;
  }
  ~TemporaryFile() { std::filesystem::remove(path_); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

/// Lines of a text; the last one need not end.
inline std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// Exactly one line, with its end.
inline bool isOneLine(const std::string& text) {
  return !text.empty() && text.back() == '\n' && std::count(text.begin(), text.end(), '\n') == 1;
}

}  // namespace support
