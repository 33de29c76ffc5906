// orvane presets, and what orvane drive does with presets.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <istream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <streambuf>

#include "foundation/KeyedArchive.h"
#include "foundation/PropertyListCoding.h"
#include "foundation/SafeFile.h"
#include "fuzz/PresetFolderTarget.h"
#include "tests/support/RunTool.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using nlohmann::json;
using platform::PropertyList;
using support::namesIn;
using support::runTool;
using support::textOf;
using testing::ElementsAre;
using testing::HasSubstr;
using Dictionary = PropertyList::Dictionary;
using Names = std::set<std::string>;

std::string xmlPreset(const PropertyList::Array& categories) {
  return foundation::writeXmlPropertyList(
      Dictionary{{"Categories", categories}, {"parameters", Dictionary{{"cutoff", 440.5}}}});
}
std::string archivedPreset(const PropertyList::Array& categories) {
  const auto bytes = foundation::writeKeyedArchive(
      Dictionary{{"Categories", categories}, {"parameters", Dictionary{{"cutoff", 440.5}}}});
  return {bytes.begin(), bytes.end()};
}

class PresetsCommandTest : public testing::Test {
 protected:
  json run(std::vector<std::string> words, int code = 0) {
    words.insert(words.begin(), "presets");
    words.push_back("--json");
    const auto result = runTool(words);
    EXPECT_EQ(result.code, code) << result.out << result.err;
    return json::parse(result.out, nullptr, false);
  }
  std::vector<json> drive(const std::string& script, const std::vector<std::string>& options) {
    std::vector<std::string> words{"drive", support::dataFile("example.json")};
    words.insert(words.end(), options.begin(), options.end());
    std::vector<json> answers;
    for (const std::string& line : support::linesOf(runTool(words, script).out))
      answers.push_back(json::parse(line));
    return answers;
  }
  const support::TemporaryFolder folder;
  const std::string data = folder / "data";
};

TEST_F(PresetsCommandTest, ListShowsWhatIsInTheContainersAndTheCloud) {
  folder.write("data/Presets/b.example", xmlPreset({"pad"}));
  folder.write("data/Presets/a.example", "broken");
  folder.write(
      "data/Library/Preferences/group.example.plist",
      foundation::writeXmlPropertyList(Dictionary{
          {"favpresets", PropertyList::Array{data + "/Presets/b.example", "BANK A/Bright"}}}));
  folder.write("cloud/Documents/Presets/c.example", archivedPreset({}));
  folder.write("cloud/Documents/Presets/d.example.icloud", "");
  const json list = run({"list", "--data", data, "--cloud", folder / "cloud"});
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(list[0]["error"], "this is no property list, neither XML nor binary");
  EXPECT_EQ(list[1]["name"], "b");
  EXPECT_EQ(list[1]["categories"], json{"pad"});
  EXPECT_EQ(list[1]["favourite"], true);
  EXPECT_EQ(list[2]["cloud"], true);
  EXPECT_EQ(list[2]["favourite"], false);
  const auto text = runTool({"presets", "list", "--data", data});
  EXPECT_EQ(text.out, "a  this is no property list, neither XML nor binary\nb *  (pad)\n");
  folder.write("data/Presets/a.example",
               foundation::writeXmlPropertyList(PropertyList::Array{"b"}));
  EXPECT_EQ(run({"list", "--data", data})[0]["error"], "the property list is no dictionary");
  const json shown = drive("presets", {"--data", data})[0]["shown"];
  for (const json& row : shown)
    EXPECT_EQ(row["favourite"], row["name"] == "b" || row["name"] == "Bright") << row;
}

TEST_F(PresetsCommandTest, ShowTellsWhatAFileHolds) {
  const std::string file = folder.write("a.example", archivedPreset({"pad"}));
  const json shown = run({"show", file});
  EXPECT_EQ(shown["form"], "keyed archive");
  EXPECT_EQ(shown["content"]["parameters"]["cutoff"], 440.5);
  EXPECT_EQ(runTool({"presets", "show", file}).out,
            "a\n  keyed archive\n  categories: pad\n  cutoff = 440.5\n");
  const auto broken = runTool({"presets", "show", folder.write("b", "x")});
  EXPECT_EQ(broken.code, 1);
  EXPECT_THAT(broken.err, HasSubstr("/b: this is no property list"));
  EXPECT_TRUE(support::isOneLine(broken.err));
}

