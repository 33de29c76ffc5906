// Scripts: each test is the road of a person or a CI through an editor, as text in and JSON out.

#include <gmock/gmock.h>

#include <functional>
#include <sstream>

#include <nlohmann/json.hpp>

#include "tests/support/RunTool.h"

namespace {

using nlohmann::json;
using support::dataFile;
using support::isOneLine;
using support::linesOf;
using support::runTool;
using support::ToolResult;
using testing::HasSubstr;

/// The answers of a script that must run to its end.
std::vector<json> drive(const std::string& script, const std::string& plugin = "example.json",
                        std::vector<std::string> options = {}) {
  std::vector<std::string> arguments{"drive", plugin[0] == '/' ? plugin : dataFile(plugin)};
  arguments.insert(arguments.end(), options.begin(), options.end());
  const ToolResult result = runTool(arguments, script);
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.err, "");
  std::vector<json> answers;
  for (const std::string& line : linesOf(result.out)) answers.push_back(json::parse(line));
  return answers;
}

/// The answer to the last command, which must be ok; so must all before it.
json last(const std::string& script, const std::string& plugin = "example.json") {
  const auto answers = drive(script, plugin);
  for (const json& answer : answers) EXPECT_EQ(answer.at("ok"), true) << answer;
  return answers.empty() ? json() : answers.back();
}

std::string errorOf(const std::string& command) {
  const auto answers = drive(command);
  EXPECT_EQ(answers.size(), 1u);
  if (answers.size() != 1) return {};
  EXPECT_EQ(answers[0].at("ok"), false) << answers[0];
  EXPECT_EQ(answers[0].size(), 2u) << answers[0];
  return answers[0].value("error", "");
}

TEST(Drive, AutomationReachesTheControlAndItsText) {
  const json answer = last("set cutoff 632.4555\nget cutoff\n");
  EXPECT_FLOAT_EQ(answer["value"], 632.4555f);
  EXPECT_NEAR(answer["position"], 0.5, 1e-5);
  EXPECT_EQ(answer["text"], "632 Hz");
  EXPECT_EQ(answer["midi"], nullptr);
  EXPECT_EQ(answer["inactive"], false);
  EXPECT_EQ(answer["modulated"], false);
  EXPECT_EQ(answer["events"], json::array());
}

TEST(Drive, AValueOutsideTheRangeIsClamped) {
  EXPECT_EQ(last("set cutoff 1e9\nget cutoff\n")["value"], 20000);
  const json band = last("set mode 1\nget mode\n");
  EXPECT_EQ(band["text"], "Band");
  EXPECT_EQ(band["value"], 1);
  EXPECT_EQ(band["position"], 0.5) << "also of a control that holds the value itself";
}

TEST(Drive, AFingerTurnsAKnobUpAndTheWheelTurnsIt) {
  const json before = last("get cutoff");
  EXPECT_GT(last("drag key:cutoff 0 -30\nget cutoff")["position"], before["position"]);
  EXPECT_LT(last("drag key:cutoff 0 30\nget cutoff")["position"], before["position"]);
  EXPECT_GT(last("wheel key:cutoff 2\nget cutoff")["position"], before["position"]);
}

TEST(Drive, ADoubleTapAsksForAValueThatIsTypedOrReset) {
  const std::string ask = "set cutoff 5000\ndoubletap key:cutoff\n";
  EXPECT_EQ(last(ask + "state")["overlays"], json({"EnterValueOverlay"}));
  EXPECT_EQ(last(ask + "type 632.5\ntap \"OK\"\nget cutoff")["value"], 632.5);
  EXPECT_EQ(last(ask + "type abc\ntap \"OK\"\nget cutoff")["value"], 20) << "0 is below it";
  EXPECT_EQ(last(ask + "tap \"OK\"\nget cutoff")["value"], 5000) << "nothing typed";
  EXPECT_EQ(last(ask + "tap \"RESET\"\nget cutoff")["value"], 1000);
  EXPECT_EQ(last(ask + "type 7\nkey escape\nget cutoff")["value"], 5000);
  EXPECT_EQ(last(ask + "type 7\nkey return\nget cutoff")["value"], 5000);
  EXPECT_EQ(last(ask + "type 700\nkey return\nkey return\nget cutoff")["value"], 700);
  for (const char* word : {"key shift+control+left", "key control+shift+left"})
    EXPECT_EQ(last(ask + "type 9000\n" + word + "\ntype +70\ntap \"OK\"\nget cutoff")["value"], 70)
        << "the word is selected and typed over";
  for (const char* closing : {"key escape", "tap at:3,3", "tap \"OK\"", "tap \"RESET\""})
    EXPECT_EQ(last(ask + closing + "\nstate")["overlays"], json::array()) << closing;
}

