// Presets that the user imports and exports, and packs.

#include <gmock/gmock.h>

#include "Orvane/Preset.h"
#include "backends/headless/HeadlessApplication.h"
#include "foundation/KeyedArchive.h"
#include "tests/support/PresetBench.h"
#include "tests/support/TestEditor.h"

namespace {

using platform::PropertyList;
using support::namesIn;
using support::textOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Dictionary = PropertyList::Dictionary;
using Names = std::set<std::string>;

class Editor : public support::TestController {
 public:
  Editor() : TestController(cutoffDesign()) { givenProductId = "product"; }
  static std::shared_ptr<support::GivenDesign> cutoffDesign() {
    auto given = std::make_shared<support::GivenDesign>();
    given->addPage("Main", {support::section("A", {"cutoff"})});
    return given;
  }
  std::string groupBundleId() override { return "group.test"; }
  void preLoadAction() override { ++loads; }
  void preSaveAction() override { ++saves; }
  int loads = 0, saves = 0;
};

class PresetTransferTest : public support::PresetBench {
 protected:
  explicit PresetTransferTest(bool hasCloud = false) : PresetBench(hasCloud) {
    editor.setAudioUnit(&unit);
    window.show(editor);
    manager().createPresetDirectories();
    loop.runDue();
  }
  orvane::PresetManager& manager() { return *editor.presetManager(); }
  std::string save(const std::string& name) {
    return *editor.overlaysView().presetViewOverlay().delegate->saveNewPreset(name, {});
  }
  std::vector<headless::Event> events() { return application.takeEvents(); }