TEST_F(PresetsCommandTest, ConvertRewritesArchivesAlone) {
  const std::string plain = xmlPreset({"pad"});
  folder.write("p/a.example", archivedPreset({"pad"}));
  folder.write("p/b.example", plain);
  folder.write("p/0.example", "x");
  const json list = run({"convert", folder / "p"}, 1);
  EXPECT_EQ(list[0]["result"], "failed");
  EXPECT_EQ(list[1]["result"], "converted");
  EXPECT_EQ(list[2]["result"], "unchanged");
  EXPECT_EQ(textOf(folder / "p/a.example"), plain);
  EXPECT_EQ(textOf(folder / "p/0.example"), "x");
  EXPECT_EQ(run({"convert", folder / "p/a.example"})[0]["result"], "unchanged");
}

TEST_F(PresetsCommandTest, APackIsInstalledWhole) {
  folder.write("Pads/a.example", xmlPreset({}));
  folder.write("Pads/.DS_Store", "junk");
  folder.write("data/PresetPacks/Pads/old.example", "0");
  const json installed = run({"pack", "install", folder / "Pads/", "--data", data});
  EXPECT_EQ(installed["presets"], 1);
  const Names both{".DS_Store", "a.example"};
  EXPECT_EQ(namesIn(data + "/PresetPacks/Pads"), both);
  folder.write("data/PresetPacks/Leads/b", "no preset");
  folder.write("data/PresetPacks/Readme", "no pack");
  EXPECT_EQ(runTool({"presets", "pack", "list", "--data", data}).out,
            "Leads: 0 presets\nPads: 1 preset\n");
  EXPECT_EQ(run({"pack", "list", "--data", data})[1]["presets"], 1);
  const std::string own = data + "/PresetPacks/Pads";
  for (const std::string& path : {own, own + "/../Pads/"})
    EXPECT_THAT(runTool({"presets", "pack", "install", path, "--data", data}).err,
                HasSubstr(": is installed already"));
  EXPECT_EQ(namesIn(own), both);
  ::mkfifo((folder / "Pads/pipe").c_str(), 0600);
  const json most = run({"pack", "install", folder / "Pads", "--data", data}, 1);
  EXPECT_EQ(most["presets"], 1);
  EXPECT_EQ(most["errors"].size(), 1u);
  const auto told = runTool({"presets", "pack", "install", folder / "Pads", "--data", data});
  EXPECT_EQ(told.code, 1);
  EXPECT_THAT(told.err, HasSubstr("\"pipe\""));
  EXPECT_EQ(runTool({"presets", "pack", "install", folder / "Pads"}).code, 2);
  const json users =
      run({"pack", "install", folder / "Pads", support::dataFile("example.json")}, 1);
  EXPECT_THAT(users["pack"], testing::EndsWith("/orvane/group.example/PresetPacks/Pads"));
  EXPECT_EQ(run({"pack", "list", support::dataFile("example.json")})[0]["folder"], users["pack"]);
  EXPECT_EQ(runTool({"presets", "pack", "install", folder / "none", "--data", data}).code, 1);
}

TEST_F(PresetsCommandTest, TheDoctorReportsAndMendsOnlyWhenAsked) {
  const std::string presets = data + "/Presets/";
  folder.write("data/Presets/A.example", xmlPreset({"Bass", "pad"}));
  folder.write("data/Presets/a.other", xmlPreset({}));
  folder.write("data/Presets/A 2.third", xmlPreset({}));
  folder.write("data/Presets/broken.example", "x");
  const std::string store = folder.write(
      "data/Library/Preferences/group.example.plist",
      foundation::writeXmlPropertyList(Dictionary{
          {"favpresets", PropertyList::Array{presets + "A.example", presets + "gone.example",
                                             "BANK A/Init", "/Init"}}}));
  const auto kinds = [](const json& list) {
    std::vector<std::string> all;
    for (const json& problem : list) all.push_back(problem["kind"]);
    return all;
  };
  const Names before = namesIn(presets);
  EXPECT_THAT(kinds(run({"doctor", data}, 1)),
              ElementsAre("unreadable", "duplicate-name", "categories", "missing-favourite"));
  EXPECT_EQ(namesIn(presets), before);
  EXPECT_EQ(run({"doctor", data + "/Presets", "--fix"}).size(), 4u);
  EXPECT_EQ(namesIn(presets), (Names{"A.example", "A 2.third", "a 3.other"}));
  EXPECT_EQ(textOf(data + "/Unreadable Presets/broken.example"), "x");
  EXPECT_EQ(textOf(presets + "A.example"), xmlPreset({"bass", "pad"}));
  EXPECT_THAT(textOf(store), testing::Not(HasSubstr("gone")));
  EXPECT_THAT(textOf(store), HasSubstr("BANK A/Init"));
  EXPECT_THAT(textOf(store), HasSubstr(">/Init<")) << "a factory preset without a bank";
  EXPECT_EQ(runTool({"presets", "doctor", data}).out, data + ": no problems\n");
}