TEST(Drive, ATapOnASwitchMakesItsSectionInactive) {
  EXPECT_EQ(last("tap key:filterOn\nget cutoff")["inactive"], true);
  EXPECT_EQ(last("tap key:filterOn\ntap key:filterOn\nget cutoff")["inactive"], false);
  EXPECT_EQ(last("set filterOn 0\nget resonance")["inactive"], true);
}

TEST(Drive, TextsArePressedWhereTheyAreShownPaintedOnesToo) {
  EXPECT_EQ(last("tap \"Motion\"\nstate")["page"], 1);
  EXPECT_EQ(last("tap \"High\"\nget mode")["value"], 2);
}

TEST(Drive, ClassesAreCountedInDrawingOrderFromZero) {
  EXPECT_EQ(last("tap PageButton#1\nstate")["page"], 1);
  EXPECT_GT(last("drag AUKnobContainer#1 0 -30\nget resonance")["value"], 0);
  EXPECT_GT(last("drag Knob 0 -30\nget cutoff")["value"], 1000);
}

TEST(Drive, PlacesAreInRootCoordinates) {
  const json tree = last("tree")["tree"];
  EXPECT_EQ(tree["frame"], (json{0, 0, 1024, 768}));
  EXPECT_EQ(last("tap at:900,130\nstate")["page"], 1);
}

TEST(Drive, OnlyTheControlsOfTheShownPageAreFound) {
  const auto answers = drive("tap key:rate\npage 1\ndrag key:rate 0 -20\nget rate");
  EXPECT_EQ(answers[0]["error"], "the parameter \"rate\" is not on the shown page");
  EXPECT_EQ(answers[2]["ok"], true);
  EXPECT_GT(answers[3]["value"], 2);
}

TEST(Drive, LiveValuesAreShownAtTheNextFrame) {
  const auto answers = drive(
      "modulate cutoff on\nget cutoff\nlive cutoff 5000\nwait 0.1\nget cutoff\nframes\n"
      "live cutoff 9000\nwait 0.1\nframes\nmodulate cutoff off\nwait 0.1\nget cutoff");
  EXPECT_EQ(answers[1]["modulated"], false) << "not shown yet";
  EXPECT_EQ(answers[4]["modulated"], true);
  EXPECT_EQ(answers[4]["value"], 1000);
  EXPECT_GE(answers[8]["repaints"], 1) << "where it is";
  EXPECT_EQ(answers[11]["modulated"], false);
}

TEST(Drive, TimePassesOnlyByWaiting) {
  const auto answers =
      drive("wait 1\nframes\ntap \"Main\"\nframes\nwait 1\nframes\nset gain 3\nframes");
  EXPECT_EQ(answers[1]["displayFrames"], 60);
  EXPECT_EQ(answers[3]["displayFrames"], 0);
  EXPECT_EQ(answers[5]["displayFrames"], 60);
  EXPECT_EQ(answers[5]["repaints"], 0);
  EXPECT_EQ(answers[5]["repaintedArea"], 0);
  EXPECT_GE(answers[7]["repaints"], 1);
  EXPECT_GT(answers[7]["repaintedArea"], 0);
}

TEST(Drive, FramesRestWhileTheHostResizesAndOffScreen) {
  const auto answers = drive(
      "wait 1\nframes\nsize 800 600\nframes\nwait 0.05\nframes\nwait 1\nframes\n"
      "disappear\nwait 1\nframes\nappear\nwait 1\nframes\nstate");
  EXPECT_LT(answers[5]["displayFrames"], 4);
  EXPECT_GT(answers[7]["displayFrames"], 50);
  EXPECT_EQ(answers[10]["displayFrames"], 0);
  EXPECT_GT(answers[13]["displayFrames"], 50);
  EXPECT_EQ(answers[14]["size"], (json{800, 600}));
}

