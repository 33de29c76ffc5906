// The user's presets as files: listed, loaded, saved and deleted, and never anywhere else.

#include "Orvane/PresetManager.h"

#include <gmock/gmock.h>

#include "Orvane/Preset.h"
#include "Orvane/PresetFile.h"
#include "foundation/KeyedArchive.h"
#include "tests/support/PresetBench.h"

namespace {

using orvane::FactoryPreset;
using orvane::FavPresetsStore;
using orvane::Preset;
using orvane::PresetFile;
using orvane::UserPreset;
using platform::PropertyList;
using support::namesIn;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Dictionary = PropertyList::Dictionary;
using Names = std::vector<std::string>;

TEST(PresetTest, EveryKindHasItsNameAndItsUniqueName) {
  const platform::AUAudioUnitPreset unitPreset{
      .number = 4, .name = "Init", .bank = "BANK A", .categories = {"bass"}, .pack = "P1"};
  const Preset named("Only"), plain(unitPreset);
  EXPECT_EQ(named.uniqueName(), "/Only");
  EXPECT_FALSE(named.id || named.preset || named.isUserPreset || named.isFavourite);
  EXPECT_EQ(plain.uniqueName(), "/Init");
  EXPECT_EQ(plain.id, 4);
  EXPECT_TRUE(plain.categories.empty() && plain.presetPackID.empty());

  FactoryPreset factory{platform::KestroAUPreset(unitPreset)};
  EXPECT_EQ(factory.uniqueName(), "BANK A/Init");
  EXPECT_EQ(factory.categories, Names{"bass"});
  EXPECT_EQ(factory.presetPackID, "P1");
  factory.bankName = "BANK B";
  EXPECT_EQ(factory.uniqueName(), "BANK B/Init");

  const UserPreset user("/a/A.b.preset", true);
  EXPECT_EQ(user.name, "A.b");
  EXPECT_EQ(user.uniqueName(), "/a/A.b.preset");
  EXPECT_TRUE(user.bankName == "USER" && user.isUserPreset && user.isICloud);
}

TEST(PresetTest, PresetsAreEqualByNameAndKindAlone) {
  const FactoryPreset factory("Init"), other("Init");
  const UserPreset local("/a/Init.preset", false), inCloud("/b/Init.preset", true);
  EXPECT_TRUE(factory == other && local == inCloud);
  EXPECT_FALSE(factory == local);
  EXPECT_NE(local.uniqueName(), inCloud.uniqueName());
}

class PresetManagerTest : public support::PresetBench {};

TEST_F(PresetManagerTest, APresetIsSavedListedLoadedAndDeleted) {
  const auto manager = makeManager();
  unit.setParameter("cutoff", 500);
  const auto url = manager->saveNew("Warm Pad", {"Bass", "LEAD", "\xc3\x84ther"});
  ASSERT_EQ(url, folder / "data/Presets/Warm Pad.synth");
  const PropertyList file = listAt(*url);
  EXPECT_EQ(*file.find("Categories"), (PropertyList::Array{"bass", "lead", "\xc3\xa4ther"}));
  EXPECT_EQ(file.find("parameters")->find("cutoff")->number(), 500);
  EXPECT_THAT(support::textOf(*url), testing::StartsWith("<?xml"));

  const auto presets = manager->getUserPresets();
  ASSERT_EQ(presets.size(), 1u);
  EXPECT_EQ(presets[0]->name, "Warm Pad");
  EXPECT_EQ(presets[0]->categories, (Names{"bass", "lead", "\xc3\xa4ther"}));
  EXPECT_FALSE(presets[0]->isICloud);
  unit.setParameter("cutoff", 700);
  manager->load(presets[0]);
  EXPECT_EQ(unit.parameter("cutoff")->value(), 500);
  EXPECT_EQ(unit.currentPresetName(), "Warm Pad");

  FavPresetsStore::setFavourite(*presets[0], true);
  manager->deleteUserPreset(*presets[0]);
  EXPECT_THAT(namesOf(*manager), IsEmpty());
  EXPECT_THAT(FavPresetsStore::favouritePresets, IsEmpty());
  EXPECT_THAT(printed, IsEmpty());
  manager->deleteUserPreset(*presets[0]);
  EXPECT_THAT(printed,
              ElementsAre("\"Warm Pad.synth\" could not be removed: No such file or directory"));
}

TEST_F(PresetManagerTest, OtherCategoriesLeaveTheSoundOfAFileAsItIs) {
  const auto manager = makeManager();
  const PropertyList stored(Dictionary{{"secret", "x"}, {"Categories", "none"}});
  const auto archive = foundation::writeKeyedArchive(stored);
  folder.write("data/Presets/Old.synth", std::string(archive.begin(), archive.end()));
  folder.write("data/Presets/Notes.txt", "to do");
  unit.setParameter("cutoff", 999);
  for (const auto& preset : manager->getUserPresets())
    EXPECT_EQ(manager->setCategories(*preset, {"Pad"}), preset->name == "Old");
  EXPECT_EQ(listAt(folder / "data/Presets/Old.synth"),
            PropertyList(Dictionary{{"secret", "x"}, {"Categories", PropertyList::Array{"pad"}}}));
  EXPECT_EQ(support::textOf(folder / "data/Presets/Notes.txt"), "to do");
  EXPECT_THAT(printed, ElementsAre(testing::StartsWith("\"Notes.txt\" could not be changed: ")));
  EXPECT_FALSE(manager->setCategories(UserPreset(folder / "data/Presets/Gone.synth", false), {}));
}

TEST_F(PresetManagerTest, LoadingWhatIsNotThereDoesNothing) {
  const auto manager = makeManager();
  unit.setParameter("cutoff", 700);
  manager->load(nullptr);
  manager->load(std::make_shared<UserPreset>(folder / "none.synth", false));
  manager->load(std::make_shared<Preset>("Only a name"));
  EXPECT_EQ(unit.parameter("cutoff")->value(), 700);
  manager->load(
      std::make_shared<FactoryPreset>(platform::KestroAUPreset(unit.factoryPresets()[0])));
  EXPECT_EQ(unit.currentPreset(), 3);
  EXPECT_THAT(printed, IsEmpty());
}

TEST_F(PresetManagerTest, EveryLocalFileIsListedWhateverItHolds) {
  const auto manager = makeManager();
  const std::string xml =
      foundation::writeXmlPropertyList(Dictionary{{"Categories", PropertyList::Array{"pad"}}});
  const auto archive =
      foundation::writeKeyedArchive(Dictionary{{"Categories", PropertyList::Array{"old"}}});
  folder.write("data/Presets/a.synth", xml);
  folder.write("data/Presets/b.other", std::string(archive.begin(), archive.end()));
  folder.write("data/Presets/c", "no preset");
  folder.write("data/Presets/d.synth", "");
  folder.write(
      "data/Presets/e.synth",
      foundation::writeXmlPropertyList(Dictionary{{"Categories", PropertyList::Array{"x", 1}}}));
  std::map<std::string, Names> found;
  for (const auto& preset : manager->getUserPresets()) found[preset->name] = preset->categories;
  EXPECT_EQ(found, (std::map<std::string, Names>{
                       {"a", {"pad"}}, {"b", {"old"}}, {"c", {}}, {"d", {}}, {"e", {}}}));
}

TEST_F(PresetManagerTest, OnlyWhatHasChangedIsReadAgainAndOfLongFilesTheirEnds) {
  const auto manager = makeManager();
  Dictionary parameters;
  for (int i = 0; i < 200; ++i) parameters["parameter" + std::to_string(i)] = i * 0.1;
  const std::string xml = foundation::writeXmlPropertyList(
      Dictionary{{"Categories", PropertyList::Array{"pad"}}, {"parameters", parameters}});
  for (int i = 0; i < 20; ++i) folder.write("data/Presets/p" + std::to_string(i) + ".synth", xml);
  EXPECT_EQ(manager->getUserPresets().size(), 20u);
  EXPECT_LT(files.bytesRead, 20 * 2200u);
  const int before = files.reads;
  EXPECT_EQ(manager->getUserPresets()[7]->categories, Names{"pad"});
  EXPECT_EQ(files.reads, before);
  manager->savePreset(folder / "data/Presets/p3.synth", {"lead"});
  manager->getUserPresets();
  EXPECT_GT(files.reads, before);
  EXPECT_LE(files.reads, before + 2);
}

TEST_F(PresetManagerTest, AFileThatCannotBeReadJustNowIsReadAgain) {
  struct Busy : support::CountingFiles {
    using CountingFiles::CountingFiles;
    std::optional<PropertyList::Data> contents(const std::string& path, platform::FileError& error,
                                               std::uint64_t offset, std::size_t count) override {
      if (isBusy) return std::nullopt;
      return CountingFiles::contents(path, error, offset, count);
    }
    bool isBusy = true;
  } busy(folder / "data", foundation::LocalFileManager::Groups::oneForAll);
  const foundation::DefaultFileManager busyScope(busy);
  const auto manager = makeManager();
  busy.isBusy = false;
  manager->saveNew("a", {"pad"});
  busy.isBusy = true;
  const auto unread = manager->getUserPresets()[0];
  EXPECT_THAT(unread->categories, IsEmpty());
  EXPECT_EQ(manager->getUserPresets()[0], unread);
  EXPECT_FALSE(manager->loadUserPreset(*unread));
  busy.isBusy = false;
  EXPECT_EQ(manager->getUserPresets()[0]->categories, Names{"pad"});
  EXPECT_TRUE(manager->loadUserPreset(*unread));
}

TEST_F(PresetManagerTest, AFileThatEndsTooEarlyHasNoCategories) {
  Dictionary parameters;
  for (int i = 0; i < 200; ++i) parameters["parameter" + std::to_string(i)] = i;
  std::string xml = foundation::writeXmlPropertyList(
      Dictionary{{"Categories", PropertyList::Array{"pad"}}, {"parameters", parameters}});
  folder.write("data/Presets/a.synth", xml.substr(0, xml.size() - 30));
  EXPECT_THAT(makeManager()->getUserPresets()[0]->categories, IsEmpty());
}

TEST_F(PresetManagerTest, NoNameLeadsOutOfTheFolderOrOverAnotherFile) {
  using namespace std::string_literals;
  const auto manager = makeManager();
  folder.write("data/outside.synth", "mine");
  const std::string longName(300, 'n');
  for (const std::string& name : {"../outside"s, "a/b"s, "/etc/x"s, "..\0"s, longName})
    manager->saveNew(name, {});
  EXPECT_EQ(printed.size(), 5u);
  EXPECT_THAT(printed.back(), HasSubstr("File name too long"));
  EXPECT_THAT(namesOf(*manager), IsEmpty());
  EXPECT_EQ(support::textOf(folder / "data/outside.synth"), "mine");
  for (const std::string& name : {".."s, "\xf0\x9f\x8e\xb9"s, "e\xcc\x81"s, "a\nb"s, " "s})
    EXPECT_EQ(manager->saveNew(name, {}), folder / ("data/Presets/" + name + ".synth"));
  EXPECT_EQ(namesIn(folder / "data/Presets").size(), 5u);
  EXPECT_EQ(printed.size(), 5u);
}

TEST_F(PresetManagerTest, WithoutAFolderOrAnAudioUnitNothingIsSaved) {
  orvane::PresetManager none("", {});
  none.audioUnit = &unit;
  EXPECT_FALSE(none.localPresetPath() || none.saveNew("a", {}));
  EXPECT_THAT(none.getUserPresets(), IsEmpty());
  const auto manager = makeManager();
  manager->audioUnit = nullptr;
  EXPECT_FALSE(manager->saveNew("a", {}));
  manager->savePreset(folder / "data/Presets/a.synth", {});
  EXPECT_THAT(namesIn(folder / "data/Presets"), IsEmpty());
}

TEST_F(PresetManagerTest, APresetOfAnOtherVersionLoadsAndKeepsWhatIsUnknown) {
  const auto manager = makeManager();
  folder.write(
      "data/Presets/a.synth",
      foundation::writeXmlPropertyList(Dictionary{
          {"later", "kept"}, {"parameters", Dictionary{{"mix", 0.25}, {"shimmer", 0.75}}}}));
  unit.setParameter("cutoff", 700);
  manager->load(manager->getUserPresets()[0]);
  EXPECT_EQ(unit.parameter("mix")->value(), 0.25f);
  EXPECT_EQ(unit.parameter("cutoff")->value(), 1000);
  const PropertyList saved = listAt(*manager->saveNew("b", {}));
  EXPECT_EQ(*saved.find("later"), "kept");
  EXPECT_EQ(saved.find("parameters")->find("shimmer")->number(), 0.75);
}

TEST(PresetFileTest, CategoriesAreFoundAtTheStartOrNotAtAll) {
  const std::string head =
      "<?xml version=\"1.0\"?>\n<!DOCTYPE plist PUBLIC \"x\" \"y\">\n<plist "
      "version=\"1.0\">\n<dict>\n";
  const auto at = [&](const std::string& body) {
    return PresetFile::categoriesAtStart(head + body);
  };
  EXPECT_EQ(at("<key>Categories</key>\n<array>\n\t<string>a</string><string/></array>"),
            (Names{"a", ""}));
  EXPECT_EQ(at("<key>Categories</key><array><string>a&amp;b</string></array>"), Names{"a&b"});
  for (const char* body : {"<key>A</key><integer>1</integer><key>Categories</key><array/>",
                           "<key>A</key><dict><key>Categories</key><true/></dict>"
                           "<key>Categories</key><array/>",
                           "<key>Categories</key><array><integer>1</integer></array>",
                           "<key>Categories</key><string>a</string>"})
    EXPECT_EQ(at(body), Names()) << body;
  for (const char* body : {"<key>Categories</key><array><string>a</string>",
                           "<key>$archiver</key><string>x</string><key>Categories</key><array/>",
                           "</dict>", "<key>Categ", ""})
    EXPECT_FALSE(at(body)) << body;
  EXPECT_EQ(PresetFile::categoriesAtStart("<dict><key>Categories</key><array/>"), Names());
  for (const char* text : {"", "bplist00", "<plist><array>", "<?xml"})
    EXPECT_FALSE(PresetFile::categoriesAtStart(text)) << text;
}

TEST_F(PresetManagerTest, FavouritesAreOneListInOneOrder) {
  Preset a("a"), b("b");
  FavPresetsStore::setFavourite(a, true);
  FavPresetsStore::setFavourite(b, true);
  FavPresetsStore::setFavourite(a, true);
  EXPECT_TRUE(a.isFavourite);
  FavPresetsStore::setFavourite(a, false);
  FavPresetsStore::load();
  EXPECT_THAT(FavPresetsStore::favouritePresets, ElementsAre("/b", "/a"));
  EXPECT_TRUE(FavPresetsStore::contains("/a"));
  FavPresetsStore::remove("/none");
  FavPresetsStore::remove("/b");
  FavPresetsStore::load();
  EXPECT_THAT(FavPresetsStore::favouritePresets, ElementsAre("/a"));
  // A list of texts, though not every file's name is one.
  const std::string odd = "/p/Caf\xe9 100%41.synth";
  const std::string controls =
      "/p/\x08"
      "bell\r.synth";
  for (const std::string& name :
       {odd, controls, std::string("/p/100%41.synth"), std::string("file:///p%41")})
    FavPresetsStore::add(name);
  FavPresetsStore::load();
  EXPECT_THAT(FavPresetsStore::favouritePresets,
              ElementsAre("/a", odd, controls, "/p/100%41.synth", "file:///p%41"));
  const std::string store = folder / "data/Library/Preferences/group.test.plist";
  std::ofstream(store) << foundation::writeXmlPropertyList(
      Dictionary{{"favpresets", PropertyList::Array{"x", 5, "y"}}});
  FavPresetsStore::load();
  EXPECT_THAT(FavPresetsStore::favouritePresets, ElementsAre("x", "y"));
  FavPresetsStore::suiteName = "";
  FavPresetsStore::load();
  EXPECT_THAT(FavPresetsStore::favouritePresets, IsEmpty());
}

}  // namespace
