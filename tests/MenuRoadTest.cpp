// The roads that begin in the menu bar, as scripts.

#include <gmock/gmock.h>

#include <algorithm>

#include <nlohmann/json.hpp>

#include "tests/support/RunTool.h"

namespace {

using nlohmann::json;
using support::dataFile;
using support::runTool;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::string site = "https://example.invalid";

std::string description(const std::string& members) {
  return R"({ "name": "Foam", "version": "1.4.2", "build": "37", "productId": "foam",
    "parameters": [ { "key": "a" } ],
    "pages": [ { "sections": [ { "columns": [ { "slots": [ { "param": "a" } ] } ] } ] } ])" +
         members + " }";
}

std::vector<json> drive(const std::string& plugin, const std::string& script) {
  const support::ToolResult run = runTool({"drive", plugin}, script);
  EXPECT_EQ(run.code, 0) << run.err;
  std::vector<json> answers;
  for (const std::string& line : support::linesOf(run.out)) {
    answers.push_back(json::parse(line));
    EXPECT_EQ(answers.back()["ok"], true) << line;
  }
  return answers;
}

json last(const std::string& script, const std::string& members = "") {
  const support::TemporaryFile plugin(description(members));
  return drive(plugin.path(), "size 1024 768\n" + script).back();
}

/// The address that the last command opened; "" for none.
std::string opened(const std::string& script, const std::string& members = "") {
  const json events = last(script, members)["events"];
  return events.size() == 1 && events[0]["type"] == "openURL" ? events[0]["url"] : "";
}

/// The texts that are shown, whatever shows them.
std::vector<std::string> texts(const json& view) {
  std::vector<std::string> result;
  if (view["hidden"]) return result;
  if (view.contains("text")) result.push_back(view["text"]);
  for (const json& child : view["children"])
    for (std::string& text : texts(child)) result.push_back(std::move(text));
  return result;
}

const std::string about = "tap \"Foam v1.4.2.37\"\n";

TEST(MenuRoad, theLogoOpensTheAboutPanelAndClosesItAgain) {
  EXPECT_THAT(last(about + "state")["overlays"], ElementsAre("AboutOverlay"));
  for (const char* closing :
       {"tap \"Foam v1.4.2.37\"", "key escape", "tap at:5,700", "tap DiceButton\nkey escape"})
    EXPECT_THAT(last(about + closing + "\nstate")["overlays"], IsEmpty()) << closing;
  EXPECT_THAT(last(about + "tap at:512,120\nstate")["overlays"], ElementsAre("AboutOverlay"));
  EXPECT_EQ(last(about + "key escape\nkey escape")["used"], false);
}

TEST(MenuRoad, theAboutPanelSaysWhatThePluginIs) {
  const auto shown = texts(last(about + "tree")["tree"]);
  for (const char* text :
       {"Foam", "version 1.4.2.37", "Like ", "Contact us", "Get all KESTRO Apps!",
        "example.invalid",
        "A big shout out to all of those who support us and help us to improve our apps "
        "continuously! Cheers! "})
    EXPECT_THAT(shown, Contains(text));
}

TEST(MenuRoad, aboutAndBrowserTakeEachOthersPlace) {
  const std::string members = R"(, "factoryPresets": [ { "name": "Init" } ])";
  const auto overlays = [&](const std::string& script) {
    return last("preset Init\n" + script + "state", members)["overlays"];
  };
  EXPECT_THAT(overlays(about + "tap \"Init\"\n"), ElementsAre("PresetViewOverlay"));
  EXPECT_THAT(overlays("tap \"Init\"\n" + about), ElementsAre("AboutOverlay"));
  const std::string dialog = "tap \"Init\"\ntap \"SAVE NEW\"\n";
  EXPECT_THAT(overlays(dialog + "tap \"Init\"\n"), ElementsAre("PresetViewOverlay"));
  EXPECT_THAT(overlays(dialog + "tap \"Init\"\ntap \"Init\"\n"), IsEmpty());
  EXPECT_THAT(overlays(dialog + "tap DiceButton\nkey escape\n"), ElementsAre("PresetViewOverlay"));
}

TEST(MenuRoad, theButtonsOfTheAboutPanelLeadToTheMaker) {
  const std::vector<std::pair<std::string, std::string>> roads{
      {"\"Contact us\"",
       "mailto:feedback@example.invalid?subject=KESTRO%20Feedback%20-%20version%201.4.2.37"},
      {"\"Get all KESTRO Apps!\"", site + "/apps"},
      {"\"example.invalid\"", site},
  };
  for (const auto& [target, url] : roads) EXPECT_EQ(opened(about + "tap " + target), url);
  const json review = last(about + "tap \"Like \"")["events"];
  ASSERT_EQ(review.size(), 1u);
  EXPECT_EQ(review[0], (json{{"type", "review"}}));
}