TEST(Drive, PresetsAreChosenByNameAndStepped) {
  const auto answers = drive("presets\npreset Bright\nget cutoff\nnext\nprevious\nstate");
  EXPECT_EQ(answers[0]["walk"], (json{"Bright", "Init"}));
  EXPECT_EQ(answers[0]["selected"], nullptr);
  EXPECT_EQ(answers[1]["selected"], "Bright");
  EXPECT_EQ(answers[2]["value"], 8000);
  EXPECT_EQ(answers[3]["selected"], "Init");
  EXPECT_EQ(answers[5]["preset"], "Bright");
}

TEST(Drive, KeysGoToTheControlThatHasTheKeyboard) {
  const auto answers = drive("key q\ntap key:cutoff\nkey tab\nkey up\nkey shift+tab\n");
  EXPECT_EQ(answers[0]["used"], false);
  EXPECT_EQ(answers[3]["used"], true);
  for (const json& answer : answers) EXPECT_EQ(answer["ok"], true) << answer;
}

TEST(Drive, OptionsSetTheFirstSizeAndPage) {
  const auto answers = drive("state", "example.json", {"--size", "640x480", "--page=1"});
  EXPECT_EQ(answers[0]["size"], (json{640, 480}));
  EXPECT_EQ(answers[0]["page"], 1);
}

TEST(Drive, BlankLinesAndCommentsAreNotAnswered) {
  EXPECT_EQ(drive("\n  \n# a comment\n\t# and one more\r\nstate\r\n").size(), 1u);
}

TEST(Drive, AControlOfSeveralParametersIsReachedByEachKey) {
  const support::TemporaryFile file(R"({
    "parameters": [
      {"key": "a", "max": 100, "default": 25, "control": "multiple", "attached": ["b"]},
      {"key": "b", "max": 100, "default": 50, "name": "Bee", "flags": ["displaySquared"]},
      {"key": "c", "default": 0.5, "inverted": true}],
    "pages": [
      {"title": "One", "sections": [{"name": "A", "columns": [{"slots": [{"param": "a"}]}]}]},
      {"title": "Two", "sections": [{"name": "B", "columns": [{"slots": [{"param": "c"}]}]}]}],
    "factoryPresets": [{"name": "user Mine", "bank": "B1", "categories": ["pad"],
                        "values": {"a": 70}}]})");
  const auto answers = drive(
      "map b 176,7\nget b\nget a\ndrag key:b 0 -40\nget b\nget a\n"
      "preset user Mine\nget a\npresets\ntap \"Bee\"\nset a +3\nget a\n"
      "midi b 64\nget b\npage 1\nget b\nwheel key:c 2\nget c",
      file.path());
  ASSERT_EQ(answers.size(), 18u);
  EXPECT_EQ(answers[1]["midi"], (json{176, 7}));
  EXPECT_EQ(answers[2]["midi"], nullptr);
  EXPECT_GT(answers[4]["value"], 50);
  EXPECT_EQ(answers[5]["value"], 25);
  EXPECT_EQ(answers[6]["selected"], "user Mine") << "a factory preset may have such a name";
  EXPECT_EQ(answers[7]["value"], 70);
  EXPECT_EQ(answers[8]["shown"][0]["categories"], json{"pad"});
  EXPECT_EQ(answers[9]["ok"], true);
  EXPECT_EQ(answers[11]["value"], 3);
  EXPECT_NEAR(answers[13]["value"], 100 * (64 / 127.0) * (64 / 127.0), 0.01) << "by its flag";
  EXPECT_EQ(answers[15]["midi"], (json{176, 7})) << "also from another page";
  EXPECT_LT(answers[17]["value"], 0.5) << "inverted";

  // A handle of a shape is dragged by its own place.
  const auto shape =
      drive("page 3\ndrag key:attack 40 0\nget attack\nget release\nget decay", "all-kinds.json");
  EXPECT_GT(shape[2]["value"], 100);
  EXPECT_EQ(shape[3]["value"], 600);
  EXPECT_EQ(shape[4]["value"], drive("get decay", "all-kinds.json")[0]["value"]);
  // And the whole in the middle of what holds its values, badges or not.
  last("page 3\nlearn on\nlearn off\nset padY 0\ntap XYControlContainer\nexpect padY 0.5",
       "all-kinds.json");
}

