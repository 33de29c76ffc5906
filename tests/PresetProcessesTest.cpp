// Several processes in one folder of presets, some of which are killed in the middle of their work:
// what they leave is whole, and nobody's work is lost.

#include <gmock/gmock.h>
#include <spawn.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

#include <chrono>
#include <random>
#include <thread>

#include "tests/support/PresetBench.h"

extern char** environ;

namespace {

using orvane::FavPresetsStore;
using platform::PropertyList;
using testing::Contains;
using testing::ElementsAre;
using testing::SizeIs;

class PresetProcessesTest : public support::PresetBench {
 protected:
  /// `output`, if any, becomes the process's standard output.
  pid_t start(std::vector<std::string> arguments, int output = -1,
              const std::string& container = "data") const {
    arguments.insert(arguments.begin(), {ORVANE_BIN_DIR "/preset_saver", folder / container});
    std::vector<char*> words;
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    if (output >= 0) ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t process = -1;
    EXPECT_EQ(::posix_spawn(&process, words[0], &actions, nullptr, words.data(), environ), 0);
    ::posix_spawn_file_actions_destroy(&actions);
    return process;
  }
};

TEST_F(PresetProcessesTest, AProcessThatIsKilledWhileItSavesLosesNothing) {
  constexpr int kills = 200;
  const auto manager = makeManager();
  orvane::Preset always("always");
  FavPresetsStore::setFavourite(always, true);
  std::mt19937 random(7);
  for (int i = 0; i < kills; ++i) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t process = start({"endless"}, ends[1]);
    ::close(ends[1]);
    char started = 0;
    // From the first save on it works at any instant.
    EXPECT_EQ(::read(ends[0], &started, 1), 1);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000));
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
    ::close(ends[0]);

    const PropertyList preset = listAt(folder / "data/Presets/kept.synth");
    ASSERT_TRUE(preset.find("Categories") && preset.find("parameters")->find("cutoff")) << i;
    ASSERT_THAT(namesOf(*manager), ElementsAre("kept")) << i;
    FavPresetsStore::load();
    ASSERT_THAT(FavPresetsStore::favouritePresets, Contains("/always")) << i;
  }
  EXPECT_THAT(printed, testing::IsEmpty());
}

TEST_F(PresetProcessesTest, EightAtOnceLoseNothing) {
  constexpr int processes = 8, presets = 10;
  makeManager();
  std::vector<pid_t> running;
  for (int i = 0; i < processes; ++i)
    running.push_back(start({"p" + std::to_string(i), std::to_string(presets)}));
  for (const pid_t process : running) {
    int status = -1;
    ::waitpid(process, &status, 0);
    EXPECT_EQ(status, 0);
  }
  const auto all = makeManager()->getUserPresets();
  EXPECT_THAT(all, SizeIs(processes * presets));
  FavPresetsStore::load();
  EXPECT_THAT(FavPresetsStore::favouritePresets, SizeIs(processes * presets));
  for (const auto& preset : all) {
    EXPECT_THAT(preset->categories, SizeIs(1)) << preset->name;
    EXPECT_THAT(FavPresetsStore::favouritePresets, Contains(preset->uniqueName()));
  }
}

TEST_F(PresetProcessesTest, TwoComputersInOneCloudFolderHaveEachOthersPresets) {
  constexpr int presets = 10;
  ::setenv("ORVANE_CLOUD", (folder / "cloud/").c_str(), 1);
  std::vector<pid_t> running;
  for (const char* computer : {"one", "two"}) {
    std::filesystem::create_directory(folder / computer);
    for (const char* name : {"a", "b"})
      running.push_back(
          start({std::string(computer) + name, std::to_string(presets)}, -1, computer));
  }
  for (const pid_t process : running) {
    int status = -1;
    ::waitpid(process, &status, 0);
    EXPECT_EQ(status, 0);
  }
  for (const char* computer : {"one", "two"}) {
    foundation::LocalFileManager computersFiles(folder / computer,
                                                foundation::LocalFileManager::Groups::oneForAll,
                                                foundation::UsersCloud::ofEnvironment());
    const foundation::DefaultFileManager computersScope(computersFiles);
    const auto manager = makeManager();
    const auto all = manager->getUserPresets();
    EXPECT_THAT(all, SizeIs(4 * presets));
    for (const auto& preset : all) EXPECT_TRUE(preset->isICloud && preset->categories.size() == 1);
    FavPresetsStore::load();
    EXPECT_THAT(FavPresetsStore::favouritePresets, SizeIs(2 * presets)) << "stars stay here";
    EXPECT_THAT(support::namesIn(folder / computer + "/Presets"), testing::IsEmpty());
  }
  ::unsetenv("ORVANE_CLOUD");
}

TEST_F(PresetProcessesTest, AFullDiskLeavesPresetsAndFavouritesAsTheyWere) {
  const std::string data = folder / "data";
  if (::mount("tmpfs", data.c_str(), "tmpfs", 0, "size=256k") != 0)
    GTEST_SKIP() << "mounting a small file system is not allowed here";
  const auto manager = makeManager();
  const auto kept = *manager->saveNew("kept", {"first"});
  orvane::Preset one("one"), two("two");
  FavPresetsStore::setFavourite(one, true);
  std::ofstream(data + "/fill") << std::string(1 << 20, 'x');
  unit.setParameter("mix", 0.25f);
  manager->savePreset(kept, {"second"});
  EXPECT_FALSE(manager->saveNew("lost", {}));
  FavPresetsStore::setFavourite(two, true);
  EXPECT_THAT(printed, SizeIs(3));
  EXPECT_THAT(printed, Contains("\"kept.synth\" could not be saved: No space left on device"));
  EXPECT_EQ(manager->getUserPresets()[0]->categories, std::vector<std::string>{"first"});
  EXPECT_THAT(namesOf(*manager), ElementsAre("kept"));
  FavPresetsStore::load();
  EXPECT_THAT(FavPresetsStore::favouritePresets, ElementsAre("/one"));
  ::umount2(data.c_str(), MNT_DETACH);
}

}  // namespace
