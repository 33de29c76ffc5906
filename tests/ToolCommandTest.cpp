// The commands around the editor: what they print and the codes they exit with.

#include <gmock/gmock.h>

#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>

#include "tests/support/RunTool.h"
#include "tests/support/TestEditor.h"
#include "tools/orvane/DesignCheck.h"

namespace {

using nlohmann::json;
using support::dataFile;
using support::isOneLine;
using support::linesOf;
using support::runTool;
using support::TemporaryFile;
using support::ToolResult;
using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

TEST(ToolCommand, ListNamesTheBuiltInsWithADescription) {
  const ToolResult result = runTool({"list"});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(linesOf(result.out), Contains(StartsWith("halden  ")));
  EXPECT_THAT(linesOf(result.out), Contains(StartsWith("selvik  ")));
}

TEST(ToolCommand, UsageErrorsExitWithTwoAndOneLine) {
  const std::vector<std::vector<std::string>> wrong = {
      {},
      {"fly"},
      {"list", "all"},
      {"tree"},
      {"tree", "halden", "again"},
      {"tree", "halden", "--colour", "red"},
      {"tree", "halden", "--size"},
      {"tree", "halden", "--size", "wide"},
      {"tree", "halden", "--size", "0x0"},
      {"tree", "halden", "--size", "-5x10"},
      {"tree", "halden", "--size", "10x"},
      {"tree", "halden", "--size", "99999x10"},
      {"tree", "halden", "--size", "10x99999"},
      {"tree", "halden", "--size", "10x10", "--size", "20x20"},
      {"tree", "halden", "--page", "first"},
      {"snapshot", "halden"},
      {"snapshot", "halden", "-o", "x.png", "--scale", "0"},
      {"snapshot", "halden", "-o", "x.png", "--scale", "100"},
      {"drive"},
      {"drive", "halden", "--strict=yes"},
      {"check"},
      {"run"},
  };
  for (const auto& arguments : wrong) {
    const ToolResult result = runTool(arguments);
    EXPECT_EQ(result.code, 2) << testing::PrintToString(arguments);
    EXPECT_EQ(result.out, "");
    EXPECT_TRUE(isOneLine(result.err)) << result.err;
  }
}

TEST(ToolCommand, OtherFailuresExitWithOneAndOneLineThatNamesTheFile) {
  const std::vector<std::vector<std::string>> wrong = {
      {"tree", "no-such-plugin"},          {"tree", "/no/such/file.json"},
      {"tree", ORVANE_SOURCE_DIR},         {"tree", "halden", "--page", "99"},
      {"drive", "halden", "--page", "99"}, {"check", "/no/such/file.json"},
      {"run", "/no/such/file.json"},       {"check", "-"},
  };
  for (const auto& arguments : wrong) {
    const ToolResult result = runTool(arguments);
    EXPECT_EQ(result.code, 1) << testing::PrintToString(arguments);
    EXPECT_TRUE(isOneLine(result.err)) << result.err;
    EXPECT_THAT(result.err, StartsWith(arguments[1] + ": "));
  }
}

TEST(ToolCommand, AfterTwoDashesNothingIsAnOption) {
  for (const char* name : {"--json.json", "-o", "--"}) {
    const ToolResult result = runTool({"check", "--", name});
    EXPECT_EQ(result.code, 1) << result.err;
    EXPECT_THAT(result.err, HasSubstr(name));
  }
}

TEST(ToolCommand, CommonOptionsAreTakenByEveryCommand) {
  EXPECT_EQ(runTool({"list", "--data", "/tmp/x", "--cloud=/tmp/y"}).code, 0);
  EXPECT_EQ(runTool({"drive", "--data", "/tmp/x", dataFile("example.json")}).code, 0);
}

/// The first node, in drawing order, that `wanted` accepts; null when there is none.
json find(const json& node, const std::function<bool(const json&)>& wanted) {
  if (wanted(node)) return node;
  for (const json& child : node["children"])
    if (json found = find(child, wanted); !found.is_null()) return found;
  return nullptr;
}

TEST(ToolCommand, TheTreeSaysWhatEachViewIs) {
  const ToolResult result = runTool({"tree", dataFile("example.json"), "--size", "800x600"});
  ASSERT_EQ(result.code, 0) << result.err;
  const json root = json::parse(result.out);
  EXPECT_EQ(root["class"], "View");
  EXPECT_EQ(root["frame"], (json{0, 0, 800, 600}));
  EXPECT_FALSE(root.contains("name"));
  EXPECT_FALSE(root.contains("enabled"));

  const json section = find(root, [](const json& node) { return node["class"] == "SectionView"; });
  EXPECT_EQ(section["name"], "Filter");
  EXPECT_EQ(section["hidden"], false);
  const json knob = find(section, [](const json& node) { return node.contains("key"); });
  EXPECT_THAT(knob["class"].get<std::string>(), HasSubstr("Container"));
  EXPECT_EQ(knob["enabled"], true);
  const json page = find(root, [](const json& node) { return node["class"] == "PageView"; });
  EXPECT_EQ(page["name"], "Main");
  const json tab = find(root, [](const json& node) { return node["class"] == "PageButton"; });
  EXPECT_EQ(tab["text"], "Main");
  EXPECT_EQ(tab["selected"], true);
  const json on = find(root, [](const json& node) { return node["class"] == "OnOffButton"; });
  EXPECT_EQ(on["selected"], true) << "a switch that is on";
}

TEST(ToolCommand, TheTreeFollowsSizeAndPage) {
  const json root =
      json::parse(runTool({"tree", dataFile("example.json"), "--page", "0", "--page", "1"}).out);
  // Of an option that is given twice the last counts.
  const json shown = find(root, [](const json& node) {
    return node["class"] == "PageView" && node["hidden"] == false;
  });
  EXPECT_EQ(shown["name"], "Motion");
}

TEST(ToolCommand, CheckFindsNothingWrongWithTheSamplesAndBuiltIns) {
  for (const std::string& plugin :
       {dataFile("example.json"), dataFile("all-kinds.json"), std::string("halden")}) {
    const ToolResult result = runTool({"check", plugin});
    EXPECT_EQ(result.code, 0) << result.out << result.err;
    EXPECT_EQ(result.out, plugin + ": no problems\n");
  }
}

TEST(ToolCommand, TheTreeShowsTheSettingsOfADescription) {
  const TemporaryFile file(R"({
    "parameters": [
      {"key": "wet", "unit": "boolean", "control": "onOff", "strings": ["Dry", "Wet"]},
      {"key": "mute", "unit": "boolean", "control": "onOff", "name": "Silent"}],
    "pages": [{"title": "One", "sections": [{"name": "A", "state": "mute",
      "columns": [{"slots": [{"param": "wet", "widthRatio": 0.5}]}]}]}]})");
  const auto result = runTool({"drive", file.path()}, "tree\nset wet 1\nset mute 1\ntree\nget wet");
  const auto answers = linesOf(result.out);
  ASSERT_EQ(answers.size(), 5u);
  for (const bool isOn : {false, true}) {
    const json tree = json::parse(answers[isOn ? 3 : 0])["tree"];
    const auto button = [&](const char* key) {
      const json container =
          find(tree, [&](const json& node) { return node.value("key", "") == key; });
      return find(container, [](const json& node) { return node["class"] == "OnOffButton"; });
    };
    EXPECT_EQ(button("wet")["text"], isOn ? "Wet" : "Dry");
    EXPECT_EQ(button("wet")["selected"], isOn);
    EXPECT_LT(button("wet")["frame"][2], 600) << "half of the column";
    const auto shows = [&](const char* text) {
      return !find(tree, [&](const json& node) {
                return node.value("text", "") == text;
              }).is_null();
    };
    EXPECT_TRUE(shows("wet")) << "the key stands in for a name";
    const json save = find(tree, [](const json& node) { return node.value("text", "") == "SAVE"; });
    EXPECT_EQ(save["enabled"], false) << "no preset is selected";
  }
  const json typed = json::parse(
      linesOf(
          runTool({"drive", dataFile("example.json")}, "doubletap key:cutoff\ntype 47\ntree\n").out)
          .back())["tree"];
  const json field = find(typed, [](const json& node) { return node.value("text", "") == "47"; });
  EXPECT_EQ(field["class"], "TextField");
}