TEST(Drive, AParameterIsReachedInItsOwnControlBeforeAnothers) {
  const support::TemporaryFile file(R"({
    "parameters": [{"key": "own", "default": 0.5},
      {"key": "attack", "control": "adsr", "attached": ["own"], "default": 0.5}],
    "pages": [{"sections": [{"columns": [{"slots": [{"param": "own"}, {"param": "attack"}]}]}]}]})");
  EXPECT_GT(drive("drag key:own 0 -40\nget own", file.path())[1]["value"], 0.5);
}

TEST(Drive, AnErrorDoesNotEndTheScript) {
  const auto answers = drive("nonsense\nset cutoff 500\nget cutoff");
  ASSERT_EQ(answers.size(), 3u);
  EXPECT_EQ(answers[2]["value"], 500);
}

struct Wrong {
  const char* command;
  const char* error;
};

TEST(Drive, EveryWrongCommandIsAnsweredWithWhatIsWrong) {
  const Wrong wrong[] = {
      {"fly", "unknown command \"fly\""},
      {"size 10", "size wants W H"},
      {"size 0 100", "size wants W H in points, above 0 and at most 16384, not \"0 100\""},
      {"size 100 1e9", "size wants W H in points, above 0 and at most 16384, not \"100 1e9\""},
      {"size 1e9 100", "size wants W H in points, above 0 and at most 16384, not \"1e9 100\""},
      {"page 2", "there is no page 2: the design has 2 pages, counted from 0"},
      {"page -1", "page wants a number from 0 on, not \"-1\""},
      {"tap", "tap wants TARGET"},
      {"tap key:ghost", "no parameter \"ghost\""},
      {"tap Ghost", "no \"Ghost\" is shown"},
      {"tap PageButton#2", "only 2 of class \"PageButton\" are shown"},
      {"tap PageButton#x", "a number from 0 on comes after # in \"PageButton#x\""},
      {"tap \"nowhere\"", "nothing shows the text \"nowhere\""},
      {"tap \"Main", "a quote is not closed"},
      {"tap \"Main\"x", "a blank is missing after a closing quote"},
      {R"(tap "say \"hi\" \\")", R"(nothing shows the text "say "hi" \")"},
      {"preset \"Ghost\"", "no factory preset \"Ghost\""},
      {"tap at:1", "a place is at:X,Y, not \"at:1\""},
      {"tap at:5000,1", "\"at:5000,1\" is outside the editor"},
      {"drag key:cutoff 1", "drag wants TARGET DX DY"},
      {"drag key:cutoff up 1", "a number from -100000 to 100000 is wanted, not \"up\""},
      {"wheel key:cutoff nan", "a number from -100000 to 100000 is wanted, not \"nan\""},
      {"key any", "no key \"any\""},
      {"set cutoff", "set wants KEY VALUE"},
      {"set ghost 1", "no parameter \"ghost\""},
      {"set cutoff high", "set wants a number, not \"high\""},
      {"get ghost", "no parameter \"ghost\""},
      {"live ghost 1", "no parameter \"ghost\""},
      {"modulate cutoff maybe", "modulate wants on or off, not \"maybe\""},
      {"wait -1", "a number from 0 to 3600 is wanted, not \"-1\""},
      {"wait 1e9", "a number from 0 to 3600 is wanted, not \"1e9\""},
      {"preset", "preset wants NAME"},
      {"preset Ghost", "no factory preset \"Ghost\""},
      {"preset user Mine", "no user preset \"Mine\""},
      {"type hello", "nothing has the keyboard"},
      {"state now", "state takes nothing"},
      {"midi cutoff 128", "midi wants a value from 0 to 127, not \"128\""},
      {"learn maybe", "learn wants on or off, not \"maybe\""},
      {"map cutoff 7", "map wants the bytes of a MIDI message such as 176,7, not \"7\""},
      {"map cutoff 176,1,2,3",
       "map wants the bytes of a MIDI message such as 176,7, not \"176,1,2,3\""},
      {"map cutoff 176,200",
       "map wants the bytes of a MIDI message such as 176,7, not \"176,200\""},
      {"unmap nothing", "no parameter \"nothing\""},
      {"pick", "pick wants FILE ..."},
      {"export now", "export takes nothing"},
      {"move 1 1", "no finger is pressed"},
      {"lift", "no finger is pressed"},
      {"receive 64", "receive wants the bytes of a MIDI message such as 176,7,64, not \"64\""},
      {"end", "end is without together"},
      {"together now", "together takes nothing"},
      {"expect cutoff", "expect wants KEY VALUE"},
      {"expect ghost 1", "no parameter \"ghost\""},
      {"expect cutoff high", "expect wants a number, not \"high\""},
  };
  for (const Wrong& each : wrong) EXPECT_EQ(errorOf(each.command), each.error) << each.command;
}

