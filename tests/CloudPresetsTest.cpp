// Presets in the cloud, which may be slow or broken, and those that come from an earlier container.

#include <gmock/gmock.h>

#include "Orvane/ICloudManager.h"
#include "Orvane/ICloudMigrationHelper.h"
#include "tests/support/PresetBench.h"

namespace {

using orvane::ICloudManager;
using orvane::ICloudMigrationHelper;
using support::namesIn;
using support::textOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Names = std::set<std::string>;

class CloudPresetsTest : public support::PresetBench {
 protected:
  CloudPresetsTest() : PresetBench(true) {}
  static void migrate() { ICloudMigrationHelper::movePresetsFromPreviousICloud("old", "Samples"); }
};

TEST_F(CloudPresetsTest, NewPresetsGoToTheCloudEvenBesideALocalOneOfTheirName) {
  extraResources = {"Samples"};
  const auto manager = makeManager();
  EXPECT_EQ(namesIn(folder / "cloud/Documents"), (Names{"Presets", "Samples"}));
  EXPECT_EQ(manager->extraResourcePath("Samples"), folder / "cloud/Documents/Samples");
  folder.write("data/Presets/a.synth", "local");
  EXPECT_EQ(manager->saveNew("a", {}), folder / "cloud/Documents/Presets/a.synth");
  EXPECT_EQ(textOf(folder / "data/Presets/a.synth"), "local");
  const auto presets = manager->getUserPresets();
  ASSERT_THAT(presets, SizeIs(2));
  EXPECT_FALSE(presets[0]->isICloud);
  EXPECT_TRUE(presets[1]->isICloud);
  EXPECT_THAT(printed, IsEmpty());
}

TEST_F(CloudPresetsTest, ACloudThatVanishesOrComesBackEmptyIsSaidOnce) {
  const auto manager = makeManager();
  for (const char* name : {"a", "b"}) manager->saveNew(name, {});
  for (const auto& preset : manager->getUserPresets()) manager->deleteUserPreset(*preset);
  EXPECT_THAT(namesOf(*manager), IsEmpty());
  EXPECT_THAT(printed, IsEmpty()) << "the user did it";
  manager->saveNew("c", {});
  namesOf(*manager);
  std::filesystem::rename(folder / "cloud/Documents", folder / "cloud/gone");
  for (int i = 0; i < 2; ++i) EXPECT_THAT(namesOf(*manager), IsEmpty());
  EXPECT_THAT(printed, ElementsAre(HasSubstr("presets are not there any more")));
  std::filesystem::rename(folder / "cloud", folder / "away");
  for (int i = 0; i < 2; ++i) EXPECT_THAT(namesOf(*manager), IsEmpty());
  EXPECT_THAT(printed[1], HasSubstr("saved on this computer"));
  EXPECT_EQ(manager->saveNew("d", {}), folder / "data/Presets/d.synth");
  EXPECT_EQ(printed.size(), 2u);
}

TEST_F(CloudPresetsTest, InTheCloudOnlyTheAudioUnitsFilesAreListed) {
  const auto manager = makeManager();
  for (const char* name : {"a.synth", "b.SYNTH", "c.other", "d", "e.synth.icloud"})
    folder.write(std::string("cloud/Documents/Presets/") + name, "");
  EXPECT_THAT(namesOf(*manager), ElementsAre("a"));
  manager->audioUnit = nullptr;
  EXPECT_THAT(namesOf(*manager), IsEmpty());
}

TEST_F(CloudPresetsTest, PlaceholdersBecomeFilesWhenTheDownloadHasCome) {
  folder.write("cloud/Documents/Presets/Bass.synth.icloud", "");
  folder.write("cloud/Documents/Presets/.Lead.synth.icloud", "");
  folder.write("remote/Documents/Presets/Bass.synth", "bass");
  folder.write("remote/Documents/Presets/Lead.synth", "lead");
  remote->delay = 2;
  const auto manager = makeManager();
  EXPECT_THAT(namesOf(*manager), IsEmpty());
  loop.advance(1.9);
  EXPECT_THAT(namesOf(*manager), IsEmpty());
  loop.advance(0.2);
  EXPECT_THAT(namesOf(*manager), SizeIs(1)) << "one after the other";
  loop.advance(2);
  EXPECT_EQ(namesIn(folder / "cloud/Documents/Presets"), (Names{"Bass.synth", "Lead.synth"}));
  EXPECT_EQ(textOf(folder / "cloud/Documents/Presets/Bass.synth"), "bass");
  EXPECT_EQ(remote->count, 2);
}

TEST_F(CloudPresetsTest, ADownloadThatFailsIsLeftForTheNextTime) {
  folder.write("cloud/Documents/Presets/Bass.synth.icloud", "");
  folder.write("remote/Documents/Presets/Bass.synth", "bass");
  folder.write("cloud/Documents/Presets/Ghost.synth.icloud", "");
  remote->failing = true;
  makeManager();
  EXPECT_EQ(namesIn(folder / "cloud/Documents/Presets"),
            (Names{"Bass.synth.icloud", "Ghost.synth.icloud"}));
  remote->failing = false;
  EXPECT_THAT(namesOf(*makeManager()), ElementsAre("Bass"));
}

TEST_F(CloudPresetsTest, SyncCallsBackForPlaceholdersAlone) {
  folder.write("cloud/Documents/Presets/Bass.synth.icloud", "");
  folder.write("cloud/Documents/Presets/Here.synth", "");
  folder.write("remote/Documents/Presets/Bass.synth", "bass");
  folder.write("elsewhere/Stray.synth.icloud", "");
  std::vector<std::string> came;
  const ICloudManager manager(std::nullopt);
  const auto sync = [&](const std::optional<std::string>& url) {
    manager.sync(url, [&](const std::string& path) { came.push_back(path); });
    loop.runDue();
  };
  sync(std::nullopt);
  sync(folder / "none");
  sync(folder / "elsewhere");
  EXPECT_THAT(came, IsEmpty());
  sync(folder / "cloud/Documents/Presets");
  EXPECT_THAT(came, ElementsAre(folder / "cloud/Documents/Presets/Bass.synth"));
}

TEST_F(CloudPresetsTest, MigrationMovesEverythingAndThenRemovesTheOldDocuments) {
  makeManager();
  std::filesystem::create_directory(folder / "cloud/Documents/Samples");
  folder.write("old/Documents/Presets/a.synth", "a");
  folder.write("old/Documents/Presets/b.synth", "b");
  folder.write("old/Documents/Samples/c.wav", "c");
  migrate();
  loop.runDue();
  EXPECT_EQ(namesIn(folder / "cloud/Documents/Presets"), (Names{"a.synth", "b.synth"}));
  EXPECT_EQ(textOf(folder / "cloud/Documents/Samples/c.wav"), "c");
  EXPECT_EQ(namesIn(folder / "old/Documents"), (Names{"Presets", "Samples"}));
  loop.advance(0.9);
  EXPECT_EQ(namesIn(folder / "old"), Names{"Documents"});
  loop.advance(0.2);
  EXPECT_EQ(namesIn(folder / "old"), Names{});
  EXPECT_THAT(printed, IsEmpty());
}

TEST_F(CloudPresetsTest, WhatIsThereAlreadyIsNeverReplacedAndTriedForEver) {
  makeManager();
  for (const char* name : {"a.synth", "b.synth", "c.synth"}) {
    folder.write(std::string("old/Documents/Presets/") + name, "old");
    folder.write(std::string("cloud/Documents/Presets/") + name, "new");
  }
  // What is left counts wherever it lies.
  std::filesystem::create_directory(folder / "old/Documents/Samples");
  migrate();
  loop.advance(30.5);
  EXPECT_EQ(printed.size(), 3 * 31u) << "each file once a second";
  EXPECT_THAT(printed, Each(HasSubstr("Unable to copy preset file... \"")));
  EXPECT_EQ(textOf(folder / "cloud/Documents/Presets/a.synth"), "new");
  for (const char* name : {"a.synth", "b.synth", "c.synth"})
    std::filesystem::remove(folder / (std::string("cloud/Documents/Presets/") + name));
  loop.advance(2.5);
  EXPECT_EQ(textOf(folder / "cloud/Documents/Presets/c.synth"), "old");
  EXPECT_EQ(namesIn(folder / "old"), Names{});
}

TEST_F(CloudPresetsTest, AnOldContainerWithoutPresetsLosesItsDocuments) {
  folder.write("old/Documents/other", "x");
  migrate();
  EXPECT_EQ(namesIn(folder / "old"), Names{});
  loop.advance(5);
  EXPECT_THAT(printed, IsEmpty());
}

class WithoutCloudTest : public support::PresetBench {};

TEST_F(WithoutCloudTest, NothingHappens) {
  const ICloudManager manager(std::nullopt), other("unknown");
  manager.initialize();
  manager.sync(manager.iCloudURL(), [](const std::string&) { ADD_FAILURE(); });
  EXPECT_FALSE(manager.iCloudURL() || other.iCloudURL());
  folder.write("old/Documents/Presets/a.synth", "a");
  ICloudMigrationHelper::movePresetsFromPreviousICloud("old", "Samples");
  loop.advance(5);
  EXPECT_EQ(textOf(folder / "old/Documents/Presets/a.synth"), "a");
  EXPECT_THAT(namesIn(folder / "cloud"), IsEmpty());
}

}  // namespace
