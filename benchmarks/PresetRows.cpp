// Ten thousand user presets of 9 KB, fifty thousand short ones, and a hundred thousand in a list: what
// the browser waits for. Stock JUCE has no presets, so the figures stand beside goals alone.

#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "Orvane/PresetListTableViewController.h"
#include "Orvane/PresetManager.h"
#include "benchmarks/EventLoop.h"
#include "benchmarks/Measure.h"
#include "benchmarks/OffscreenWindow.h"
#include "benchmarks/Rows.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/LocalFileManager.h"
#include "foundation/PropertyListCoding.h"

namespace bench {
namespace {

using platform::PropertyList;
namespace fs = std::filesystem;

constexpr int presetCount = 10000, fewCount = 5, manyCount = 50000;
constexpr std::size_t presetSize = 9000;

/// Counts what is read.
class CountingFiles : public foundation::LocalFileManager {
 public:
  using LocalFileManager::LocalFileManager;
  std::optional<PropertyList::Data> contents(const std::string& path, platform::FileError& error,
                                             std::uint64_t offset, std::size_t count) override {
    ++reads;
    return LocalFileManager::contents(path, error, offset, count);
  }
  int reads = 0;
};

std::string presetText() {
  PropertyList::Dictionary parameters;
  std::string text;
  for (int i = 0; text.size() < presetSize; ++i) {
    parameters["parameter" + std::to_string(i)] = i * 0.37;
    text = foundation::writeXmlPropertyList(PropertyList::Dictionary{
        {"Categories", PropertyList::Array{"bass", "dark"}}, {"parameters", parameters}});
  }
  return text;
}

/// Milliseconds on the clock, waiting for the disk included.
template <class Action>
double elapsed(Action action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
  return took.count();
}

class Folder {
 public:
  Folder(int count, const std::string& text)
      : path_(fs::temp_directory_path() /
              ("orvane-bench-" + std::to_string(::getpid()) + '-' + std::to_string(count))) {
    fs::create_directories(path_ / "Presets");
    for (int i = 0; i < count; ++i) add("Preset " + std::to_string(i), text);
  }
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  void add(const std::string& name, const std::string& text) const {
    std::ofstream(path_ / "Presets" / (name + ".preset"), std::ios::binary) << text;
  }
  std::string path() const { return path_.string(); }