TEST(Drive, LearnModeTakesTapsAndBindingsAreShown) {
  const auto answers = drive(
      "learn on\ntap key:cutoff\nlearn on\nget cutoff\nmap cutoff 176,7\nget cutoff\n"
      "learn off\nmidi cutoff 127\nget cutoff\nunmap cutoff\nget cutoff\n"
      "map mix 144,60\nunmapall\nget mix\n");
  ASSERT_EQ(answers.size(), 14u);
  for (const json& answer : answers) EXPECT_EQ(answer.at("ok"), true) << answer;
  EXPECT_EQ(answers[0]["key"], nullptr);
  EXPECT_EQ(answers[2]["key"], "cutoff");
  EXPECT_EQ(answers[3]["value"], 1000) << "a tap in learn mode moves nothing";
  EXPECT_EQ(answers[5]["midi"], json::array({176, 7}));
  EXPECT_EQ(answers[8]["value"], 20000);
  EXPECT_EQ(answers[10]["midi"], nullptr);
  EXPECT_EQ(answers[13]["midi"], nullptr);
}

TEST(Drive, AHandleKeepsWhatTheHostAutomatesBesideItInTheSameTurn) {
  for (const std::string type :
       {"adsr", "multiple", "stepSequencer", "xyControl", "doubleSlider", "simpleCurve"}) {
    SCOPED_TRACE(type);
    const support::TemporaryFile file(R"({"parameters": [
        {"key": "a", "default": 0.3, "attached": ["b", "c", "d"], "control": ")" +
                                      type + R"("},
        {"key": "b", "default": 0.6}, {"key": "c", "default": 0.6}, {"key": "d", "default": 0.6}],
      "pages": [{"sections": [{"columns": [{"slots": [{"param": "a"}]}]}]}]})");
    const auto answers = drive(
        "press key:a\nmove 6 -6\ntogether\nmove 6 -6\nset b 0.9\nset d 0.1\nget d\nmove 6 -6\n"
        "frames\nend\nlift\nget a\nget b\nget c\nget d\nexpect d 0.1\nexpect b 0.9\n",
        file.path());
    EXPECT_EQ(answers[6]["value"], 0.1);
    EXPECT_NE(answers[6]["position"], 0.1) << "not delivered yet";
    EXPECT_NE(answers[11]["value"], 0.3);
    for (std::size_t i = 11; i < 15; ++i) EXPECT_EQ(answers[i]["position"], answers[i]["value"]);
    EXPECT_EQ(answers[15]["ok"], true);
    EXPECT_TRUE(answers[16]["ok"] == true || type == "xyControl") << "a pad's finger moves both";
  }
}