TEST(ToolCommand, CheckTakesSeveralSizes) {
  const ToolResult result =
      runTool({"check", "--size", "60x40", "1024x768", "50x30", dataFile("example.json")});
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.out, HasSubstr("too small to use"));
  for (const char* place :
       {"pages[0].sections[0].state: \"filterOn\"", "foot[0]: \"gain\"", "foot[2]: \"mix\""})
    EXPECT_THAT(result.out, HasSubstr(place + std::string(" is too small to use")));
  EXPECT_THAT(result.out, HasSubstr("at 60x40\n"));
  EXPECT_THAT(result.out, HasSubstr("at 50x30\n"));
  EXPECT_THAT(result.out, testing::Not(HasSubstr("at 1024x768")));
}

TEST(ToolCommand, CheckWantsTwelvePointsForAFinger) {
  std::ifstream file(dataFile("example.json"));
  json description = json::parse(file);
  description["pages"][0]["sections"][0]["feedback"] = "depth";
  const TemporaryFile plugin(description.dump());
  const auto lines = linesOf(runTool({"check", plugin.path(), "--size", "250x190", "800x600"}).out);
  ASSERT_EQ(lines.size(), 3u) << "and one for the parameter whose place is taken";
  EXPECT_THAT(lines[0], HasSubstr(".state: \"filterOn\" is too small to use: 10.3 by 10.3 points"));
  EXPECT_THAT(lines[1], HasSubstr(".feedback: \"depth\" is too small to use"));
}