TEST_F(PresetsCommandTest, TheDoctorKeepsStarsThatItNeedNotTakeAway) {
  const std::string presets = data + "/Presets/";
  for (const char* name : {"A.example", "a.example"})
    folder.write(std::string("data/Presets/") + name, xmlPreset({}));
  folder.write("data/PresetTrash/2026-01-02 03.04.05/Old.example", "old");
  const PropertyList::Array kept{presets + "A.example", "/Kick/Snare", "/media/gone/x.example",
                                 presets + "sub/x.example"};
  PropertyList::Array before = kept;
  before.emplace_back(presets + "a.example");
  before.emplace_back(presets + "gone.example");
  const std::string store =
      folder.write("data/Library/Preferences/group.example.plist",
                   foundation::writeXmlPropertyList(Dictionary{{"favpresets", before}}));
  const json told = run({"doctor", data, "--fix"});
  ASSERT_EQ(told.size(), 3u);
  EXPECT_EQ(told[2]["kind"], "trash");
  EXPECT_THAT(told[2]["text"], HasSubstr("2026-01-02"));
  EXPECT_EQ(textOf(data + "/PresetTrash/2026-01-02 03.04.05/Old.example"), "old");
  PropertyList::Array after = kept;
  after.emplace_back(presets + "a 2.example");
  const std::string text = textOf(store);
  for (const PropertyList& name : after)
    EXPECT_THAT(text, HasSubstr('>' + *name.as<std::string>() + '<'));
  EXPECT_THAT(text, testing::Not(HasSubstr("gone.example")));
  const auto again = runTool({"presets", "doctor", data});
  EXPECT_EQ(again.code, 0) << "what is in the trash is no problem";
  EXPECT_THAT(again.out, HasSubstr("no problems"));
}

TEST_F(PresetsCommandTest, TheDoctorPutsAsideAsManyBrokenFilesOfOneNameAsThereAre) {
  for (const char* text : {"first", "second", "third"}) {
    folder.write("data/Presets/broken.example", text);
    EXPECT_EQ(run({"doctor", data, "--fix"})[0]["fixed"], true);
  }
  EXPECT_EQ(namesIn(data + "/Presets"), Names{});
  EXPECT_EQ(textOf(data + "/Unreadable Presets/broken.example"), "first");
  EXPECT_EQ(textOf(data + "/Unreadable Presets/broken 2.example"), "second");
  EXPECT_EQ(textOf(data + "/Unreadable Presets/broken 3.example"), "third");
}

TEST_F(PresetsCommandTest, TheDoctorTakesNothingThatIsBeingWrittenOrThatItCannotPutAside) {
  namespace fs = std::filesystem;
  const std::string young =
      folder.write("data/Presets/" + foundation::SafeFile::unfinishedName(), "");
  const std::string old =
      folder.write("data/Presets/" + foundation::SafeFile::unfinishedName(), "");
  fs::last_write_time(old, fs::file_time_type::clock::now() - std::chrono::hours(1));
  folder.write("data/Presets/broken.example", "x");
  folder.write("data/Unreadable Presets", "a file where the folder should be");
  const json problems = run({"doctor", data, "--fix"}, 1);
  ASSERT_EQ(problems.size(), 2u);
  EXPECT_EQ(problems[0]["kind"], "unreadable");
  EXPECT_EQ(problems[0]["fixed"], false);
  EXPECT_EQ(problems[1]["kind"], "unfinished");
  EXPECT_EQ(textOf(data + "/Presets/broken.example"), "x");
  EXPECT_TRUE(fs::exists(young));
  EXPECT_FALSE(fs::exists(old));
}

/// A folder of presets as the fuzzer of folders takes it.
TEST_F(PresetsCommandTest, NoFolderOfFilesLosesOneOfThem) {
  const std::string corpus = ORVANE_SOURCE_DIR "/fuzz/corpus/folder";
  const Names all = namesIn(corpus);
  EXPECT_GE(all.size(), 5u);
  for (const std::string& name : all) {
    SCOPED_TRACE(name);
    const std::string text = textOf(corpus + '/' + name);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    fuzz::presetFolder({bytes, text.size()});
    fuzz::presetFolder({bytes, text.size() / 2});
  }
}

