// What is deleted or saved over can be had back, and is never lost to another file of its name.

#include "Orvane/PresetTrash.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "platform/FilePath.h"
#include "tests/support/PresetBench.h"

namespace {

using orvane::FavPresetsStore;
using orvane::PresetTrash;
using orvane::UserPreset;
using support::namesIn;
using support::textOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Names = std::set<std::string>;
namespace fs = std::filesystem;

/// A folder in which capitals do not count, as those of other systems: a file keeps the spelling that
/// it was made with until it is moved.
class FoldingFiles : public foundation::LocalFileManager {
 public:
  using LocalFileManager::LocalFileManager;
  std::optional<platform::FileStatus> status(const std::string& path, Links links) override {
    return LocalFileManager::status(spelled(path), links);
  }
  bool fileExists(const std::string& path) override {
    return LocalFileManager::fileExists(spelled(path));
  }
  std::optional<platform::PropertyList::Data> contents(const std::string& path,
                                                       platform::FileError& error,
                                                       std::uint64_t offset = 0,
                                                       std::size_t count = everything) override {
    return LocalFileManager::contents(spelled(path), error, offset, count);
  }
  Error write(std::span<const std::uint8_t> bytes, const std::string& path) override {
    return LocalFileManager::write(bytes, spelled(path));
  }
  Error moveItem(const std::string& from, const std::string& to) override {
    const std::string real = spelled(from);
    return LocalFileManager::moveItem(real, spelled(to) == real ? to : spelled(to));
  }

 private:
  static std::string spelled(const std::string& path) {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(fs::path(path).parent_path(), error))
      if (foundation::lowercased(entry.path().string()) == foundation::lowercased(path))
        return entry.path();
    return path;
  }
};

class PresetTrashTest : public support::PresetBench {
 protected:
  explicit PresetTrashTest(bool hasCloud = false) : PresetBench(hasCloud) {}
  std::string presets() { return folder / "data/Presets"; }
  std::string save(const std::string& name, float cutoff) {
    unit.setParameter("cutoff", cutoff);
    return manager->saveNew(name, {"pad"}).value_or("");
  }
  /// What `cutoff` is in a file.
  double cutoffIn(const std::string& path) {
    const auto list = listAt(path);
    const auto* parameters = list.find("parameters");
    return parameters ? parameters->find("cutoff")->number() : -1;
  }
  /// Names of the files, however they were deleted.
  Names trashed() {
    Names names;
    for (const auto& entry : PresetTrash(files, folder / "data/PresetTrash").entries())
      names.insert(platform::lastPathComponent(entry.path));
    return names;
  }

  std::unique_ptr<orvane::PresetManager> manager = makeManager();
};

TEST_F(PresetTrashTest, ADeletedPresetComesBackWithItsStar) {
  const std::string url = save("Foam", 500);
  UserPreset foam(url, false);
  FavPresetsStore::setFavourite(foam, true);
  ASSERT_TRUE(manager->deleteUserPreset(foam));
  EXPECT_THAT(namesOf(*manager), IsEmpty());
  EXPECT_FALSE(FavPresetsStore::contains(url));
  EXPECT_EQ(trashed(), Names{"Foam.synth"});
  const auto change = *manager->lastChange();
  ASSERT_TRUE(manager->restore(change));
  EXPECT_EQ(cutoffIn(url), 500);
  EXPECT_TRUE(FavPresetsStore::contains(url));
  EXPECT_THAT(namesIn(folder / "data/PresetTrash"), IsEmpty());
  EXPECT_FALSE(manager->lastChange() || manager->restore(change)) << "once";
  EXPECT_THAT(printed, SizeIs(1));
}

TEST_F(PresetTrashTest, WhatWasSavedOverComesBackUnlessSomebodyHasWrittenSince) {
  const std::string url = save("Foam", 500);
  EXPECT_THAT(manager->lastChange()->steps, SizeIs(1));
  save("Foam", 600);
  const auto second = *manager->lastChange();
  save("Foam", 600);
  EXPECT_THAT(trashed(), SizeIs(1)) << "its equal is not worth keeping";
  EXPECT_FALSE(manager->restore(second));
  EXPECT_THAT(printed,
              ElementsAre("\"Foam.synth\" could not be restored: it has been changed since"));
  EXPECT_EQ(cutoffIn(url), 600);

  save("Foam", 700);
  ASSERT_TRUE(manager->restore(*manager->lastChange()));
  EXPECT_EQ(cutoffIn(url), 600);

  const std::string fresh = save("Fresh", 800);
  ASSERT_TRUE(manager->restore(*manager->lastChange()));
  EXPECT_THAT(namesOf(*manager), ElementsAre("Foam")) << "what was new is deleted";
  EXPECT_TRUE(trashed().contains("Fresh.synth"));
}

