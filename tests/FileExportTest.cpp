// Files that leave for folders of the user, and those that are dropped on an editor.

#include "backends/juce/FileExport.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "backends/juce/DroppedPresets.h"
#include "foundation/DefaultFileManager.h"
#include "foundation/LocalFileManager.h"
#include "tests/support/TemporaryFolder.h"

namespace {

namespace FileExport = juce_backend::FileExport;
using support::namesIn;
using support::textOf;
using testing::ElementsAre;
using testing::HasSubstr;
using Names = std::set<std::string>;

class FileExportTest : public testing::Test {
 protected:
  support::TemporaryFolder folder;
  foundation::LocalFileManager files{
      folder / "data", foundation::LocalFileManager::Groups::oneForAll, nullptr, folder / "tmp/"};
  foundation::DefaultFileManager scope{files};
};

TEST_F(FileExportTest, foldersComeWithAllThatIsInThemAndKeepTheirShape) {
  folder.write("from/Bank/a.preset", "a");
  folder.write("from/Bank/deep/a.preset", "deeper");
  folder.write("from/one.preset", "one");
  ::mkfifo((folder / "from/Bank/pipe").c_str(), 0600);
  const auto copies =
      FileExport::copiesInto(folder / "to", {folder / "from/Bank", folder / "from/one.preset"});
  EXPECT_EQ(copies.size(), 3u);
  EXPECT_EQ(FileExport::replacedBy(copies), 0u);
  EXPECT_EQ(FileExport::run(copies), std::nullopt);
  EXPECT_EQ(namesIn(folder / "to"), (Names{"Bank", "one.preset"}));
  EXPECT_EQ(textOf(folder / "to/Bank/a.preset"), "a");
  EXPECT_EQ(textOf(folder / "to/Bank/deep/a.preset"), "deeper");
}

TEST_F(FileExportTest, aLinkThatLeadsNowhereIsAFileThatWouldBeReplaced) {
  const std::string from = folder.write("a.preset", "a");
  std::filesystem::create_directory(folder / "to");
  std::filesystem::create_symlink("nowhere", folder / "to/a.preset");
  EXPECT_EQ(FileExport::replacedBy(FileExport::copiesInto(folder / "to", {from})), 1u);
}

TEST_F(FileExportTest, whatFailsIsToldOnceAndTheRestIsCopied) {
  const std::string good = folder.write("good.preset", "good");
  const auto result = FileExport::run({{folder / "first.preset", folder / "to/first.preset"},
                                       {folder / "second.preset", folder / "to/second.preset"},
                                       {good, folder / "to/good.preset"},
                                       {folder / "third.preset", folder / "to/third.preset"}});
  ASSERT_TRUE(result);
  EXPECT_THAT(*result, HasSubstr("first.preset"));
  EXPECT_THAT(*result, HasSubstr("2 more could not be saved."));
  EXPECT_EQ(namesIn(folder / "to"), (Names{"good.preset"}));
  const auto alone = FileExport::run({{folder / "first.preset", folder / "to/first.preset"}});
  ASSERT_TRUE(alone);
  EXPECT_THAT(*alone, testing::Not(HasSubstr("more")));
}

TEST_F(FileExportTest, droppedPresetsKeepTheOrderOfTheDragAndThatOfTheirNamesInFolders) {
  const std::string lead = folder.write("z.preset", "x");
  for (const char* name : {"pack/c.preset", "pack/a.preset", "pack/Read.me", "pack/b.preset",
                           "pack/folder.preset/d.preset"})
    folder.write(name, "x");
  const auto found = juce_backend::droppedPresets(
      {juce::String(lead), juce::String(folder / "pack"), juce::String(folder / "none.preset")},
      "preset");
  EXPECT_THAT(found, ElementsAre(lead, folder / "pack/a.preset", folder / "pack/b.preset",
                                 folder / "pack/c.preset"));
}

TEST_F(FileExportTest, aDraggedFolderWithoutEndIsNotReadToItsEnd) {
  std::filesystem::create_directory(folder / "huge");
  const std::string file = folder.write("a.preset", "x");
  for (int i = 0; i < 20100; ++i)
    std::filesystem::create_hard_link(file, folder / ("huge/" + std::to_string(i) + ".preset"));
  EXPECT_EQ(juce_backend::droppedPresets({juce::String(folder / "huge")}, "preset").size(), 20000u);
}

}  // namespace