 private:
  const fs::path path_;
};

/// Milliseconds of a listing of a folder of `count` presets: the fastest of twenty, before each of which
/// `change` is made. The first listing is not among them.
double listing(int count, const std::string& text, BenchAudioUnit& unit,
               const std::function<void(const Folder&, int)>& change) {
  const Folder folder(count, text);
  foundation::LocalFileManager files(folder.path(),
                                     foundation::LocalFileManager::Groups::oneForAll);
  const foundation::DefaultFileManager scope(files);
  orvane::PresetManager manager("bench", {});
  manager.audioUnit = &unit;
  manager.getUserPresets();
  double fastest = 1e9;
  for (int i = 0; i < 20; ++i) {
    change(folder, i);
    fastest = std::min(fastest, elapsed([&] { manager.getUserPresets(); }));
  }
  return fastest;
}

struct BrowserTimes {
  double open = 1e9, saveNew = 1e9;
};

/// Milliseconds on the clock in an editor with many presets: until the browser is painted after a tap
/// on the name, and until a new preset is saved and listed. The fastest of ten.
BrowserTimes browserTimes(const std::string& text) {
  const Folder folder(manyCount, text);
  foundation::LocalFileManager files(folder.path(),
                                     foundation::LocalFileManager::Groups::oneForAll);
  const foundation::DefaultFileManager scope(files);
  BenchAudioUnit unit(twoHundred.count());
  BenchEditor editor(unit, twoHundred, "bench");
  OffscreenWindow window(1024, 768, 1);
  window.show(editor.component());
  runLoopFor(200);
  window.paintNow();
  orvane::KestroAUViewController& controller = editor.controller();
  orvane::PresetViewOverlay& browser = controller.overlaysView().presetViewOverlay();
  BrowserTimes times;
  for (int i = 0; i < 10; ++i) {
    times.open = std::min(times.open, elapsed([&] {
                            controller.menuBar().onPresetButton();
                            runLoopUntil([&] { return window.isDirty(); });
                            window.paintNow();
                          }));
    times.saveNew = std::min(
        times.saveNew,
        elapsed([&] { browser.delegate->saveNewPreset("New " + std::to_string(i), {"Lead"}); }));
    browser.setHidden(true);
    runLoopFor(50);
    window.paintNow();
  }
  return times;
}

/// The keystroke that the user waits for longest while typing a word, over a list in which each key
/// leaves fewer presets: milliseconds of the list's own work.
double maxKeystroke() {
  constexpr int count = 100000;
  constexpr const char* words[] = {"Warm", "Glass", "Deep", "Tidal", "Slow", "Bright", "Iron"};
  std::vector<platform::KestroAUPreset> presets;
  for (int i = 0; i < count; ++i) {
    platform::AUAudioUnitPreset preset;
    preset.number = i;
    preset.name = std::string(words[i % 7]) + ' ' + words[i / 7 % 7] + ' ' + std::to_string(i);
    presets.emplace_back(preset);
  }
  orvane::PresetLibrary library;
  orvane::PresetListTableViewController list(library);
  library.setFactoryPresets(std::move(presets));
  list.useHeaders = false;
  list.view().setFrame({0, 0, 600, 400});
  list.reload();
  list.setSelectedPreset(list.presetFileList()[count / 2]);
  double longest = 0;
  const std::string text = "warm glass 7";
  for (std::size_t length = 1; length <= text.size(); ++length) {
    std::vector<double> times;
    for (int round = 0; round < 5; ++round) {
      list.searchFor(text.substr(0, length - 1));
      times.push_back(worked([&] { list.searchFor(text.substr(0, length)); }));
    }
    longest = std::max(longest, median(times));
  }
  return longest;
}

}  // namespace

void addPresetRows(Report& report) {
  const std::string text = presetText();
  const Folder folder(presetCount, text);
  CountingFiles files(folder.path(), foundation::LocalFileManager::Groups::oneForAll);
  const foundation::DefaultFileManager scope(files);
  BenchAudioUnit unit(twoHundred.count());
  orvane::PresetManager manager("bench", {});
  manager.audioUnit = &unit;
  std::size_t listed = 0;
  const auto list = [&] { listed = manager.getUserPresets().size(); };
  const double first = elapsed(list);
  const int readsOfFirst = files.reads;
  double again = 1e9;
  for (int i = 0; i < 5; ++i) again = std::min(again, elapsed(list));
  const int readsOfAgain = files.reads - readsOfFirst;
  double save = 1e9;
  const std::string url = folder.path() + "/Presets/Preset 7.preset";
  for (int i = 0; i < 20; ++i)
    save = std::min(save, elapsed([&] { manager.savePreset(url, {"Lead"}); }));

  const auto add = [&](std::string key, std::string title, std::string figureUnit, double ours,
                       std::optional<double> goal) {
    report.add({.key = std::move(key),
                .title = std::move(title),
                .unit = std::move(figureUnit),
                .ours = ours,
                .goal = goal,
                .goalFor = Row::Goal::figure});
  };
  add("presetsFirst", "first listing of " + std::to_string(listed) + " presets", "ms", first, 2000);
  add("presetsAgain", "unchanged listing of them", "ms", again, 10);
  add("presetsReads", "files read in five unchanged listings", "", readsOfAgain, 0);
  add("presetsFew", "listing of " + std::to_string(fewCount) + " presets", "ms",
      listing(fewCount, text, unit, [](const Folder&, int) {}), 0.1);
  // Their size does not matter, only that they are many.
  add("presetsMany", "listing of 50,000 after one more has come", "ms",
      listing(manyCount, text.substr(0, 300), unit,
              [&](const Folder& many, int i) { many.add("New " + std::to_string(i), text); }),
      15);
  const BrowserTimes browser = browserTimes(text.substr(0, 300));
  add("browserOpen", "opening the browser of 50,000, up to its first frame", "ms", browser.open,
      100);
  add("browserSave", "SAVE NEW among 50,000, until it is listed", "ms", browser.saveNew, 50);
  add("presetSearch", "longest keystroke of a search in 100,000", "ms", maxKeystroke(), 5);
  add("presetSave", "one save (the disk's cache included)", "ms", save, 5);
}

}  // namespace bench