  headless::HeadlessApplication application;
  Editor editor;
  support::EditorWindow window{{800, 600}, &application};
};

TEST_F(PresetTransferTest, ThePickedFileIsCopiedAndChosen) {
  const std::string picked = folder.write(
      "picked/Lead.synth",
      foundation::writeXmlPropertyList(Dictionary{{"parameters", Dictionary{{"cutoff", 440}}}}));
  editor.importPreset();
  const auto shown = events();
  ASSERT_THAT(shown, SizeIs(1));
  EXPECT_EQ(shown[0].types, std::vector<std::string>{"com.Kestro.product.synth"});
  EXPECT_EQ(shown[0].multiple, true);
  EXPECT_TRUE(application.pick({picked, folder / "ignored.synth"}));
  EXPECT_FALSE(application.pick({picked}));
  EXPECT_EQ(files.access, "+" + picked + "-" + picked) << "a picked file is another program's";
  EXPECT_EQ(textOf(folder / "data/Presets/Lead.synth"), textOf(picked));
  EXPECT_EQ(unit.parameter("cutoff")->value(), 440);
  EXPECT_EQ(unit.currentPresetName(), "Lead");
  EXPECT_EQ(editor.selectedPreset()->name, "Lead");
  EXPECT_FALSE(editor.isLoadingUserPreset) << "the browser has its list already";
  EXPECT_THAT(events(), IsEmpty());
}

TEST_F(PresetTransferTest, AnImportNeverReplacesAPresetButChoosesIt) {
  unit.setParameter("cutoff", 500);
  const std::string there = save("Lead");
  EXPECT_EQ(editor.saves, 1);
  unit.setParameter("cutoff", 700);
  editor.importPresetFile(folder.write("picked/Lead.synth", "other"));
  const auto shown = events();
  ASSERT_THAT(shown, SizeIs(1));
  EXPECT_EQ(shown[0].members[0].second,
            "Unable to copy preset file... \"Lead.synth\" could not be copied: File exists");
  EXPECT_THAT(textOf(there), HasSubstr("500"));
  EXPECT_EQ(unit.parameter("cutoff")->value(), 500);
  EXPECT_EQ(editor.loads, 1);
}

TEST_F(PresetTransferTest, WhatIsExportedIsTheStateAsItIsNow) {
  editor.exportPreset();
  editor.selectPreset(std::make_shared<orvane::Preset>(""));
  editor.exportPreset();
  const auto alerts = events();
  ASSERT_THAT(alerts, SizeIs(2));
  EXPECT_EQ(alerts[0].members[0].second, "Error");
  EXPECT_EQ(alerts[1].members[1].second, "No preset selected");
  EXPECT_THAT(namesIn(folder / "tmp"), IsEmpty());

  const auto factory = editor.presetLibrary().find(
      orvane::FactoryPreset(platform::KestroAUPreset(unit.factoryPresets()[0])));
  factory->categories = {"Bass"};
  editor.selectPreset(factory);
  unit.setParameter("cutoff", 444);
  editor.exportPreset();
  const auto shared = events();
  ASSERT_THAT(shared, SizeIs(1));
  const std::string path = shared[0].members[0].second;
  EXPECT_THAT(path, testing::StartsWith(folder / "tmp/"));
  EXPECT_THAT(path, testing::EndsWith("/Init.synth"));
  const PropertyList file = listAt(path);
  EXPECT_EQ(file.find("parameters")->find("cutoff")->number(), 444);
  EXPECT_EQ(*file.find("Categories"), PropertyList::Array{"bass"});

  unit.setParameter("cutoff", 555);
  editor.exportPreset();
  EXPECT_THAT(textOf(path), HasSubstr("444")) << "a chooser may still be open for it";
  EXPECT_THAT(textOf(events()[0].members[0].second), HasSubstr("555"));
}

TEST_F(PresetTransferTest, WhatCannotBeWrittenIsNotShared) {
  unit.setParameter("cutoff", 111);
  editor.selectPreset(editor.presetLibrary().all().front());
  std::filesystem::remove_all(folder / "tmp");
  folder.write("tmp", "no folder");
  editor.exportPreset();
  editor.exportAll();
  const auto told = events();
  ASSERT_THAT(told, SizeIs(2));
  for (const auto& event : told) EXPECT_EQ(event.type, "console");
}

TEST_F(PresetTransferTest, AllPresetsLeaveAsPropertyLists) {
  const auto exported = [&] {
    editor.exportAll();
    const std::string path = events()[0].members[0].second;
    EXPECT_THAT(path, testing::EndsWith("/UserPresets/"));
    return path;
  };
  const std::string earlier = exported();
  EXPECT_THAT(namesIn(earlier), IsEmpty());

  const auto archive = foundation::writeKeyedArchive(Dictionary{{"a", 1}});
  folder.write("data/Presets/old.synth", std::string(archive.begin(), archive.end()));
  const std::string xml = foundation::writeXmlPropertyList(Dictionary{{"b", 2}});
  folder.write("data/Presets/plain.other", xml);
  folder.write("data/Presets/broken.synth", "x");
  const std::string path = exported();
  EXPECT_EQ(namesIn(path), (Names{"old.synth", "plain.other.synth"}));
  EXPECT_EQ(listAt(path + "old.synth"), PropertyList(Dictionary{{"a", 1}}));
  EXPECT_EQ(textOf(path + "plain.other.synth"), xml);
  EXPECT_THAT(namesIn(earlier), IsEmpty());
}

TEST_F(PresetTransferTest, SeveralPresetsLeaveAsTheyAreStored) {
  const std::string alpha = save("Alpha"), beta = save("Beta");
  save("Gamma");
  unit.setParameter("cutoff", 999);
  folder.write("data/Presets/Broken.synth", "x");
  const auto preset = [](const std::string& url) {
    return std::make_shared<orvane::UserPreset>(url, false);
  };
  manager().exportPresets(
      {preset(beta), preset(alpha), preset(folder / "data/Presets/Broken.synth")});
  const auto told = events();
  ASSERT_THAT(told, SizeIs(2));
  EXPECT_THAT(editor.noticeView().text(), HasSubstr("\"Broken.synth\" could not be exported: "));
  const std::string path = told[1].members[0].second;
  EXPECT_EQ(namesIn(path), (Names{"Alpha.synth", "Beta.synth"}));
  EXPECT_EQ(textOf(path + "Alpha.synth"), textOf(alpha));
}

struct CloudTransferTest : PresetTransferTest {
  CloudTransferTest() : PresetTransferTest(true) {}
};

TEST_F(CloudTransferTest, AllPresetsAreThoseOfTheCloudToo) {
  const std::string xml = foundation::writeXmlPropertyList(Dictionary{{"b", 2}});
  folder.write("data/Presets/here.synth", xml);
  folder.write("cloud/Documents/Presets/there.synth", xml);
  editor.exportAll();
  EXPECT_EQ(namesIn(events()[0].members[0].second), (Names{"here.synth", "there.synth"}));
}

TEST_F(PresetTransferTest, WhereThereIsRoomTheSheetStandsByTheEditor) {
  struct Screen : platform::Application, platform::Presentation {
    bool open(const std::string&) override { return false; }
    platform::Presentation* presentation() override { return this; }
    Idiom userInterfaceIdiom() const override { return idiom; }
    void present(const platform::ActivitySheet& sheet) override { shown = sheet; }
    void present(const platform::DocumentPicker&) override {}
    void present(const platform::Alert&) override {}
    Idiom idiom = Idiom::phone;
    std::optional<platform::ActivitySheet> shown;
  } screen;
  Editor other;
  other.setAudioUnit(&unit);
  support::EditorWindow wide({800, 600}, &screen);
  wide.show(other);
  other.exportAll();
  ASSERT_TRUE(screen.shown.has_value());
  EXPECT_FALSE(screen.shown->popover.has_value());
  screen.idiom = platform::Presentation::Idiom::pad;
  other.exportAll();
  ASSERT_TRUE(screen.shown->popover.has_value());
  EXPECT_EQ(screen.shown->popover->sourceRect, (platform::Rect{0, 0, 800, 600}));
  EXPECT_EQ(screen.shown->popover->contentSize, (platform::Size{320, 400}));
}

TEST_F(PresetTransferTest, APackReplacesItsEarlierVersionWhole) {
  folder.write("bundle/Contents/Pads/a.synth", "1");
  folder.write("bundle/Contents/Leads/b.synth", "2");
  folder.write("bundle/Contents/readme", "no folder");
  manager().copyPresetsFromBundle(folder / "none");
  manager().copyPresetsFromBundle(folder / "bundle");
  const std::string pads = manager().presetPackPath("Pads");
  EXPECT_EQ(namesIn(*manager().packPresetPath()), (Names{"Pads", "Leads"}));
  EXPECT_EQ(textOf(pads + "/a.synth"), "1");
  std::filesystem::remove(folder / "bundle/Contents/Pads/a.synth");
  folder.write("bundle/Contents/Pads/c.synth", "3");
  manager().copyPresetsFromFolder(folder / "bundle/Contents/Pads/");
  EXPECT_EQ(namesIn(pads), Names{"c.synth"});
  std::filesystem::create_directory_symlink(pads, folder / "Pads");
  for (const std::string& installed : {pads, pads + "/../Pads/", folder / "Pads"})
    manager().copyPresetsFromFolder(installed);
  EXPECT_EQ(namesIn(pads), Names{"c.synth"}) << "it is there already";
  EXPECT_THAT(events(), IsEmpty());
  EXPECT_EQ(orvane::PresetManager("", {}).presetPackPath("Pads"), "");
}

TEST_F(PresetTransferTest, InstalledPacksAreBanksOfPresets) {
  unit.setParameter("cutoff", 444);
  const std::string file = save("Made");
  folder.write("Pads/Warm.synth", textOf(file));
  folder.write("Pads/Glass.synth", foundation::writeXmlPropertyList(
                                       Dictionary{{"Categories", PropertyList::Array{"pad"}}}));
  folder.write("Leads/Sharp.synth", "no preset");
  for (const char* junk : {"Pads/.DS_Store", "Pads/Readme.txt", "Pads/in/Deep.synth"})
    folder.write(junk, "x");
  EXPECT_THAT(manager().getPackPresets(), IsEmpty());
  for (const char* pack : {"Pads", "Leads"}) manager().copyPresetsFromFolder(folder / pack);
  const auto presets = manager().getPackPresets();
  std::vector<std::string> names;
  for (const auto& preset : presets) names.push_back(preset.bankName + '/' + preset.preset.name);
  EXPECT_THAT(names, ElementsAre("Leads/Sharp", "Pads/Glass", "Pads/Warm"));
  EXPECT_THAT(presets[1].categories, ElementsAre("pad"));
  const int reads = files.reads;
  EXPECT_EQ(manager().getPackPresets().size(), 3u);
  EXPECT_EQ(files.reads, reads) << "nothing has changed";
  unit.setParameter("cutoff", 700);
  const auto load = [&](std::size_t place) {
    return manager().load(std::make_shared<orvane::FactoryPreset>(presets[place]));
  };
  EXPECT_FALSE(load(0));
  EXPECT_EQ(unit.parameter("cutoff")->value(), 700);
  EXPECT_TRUE(load(2));
  EXPECT_EQ(unit.parameter("cutoff")->value(), 444);
  EXPECT_EQ(unit.currentPresetName(), "Warm");
}

TEST_F(PresetTransferTest, WhatIsImportedBeforeThereIsASoundStaysChosen) {
  Editor early;
  early.view();
  early.importPresetFile(folder.write("picked/Lead.synth", textOf(save("Other"))));
  EXPECT_TRUE(early.isLoadingUserPreset);
  early.setAudioUnit(&unit);
  early.connectViewWithAU();
  EXPECT_EQ(early.currentPresetName(), "Lead");
}

TEST_F(PresetTransferTest, AnotherAudioUnitIsFollowedAtTheNextTurn) {
  support::PresetUnit other;
  other.setParameter("cutoff", 555);
  editor.setAudioUnit(&other);
  loop.runDue();
  EXPECT_THAT(textOf(save("Other")), HasSubstr("555"));
  editor.setAudioUnit(nullptr);
}

}  // namespace
