// The road from the menu bar through the browser to the files and back.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <algorithm>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/support/RunTool.h"

namespace {

using json = nlohmann::json;
using support::dataFile;
using support::runTool;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// One editor with a container of its own, driven by scripts that share it.
class PresetBrowserTest : public testing::Test {
 protected:
  PresetBrowserTest() {
    folder_ = std::filesystem::temp_directory_path() /
              (std::string("orvane-browser-") +
               testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~PresetBrowserTest() override { std::filesystem::remove_all(folder_); }

  std::vector<json> drive(const std::string& script) {
    const support::ToolResult run =
        runTool({"drive", description_, "--data", folder_.string()}, script);
    EXPECT_EQ(run.code, 0) << run.err;
    std::vector<json> answers;
    std::istringstream lines(run.out);
    for (std::string line; std::getline(lines, line);) answers.push_back(json::parse(line));
    for (const json& answer : answers) EXPECT_EQ(answer["ok"], true) << answer;
    return answers;
  }
  json last(const std::string& script) { return drive(script).back(); }
  static std::vector<std::string> names(const json& rows) {
    std::vector<std::string> result;
    for (const json& row : rows) result.push_back(row["name"]);
    return result;
  }
  /// Paths of all preset files below the container.
  std::vector<std::string> files() const {
    std::vector<std::string> result;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_))
      if (entry.is_regular_file() && entry.path().parent_path().filename() == "Presets")
        result.push_back(entry.path().stem());
    std::sort(result.begin(), result.end());
    return result;
  }

