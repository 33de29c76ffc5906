#include "tools/orvane/Plugin.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "examples/Gallery/GalleryPlugin.h"
#include "examples/Halden/HaldenPlugin.h"
#include "examples/Selvik/SelvikPlugin.h"
#include "tools/orvane/DescribedPlugin.h"
#include "tools/orvane/DescriptionReader.h"
#include "tools/orvane/Problems.h"
#include "tools/orvane/Text.h"

namespace tool {

namespace {

/// Far above any design, far below what would fill the memory.
constexpr std::uintmax_t maxFileSize = 64u << 20;

std::string readFile(const std::string& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) throw Failure(path + ": is a folder");
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) throw Failure(path + ": cannot be read: " + std::strerror(errno));
  std::string text;
  char buffer[1 << 16];
  while (file.read(buffer, sizeof buffer) || file.gcount() > 0) {
    text.append(buffer, static_cast<std::size_t>(file.gcount()));
    if (text.size() > maxFileSize) throw Failure(path + ": is larger than 64 MiB");
  }
  if (file.bad()) throw Failure(path + ": cannot be read");
  return text;
}

}  // namespace

const std::vector<BuiltIn>& builtIns() {
  static const std::vector<BuiltIn> all{{"halden", &halden::pluginEntry},
                                        {"gallery", &gallery::pluginEntry},
                                        {"selvik", &selvik::pluginEntry}};
  return all;
}

Plugin loadPlugin(const std::string& name, Problems& problems) {
  for (const BuiltIn& builtIn : builtIns())
    if (name == builtIn.name) return {builtIn.entry(), name};
  if (!name.ends_with(".json"))
    throw Failure(name + ": no built-in plug-in has this name, and a description ends in .json");
  const std::string text = readFile(name);
  const auto described = std::make_shared<DescribedPlugin>(
      readDescription(text, std::filesystem::path(name).stem().string(), problems));
  if (!problems.empty()) return {{}, name};
  return {entryOf(described), name};
}

Plugin loadPlugin(const std::string& name) {
  Problems problems;
  Plugin plugin = loadPlugin(name, problems);
  if (!problems.empty()) throw Failure(problems.front().line(name));
  return plugin;
}

}  // namespace tool
