#include "fuzz/PresetFolderTarget.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "Orvane/FavPresetsStore.h"
#include "Orvane/PresetManager.h"
#include "Quillon/CommonAudioUnit.h"
#include "backends/headless/HeadlessRunLoop.h"
#include "foundation/Console.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/LocalFileManager.h"
#include "foundation/SafeFile.h"
#include "platform/Fatal.h"
#include "platform/FilePath.h"
#include "tools/orvane/PresetDoctor.h"

namespace fuzz {

namespace fs = std::filesystem;

namespace {

void require(bool isTrue, const char* what) {
  if (!isTrue) platform::fatal(what);
}

class Folder {
 public:
  Folder() {
    std::string name = (fs::temp_directory_path() / "orvane-fuzz-XXXXXX").string();
    require(::mkdtemp(name.data()) != nullptr, "No folder can be made");
    path_ = name;
    fs::create_directories(path_ + "/data/Presets");
    fs::create_directories(path_ + "/data/PresetPacks");
    fs::create_directories(path_ + "/tmp");
  }
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  std::string operator/(const char* name) const { return path_ + '/' + name; }

 private:
  std::string path_;
};

/// A name that this file system takes is written as it is.
void writeFiles(std::span<const std::uint8_t> bytes, const std::string& folder) {
  const auto take = [&](std::size_t size) {
    const auto part = bytes.first(std::min(size, bytes.size()));
    bytes = bytes.subspan(part.size());
    return std::string(part.begin(), part.end());
  };
  const auto number = [&](std::size_t size) {
    std::size_t value = 0, place = 0;
    for (const char c : take(size))
      value |= std::size_t{static_cast<unsigned char>(c)} << 8 * place++;
    return value;
  };
  constexpr int maxFiles = 12;
  for (int file = 0; file < maxFiles && !bytes.empty(); ++file) {
    const std::string name = take(number(1)), content = take(number(2));
    if (platform::isFileName(name)) std::ofstream(folder + '/' + name, std::ios::binary) << content;
  }
}

std::string textOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The contents of all files in folders of presets, each as often as it is there.
std::multiset<std::string> contentsIn(const std::string& container) {
  std::multiset<std::string> all;
  for (const auto& entry : fs::recursive_directory_iterator(container))
    if (entry.is_regular_file() && entry.path().parent_path().filename() != "Preferences" &&
        !foundation::SafeFile::isUnfinished(entry.path().filename().string()))
      all.insert(textOf(entry.path()));
  return all;
}

}  // namespace

void presetFolder(std::span<const std::uint8_t> bytes) {
  const Folder folder;
  const std::string container = folder / "data", path = folder / "data/Presets";
  writeFiles(bytes, path);
  foundation::LocalFileManager files(container, foundation::LocalFileManager::Groups::oneForAll,
                                     nullptr, folder / "tmp/");
  const foundation::DefaultFileManager scope(files);
  const foundation::ConsoleListener console([](const std::string&) {});
  headless::HeadlessRunLoop loop;
  quillon::CommonAudioUnit unit({{.key = "mix", .address = 0}});
  orvane::FavPresetsStore::suiteName = "group.fuzz";
  orvane::FavPresetsStore::favouritePresets.clear();
  orvane::PresetManager manager("group.fuzz", {});
  manager.audioUnit = &unit;

  const auto before = contentsIn(container);
  const auto presets = manager.getUserPresets();
  require(presets.size() == before.size(), "A file is not listed");
  require(manager.getUserPresets() == presets, "A listing of the same files has other presets");
  for (const auto& preset : presets) {
    orvane::FavPresetsStore::setFavourite(*preset, true);
    manager.loadUserPreset(*preset);
    require(manager.deleteUserPreset(*preset), "A file cannot be deleted");
    require(manager.restore(*manager.lastChange()), "A deleted file does not come back");
    require(orvane::FavPresetsStore::contains(preset->uniqueName()), "A star is lost");
  }
  require(contentsIn(container) == before, "A file is lost, or another one");
  const auto marked = orvane::FavPresetsStore::favouritePresets;
  orvane::FavPresetsStore::load();
  require(orvane::FavPresetsStore::favouritePresets == marked, "A star is stored as another one");

  manager.exportAll();
  manager.copyPresetsFromFolder(path);
  manager.getPackPresets();
  fs::remove_all(container + "/PresetPacks");
  const auto examine = [&](tool::PresetDoctor::Mode mode) {
    return tool::PresetDoctor(files, {path, container}, mode).examine();
  };
  examine(tool::PresetDoctor::Mode::report);
  require(contentsIn(container) == before, "A look has changed a file");
  examine(tool::PresetDoctor::Mode::fix);
  require(contentsIn(container).size() == before.size(), "A file was mended away");
  std::set<std::string> unreadable;
  for (const auto& problem : examine(tool::PresetDoctor::Mode::report))
    if (problem.kind == tool::PresetProblem::Kind::unreadable) unreadable.insert(problem.file);
  // Placeholders of a cloud are no presets, and no broken ones.
  for (const auto& preset : manager.getUserPresets())
    require(platform::pathExtension(preset->url) == "icloud" ||
                manager.loadUserPreset(*preset) != unreadable.contains(preset->url),
            "What the doctor calls a preset cannot be loaded, or the other way round");
  loop.runDue();
}

}  // namespace fuzz