TEST(ToolCommand, CheckFindsWhatTheLayoutCannotPlace) {
  std::ifstream file(dataFile("example.json"));
  json description = json::parse(file);
  json& sections = description["pages"][0]["sections"];
  // The third row begins below the sum of what was above it, outside the page.
  sections.push_back({{"name", "Second"}, {"row", 1}});
  sections.push_back({{"name", "Third"}, {"row", 2}});
  // The first slot is wider than its section; the last is moved up, but not above its section.
  sections[1]["columns"] = {
      {{"slots",
        {{{"param", "rate"}, {"widthRatio", 1.5}}, {{"param", "depth"}, {"offset", -0.2}}}}}};
  // A slot that reaches beyond its column lies over the next column's.
  sections[0]["columns"][0]["slots"][0]["widthRatio"] = 1.5;
  const TemporaryFile broken(description.dump());
  const ToolResult result = runTool({"check", broken.path(), "--size", "1024x768"});
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(linesOf(result.out),
              Contains(broken.path() + ": pages[0].sections[2]: \"Third\" is outside its page at "
                                       "1024x768"));
  EXPECT_THAT(result.out, HasSubstr("columns[0].slots[0]: \"rate\" is outside its section"));
  EXPECT_THAT(result.out, testing::Not(HasSubstr("above its section")));
  EXPECT_THAT(result.out, testing::Not(HasSubstr("has its place"))) << "rate is on two pages";
  EXPECT_THAT(linesOf(result.out),
              Contains(broken.path() +
                       ": pages[0].sections[0].columns[1].slots[0]: \"mode\" covers \"cutoff\" of "
                       "pages[0].sections[0].columns[0].slots[0] at 1024x768"));
}

TEST(ToolCommand, CheckFindsParametersWhoseControlStandsOnNoPage) {
  orvane::PluginEntry entry;
  entry.makeAudioUnit = [] {
    return std::make_unique<quillon::CommonAudioUnit>(std::vector<quillon::ParameterDescription>{
        {.key = "shown", .address = 1}, {.key = "lost", .address = 2}});
  };
  entry.makeViewController = [] {
    auto design = std::make_shared<support::GivenDesign>();
    for (const char* key : {"shown", "lost"})
      design->givenKeys.push_back(support::paramKey(key, kestroui::ControlType::knob));
    design->addPage("", {support::section("S", {"shown"})});
    return std::make_unique<support::TestController>(design);
  };
  headless::HeadlessRunLoop loop;
  headless::HeadlessHost host(loop, entry);
  host.appear();
  tool::Problems problems;
  tool::checkUse(host, problems);
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(problems[0].line("x"), "x: parameters[1]: \"lost\" has no control on any page");
}

