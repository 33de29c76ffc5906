// Files that are there whole or not at all, and nowhere else than asked for.

#include "foundation/LocalFileManager.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <thread>

#include "foundation/Bundle.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/DispatchQueue.h"
#include "foundation/FileLock.h"
#include "foundation/FolderCloud.h"
#include "foundation/SafeFile.h"
#include "platform/FilePath.h"
#include "tests/support/TemporaryFolder.h"

namespace {

/// Called before anything is brought to the disk.
std::atomic<void (*)(int descriptor)> whenSynced{nullptr};
std::atomic<int> diskSyncs{0};

}  // namespace

// Stands in for the C library's.
extern "C" int fsync(int descriptor) {
  if (auto* const called = whenSynced.load()) called(descriptor);
  return static_cast<int>(::syscall(SYS_fsync, descriptor));
}
extern "C" int syncfs(int descriptor) {
  ++diskSyncs;
  return static_cast<int>(::syscall(SYS_syncfs, descriptor));
}

namespace {

using foundation::LocalFileManager;
using platform::FileError;
using platform::FileManager;
using support::namesIn;
using support::TemporaryFolder;
using support::textOf;
using testing::HasSubstr;
using Names = std::set<std::string>;

std::span<const std::uint8_t> bytesOf(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

TEST(FilePathTest, NamesAreTakenApartAtTheLastDot) {
  const struct {
    const char *path, *last, *stem, *extension;
  } cases[] = {
      {"/a/Warm Pad.preset", "Warm Pad.preset", "Warm Pad", "preset"},
      {"A.b.preset", "A.b.preset", "A.b", "preset"},
      {"/a/folder/", "folder", "folder", ""},
      {"/a/.preset", ".preset", ".preset", ""},
      {"/a/.Bass.preset.icloud", ".Bass.preset.icloud", ".Bass.preset", "icloud"},
      {"/a.b/c", "c", "c", ""},
      {"x.", "x.", "x", ""},
      {"/", "/", "/", ""},
      {"", "", "", ""},
  };
  for (const auto& [path, last, stem, extension] : cases) {
    EXPECT_EQ(platform::lastPathComponent(path), last);
    EXPECT_EQ(platform::fileStem(path), stem);
    EXPECT_EQ(platform::pathExtension(path), extension);
  }
}

TEST(FilePathTest, EveryPathLiesInAFolder) {
  EXPECT_EQ(foundation::folderOf("/a/b"), "/a");
  EXPECT_EQ(foundation::folderOf("/a"), "/");
  EXPECT_EQ(foundation::folderOf("a"), ".");
}

TEST(FilePathTest, AFileNameStaysInItsFolder) {
  using namespace std::string_literals;
  for (const std::string& name : {""s, "."s, ".."s, "a/b"s, "../x"s, "/"s, "a\0b"s})
    EXPECT_FALSE(platform::isFileName(name)) << name;
  for (const char* name : {"a", "...", "..preset", " ", "\xf0\x9f\x8e\xb9", "a\nb"})
    EXPECT_TRUE(platform::isFileName(name)) << name;
}

TEST(LocalFileManagerTest, AFileIsReplacedWholeAndKeepsItsPermissions) {
  const TemporaryFolder folder;
  LocalFileManager files(folder.path());
  const std::string path = folder / "a.preset";
  EXPECT_FALSE(files.write(bytesOf("one"), path));
  ::chmod(path.c_str(), 0620);
  EXPECT_FALSE(files.write(bytesOf(std::string(300000, 'x')), path));
  EXPECT_EQ(textOf(path), std::string(300000, 'x'));
  struct stat status {};
  ::stat(path.c_str(), &status);
  EXPECT_EQ(status.st_mode & 0777, 0620u);
  EXPECT_EQ(namesIn(folder.path()), Names{"a.preset"});
}

TEST(LocalFileManagerTest, AFileIsOnTheDiskBeforeItTakesItsNameAndItsFolderIsAfterwards) {
  static TemporaryFolder* folder = nullptr;
  static std::atomic<int> whole, folders;
  TemporaryFolder made;
  folder = &made;
  LocalFileManager files(made.path());
  const std::string from = made.write("from", "new");
  const auto save = [&] { return files.write(bytesOf("new"), *folder / "to"); };
  const auto copy = [&] { return files.copyItem(from, *folder / "to"); };
  const auto remove = [&] { return files.removeItem(*folder / "to"); };
  const auto counts = [&](const auto& act) {
    whole = folders = 0;
    EXPECT_FALSE(act());
    foundation::DispatchQueue::waitForGlobal();
    return std::pair(whole.load(), folders.load());
  };
  whenSynced = [](int descriptor) {
    struct stat status {};
    ::fstat(descriptor, &status);
    if (S_ISDIR(status.st_mode)) ++folders;
    if (status.st_size == 3 && textOf(*folder / "to") != "new") ++whole;
  };
  EXPECT_EQ(counts(save), std::pair(1, 1));
  EXPECT_EQ(counts(remove), std::pair(0, 1));
  EXPECT_EQ(counts(copy), std::pair(1, 1));
  const auto make = [&] {
    return files.createDirectory(*folder / "made", FileManager::Intermediates::mustExist);
  };
  EXPECT_EQ(counts(make), std::pair(0, 1));
  const auto saveTemporary = [&] {
    return files.write(bytesOf("new"), files.temporaryDirectory() + "x");
  };
  EXPECT_EQ(counts(saveTemporary), std::pair(0, 0)) << "it need not last";
  files.removeTemporaryDirectory();
  const auto copyFolder = [&] { return files.copyItem(*folder / "made", *folder / "copy"); };
  const int before = diskSyncs;
  EXPECT_EQ(counts(copyFolder), std::pair(0, 1));
  EXPECT_EQ(diskSyncs, before + 1) << "all of it before it has its name";
  whenSynced = nullptr;
}

TEST(LocalFileManagerTest, ASaveThatFailsLeavesEverythingAsItWas) {
  const TemporaryFolder folder;
  LocalFileManager files(folder.path());
  const std::string inside = folder.write("sub/a", "old");
  using namespace std::string_literals;
  const struct {
    std::string path;
    const char* why;
  } cases[] = {
      {folder / "sub", "\"sub\" could not be saved: Is a directory"},
      {folder / "none/a", "\"a\" could not be saved: No such file or directory"},
      {folder / "sub/a/b", "\"b\" could not be saved: Not a directory"},
      {folder / ("sub/" + std::string(300, 'n')), "File name too long"},
      {folder / "sub/a\0b"s, "Invalid argument"},
      {folder / "sub/a\n\xff\0"s, "\"a \xef\xbf\xbd"},
  };
  for (const auto& [path, why] : cases) {
    const auto error = files.write(bytesOf("new"), path);
    ASSERT_TRUE(error) << path;
    EXPECT_THAT(error->localizedDescription, HasSubstr(why));
    EXPECT_EQ(error->localizedDescription.find('\n'), std::string::npos);
  }
  EXPECT_EQ(textOf(inside), "old");
  EXPECT_EQ(namesIn(folder.path()), Names{"sub"});
  EXPECT_EQ(namesIn(folder / "sub"), Names{"a"});
}

TEST(LocalFileManagerTest, AFullOrReadOnlyDiskLeavesTheOldFile) {
  const TemporaryFolder folder;
  if (::mount("tmpfs", folder.path().c_str(), "tmpfs", 0, "size=64k") != 0)
    GTEST_SKIP() << "mounting a small file system is not allowed here";
  LocalFileManager files(folder.path());
  const std::string path = folder / "a";
  const std::string old(30000, 'o');
  EXPECT_FALSE(files.write(bytesOf(old), path));
  const auto full = files.write(bytesOf(std::string(60000, 'n')), path);
  const auto copy = files.copyItem(path, folder / "b");
  EXPECT_FALSE(copy);
  const auto fullCopy = files.copyItem(path, folder / "c");
  const std::string left = textOf(path);
  const Names names = namesIn(folder.path());
  ::mount(nullptr, folder.path().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr);
  const auto readOnly = files.write(bytesOf("new"), path);
  const std::string stillLeft = textOf(path);
  ::umount2(folder.path().c_str(), MNT_DETACH);
  ASSERT_TRUE(full && fullCopy && readOnly);
  EXPECT_EQ(full->localizedDescription, "\"a\" could not be saved: No space left on device");
  EXPECT_EQ(readOnly->localizedDescription, "\"a\" could not be saved: Read-only file system");
  EXPECT_TRUE(left == old && stillLeft == old);
  EXPECT_EQ(names, (Names{"a", "b"}));
}

TEST(LocalFileManagerTest, ACopyNeverReplacesAnything) {
  const TemporaryFolder folder;
  LocalFileManager files(folder.path());
  folder.write("from/a", "new");
  folder.write("from/deep/b", "two");
  folder.write("to/a", "old");
  const auto error = files.copyItem(folder / "from/a", folder / "to/a");
  ASSERT_TRUE(error);
  EXPECT_EQ(error->code, FileError::Code::fileExists);
  EXPECT_EQ(error->localizedDescription, "\"a\" could not be copied: File exists");
  EXPECT_EQ(textOf(folder / "to/a"), "old");
  EXPECT_FALSE(files.copyItem(folder / "from/a", folder / "to/c"));
  EXPECT_EQ(textOf(folder / "to/c"), "new");
  EXPECT_EQ(files.copyItem(folder / "from", folder / "to")->code, FileError::Code::fileExists);
  EXPECT_FALSE(files.copyItem(folder / "from", folder / "to/all"));
  EXPECT_EQ(textOf(folder / "to/all/deep/b"), "two");
  EXPECT_TRUE(files.copyItem(folder / "none", folder / "to/d"));
  EXPECT_EQ(namesIn(folder / "to"), (Names{"a", "c", "all"}));
  foundation::SafeFile late(folder / "to/d", "copied");
  EXPECT_FALSE(late.open());
  folder.write("to/d", "theirs");
  EXPECT_EQ(late.commitNew()->code, FileError::Code::fileExists) << "another was quicker";
  EXPECT_EQ(textOf(folder / "to/d"), "theirs");
}

TEST(LocalFileManagerTest, AMoveNeverReplacesAnythingAndReachesOtherFileSystems) {
  const TemporaryFolder folder;
  LocalFileManager files("");
  const std::string a = folder.write("a", "1"), b = folder.write("b", "2");
  const auto refused = files.moveItem(a, b);
  ASSERT_TRUE(refused);
  EXPECT_EQ(refused->code, FileError::Code::fileExists);
  EXPECT_TRUE(files.moveItem(folder / "none", folder / "c"));
  EXPECT_FALSE(files.moveItem(a, folder / "c"));
  std::filesystem::create_symlink("nowhere", folder / "link");
  EXPECT_FALSE(files.moveItem(folder / "link", folder / "moved"));
  EXPECT_EQ(files.status(folder / "moved", LocalFileManager::Links::itself)->kind,
            platform::FileStatus::Kind::link);
  EXPECT_FALSE(files.status(folder / "moved", LocalFileManager::Links::follow));
  EXPECT_EQ(namesIn(folder.path()), (std::set<std::string>{"b", "c", "moved"}));
  const std::string far = "/dev/shm" + folder.path();
  std::error_code error;
  std::filesystem::create_directories(far, error);
  if (error) return;
  static std::string source;
  static std::atomic<int> early;
  source = folder / "c";
  early = 0;
  static std::thread::id mover;
  mover = std::this_thread::get_id();
  whenSynced = [](int descriptor) {
    struct stat status {};
    ::fstat(descriptor, &status);
    const bool isWaitedFor = std::this_thread::get_id() == mover;
    if (isWaitedFor && S_ISDIR(status.st_mode) && std::filesystem::exists(source)) ++early;
  };
  EXPECT_FALSE(files.moveItem(folder / "c", far + "/c"));
  whenSynced = nullptr;
  EXPECT_EQ(early, 1) << "the other disk has the copy before the source goes";
  EXPECT_EQ(textOf(far + "/c"), "1");
  EXPECT_FALSE(files.fileExists(folder / "c"));
  std::filesystem::remove_all(far);
}

TEST(LocalFileManagerTest, AFolderIsCopiedWholeOrNotAtAllAndNeverIntoItself) {
  const TemporaryFolder folder;
  LocalFileManager files(folder.path());
  folder.write("from/deep/a", "one");
  std::filesystem::create_symlink("deep", folder / "from/link");
  std::filesystem::create_symlink("from", folder / "way");
  for (const char* to : {"from/copy", "from/deep/copy", "from/link/copy", "way/copy"}) {
    const auto error = files.copyItem(folder / "from", folder / to);
    ASSERT_TRUE(error) << to;
    EXPECT_EQ(error->localizedDescription,
              "\"copy\" could not be copied: it lies within the folder that is copied");
  }
  EXPECT_EQ(namesIn(folder / "from"), (Names{"deep", "link"}));
  EXPECT_TRUE(files.copyItem(folder / "from", folder / "none/copy"));
  EXPECT_FALSE(files.copyItem(folder / "from", folder / "from 2"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "from 2/link"));
  // A pipe cannot be copied.
  ::mkfifo((folder / "from/pipe").c_str(), 0600);
  EXPECT_TRUE(files.copyItem(folder / "from", folder / "from 3"));
  EXPECT_EQ(namesIn(folder.path()), (Names{"from", "from 2", "way"}));
}

TEST(LocalFileManagerTest, FoldersAreMadeAndRemoved) {
  const TemporaryFolder folder;
  LocalFileManager files(folder.path());
  const auto mustExist = FileManager::Intermediates::mustExist;
  EXPECT_FALSE(files.createDirectory(folder / "a", mustExist));
  const auto again = files.createDirectory(folder / "a", mustExist);
  ASSERT_TRUE(again);
  EXPECT_EQ(static_cast<int>(again->code), 516);
  EXPECT_TRUE(files.createDirectory(folder / "b/c", mustExist));
  EXPECT_FALSE(files.createDirectory(folder / "b/c", FileManager::Intermediates::create));
  folder.write("b/c/file", "x");
  EXPECT_FALSE(files.removeItem(folder / "b"));
  const auto gone = files.removeItem(folder / "b");
  ASSERT_TRUE(gone);
  EXPECT_EQ(gone->localizedDescription, "\"b\" could not be removed: No such file or directory");
  EXPECT_EQ(namesIn(folder.path()), Names{"a"});
}

TEST(LocalFileManagerTest, PartsOfAFileAreReadAndOnlyOfRegularFiles) {
  const TemporaryFolder folder;
  LocalFileManager files(folder.path());
  const std::string path = folder.write("a", "0123456789");
  FileError error;
  const auto read = [&](std::uint64_t offset, std::size_t count) {
    const auto bytes = files.contents(path, error, offset, count);
    return bytes ? std::string(bytes->begin(), bytes->end()) : "none";
  };
  EXPECT_EQ(read(0, FileManager::everything), "0123456789");
  EXPECT_EQ(read(0, 3), "012");
  EXPECT_EQ(read(8, 5), "89");
  EXPECT_EQ(read(20, 5), "");
  ::mkfifo((folder / "pipe").c_str(), 0600);
  folder.write("huge", "");
  std::filesystem::resize_file(folder / "huge", std::uint64_t{300} << 20);
  EXPECT_EQ(files.contents(folder / "huge", error, 0, 5)->size(), 5u);
  for (const std::string name : {"none", "", "pipe", "huge"}) {
    EXPECT_FALSE(files.contents(folder / name, error));
    EXPECT_THAT(error.localizedDescription, HasSubstr("could not be read: "));
  }
}

TEST(LocalFileManagerTest, AListingLeavesUnfinishedFilesOutAndTellsWhatChanged) {
  const TemporaryFolder folder;
  LocalFileManager files(folder.path());
  folder.write("a", "x");
  folder.write("sub/b", "x");
  folder.write(".orvane-unfinished-1-2-3", "x");
  std::filesystem::create_symlink("nowhere", folder / "link");
  const auto entry = [&](const std::string& name) -> std::optional<platform::DirectoryEntry> {
    const auto entries = files.contentsOfDirectory(folder.path());
    if (entries)
      for (const auto& each : *entries)
        if (each.name == name) return each;
    return std::nullopt;
  };
  EXPECT_EQ(files.contentsOfDirectory(folder.path())->size(), 3u);
  EXPECT_TRUE(entry("sub")->isDirectory);
  EXPECT_TRUE(entry("link"));
  const platform::FileStamp before = entry("a")->stamp;
  EXPECT_EQ(entry("a")->stamp, before);
  EXPECT_FALSE(files.write(bytesOf("y"), folder / "a"));
  EXPECT_NE(entry("a")->stamp, before);
  EXPECT_FALSE(files.contentsOfDirectory(folder / "none"));
  EXPECT_FALSE(files.contentsOfDirectory(folder / "a"));
}

TEST(LocalFileManagerTest, ALargeFolderIsListedAnewAfterAnyChange) {
  const TemporaryFolder folder;
  for (int i = 0; i < 300; ++i) folder.write("in/many/" + std::to_string(i), "old");
  LocalFileManager files("");
  using Entries = std::map<std::string, platform::FileStamp>;
  const auto list = [&] {
    Entries entries;
    const auto listed = files.contentsOfDirectory(folder / "in/many");
    for (const auto& entry : listed.value()) entries[entry.name] = entry.stamp;
    return entries;
  };
  Entries before = list();
  EXPECT_EQ(before.size(), 300u);
  EXPECT_TRUE(list() == before);
  const auto change = [&](const char* what) {
    Entries after = list();
    EXPECT_TRUE(after != before) << what;
    EXPECT_EQ(after.size(), namesIn(folder / "in/many").size()) << what;
    EXPECT_TRUE(list() == after) << what;
    before = std::move(after);
  };
  folder.write("in/many/7", "new");
  change("in place");
  folder.write("in/many/more", "");
  change("added");
  std::filesystem::remove(folder / "in/many/8");
  change("removed");
  std::filesystem::rename(folder / "in/many/9", folder / "in/many/nine");
  change("renamed");
  folder.write("elsewhere", "");
  std::filesystem::create_hard_link(folder / "elsewhere", folder / "in/many/linked");
  change("linked");
  folder.write("elsewhere", "new");
  change("through another name");
  std::filesystem::remove(folder / "elsewhere");
  std::filesystem::create_directory(folder / "in/many/sub");
  change("a folder in it");
  folder.write("in/many/sub/file", "");
  change("a file in that folder");
  std::filesystem::rename(folder / "in/many", folder / "gone");
  std::filesystem::create_directory(folder / "in/many");
  folder.write("in/many/1", "");
  change("replaced");
  for (int i = 0; i < 300; ++i) folder.write("in/many/" + std::to_string(i), "old");
  before = list();
  std::filesystem::rename(folder / "in", folder / "out");
  folder.write("in/many/1", "");
  change("replaced with the folder around it");
}

TEST(FolderWatchTest, TellsNothingOfAFolderThatMayChangeWithoutNews) {
  foundation::FolderWatch watch("/proc/self");
  EXPECT_FALSE(watch.changes());
}

TEST(FolderWatchTest, EachWatchOfAFolderHasAllItsNews) {
  const TemporaryFolder folder;
  foundation::FolderWatch first(folder.path());
  folder.write("a", "");
  auto second = std::make_unique<foundation::FolderWatch>(folder.path());
  folder.write("b", "");
  EXPECT_EQ(second->changes(), Names{"b"});
  second.reset();
  folder.write("c", "");
  EXPECT_EQ(first.changes(), (Names{"a", "b", "c"}));
  EXPECT_EQ(first.changes(), Names{});
  for (int i = 0; i < 200; ++i) folder.write(std::to_string(i), "");
  EXPECT_FALSE(first.changes()) << "better looked at whole";
}

TEST(FolderWatchTest, AForkedProcessTakesNoNewsAndListsWithoutAnyToo) {
  const TemporaryFolder folder;
  for (int i = 0; i < 300; ++i) folder.write("many/" + std::to_string(i), "");
  LocalFileManager files("");
  const auto count = [&] { return files.contentsOfDirectory(folder / "many")->size(); };
  EXPECT_EQ(count(), 300u);
  folder.write("many/more", "");
  const pid_t child = ::fork();
  if (child == 0) {
    bool isRight = count() == 301;
    // Not even one more file can be open than a listing needs.
    const int free = ::open("/", O_RDONLY);
    ::close(free);
    const rlimit limit{static_cast<rlim_t>(free) + 1, static_cast<rlim_t>(free) + 1};
    ::setrlimit(RLIMIT_NOFILE, &limit);
    LocalFileManager poor("");
    for (std::size_t expected : {301u, 300u}) {
      const auto listed = poor.contentsOfDirectory(folder / "many");
      isRight = isRight && listed && listed->size() == expected;
      ::unlink((folder / (expected == 301 ? "many/7" : "many/8")).c_str());
    }
    ::_exit(isRight ? 0 : 1);
  }
  int status = -1;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  Names names;
  const auto listed = files.contentsOfDirectory(folder / "many");
  for (const auto& entry : *listed) names.insert(entry.name);
  EXPECT_EQ(names, namesIn(folder / "many")) << "of all three files there was news";
}

TEST(LocalFileManagerTest, WhatMakesNoNewsIsSeenWhenTheListingIsOld) {
  const TemporaryFolder folder;
  for (int i = 0; i < 300; ++i) folder.write("many/" + std::to_string(i), "old");
  const auto list = [&](LocalFileManager& files) {
    std::map<std::string, platform::FileStamp> stamps;
    const auto listed = files.contentsOfDirectory(folder / "many");
    for (const auto& entry : *listed) stamps[entry.name] = entry.stamp;
    return stamps;
  };
  using Kind = LocalFileManager::Groups;
  LocalFileManager soon("", Kind::eachItsOwn, nullptr, "", std::chrono::milliseconds(0));
  const auto before = list(soon);
  std::filesystem::create_hard_link(folder / "many/7", folder / "elsewhere");
  std::ofstream(folder / "elsewhere") << "new and longer";
  EXPECT_NE(list(soon).at("7"), before.at("7"));
}

TEST(LocalFileManagerTest, EachGroupHasItsContainer) {
  const TemporaryFolder folder;
  LocalFileManager files(folder / "data");
  EXPECT_EQ(files.groupContainer("group.one"), folder / "data/group.one");
  EXPECT_TRUE(files.isDirectory(folder / "data/group.one"));
  EXPECT_FALSE(files.groupContainer(""));
  EXPECT_FALSE(files.groupContainer("../other"));
  LocalFileManager one(folder / "one", LocalFileManager::Groups::oneForAll);
  EXPECT_EQ(one.groupContainer("group.one"), folder / "one");
  EXPECT_FALSE(LocalFileManager("").groupContainer("group.one"));
  folder.write("file", "");
  EXPECT_FALSE(LocalFileManager(folder / "file").groupContainer("group.one"));
  const std::string temporary = files.temporaryDirectory();
  EXPECT_EQ(temporary.back(), '/');
  EXPECT_TRUE(files.isDirectory(temporary));
}

TEST(LocalFileManagerTest, TemporaryFilesLieWhereNobodyElseCanWriteAndEachProcessHasItsOwn) {
  namespace fs = std::filesystem;
  const TemporaryFolder folder;
  const char* const old = std::getenv("TMPDIR");
  const std::string before = old ? old : "";
  ::setenv("TMPDIR", folder.path().c_str(), 1);
  const std::string users = folder / ("orvane-" + std::to_string(::geteuid()));
  // Left by processes that were killed, one of them just now; and what is of nobody known.
  const std::string gone =
      folder.write("orvane-" + std::to_string(::geteuid()) + "/4194305-a/x", "");
  const std::string late =
      folder.write("orvane-" + std::to_string(::geteuid()) + "/4194306-b/x", "");
  const std::string odd = folder.write("orvane-" + std::to_string(::geteuid()) + "/mine/x", "");
  const auto yesterday = fs::file_time_type::clock::now() - std::chrono::hours(25);
  for (const std::string& path : {gone, odd})
    fs::last_write_time(fs::path(path).parent_path(), yesterday);
  LocalFileManager first(""), second("");
  const std::string own = first.temporaryDirectory();
  EXPECT_TRUE(own.starts_with(users + '/' + std::to_string(::getpid()) + '-'));
  EXPECT_NE(second.temporaryDirectory(), own);
  EXPECT_FALSE(fs::exists(gone));
  EXPECT_TRUE(fs::exists(late) && fs::exists(odd));

  EXPECT_FALSE(first.write(bytesOf("x"), own + "x"));
  const pid_t child = ::fork();
  if (child == 0) {
    first.removeTemporaryDirectory();
    ::_exit(0);
  }
  ::waitpid(child, nullptr, 0);
  EXPECT_EQ(textOf(own + "x"), "x") << "another process's";
  first.removeTemporaryDirectory();
  EXPECT_FALSE(fs::exists(own));
  LocalFileManager given("", LocalFileManager::Groups::eachItsOwn, nullptr, users + "/mine/");
  given.removeTemporaryDirectory();
  EXPECT_TRUE(fs::exists(odd)) << "somebody else made it";

  ::chmod(users.c_str(), 0777);
  const std::string other = LocalFileManager("").temporaryDirectory();
  EXPECT_FALSE(other.starts_with(users));
  EXPECT_TRUE(other.starts_with(folder.path()));
  fs::remove_all(users);
  fs::create_symlink(other, users);
  EXPECT_FALSE(LocalFileManager("").temporaryDirectory().starts_with(users)) << "a trap";
  old ? ::setenv("TMPDIR", before.c_str(), 1) : ::unsetenv("TMPDIR");
}

TEST(LocalFileManagerTest, TheUsersDataLieWhereTheSystemSays) {
  const struct {
    const char *data, *home, *folder;
  } cases[] = {
      {"/d", "/h", "/d/orvane"},
      {"", "/h", "/h/.local/share/orvane"},
      {"relative", "/h", "/h/.local/share/orvane"},
      {"/d//", "/h", "/d/orvane"},
      {"", "/h/", "/h/.local/share/orvane"},
      {"", "", ""},
  };
  const auto of = [](const char* name) {
    const char* value = std::getenv(name);
    return std::string(value ? value : "");
  };
  const std::string data = of("XDG_DATA_HOME"), home = of("HOME");
  for (const auto& each : cases) {
    ::setenv("XDG_DATA_HOME", each.data, 1);
    ::setenv("HOME", each.home, 1);
    EXPECT_EQ(LocalFileManager::usersDataFolder(), each.folder);
  }
  ::setenv("XDG_DATA_HOME", data.c_str(), 1);
  ::setenv("HOME", home.c_str(), 1);
}

TEST(FolderCloudTest, HasWhatLiesInItsFoldersAndNotBesideThem) {
  const TemporaryFolder folder;
  foundation::FolderCloud cloud(folder / "cloud", nullptr, {{"old", folder / "old"}});
  EXPECT_EQ(cloud.container(std::nullopt), std::nullopt) << "signed out";
  const std::string own = folder.write("cloud/a", ""), other = folder.write("old/deep/b", "");
  EXPECT_EQ(cloud.container(std::nullopt), folder / "cloud");
  EXPECT_EQ(cloud.container("old"), folder / "old");
  EXPECT_EQ(cloud.container("new"), std::nullopt);
  EXPECT_TRUE(cloud.isUbiquitousItem(own));
  EXPECT_TRUE(cloud.isUbiquitousItem(other));
  EXPECT_FALSE(cloud.isUbiquitousItem(folder.write("cloud 2/a", "")));
  EXPECT_FALSE(cloud.isUbiquitousItem(folder / "cloud/gone"));
}

TEST(UsersCloudTest, IsAFolderForEachPluginInTheOneThatTheUserNames) {
  using foundation::UsersCloud;
  using Info = platform::PropertyList::Dictionary;
  const TemporaryFolder folder;
  EXPECT_FALSE(UsersCloud::in("") || UsersCloud::in("relative"));
  const foundation::MainBundle bundle(Info{{"CFBundleIdentifier", "org.example.synth"}});
  const auto named = UsersCloud::in(folder / "cloud//");
  EXPECT_FALSE(named->container(std::nullopt)) << "no disk, no account";
  EXPECT_FALSE(std::filesystem::exists(folder / "cloud"));
  std::filesystem::create_directory(folder / "cloud");
  EXPECT_EQ(named->container(std::nullopt), folder / "cloud/org.example.synth");
  EXPECT_FALSE(named->container("other"));
  EXPECT_TRUE(named->isUbiquitousItem(folder.write("cloud/org.example.synth/x", "")));
  const foundation::MainBundle odd(Info{{"CFBundleIdentifier", "../up"}});
  EXPECT_EQ(UsersCloud::in(folder / "cloud")->container(std::nullopt), folder / "cloud/Orvane");
}

TEST(FileLockTest, KeepsOthersOutAsLongAsItLives) {
  const TemporaryFolder folder;
  std::atomic<bool> isIn{false};
  std::thread other;
  {
    const foundation::FileLock lock(folder / "lock");
    other = std::thread([&] {
      const foundation::FileLock second(folder / "lock");
      isIn = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(isIn);
  }
  other.join();
  EXPECT_TRUE(isIn);
}

TEST(LocalFileManagerTest, TheDefaultIsThatOfTheInnermostScope) {
  LocalFileManager outer(""), inner("");
  const foundation::DefaultFileManager outerScope(outer);
  {
    const foundation::DefaultFileManager innerScope(inner);
    EXPECT_EQ(&foundation::DefaultFileManager::current(), &inner);
  }
  EXPECT_EQ(&foundation::DefaultFileManager::current(), &outer);
}

}  // namespace
