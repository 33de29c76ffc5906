// A process that works in a folder of presets, as an open editor does. Tests run several at once and
// kill them at any instant.
//
//   preset_saver CONTAINER endless        saves one preset over and over, marks and unmarks it
//   preset_saver CONTAINER NAME COUNT     saves COUNT presets of its own and marks each

#include <unistd.h>

#include <cstdlib>

#include "foundation/DefaultFileManager.h"
#include "tests/support/PresetBench.h"

namespace {

void saveForEver(orvane::PresetManager& manager, support::PresetUnit& unit,
                 headless::HeadlessRunLoop& loop, const std::string& url) {
  for (int generation = 1;; ++generation) {
    unit.setParameter("mix", static_cast<float>(generation % 1000) / 1000);
    manager.savePreset(url, {"Category " + std::to_string(generation)});
    if (generation == 1 && ::write(STDOUT_FILENO, "s", 1) != 1) return;
    orvane::Preset marked("generation");
    orvane::FavPresetsStore::setFavourite(marked, generation % 2 == 1);
    loop.runDue();
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const std::string container = argv[1], name = argv[2];
  foundation::LocalFileManager files(container, foundation::LocalFileManager::Groups::oneForAll,
                                     foundation::UsersCloud::ofEnvironment());
  const foundation::DefaultFileManager scope(files);
  headless::HeadlessRunLoop loop;
  support::PresetUnit unit;
  orvane::PresetManager manager("group.test", {});
  manager.audioUnit = &unit;
  manager.createPresetDirectories();
  orvane::FavPresetsStore::suiteName = "group.test";
  orvane::FavPresetsStore::load();
  if (argc == 3) saveForEver(manager, unit, loop, container + "/Presets/kept.synth");
  for (int i = 0; i < std::atoi(argv[3]); ++i) {
    const auto url = manager.saveNew(name + '-' + std::to_string(i), {name});
    for (const auto& preset : manager.getUserPresets())
      if (preset->url == url) orvane::FavPresetsStore::setFavourite(*preset, true);
    loop.runDue();
  }
  return 0;
}