TEST(ToolCommand, CheckFindsParametersThatAreUsedNowhereAndPlacesThatShowNothing) {
  json description = {
      {"parameters",
       {{{"key", "a"}, {"attached", {"b"}}, {"control", "multiple"}},
        {{"key", "b"}},
        {{"key", "c"}},
        {{"key", "d"}}}},
      {"pages",
       {{{"sections", {{{"columns", {{{"slots", {{{"param", "a"}}, {{"param", "d"}}}}}}}}}}}}}};
  const TemporaryFile lonely(description.dump());
  ToolResult result = runTool({"check", lonely.path(), "--size", "400x300", "800x600"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.out, lonely.path() + ": parameters[2]: \"c\" has no control on any page\n");

  description["parameters"][3]["control"] = "none";
  const TemporaryFile hollow(description.dump());
  result = runTool({"check", hollow.path(), "--size", "400x300"});
  EXPECT_EQ(result.out, hollow.path() +
                            ": pages[0].sections[0].columns[0].slots[1].param: \"d\" has the "
                            "control \"none\", which shows nothing\n");
  EXPECT_EQ(runTool({"tree", hollow.path()}).code, 0) << "it can be shown all the same";

  description["parameters"][3] = {{"key", "d"}, {"max", 0.5}};
  json& pages = description["pages"];
  pages.push_back({{"title", "Two"}, {"sections", {{{"name", "C"}, {"state", "d"}}}}});
  pages[1]["sections"][0]["columns"] = {{{"slots", {{{"param", "c"}}}}}};
  const TemporaryFile senseless(description.dump());
  result = runTool({"check", senseless.path(), "--size", "400x300"});
  EXPECT_EQ(result.out, senseless.path() +
                            ": pages[0].title: is empty, so that the page's tab shows nothing\n" +
                            senseless.path() +
                            ": pages[1].sections[0].state: \"d\" never reaches 1, so that the "
                            "section is always off\n");

  description["parameters"].erase(3);
  description["pages"][0]["sections"][0]["columns"][0]["slots"][1]["param"] = "c";
  description["pages"].erase(1);
  description["factoryPresets"] = {{{"name", "Init"}, {"bank", "A"}},
                                   {{"name", "Init"}, {"bank", "B"}},
                                   {{"name", "Init"}, {"bank", "A"}}};
  const TemporaryFile alike(description.dump());
  result = runTool({"check", alike.path(), "--size", "400x300"});
  EXPECT_EQ(result.out,
            alike.path() +
                ": factoryPresets[2].name: \"Init\" is the name of factoryPresets[0] in "
                "the same bank already, and both share one star\n");
}

TEST(ToolCommand, ASnapshotScriptThatFailsNamesItsLine) {
  const TemporaryFile script("page 1\n\nfly\n", ".txt");
  const ToolResult result =
      runTool({"snapshot", "halden", "-o", "/no/such/folder/x.png", "--script", script.path()});
  EXPECT_EQ(result.code, 1);
  EXPECT_TRUE(isOneLine(result.err)) << result.err;
  // Without the desktop backend there are no pictures at all.
  EXPECT_TRUE(result.err == script.path() + ": line 3: unknown command \"fly\"\n" ||
              result.err.find("without the desktop backend") != std::string::npos)
      << result.err;
}

TEST(ToolCommand, ASnapshotIsAPngOrAClearFailure) {
  const TemporaryFile picture("", ".png");
  const ToolResult result = runTool({"snapshot", dataFile("example.json"), "-o", picture.path(),
                                     "--size", "200x150", "--scale", "2"});
  if (result.code != 0) {
    EXPECT_THAT(result.err, HasSubstr("without the desktop backend"));
    return;
  }
  std::ifstream file(picture.path(), std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(file)), {});
  ASSERT_GT(bytes.size(), 24u);
  EXPECT_EQ(bytes.substr(1, 3), "PNG");
  // Width and height, big-endian.
  EXPECT_EQ(static_cast<unsigned char>(bytes[18]) * 256 + static_cast<unsigned char>(bytes[19]),
            400);
  EXPECT_EQ(static_cast<unsigned char>(bytes[22]) * 256 + static_cast<unsigned char>(bytes[23]),
            300);
}

}  // namespace