TEST_F(PresetsCommandTest, WrongWordsAreUsageErrors) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{},
                                             {"fly"},
                                             {"show"},
                                             {"list", "--fix"},
                                             {"pack"},
                                             {"pack", "remove", "x"},
                                             {"doctor"}}) {
    std::vector<std::string> all{"presets"};
    all.insert(all.end(), words.begin(), words.end());
    const auto result = runTool(all);
    EXPECT_EQ(result.code, 2) << result.out;
    EXPECT_TRUE(support::isOneLine(result.err)) << result.err;
  }
}

TEST_F(PresetsCommandTest, AScriptChoosesImportsAndExportsUserPresets) {
  folder.write("data/Presets/Mine.example", xmlPreset({"pad"}));
  const std::string picked = folder.write("picked/New one.example", xmlPreset({}));
  const auto answers = drive("presets\npreset user Mine\nget cutoff\npick \"" + picked +
                                 "\"\nset cutoff 700\nexport\nexportall\npresets\npick \"" +
                                 picked + "\"\npreset Bright\nexport\nnext\npresets\n",
                             {"--data", data});
  ASSERT_EQ(answers.size(), 13u);
  EXPECT_EQ(answers[0]["walk"], (json{"Mine", "Bright", "Init"}));
  const json& mine = answers[0]["shown"].back();
  EXPECT_EQ(mine["name"], "Mine") << "without headers in the order of the names";
  EXPECT_EQ(mine["section"], "USER");
  EXPECT_EQ(mine["categories"], json{"pad"});
  EXPECT_EQ(answers[1]["selected"], "Mine");
  EXPECT_EQ(answers[2]["value"], 440.5);
  EXPECT_EQ(answers[3]["selected"], "New one");
  EXPECT_EQ(answers[3]["events"][0]["type"], "picker");
  EXPECT_EQ(answers[3]["events"][0]["multiple"], true);
  ASSERT_EQ(answers[5]["events"][0]["type"], "share");
  const std::string exported = answers[5]["events"][0]["path"];
  EXPECT_THAT(exported, testing::EndsWith("/New one.example"));
  EXPECT_THAT(textOf(exported), HasSubstr("<real>700</real>"));
  EXPECT_EQ(answers[6]["events"][0]["type"], "share");
  EXPECT_EQ(answers[7]["walk"], (json{"Mine", "New one", "Bright", "Init"}));
  EXPECT_EQ(answers[8]["events"][1]["type"], "console");
  EXPECT_EQ(answers[10]["ok"], true);
  EXPECT_THAT(answers[10]["events"][0]["path"], testing::EndsWith("/Bright.example"));
  EXPECT_EQ(answers[11]["selected"], "Init");
}

TEST_F(PresetsCommandTest, WithoutDataAScriptLeavesNothingBehind) {
  const auto answers = drive("export\npresets\n", {"--cloud", folder / "cloud"});
  EXPECT_EQ(answers[0]["events"].back()["type"], "alert");
  EXPECT_EQ(answers[0]["events"].back()["message"], "No preset selected");
  EXPECT_EQ(answers[1]["ok"], true);
  EXPECT_EQ(namesIn(folder / "cloud/Documents"), Names{"Presets"});

  std::filesystem::create_directory(folder / "tmp");
  const std::string before = std::filesystem::temp_directory_path();
  ::setenv("TMPDIR", (folder / "tmp").c_str(), 1);
  EXPECT_EQ(runTool({"tree", support::dataFile("example.json")}).code, 0);
  ::setenv("TMPDIR", before.c_str(), 1);
  EXPECT_EQ(namesIn(folder / "tmp"), Names{});
}

TEST_F(PresetsCommandTest, AUserPresetThatCameWhileTheEditorIsOpenIsFoundByItsName) {
  // What comes after the first line is asked for when that has been answered.
  struct Script : std::streambuf {
    int underflow() override {
      if (line++ == 1) folder->write("data/Presets/Late.example", xmlPreset({}));
      text = line == 1 ? "preset user Late\n" : line == 2 ? "preset user Late\nget cutoff\n" : "";
      setg(text.data(), text.data(), text.data() + text.size());
      return text.empty() ? traits_type::eof() : text[0];
    }
    const support::TemporaryFolder* folder = nullptr;
    std::string text;
    int line = 0;
  } script;
  script.folder = &folder;
  std::istream in(&script);
  std::ostringstream out, err;
  tool::runTool({"drive", support::dataFile("example.json"), "--data", data}, in, out, err);
  const auto answers = support::linesOf(out.str());
  ASSERT_EQ(answers.size(), 3u);
  EXPECT_THAT(answers[0], HasSubstr("no user preset"));
  EXPECT_THAT(answers[2], HasSubstr("440.5"));
}

}  // namespace