TEST_F(PresetTrashTest, ADeletedPresetNeverReplacesItsSuccessor) {
  const std::string url = save("Foam", 500);
  manager->deleteUserPreset(UserPreset(url, false));
  const auto change = *manager->lastChange();
  folder.write("data/Presets/Foam.synth", "theirs");
  EXPECT_FALSE(manager->restore(change));
  EXPECT_EQ(textOf(url), "theirs");
  EXPECT_EQ(trashed(), Names{"Foam.synth"});
  EXPECT_THAT(printed, ElementsAre(HasSubstr("another preset has its name")));
}

TEST_F(PresetTrashTest, OnlyFilesAndLinksThemselvesAreDeleted) {
  folder.write("data/Presets/Old sounds/a.synth", "a");
  folder.write("outside.synth", "o");
  ASSERT_EQ(::mkfifo((presets() + "/pipe").c_str(), 0600), 0);
  fs::create_symlink(folder / "outside.synth", presets() + "/link.synth");
  const std::pair<std::string, const char*> refused[] = {
      {presets() + "/Old sounds", "it is a folder"},
      {presets() + "/Old sounds/", "it is a folder"},
      {presets() + "/Old sounds/a.synth", "it does not lie in the folder of presets"},
      {folder / "outside.synth", "it does not lie in the folder of presets"},
      {presets() + "/pipe", "it is no file"},
      {presets() + "/none", "No such file or directory"}};
  for (const auto& [path, why] : refused) {
    printed.clear();
    EXPECT_FALSE(manager->deleteUserPreset(UserPreset(path, false)));
    EXPECT_THAT(printed, ElementsAre(HasSubstr(why)));
  }
  EXPECT_TRUE(manager->deleteUserPreset(UserPreset(presets() + "/link.synth", false)));
  EXPECT_EQ(textOf(folder / "outside.synth"), "o");
  EXPECT_EQ(namesIn(presets()), (Names{"Old sounds", "pipe"}));
  EXPECT_EQ(textOf(presets() + "/Old sounds/a.synth"), "a");
}

TEST_F(PresetTrashTest, OnlyWhatHasLainThereForThirtyDaysIsRemoved) {
  const auto now = PresetTrash::Clock::now();
  PresetTrash trash(files, folder / "data/PresetTrash");
  platform::FileError error;
  const auto put = [&](const std::string& name, int days) {
    EXPECT_TRUE(trash.take(folder.write("data/Presets/" + name, name), error,
                           now - std::chrono::hours(days * 24 + 1)));
  };
  put("old", 30);
  put("older", 300);
  put("kept", 29);
  put("kept too", 29);
  std::set<std::string> others;
  for (const char* name : {"1999-01-01 mine", "2001-02-31 00.00.00", "2001-2-03 004.05.06",
                           "2001-02-03 04.05.06 mine", "2001-02-03 04.05.06 "})
    others.insert(folder.write("data/PresetTrash/" + std::string(name) + "/x", "x"));
  folder.write("data/PresetTrash/2001-02-03 04.05.06 12/second", "");
  makeManager();
  EXPECT_EQ(trashed(), (Names{"kept", "kept too"}));
  for (const std::string& path : others) EXPECT_EQ(textOf(path), "x") << "it is nobody's entry";
}

TEST_F(PresetTrashTest, ARenameIsTakenBackAsOne) {
  const std::string foam = save("Foam", 500), spray = save("Spray", 600);
  unit.setParameter("cutoff", 700);
  EXPECT_EQ(manager->renamePreset(UserPreset(foam, false), "Spray", {}), spray);
  EXPECT_THAT(namesOf(*manager), ElementsAre("Spray"));
  EXPECT_EQ(cutoffIn(spray), 700);
  ASSERT_TRUE(manager->restore(*manager->lastChange()));
  EXPECT_EQ(cutoffIn(foam), 500);
  EXPECT_EQ(cutoffIn(spray), 600);
  EXPECT_THAT(trashed(), IsEmpty());
}