TEST(Drive, APresetThatIsLoadedWhileAKnobIsHeldIsShownAndTheFingerMovesOnlyItsOwn) {
  const std::string held = "press key:cutoff\nmove 0 -20\ntogether\npreset Bright\n";
  const auto loaded = drive(held + "end\nget cutoff\nlift\nmove 1 1\npress Knob");
  EXPECT_EQ(loaded[5]["position"], last("preset Bright\nget cutoff")["position"]);
  EXPECT_EQ(loaded[7]["ok"], false) << "lifted";
  EXPECT_EQ(loaded[8]["ok"], true) << "and pressed again";

  const auto moved = drive(held + "move 0 -2\nend\nlift\nexpect mode 2\nget cutoff");
  EXPECT_EQ(moved[7]["ok"], true);
  EXPECT_NE(moved[8]["value"], 8000) << "the finger came after the preset";
  const std::string value = moved[8]["value"].dump();
  EXPECT_EQ(moved[8]["position"], last("set cutoff " + value + "\nget cutoff")["position"]);
}

TEST(Drive, KeysMoveAControlBothWaysAndABindingIsLetGoAlone) {
  const auto answers = drive(
      "tap key:cutoff\nkey pageup\nget cutoff\nkey pagedown\nkey pagedown\nget cutoff\n"
      "map cutoff 176,7\nmap mix 176,8\nunmap cutoff\nget cutoff\nget mix");
  EXPECT_GT(answers[2]["value"], 1000);
  EXPECT_LT(answers[5]["value"], 1000);
  EXPECT_EQ(answers[9]["midi"], nullptr);
  EXPECT_EQ(answers[10]["midi"], (json{176, 8}));
}

TEST(Drive, AMessageAtOnceWithTheTapOfLearnModeBindsTheControl) {
  const auto answers = drive(
      "learn on\ntogether\ntap key:cutoff\nreceive 176,7,1\nget cutoff\nend\nget cutoff\n"
      "learn off\nreceive 176,7,127\nget cutoff\nreceive 176,8,127");
  EXPECT_EQ(answers[4]["midi"], nullptr);
  EXPECT_EQ(answers[6]["midi"], (json{176, 7}));
  EXPECT_EQ(answers[6]["value"], 1000) << "the message that binds moves nothing";
  EXPECT_EQ(answers[8]["used"], true);
  EXPECT_EQ(answers[9]["value"], 20000);
  EXPECT_EQ(answers[10]["used"], false);
}

TEST(Drive, SizesPagesAndLivesOfOneTurnEndAsOneByOne) {
  const std::string steps =
      "size 500 400\npage 1\nset rate 7\ndisappear\nsize 800 600\nappear\nmidi depth 0\n";
  const std::string result = "page 0\npage 1\nwait 1\ntree\nget rate";
  const auto one = drive(steps + result);
  const auto atOnce = drive("together\n" + steps + "tree\nend\n" + result);
  EXPECT_TRUE(atOnce[8]["tree"] != one[10]["tree"]);
  EXPECT_TRUE(atOnce[13]["tree"] == one[10]["tree"]);
  EXPECT_EQ(atOnce[14], one[11]);
}

TEST(Drive, ATurnThatIsWrittenWronglySaysHow) {
  const std::pair<const char*, const char*> wrong[] = {
      {"together", "together is within together: a turn holds no other turn"},
      {"wait 1", "the clock stands still within together: wait comes after end"},
      {"snapshot /nowhere/a.png", "nothing is painted within together: snapshot comes after end"},
      {"page 1\ntap key:rate", "\"rate\" has no size yet"},
      {"press Knob\npress Knob", "a finger is pressed already"},
  };
  for (const auto& [command, error] : wrong) {
    const auto answers = drive(std::string("together\n") + command + "\nend\nend");
    EXPECT_EQ(answers.at(answers.size() - 3).value("error", ""), error) << command;
    EXPECT_EQ(answers.at(answers.size() - 2)["ok"], true) << "the turn goes on";
    EXPECT_EQ(answers.back()["ok"], false);
  }
  const auto open = drive("together\nset cutoff 5");
  ASSERT_EQ(open.size(), 3u);
  EXPECT_EQ(open[2]["error"], "the script ends within together: end is missing");
}

TEST(Drive, ExpectationsHoldToATenThousandthAndTellBothValues) {
  EXPECT_EQ(last("set cutoff 1000.09\nexpect cutoff 1000\nset gain 0\nexpect gain 0\n"
                 "set gain -6\nexpect gain -6.0001")["ok"],
            true);
  const auto answers = drive("share\nset cutoff 1000.2\nexpect cutoff 1000");
  EXPECT_EQ(answers[2], (json{{"ok", false},
                              {"error", "\"cutoff\" is 1000.2, not 1000"},
                              {"value", 1000.2},
                              {"expected", 1000}}));
}

