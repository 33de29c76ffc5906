// What a library of presets has, shows, walks through and has selected, without any view.

#include <gmock/gmock.h>

#include "Orvane/PresetLibrary.h"
#include "tests/support/PresetBench.h"

namespace {

using orvane::FavPresetsStore;
using orvane::PresetLibrary;
using testing::ElementsAre;
using testing::IsEmpty;
using Change = orvane::PresetLibraryObserver::Change;
using Names = std::vector<std::string>;

class PresetLibraryTest : public support::PresetBench {
 protected:
  PresetLibraryTest() {
    library.setStore(manager.get());
    library.setFactoryPresets(std::vector<platform::KestroAUPreset>{
        platform::KestroAUPreset({.number = 1, .name = "Init", .bank = "Coast"}),
        platform::KestroAUPreset({.number = 2, .name = "Init", .bank = "Harbour"}),
        platform::KestroAUPreset({.number = 3, .name = "Zed", .bank = "Coast"})});
    library.reload();
  }
  std::string file(const std::string& name) { return folder / ("data/Presets/" + name); }

  std::unique_ptr<orvane::PresetManager> manager = makeManager();
  PresetLibrary library;
};

/// Counts what it is told.
struct Watcher : orvane::PresetLibraryObserver, platform::WeakTarget {
  void presetLibraryDidChange(Change change) override { changes.push_back(change); }
  std::vector<Change> changes;
};

TEST_F(PresetLibraryTest, TheSelectionIsTheListsOwnPresetWithItsCategories) {
  const std::string url = *manager->saveNew("Foam", {"Bass"});
  library.reload();
  library.select(std::make_shared<orvane::UserPreset>(url, false));
  EXPECT_EQ(library.selected(), library.userPresetAt(url));
  EXPECT_THAT(library.selected()->categories, ElementsAre("bass"));
  manager->savePreset(url, {"Lead", "Pad"});
  library.reload();
  EXPECT_THAT(library.selected()->categories, ElementsAre("lead", "pad")) << "as they are now";
  std::filesystem::remove(url);
  library.reload();
  EXPECT_EQ(library.selected(), nullptr);
}

TEST_F(PresetLibraryTest, PresetsOfOneNameAreSeveralWhereverTheyAre) {
  manager->saveNew("Caf\u00e9", {});
  folder.write("data/Presets/Cafe\u0301.synth", support::textOf(file("Caf\u00e9.synth")));
  folder.write("data/Presets/Caf\u00e9.bak", support::textOf(file("Caf\u00e9.synth")));
  library.reload();
  const PresetLibrary::Presets walk = library.walk();
  ASSERT_EQ(walk.size(), 6u);
  auto each = walk.front();
  for (std::size_t i = 0; i < walk.size(); ++i) {
    library.select(each);
    EXPECT_EQ(library.selected(), walk[i]) << i;
    library.reload();
    EXPECT_EQ(library.selected(), walk[i]) << i << ", after a reload";
    EXPECT_EQ(library.neighbourInWalk(*each, true), walk[(i + 5) % 6]);
    each = library.neighbourInWalk(*each, false);
  }
  EXPECT_EQ(each, walk.front()) << "around the end";
}

TEST_F(PresetLibraryTest, WhatComesAndGoesTakesItsPlaceInTheOrder) {
  for (const char* name : {"middle", "Alpha", "zoo"}) manager->saveNew(name, {});
  library.reload();
  EXPECT_EQ(namesOf(library.all()), (Names{"Alpha", "Init", "Init", "middle", "Zed", "zoo"}));
  manager->saveNew("Default", {});
  manager->saveNew("init", {});
  std::filesystem::remove(file("middle.synth"));
  library.reload();
  EXPECT_EQ(namesOf(library.all()),
            (Names{"Default", "Alpha", "Init", "Init", "init", "Zed", "zoo"}));
  EXPECT_EQ(namesOf(library.walk()),
            (Names{"Alpha", "Default", "init", "zoo", "Init", "Init", "Zed"}));
  std::filesystem::remove(file("Default.synth"));
  manager->saveNew("Beta", {});
  library.reload();
  EXPECT_EQ(namesOf(library.all()), (Names{"Alpha", "Beta", "Init", "Init", "init", "Zed", "zoo"}));
  library.setFilter({.searchText = "T"});
  EXPECT_EQ(namesOf(library.shown()), (Names{"Beta", "Init", "Init", "init"}));
  library.setFilter({.searchText = "ti"});
  EXPECT_THAT(library.shown(), IsEmpty()) << "nothing is found across two names";
}

TEST_F(PresetLibraryTest, OneEditorsChangesReachTheOthersOnce) {
  PresetLibrary other;
  other.setStore(manager.get());
  other.reload();
  Watcher watcher;
  other.addObserver(&watcher);
  const std::string url = *manager->saveNew("Foam", {});
  library.announce();
  EXPECT_THAT(watcher.changes, IsEmpty()) << "in the next turn";
  loop.runDue();
  EXPECT_THAT(watcher.changes, ElementsAre(Change::presets));
  PresetLibrary::setFavourite(*library.userPresetAt(url), true);
  EXPECT_TRUE(other.userPresetAt(url)->isFavourite);
  EXPECT_THAT(watcher.changes, ElementsAre(Change::presets, Change::marks));
  library.reload();
  library.announce();
  loop.runDue();
  EXPECT_EQ(watcher.changes.size(), 2u) << "nothing has changed";
}

TEST_F(PresetLibraryTest, SeveralPresetsAreMarkedFromTheSelectedOneOn) {
  for (const char* name : {"a", "b", "c", "d"}) manager->saveNew(name, {});
  library.reload();
  library.setFilter({.bank = "USER"});
  const auto& shown = library.shown();
  library.select(shown[0]);
  library.toggleMark(shown[2]);
  EXPECT_EQ(namesOf(library.marked()), (Names{"a", "c"}));
  library.toggleMark(shown[0]);
  EXPECT_EQ(namesOf(library.marked()), (Names{"c"}));
  library.clearMarks();
  library.extendMarks(shown[2], shown);
  EXPECT_EQ(namesOf(library.marked()), (Names{"a", "b", "c"}));
  std::filesystem::remove(file("b.synth"));
  library.reload();
  EXPECT_EQ(namesOf(library.marked()), (Names{"a", "c"}));
  library.markAllShown();
  EXPECT_EQ(library.markCount(), 3u);
  library.setFilter({.searchText = "d"});
  EXPECT_EQ(namesOf(library.marked()), (Names{"d"})) << "what is out of sight is left alone";
}

TEST_F(PresetLibraryTest, TheNearestNeighbourTakesThePlaceOfWhatGoes) {
  for (const char* name : {"a", "b", "y"}) manager->saveNew(name, {});
  library.reload();
  library.setFilter({.bank = "USER"});
  const auto shown = library.shown();
  EXPECT_EQ(library.neighbourShown(*shown[0], {}), shown[1]);
  EXPECT_EQ(library.neighbourShown(*shown[0], {shown[0], shown[1]}), shown[2]);
  EXPECT_EQ(library.neighbourShown(*shown[2], {shown[2], shown[1]}), shown[0]);
  EXPECT_EQ(library.neighbourShown(*shown[1], shown), nullptr);
  library.setFilter({.searchText = "y"});
  EXPECT_EQ(library.neighbourShown(*shown[2], {}), nullptr);
  library.setFilter({});
  const auto all = library.shown();
  const auto factory =
      std::find_if(all.begin(), all.end(), [](const auto& each) { return !each->isUserPreset; });
  ASSERT_NE(factory, all.end());
  EXPECT_EQ(library.neighbourShown(*shown[0], {shown[1]}), shown[2]) << "past the factory's";
  EXPECT_EQ(library.neighbourShown(*shown[1], shown), *factory);
}

}  // namespace
