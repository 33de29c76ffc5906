// The user's presets where hosts look for them.

#include "Orvane/HostPresets.h"

#include <gmock/gmock.h>

#include "foundation/DispatchQueue.h"
#include "tests/support/PresetBench.h"

namespace {

using orvane::HostPresetFolder;
using testing::UnorderedElementsAre;

class HostPresetsTest : public support::PresetBench {
 protected:
  static HostPresetFolder::Form form() {
    HostPresetFolder::Form form;
    form.extension = ".copy";
    form.contents = [](const HostPresetFolder::Copy& copy, const platform::PropertyList& state) {
      return std::optional(copy.name + " " + std::to_string(state.find("cutoff")->number()));
    };
    form.indexFile = "index";
    form.index = [](const std::vector<HostPresetFolder::Copy>& copies) {
      std::string text;
      for (const auto& copy : copies) text += copy.name + "|";
      return text;
    };
    return form;
  }
  HostPresetFolder::Source preset(const std::string& name, const std::string& place, int cutoff) {
    const std::string list = foundation::writeXmlPropertyList(
        platform::PropertyList::Dictionary{{"cutoff", std::int64_t{cutoff}}});
    return {name, folder.write(place + "/" + name + ".synth", list)};
  }
  std::vector<std::string> shown() const {
    std::vector<std::string> names;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder / "host", ignored))
      if (entry.path().filename().string()[0] != '.')
        names.push_back(entry.path().filename().string());
    return names;
  }

  HostPresetFolder copies{files, folder / "host", form()};
};

TEST_F(HostPresetsTest, aFolderHasACopyOfEachPresetAndLeavesAllElseAlone) {
  EXPECT_EQ(copies.update({}), std::nullopt);
  EXPECT_FALSE(files.isDirectory(folder / "host")) << "nothing to show";
  folder.write("host/Mine.copy", "the host's own");
  std::vector<HostPresetFolder::Source> presets{preset("Mine", "a", 1),
                                                preset("Pad", "a", 2),
                                                preset("Pad", "b", 3),
                                                preset("index", "a", 4),
                                                {"Odd\x01", folder.write("a/odd.synth", "x")}};
  EXPECT_EQ(copies.update(presets), std::nullopt);
  EXPECT_THAT(shown(), UnorderedElementsAre("Mine.copy", "Mine 2.copy", "Pad.copy", "Pad 2.copy",
                                            "index.copy", "index"));
  EXPECT_EQ(support::textOf(folder / "host/Mine.copy"), "the host's own");
  EXPECT_EQ(support::textOf(folder / "host/Pad 2.copy"), "Pad 3.000000");
  EXPECT_EQ(support::textOf(folder / "host/index"), "Mine|Pad|Pad|index|");

  presets.push_back({"Broken", folder.write("a/Broken.synth", "no preset")});
  copies.update(presets);
  files.reads = 0;
  copies.update(presets);
  EXPECT_EQ(files.reads, 1) << "its list alone";
  presets[1] = preset("Pad", "a", 20);
  copies.update(presets);
  EXPECT_EQ(files.reads, 3) << "and what has changed";
  EXPECT_EQ(support::textOf(folder / "host/Pad.copy"), "Pad 20.000000");

  presets.erase(presets.begin() + 2, presets.end());
  copies.update(presets);
  EXPECT_THAT(shown(), UnorderedElementsAre("Mine.copy", "Mine 2.copy", "Pad.copy", "index"));
  copies.update({});
  EXPECT_THAT(shown(), UnorderedElementsAre("Mine.copy"));
  std::filesystem::remove(folder / "host/Mine.copy");
  copies.update(presets);
  copies.update({});
  EXPECT_FALSE(files.isDirectory(folder / "host"));
}

TEST_F(HostPresetsTest, whatAKilledUpdateOrSomeoneElseLeftIsMadeGood) {
  const std::vector<HostPresetFolder::Source> presets{preset("Pad", "a", 1)};
  copies.update(presets);
  // Killed while it wrote the copy.
  folder.write("host/.copies.plist",
               foundation::writeXmlPropertyList(
                   platform::PropertyList::Dictionary{{"Pad.copy", ""}, {"../Pad.synth", "1"}}));
  folder.write("host/Pad.copy", "ha");
  EXPECT_EQ(copies.update(presets), std::nullopt);
  EXPECT_THAT(shown(), UnorderedElementsAre("Pad.copy", "index"));
  EXPECT_EQ(support::textOf(folder / "host/Pad.copy"), "Pad 1.000000");
  std::filesystem::remove(folder / "host/Pad.copy");
  copies.update(presets);
  EXPECT_EQ(support::textOf(folder / "host/Pad.copy"), "Pad 1.000000") << "deleted in the host";

  const std::string taken = folder.write("taken", "a file");
  HostPresetFolder nowhere(files, taken, form());
  EXPECT_THAT(nowhere.update(presets).value_or(""), testing::HasSubstr(taken));
  EXPECT_EQ(support::textOf(taken), "a file");
}

TEST_F(HostPresetsTest, itFollowsWhatTheEditorSavesAndDeletes) {
  const auto manager = makeManager();
  orvane::PresetLibrary library;
  HostPresetFolder::Form counted = form();
  counted.contents = [](const HostPresetFolder::Copy& copy, const platform::PropertyList&) {
    return std::optional(copy.name);
  };
  const orvane::HostPresets presets(library, folder / "host", counted);
  const auto settle = [&] {
    loop.runDue();
    foundation::DispatchQueue::waitForGlobal();
  };
  folder.write("host/.copies.plist", foundation::writeXmlPropertyList(
                                         platform::PropertyList::Dictionary{{"Old.copy", "1"}}));
  folder.write("host/Old.copy", "Old");
  library.setStore(manager.get());
  library.setFilter({.searchText = "x"});
  settle();
  EXPECT_THAT(shown(), UnorderedElementsAre("Old.copy")) << "nobody has looked at the files yet";

  manager->saveNew("Bell", {});
  library.reload();
  settle();
  EXPECT_THAT(shown(), UnorderedElementsAre("Bell.copy", "index"));
  manager->saveNew("Pad", {});
  library.announce();
  library.announce();
  settle();
  EXPECT_THAT(shown(), UnorderedElementsAre("Bell.copy", "Pad.copy", "index"));
  const auto bell = library.userPresetNamed("Bell");
  manager->deleteUserPreset(dynamic_cast<const orvane::UserPreset&>(*bell));
  library.announce();
  settle();
  EXPECT_THAT(shown(), UnorderedElementsAre("Pad.copy", "index"));
  EXPECT_TRUE(printed.empty());
}

}  // namespace