TEST(Drive, AStrictScriptFailsAtItsEndWhenACommandDid) {
  const auto strict = [](const std::string& script) {
    return runTool({"drive", dataFile("example.json"), "--strict"}, script);
  };
  EXPECT_EQ(strict("set gain 1\nexpect gain 1").code, 0);
  for (const char* last : {"fly", "expect gain 2", "together"}) {
    const ToolResult result = strict("set gain 1\n\n" + std::string(last) + "\nset gain 3");
    EXPECT_EQ(result.code, 1) << last;
    EXPECT_TRUE(isOneLine(result.err)) << result.err;
    EXPECT_THAT(result.err, HasSubstr("orvane drive: line "));
    EXPECT_GE(linesOf(result.out).size(), 3u) << "the script runs to its end";
  }
  EXPECT_THAT(runTool({"drive", "halden", "--strict=yes"}).err,
              HasSubstr("--strict takes no value"));
  EXPECT_THAT(strict("\nfly\nsink").err, HasSubstr("line 2: unknown command \"fly\""));
}

TEST(Drive, TheTreeTellsTextAndPlaceholderOfATextField) {
  // The fields in the tree's order: of the browser's search, of a preset's name, of a value.
  std::vector<json> fields;
  const std::function<void(const json&)> visit = [&](const json& node) {
    if (node["class"] == "TextField") fields.push_back(node);
    for (const json& child : node["children"]) visit(child);
  };
  visit(last("doubletap key:cutoff\ntype 1\nkey space\nkey 2\ntree")["tree"]);
  ASSERT_EQ(fields.size(), 3u);
  EXPECT_EQ(fields[0]["text"], "");
  EXPECT_EQ(fields[0]["placeholder"], "SEARCH ...");
  EXPECT_EQ(fields[2]["text"], "1 2");
  EXPECT_FALSE(fields[1].contains("placeholder")) << "it has none";
}

TEST(Drive, TheSameScriptGivesTheSameBytes) {
  const std::string script =
      "wait 0.35\ntogether\nset cutoff 9000\ndrag key:cutoff 7 -31\nnext\nend\ntap "
      "DiceButton\nsize 700 500\nwait 0.5\nframes\n"
      "page 3\ntree\nstate\nnext\nframes\nget cutoff\nget attack\n";
  const auto run = [&] { return runTool({"drive", dataFile("all-kinds.json")}, script).out; };
  EXPECT_EQ(run(), run());
}

TEST(Drive, EveryKindOfControlIsFoundDraggedAndTapped) {
  std::ostringstream script;
  script << "wait 0.2\n";
  const json tree = json::parse(runTool({"tree", dataFile("all-kinds.json")}).out);
  for (int page = 0; page < 6; ++page) {
    script << "page " << page << '\n';
    for (const char* key :
         {"level",      "cutoff",     "octave", "power",         "drive",       "bias",
          "spread",     "lock",       "mode",   "wave",          "algorithm",   "targets",
          "shape",      "scope",      "scopes", "table",         "grain",       "sample",
          "filterFreq", "lowFreq",    "attack", "release",       "padX",        "stopX",
          "curve1",     "step5",      "bend1",  "compThreshold", "duoLow",      "bandLow",
          "threeLow",   "bendyDrive", "mapA",   "phaseRate",     "zorvaAmount", "gain"})
      script << "tap key:" << key << "\nkey escape\ndrag key:" << key << " 9 -14\nwheel key:" << key
             << " -1\ndoubletap key:" << key << "\nkey escape\nget " << key << '\n';
  }
  int found = 0;
  for (const json& answer : drive(script.str(), "all-kinds.json")) {
    if (answer["ok"] == true) ++found;
    // A control of another page is the only thing that may be wrong.
    else
      EXPECT_THAT(answer["error"].get<std::string>(), HasSubstr("is not on the shown page"));
  }
  EXPECT_GT(found, 36 * 6);
}

}  // namespace
