#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Orvane/FavPresetsStore.h"
#include "Orvane/PresetManager.h"
#include "Quillon/CommonAudioUnit.h"
#include "backends/headless/HeadlessRunLoop.h"
#include "foundation/Console.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/FolderCloud.h"
#include "foundation/LocalFileManager.h"
#include "foundation/PropertyListCoding.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TroubledDownloader.h"

namespace support {

class PresetUnit : public quillon::CommonAudioUnit {
 public:
  PresetUnit()
      : CommonAudioUnit({{.key = "cutoff",
                          .address = 0,
                          .minValue = 20,
                          .maxValue = 20000,
                          .defaultValue = 1000,
                          .unit = platform::AudioUnitParameterUnit::hertz},
                         {.key = "mix", .address = 1, .defaultValue = 0.5f}},
                        {{.preset = {.number = 3, .name = "Init", .bank = "BANK A"},
                          .values = {{"cutoff", 300}}}}) {}
  std::string presetExtension() const override { return "synth"; }
};

/// Counts what is read, and keeps whose access was asked for and given back.
class CountingFiles : public foundation::LocalFileManager {
 public:
  using LocalFileManager::LocalFileManager;
  std::optional<platform::PropertyList::Data> contents(const std::string& path,
                                                       platform::FileError& error,
                                                       std::uint64_t offset = 0,
                                                       std::size_t count = everything) override {
    auto bytes = LocalFileManager::contents(path, error, offset, count);
    ++reads;
    bytesRead += bytes ? bytes->size() : 0;
    return bytes;
  }
  void startAccessingSecurityScopedResource(const std::string& path) override {
    access += "+" + path;
  }
  void stopAccessingSecurityScopedResource(const std::string& path) override {
    access += "-" + path;
  }
  std::atomic<int> reads = 0;
  std::atomic<std::size_t> bytesRead = 0;
  std::string access;
};

/// An app group's container, a cloud that a test may switch on, and the console.
class PresetBench : public testing::Test {
 protected:
  explicit PresetBench(bool hasCloud = false)
      : remote(std::make_shared<TroubledDownloader>(folder / "remote", folder / "cloud")),
        cloud(std::make_shared<foundation::FolderCloud>(
            hasCloud ? folder / "cloud" : "", remote,
            std::map<std::string, std::string>{{"old", folder / "old"}})),
        files(folder / "data", foundation::LocalFileManager::Groups::oneForAll, cloud,
              folder / "tmp/"),
        scope(files) {
    for (const char* name : {"data", "cloud", "tmp"})
      std::filesystem::create_directory(folder / name);
    orvane::FavPresetsStore::suiteName = "group.test";
    orvane::FavPresetsStore::favouritePresets.clear();
  }

  std::unique_ptr<orvane::PresetManager> makeManager() {
    auto manager = std::make_unique<orvane::PresetManager>("group.test", extraResources);
    manager->audioUnit = &unit;
    manager->createPresetDirectories();
    loop.runDue();
    return manager;
  }
  std::vector<std::string> namesOf(orvane::PresetManager& manager) {
    std::vector<std::string> names;
    for (const auto& preset : manager.getUserPresets()) names.push_back(preset->name);
    std::sort(names.begin(), names.end());
    return names;
  }
  static std::vector<std::string> namesOf(
      const std::vector<std::shared_ptr<orvane::Preset>>& presets) {
    std::vector<std::string> names;
    for (const auto& preset : presets) names.push_back(preset->name);
    return names;
  }
  static platform::PropertyList listAt(const std::string& path) {
    const std::string text = textOf(path);
    std::string error;
    auto list = foundation::parsePropertyList(
        {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, error);
    return list ? *list : platform::PropertyList();
  }

  const TemporaryFolder folder;
  const std::shared_ptr<TroubledDownloader> remote;
  const std::shared_ptr<foundation::FolderCloud> cloud;
  CountingFiles files;
  foundation::DefaultFileManager scope;
  headless::HeadlessRunLoop loop;
  std::vector<std::string> extraResources;
  std::vector<std::string> printed;
  foundation::ConsoleListener listener{
      [this](const std::string& line) { printed.push_back(line); }};
  PresetUnit unit;
};

}  // namespace support