TEST_F(PresetTrashTest, ARenameNeverDeletesTheFileThatItHasWritten) {
  const auto rename = [&](const char* from, const char* to) {
    return manager->renamePreset(UserPreset(presets() + from, false), to, {});
  };
  save("a", 500);
  fs::create_hard_link(presets() + "/a.synth", presets() + "/hard.synth");
  fs::create_symlink(presets() + "/a.synth", presets() + "/soft.synth");
  unit.setParameter("cutoff", 600);
  ASSERT_TRUE(rename("/a.synth", "soft"));
  EXPECT_EQ(cutoffIn(presets() + "/soft.synth"), 600) << "the link still leads to a preset";
  EXPECT_EQ(cutoffIn(presets() + "/hard.synth"), 500);
  ASSERT_TRUE(rename("/soft.synth", "a"));
  EXPECT_EQ(namesIn(presets()), (Names{"a.synth", "hard.synth"}));
  fs::create_hard_link(presets() + "/a.synth", presets() + "/b.synth");
  unit.setParameter("cutoff", 800);
  ASSERT_TRUE(rename("/a.synth", "b"));
  EXPECT_EQ(namesIn(presets()), (Names{"b.synth", "hard.synth"}));
  EXPECT_EQ(cutoffIn(presets() + "/b.synth"), 800);
}

TEST_F(PresetTrashTest, WhereCapitalsDoNotCountARenameKeepsThePreset) {
  FoldingFiles folding(folder / "data", foundation::LocalFileManager::Groups::oneForAll);
  const foundation::DefaultFileManager folded(folding);
  manager = makeManager();
  const std::string pad = save("pad", 500);
  unit.setParameter("cutoff", 600);
  EXPECT_EQ(manager->renamePreset(UserPreset(pad, false), "Pad", {}), presets() + "/Pad.synth");
  EXPECT_EQ(namesIn(presets()), Names{"Pad.synth"});
  EXPECT_EQ(cutoffIn(presets() + "/Pad.synth"), 600);
}

TEST_F(PresetTrashTest, ANameThatReadsTheSameIsThatOfTheSameFile) {
  const std::string decomposed = "Cafe\xcc\x81", composed = "Caf\xc3\xa9";
  const std::string url = save(decomposed, 500);
  EXPECT_EQ(save(composed, 600), url);
  EXPECT_EQ(manager->renamePreset(UserPreset(url, false), composed, {"bass"}), url);
  EXPECT_FALSE(manager->importPresetFile(folder.write("in/" + composed + ".synth", "other")));
  EXPECT_EQ(namesIn(presets()), Names{decomposed + ".synth"});
  EXPECT_EQ(cutoffIn(url), 600);
}

TEST_F(PresetTrashTest, ALinkedPresetIsSavedWhereItLiesAndALockedOneIsNot) {
  const std::string real = folder.write("synced/Foam.synth", "x"), link = presets() + "/Foam.synth";
  fs::create_symlink("../../synced/Foam.synth", link);
  EXPECT_EQ(save("Foam", 500), link);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(cutoffIn(real), 500);
  EXPECT_EQ(namesIn(folder / "synced"), Names{"Foam.synth"});
  fs::permissions(real, fs::perms::owner_read);
  EXPECT_EQ(save("Foam", 600), "");
  EXPECT_THAT(printed, ElementsAre(HasSubstr("could not be saved: the file is read-only")));
  EXPECT_EQ(cutoffIn(real), 500);
  fs::remove(real);
  fs::create_symlink("round.synth", presets() + "/round.synth");
  EXPECT_EQ(save("round", 600), "");
  EXPECT_TRUE(fs::is_symlink(presets() + "/round.synth"));
}

struct CloudTrashTest : PresetTrashTest {
  CloudTrashTest() : PresetTrashTest(true) {}
};

TEST_F(CloudTrashTest, EachFolderHasItsTrashAndALocalPresetKeepsItsPlace) {
  const std::string local = folder.write("data/Presets/Foam.synth", "local");
  const std::string inCloud = save("Foam", 500);
  EXPECT_EQ(inCloud, folder / "cloud/Documents/Presets/Foam.synth");
  unit.setParameter("cutoff", 600);
  EXPECT_EQ(manager->renamePreset(UserPreset(local, false), "Foam", {"bass"}), local);
  EXPECT_EQ(cutoffIn(local), 600);
  EXPECT_EQ(cutoffIn(inCloud), 500);
  manager->deleteUserPreset(UserPreset(inCloud, true));
  EXPECT_EQ(PresetTrash(files, folder / "cloud/Documents/PresetTrash").entries().size(), 1u);
  EXPECT_EQ(trashed(), Names{"Foam.synth"}) << "the local one that was saved over";
}

}  // namespace
