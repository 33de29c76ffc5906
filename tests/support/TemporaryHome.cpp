// Part of every test program: whatever it opens finds the user's own data folder empty, and leaves
// nothing in it.

#include <unistd.h>
#include <cstdlib>

#include <filesystem>
#include <string>
#include <system_error>

namespace {

class TemporaryHome {
 public:
  TemporaryHome()
      : path_(std::filesystem::temp_directory_path() /
              ("orvane-test-home-" + std::to_string(::getpid()))) {
    ::setenv("XDG_DATA_HOME", path_.c_str(), 1);
    ::setenv("HOME", path_.c_str(), 1);
  }
  ~TemporaryHome() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

 private:
  const std::filesystem::path path_;
};

const TemporaryHome home;

}  // namespace