TEST(MenuRoad, theNetworksAreInTheirOrder) {
  const json tree = last(about + "tree")["tree"];
  // The first image button of all is the one with the logo: the overlays lie below the menu bar.
  const std::vector<std::string> urls{site + "/facebook", site + "/youtube", site + "/instagram",
                                      site + "/twitter"};
  for (std::size_t i = 0; i < urls.size(); ++i)
    EXPECT_EQ(opened(about + "tap ImageButton#" + std::to_string(i)), urls[i]);
}

TEST(MenuRoad, whatHasNoAddressIsLeftOut) {
  const auto shown = texts(last(about + "tree", R"(, "addresses": {})")["tree"]);
  EXPECT_THAT(shown, AllOf(Contains("Foam"), Contains("version 1.4.2.37"), Contains("Like "),
                           Not(Contains("Contact us")), Not(Contains("Get all KESTRO Apps!"))));
  EXPECT_THAT(last("wait 1", R"(, "addresses": {})")["events"], IsEmpty());
  EXPECT_EQ(
      opened(about + "tap ImageButton", R"(, "addresses": { "youtube": "https://example.org/y" })"),
      "https://example.org/y");
}

TEST(MenuRoad, theKeyboardReachesThePanel) {
  EXPECT_EQ(last(about + "key tab\nkey return")["events"], (json{{{"type", "review"}}}));
  EXPECT_EQ(opened(about + "key tab\nkey tab\nkey tab\nkey space"), site + "/apps");
}

TEST(MenuRoad, theHelpServerIsAskedOnceWhenTheEditorOpens) {
  const support::TemporaryFile plugin(description(""));
  const auto answers = drive(plugin.path(), "wait 1\ndisappear\nappear\nsize 800 600\nwait 10");
  EXPECT_EQ(
      answers[0]["events"],
      (json{{{"type", "http"}, {"url", site + "/LICENSES/help_url.php?product_identifier=foam"}}}));
  for (std::size_t i = 1; i < answers.size(); ++i) EXPECT_THAT(answers[i]["events"], IsEmpty());
  const support::TemporaryFile nameless(description(R"(, "addresses": { "helpHost": "" })"));
  EXPECT_THAT(drive(nameless.path(), "wait 1")[0]["events"], IsEmpty());
}

TEST(MenuRoad, everyAnswerOfTheHelpServerIsDealtWith) {
  const auto hasHelp = [](const std::string& answer) {
    const json buttons = last(answer + "\nstate")["buttons"];
    return std::count_if(buttons.begin(), buttons.end(),
                         [](const json& button) { return button["class"] == "ImageButton"; }) == 2;
  };
  EXPECT_TRUE(hasHelp("respond 200 https://example.org/help"));
  for (const char* answer : {"respond 200", "respond 404 https://example.org/help", "respond error",
                             "respond 200 \xff\xfe", "wait 60"})
    EXPECT_FALSE(hasHelp(answer)) << answer;
  const std::string tapHelp = "\ntap ImageButton#1";
  EXPECT_EQ(opened("respond 200 https://example.org/help" + tapHelp), "https://example.org/help");
  EXPECT_EQ(opened("respond 200 no address" + tapHelp), "");
  const support::TemporaryFile plugin(description(""));
  const support::ToolResult run =
      runTool({"drive", plugin.path()}, "respond 200 a:b\nrespond 200 a:b\nrespond\nrespond x\n");
  const auto lines = support::linesOf(run.out);
  EXPECT_THAT(lines[1], HasSubstr("no request waits"));
  EXPECT_THAT(lines[2], HasSubstr("respond wants"));
  EXPECT_THAT(lines[3], HasSubstr("respond wants"));
}

TEST(MenuRoad, arrowsStepThroughPresetsAndTheDiceThrows) {
  const std::string members =
      R"(, "factoryPresets": [ { "name": "A" }, { "name": "B" }, { "name": "C" } ])";
  const auto preset = [&](const std::string& script) {
    return last("preset A\n" + script + "state", members)["preset"];
  };
  EXPECT_EQ(preset("tap ArrowButton#1\n"), "B");
  EXPECT_EQ(preset("tap ArrowButton#0\n"), "C");
  const json before = last("get a"), after = last("tap DiceButton\nget a");
  EXPECT_NE(before["value"], after["value"]);
}

TEST(MenuRoad, displayModesAreChosen) {
  const std::string members = R"(, "displays": ["Bars", "Lines"])";
  EXPECT_EQ(last("state")["display"], nullptr);
  EXPECT_EQ(last("state", members)["display"], 0);
  EXPECT_EQ(last("tap \"Lines\"\nstate", members)["display"], 1);
}

}  // namespace