  std::filesystem::path folder_;
  std::string description_ = dataFile("presets.json");
};

const std::string open = "size 1000 750\npreset Init\ntap \"Init\"\n";

std::string saveNew(const std::string& name) {
  return "tap \"SAVE NEW\"\ntype " + name + "\ntap \"OK\"\n";
}

TEST_F(PresetBrowserTest, theNameOpensItAndClosesFirstTheDialogThenTheBrowser) {
  EXPECT_THAT(last(open + "state")["overlays"], ElementsAre("PresetViewOverlay"));
  EXPECT_THAT(last(open + "tap \"SAVE NEW\"\nstate")["overlays"],
              ElementsAre("PresetViewOverlay", "SaveNewPresetOverlay"));
  EXPECT_THAT(last(open + "tap \"SAVE NEW\"\ntap \"Init\"\nstate")["overlays"],
              ElementsAre("PresetViewOverlay"));
  EXPECT_TRUE(
      last(open + "tap \"SAVE NEW\"\ntap \"Init\"\ntap \"Init\"\nstate")["overlays"].empty());
  EXPECT_TRUE(last(open + "key escape\nstate")["overlays"].empty());
  EXPECT_TRUE(last(open + "tap at:5,700\nstate")["overlays"].empty()) << "beside the panel";
}

TEST_F(PresetBrowserTest, aSavedPresetIsAFileAFavouriteAndTheSelectedOne) {
  const json presets = last(open + saveNew("Foam") + "presets");
  EXPECT_EQ(files(), std::vector<std::string>{"Foam"});
  EXPECT_EQ(presets["selected"], "Foam");
  ASSERT_EQ(presets["favourites"].size(), 1u);
  EXPECT_THAT(presets["favourites"][0].get<std::string>(), HasSubstr("Foam.example"));
  EXPECT_EQ(presets["shown"][0]["section"], "USER");
  EXPECT_EQ(presets["walk"][0], "Foam");
  EXPECT_EQ(last("presets")["favourites"].size(), 1u) << "the next editor knows";
}

TEST_F(PresetBrowserTest, savingOverANameAsksAndNoKeepsTheFile) {
  drive(open + "set cutoff 500\n" + saveNew("Foam"));
  const std::string again = open + "set cutoff 5000\n" + saveNew("Foam");
  EXPECT_THAT(last(again + "state")["overlays"], testing::Contains("ConfirmOverlay"));
  drive(again + "tap \"NO\"\n");
  EXPECT_EQ(last("preset user Foam\nget cutoff")["value"], 500);
  drive(again + "tap \"YES\"\n");
  EXPECT_EQ(last("preset user Foam\nget cutoff")["value"], 5000);
  EXPECT_EQ(files(), std::vector<std::string>{"Foam"});
}

TEST_F(PresetBrowserTest, renameKeepsTheSoundAndTheFavouriteUnderTheNewName) {
  drive(open + "set cutoff 700\n" + saveNew("Foam"));
  const std::string select = "size 1000 750\npreset user Foam\ntap \"Foam\"\n";
  const json presets = last(select + "tap \"RENAME\"\ntype Spray\ntap \"OK\"\npresets");
  EXPECT_EQ(files(), std::vector<std::string>{"Spray"});
  EXPECT_EQ(presets["selected"], "Spray");
  EXPECT_THAT(presets["favourites"].dump(), HasSubstr("Spray.example"));
  EXPECT_THAT(presets["favourites"].dump(), Not(HasSubstr("Foam")));
  EXPECT_EQ(last("preset user Spray\nget cutoff")["value"], 700);
}

TEST_F(PresetBrowserTest, aFavouriteThatIsRenamedHasItsStarAtOnce) {
  drive(open + saveNew("Foam"));
  const json tree = last(
      "size 1000 750\npreset user Foam\ntap \"Foam\"\ntap \"RENAME\"\n"
      "type Spray\ntap \"OK\"\ntree")["tree"];
  std::map<std::string, bool> stars, categories;
  const std::function<void(const json&)> visit = [&](const json& node) {
    if (node["class"] == "PresetCell")
      stars[node["children"][0]["children"][0]["text"]] = node["children"][1]["selected"];
    if (node["class"] == "MultiSelectableButton") categories[node["text"]] = node["selected"];
    for (const json& child : node["children"]) visit(child);
  };
  visit(tree);
  EXPECT_THAT(stars, testing::Contains(testing::Pair("Spray", true)));
  EXPECT_THAT(stars, testing::Contains(testing::Pair("Init", false)));
  EXPECT_THAT(categories, testing::UnorderedElementsAre(testing::Pair("Bass", false),
                                                        testing::Pair("Lead", false)));
}

TEST_F(PresetBrowserTest, deletingAsksAndOnlyYesDeletes) {
  drive(open + saveNew("Foam"));
  const std::string ask = "size 1000 750\npreset user Foam\ntap \"Foam\"\ntap \"DELETE\"\n";
  drive(ask + "tap \"NO\"\n");
  EXPECT_EQ(files(), std::vector<std::string>{"Foam"});
  const json presets = last(ask + "tap \"YES\"\npresets");
  EXPECT_TRUE(files().empty());
  EXPECT_TRUE(presets["favourites"].empty());
  EXPECT_THAT(names(presets["shown"]), Not(testing::Contains("Foam")));
}

TEST_F(PresetBrowserTest, aFactoryPresetCanOnlyBeSavedAsANewOne) {
  const auto enabled = [&](const std::string& script) {
    std::map<std::string, bool> result;
    const json state = last(script + "state");
    for (const json& button : state["buttons"]) result[button["text"]] = button["enabled"];
    return result;
  };
  std::map<std::string, bool> buttons = enabled(open);
  for (const char* text : {"SAVE", "DELETE", "RENAME"}) EXPECT_FALSE(buttons.at(text)) << text;
  EXPECT_TRUE(buttons.at("SAVE NEW"));
  drive(open + saveNew("Foam"));
  buttons = enabled("size 1000 750\npreset user Foam\ntap \"Foam\"\n");
  for (const char* text : {"SAVE", "DELETE", "RENAME"}) EXPECT_TRUE(buttons.at(text)) << text;
}

TEST_F(PresetBrowserTest, banksImportAndExportAreThereWhenThePluginAsksForThem) {
  const std::string tree = last(open + "tree")["tree"].dump();
  EXPECT_THAT(tree, Not(HasSubstr("BANK B")));
  EXPECT_THAT(last(open + "state")["buttons"].dump(), Not(HasSubstr("IMPORT")));

  std::ifstream file(description_);
  json description = json::parse(file);
  description["presetViewUseFilters"] = description["allowImportAndExport"] = true;
  const support::TemporaryFile asking(description.dump());
  description_ = asking.path();
  const std::string buttons = last(open + "state")["buttons"].dump();
  EXPECT_THAT(buttons, testing::AllOf(HasSubstr("IMPORT"), HasSubstr("EXPORT")));
  EXPECT_THAT(names(last(open + "tap \"BANK B\"\npresets")["shown"]),
              ElementsAre("Bright Lead", "Lead Two"));
  EXPECT_THAT(names(last(open + "tap \"Lead\"\ntap \"BANK A\"\npresets")["shown"]),
              testing::IsEmpty());
  const std::string all =
      open + saveNew("Foam") + saveNew("Froth") + "tap \"USER\"\nkey control+a\n";
  EXPECT_THAT(drive(all + "tap \"EXPORT\"").back()["events"][0]["path"].get<std::string>(),
              HasSubstr("UserPresets/"))
      << "what is marked, as one folder";
}

TEST_F(PresetBrowserTest, typingSearchesArrowsMoveAndReturnLoads) {
  const json found = last(open + "type lead\npresets");
  for (const std::string& name : names(found["shown"])) EXPECT_THAT(name, HasSubstr("Lead"));
  EXPECT_EQ(found["selected"], "Init") << "nothing is loaded yet";
  EXPECT_EQ(last(open + "type lead\nkey return\nkey return\npresets")["selected"], "Bright Lead");
}

TEST_F(PresetBrowserTest, theArrowsWalkThroughUserThenFactoryPresetsAroundTheEnds) {
  drive(open + saveNew("Zoo"));
  const json walk = last("presets")["walk"];
  EXPECT_THAT(walk, ElementsAre("Zoo", "Bright Lead", "Deep Bass", "Init", "Lead Two"));
  EXPECT_EQ(last("preset Lead Two\nnext")["selected"], "Zoo");
  EXPECT_EQ(last("preset user Zoo\nprevious")["selected"], "Lead Two");
}

TEST_F(PresetBrowserTest, aDayWithTheBrowserByKeysAlone) {
  drive(open + "set cutoff 500\n" + saveNew("Alpha") + "set cutoff 600\n" + saveNew("Beta") +
        "set cutoff 700\n" + saveNew("Gamma"));
  const std::string start = "size 1000 750\npreset user Alpha\nset cutoff 510\ntap \"Alpha\"\n";
  const auto at = [&](const std::string& keys) { return last(start + keys + "state"); };
  EXPECT_EQ(at("")["modified"], true);

  // Listening
  EXPECT_EQ(at("key down\n")["preset"], "Alpha") << "perhaps it goes on to the next";
  EXPECT_EQ(at("key down\nkey down\nwait 0.2\n")["preset"], "Gamma");
  const std::string listened = "key down\nwait 0.2\nkey escape\n";
  EXPECT_EQ(at(listened)["modified"], true) << "what was changed comes back";
  EXPECT_EQ(last(start + listened + "get cutoff")["value"], 510);
  const json kept = at("key down\nwait 0.2\nkey return\n");
  EXPECT_EQ(kept["preset"], "Beta");
  EXPECT_EQ(kept["notice"], "\u201cAlpha\u201d was changed and not saved.");
  EXPECT_EQ(last(start + "key down\nwait 0.2\nkey return\nkey control+z\nget cutoff")["value"],
            510);

  // Stars, marks and what is done with them
  const json stars = last(start + "key down\nkey control+d\npresets")["favourites"];
  EXPECT_EQ(stars.size(), 2u) << "Beta's is taken away";
  const std::string two = "key shift+down\n";
  drive(start + two + "tap \"CATEGORIES\"\nkey space\ntap \"OK\"");
  EXPECT_THAT(names(last(open + "tap \"Bass\"\npresets")["shown"]),
              testing::IsSupersetOf({"Alpha", "Beta"}));
  const std::string deleted = start + two + "tap \"DELETE\"\ntap \"YES\"\n";
  EXPECT_EQ(last(deleted + "key control+z\npresets")["walk"].size(),
            last(open + "presets")["walk"].size());
  EXPECT_EQ(last(deleted + "presets")["selected"], "Gamma") << "the neighbour";
  EXPECT_EQ(files(), std::vector<std::string>{"Gamma"});

  // Searching, and all again
  const std::string found = "size 1000 750\npreset user Gamma\ntap \"Gamma\"\ntype brig\n";
  EXPECT_EQ(names(last(found + "presets")["shown"]).size(), 1u);
  EXPECT_GT(names(last(found + "tap \"CLEAR\"\npresets")["shown"]).size(), 1u);
}

}  // namespace
