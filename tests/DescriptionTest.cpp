// Descriptions: what is read from them, and that everything that is wrong is told with its place.

#include <gmock/gmock.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <ostream>

#include "Orvane/KestroAUViewController.h"
#include "tests/support/RunTool.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/orvane/DescriptionReader.h"
#include "tools/orvane/Plugin.h"

namespace {

using nlohmann::json;
using support::dataFile;
using support::isOneLine;
using support::linesOf;
using support::runTool;
using support::TemporaryFile;
using support::ToolResult;
using testing::Contains;
using testing::ElementsAre;

json example() {
  std::ifstream file(dataFile("example.json"));
  return json::parse(file);
}

std::vector<std::string> problemsOf(const std::string& text) {
  const TemporaryFile file(text);
  const ToolResult result = runTool({"check", file.path()});
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.code, 1) << result.out;
  std::vector<std::string> problems;
  for (const std::string& line : linesOf(result.out)) {
    EXPECT_TRUE(line.starts_with(file.path() + ": ")) << line;
    problems.push_back(line.substr(std::min(line.size(), file.path().size() + 2)));
  }
  return problems;
}

struct Mistake {
  const char* name;
  /// Where in example.json, as a JSON pointer, and what stands there instead.
  const char* pointer;
  const char* value;
  const char* problem;
};

void PrintTo(const Mistake& mistake, std::ostream* stream) { *stream << mistake.name; }

class DescriptionMistakes : public testing::TestWithParam<Mistake> {};

TEST_P(DescriptionMistakes, AreToldWithTheirPlace) {
  json description = example();
  description[json::json_pointer(GetParam().pointer)] = json::parse(GetParam().value);
  EXPECT_THAT(problemsOf(description.dump()), Contains(GetParam().problem));

  // Every other command stops with the first one.
  const TemporaryFile file(description.dump());
  const ToolResult tree = runTool({"tree", file.path()});
  EXPECT_EQ(tree.code, 1);
  EXPECT_EQ(tree.out, "");
  EXPECT_TRUE(isOneLine(tree.err)) << tree.err;
  EXPECT_TRUE(tree.err.starts_with(file.path() + ": ")) << tree.err;
}

constexpr const char* slot = "/pages/0/sections/0/columns/0/slots/1";
constexpr const char* section = "/pages/0/sections/0";

const Mistake mistakes[] = {
    {"UnknownField", "/colour", "1", "colour: unknown field"},
    {"UnknownFieldInASlot", "/pages/0/sections/0/columns/0/slots/1/height", "1",
     "pages[0].sections[0].columns[0].slots[1].height: unknown field"},
    {"TextForANumber", "/contentRatio", "\"wide\"", "contentRatio: must be a number, not a text"},
    {"ContentRatioOfZero", "/contentRatio", "0", "contentRatio: must be in [0.05, 20], not 0"},
    {"FootAsHighAsTheEditor", "/footHeightRatio", "1",
     "footHeightRatio: must be in [0, 0.9], not 1"},
    {"EmptyName", "/name", "\"\"", "name: must not be empty"},
    {"NumberForAName", "/name", "3", "name: must be a text, not a number"},
    {"NumberForAFlag", "/allowImportAndExport", "1",
     "allowImportAndExport: must be true or false, not a number"},
    {"NumberForACategory", "/categories/1", "7", "categories[1]: must be a text, not a number"},
    {"FootOfAnUnknownKey", "/foot/0", "\"volume\"", "foot[0]: no parameter \"volume\""},
    {"FootTwice", "/foot/1", "\"gain\"",
     "foot[1]: \"gain\" has its place in foot[0] already, and a control is in one place at a time"},
    {"ParametersNoList", "/parameters", "{}", "parameters: must be a list, not an object"},
    {"ParameterNoObject", "/parameters/1", "5", "parameters[1]: must be an object, not a number"},
    {"KeyMissing", "/parameters/1", "{\"address\":8}", "parameters[1].key: is missing"},
    {"KeyEmpty", "/parameters/1/key", "\"\"", "parameters[1].key: must not be empty"},
    {"KeyTwice", "/parameters/1/key", "\"cutoff\"",
     "parameters[1].key: \"cutoff\" is the key of parameters[0] already"},
    {"AddressTwice", "/parameters/1/address", "7",
     "parameters[1].address: 7 is the address of parameters[0] already"},
    {"AddressNegative", "/parameters/1/address", "-1",
     "parameters[1].address: must be in [0, 9007199254740992], not -1"},
    {"AddressOfAHalf", "/parameters/1/address", "1.5",
     "parameters[1].address: must be a whole number, not 1.5"},
    {"MinAboveMax", "/parameters/0/min", "30000",
     "parameters[0].max: must be above min, 30000, not 20000"},
    {"EmptyRange", "/parameters/0/max", "20", "parameters[0].max: must be above min, 20, not 20"},
    {"DefaultOutOfRange", "/parameters/0/default", "10",
     "parameters[0].default: must be in [20, 20000], not 10"},
    {"RangeBeyondFloats", "/parameters/0/max", "1e300",
     "parameters[0].max: must be in [-1e+30, 1e+30], not 1e+300"},
    {"UnknownUnit", "/parameters/0/unit", "\"furlongs\"",
     "parameters[0].unit: no unit \"furlongs\""},
    {"UnknownControl", "/parameters/0/control", "\"wheel\"",
     "parameters[0].control: no control \"wheel\""},
    {"UnknownFlag", "/parameters/0/flags/0", "\"shiny\"",
     "parameters[0].flags[0]: no flag \"shiny\""},
    {"TooFewStrings", "/parameters/2/strings", "[\"Low\",\"High\"]",
     "parameters[2].strings: must be one for each of the 3 values from min to max, not 2"},
    {"BadColour", "/parameters/0/controlColor", "\"orange\"",
     "parameters[0].controlColor: must be a colour such as \"#3aa0ff\", not \"orange\""},
    {"BadColourInAList", "/parameters/0/colors/0", "\"#12\"",
     "parameters[0].colors[0]: must be a colour such as \"#3aa0ff\", not \"#12\""},
    {"AttachedUnknown", "/parameters/0/attached", "[\"ghost\"]",
     "parameters[0].attached[0]: no parameter \"ghost\""},
    {"AttachedToItself", "/parameters/0/attached", "[\"cutoff\"]",
     "parameters[0].attached[0]: \"cutoff\" belongs to this control already"},
    {"LinkNoBoolean", "/parameters/0/links/0", "0",
     "parameters[0].links[0]: must be true or false, not a number"},
    {"NoPages", "/pages", "[]", "pages: must hold a page"},
    {"EmptyPage", "/pages/1/sections", "[]", "pages[1].sections: must hold a section"},
    {"SectionColour", "/pages/0/sections/0/color", "\"#zzzzzz\"",
     "pages[0].sections[0].color: must be a colour such as \"#3aa0ff\", not \"#zzzzzz\""},
    {"WeightZero", "/pages/0/sections/0/horizontalWeight", "0",
     "pages[0].sections[0].horizontalWeight: must be above 0, not 0"},
    {"WeightNegative", "/pages/0/sections/0/verticalWeight", "-2",
     "pages[0].sections[0].verticalWeight: must be above 0, not -2"},
    {"WeightBeyondSense", "/pages/0/sections/0/columns/0/weight", "1e200",
     "pages[0].sections[0].columns[0].weight: must be in [1e-06, 1e+06], not 1e+200"},
    {"FirstRowNotZero", "/pages/0/sections/0/row", "1",
     "pages[0].sections[0].row: must be 0 for the first section, not 1"},
    {"ColumnOffsetOutside", "/pages/0/sections/1",
     R"({"name":"Below","row":1,"columnOffset":1,"columns":[]})",
     "pages[0].sections[1].columnOffset: must name a section of the row above, which has 1, "
     "counted from 0, not 1"},
    {"ColumnOffsetNegative", "/pages/0/sections/1",
     R"({"name":"Below","row":1,"columnOffset":-1,"columns":[]})",
     "pages[0].sections[1].columnOffset: must name a section of the row above, which has 1, "
     "counted from 0, not -1"},
    {"SectionNameTwice", "/pages/0/sections/1", R"({"name":"Filter","columns":[]})",
     "pages[0].sections[1].name: \"Filter\" is the name of pages[0].sections[0] already, and a "
     "page shows only one section of each name"},
    {"StateUnknown", "/pages/0/sections/0/state", "\"on\"",
     "pages[0].sections[0].state: no parameter \"on\""},
    {"FeedbackUnknown", "/pages/0/sections/0/feedback", "\"meter\"",
     "pages[0].sections[0].feedback: no parameter \"meter\""},
    {"ColumnsWithoutSlots", "/pages/0/sections/0/columns", R"([{"slots":[]},{}])",
     "pages[0].sections[0].columns: must hold a slot"},
    {"SlotUnknown", "/pages/0/sections/0/columns/0/slots/1/param", "\"x\"",
     "pages[0].sections[0].columns[0].slots[1].param: no parameter \"x\""},
    {"SlotMissing", slot, "{}", "pages[0].sections[0].columns[0].slots[1].param: is missing"},
    {"SlotTwice", "/pages/0/sections/0/columns/0/slots/1/param", "\"cutoff\"",
     "pages[0].sections[0].columns[0].slots[1].param: \"cutoff\" has its place in "
     "pages[0].sections[0].columns[0].slots[0].param already, and a control is in one place at a "
     "time"},
    {"SlotInTheFootToo", "/pages/0/sections/0/columns/0/slots/1/param", "\"mix\"",
     "pages[0].sections[0].columns[0].slots[1].param: \"mix\" has its place in foot[2] already, "
     "and "
     "a control is in one place at a time"},
    {"SiblingUnknown", "/pages/0/sections/0/columns/0/slots/1/siblings", "[null,\"y\"]",
     "pages[0].sections[0].columns[0].slots[1].siblings[1]: no parameter \"y\""},
    {"SlotAboveItsSection", "/pages/0/sections/0/columns/0/slots/0/offset", "-1",
     "pages[0].sections[0].columns[0].slots[0].offset: moves the slot above its section"},
    {"SectionNoObject", section, "[]", "pages[0].sections[0]: must be an object, not a list"},
    {"PresetNameMissing", "/factoryPresets/0", "{}", "factoryPresets[0].name: is missing"},
    {"PresetNumberTwice", "/factoryPresets/1/number", "0",
     "factoryPresets[1].number: 0 is the number of factoryPresets[0] already"},
    {"PresetOfAnUnknownKey", "/factoryPresets/0/values/ghost", "1",
     "factoryPresets[0].values.ghost: no parameter \"ghost\""},
    {"PresetOutOfRange", "/factoryPresets/0/values/cutoff", "1",
     "factoryPresets[0].values.cutoff: must be in [20, 20000], not 1"},
    {"PresetValueNoNumber", "/factoryPresets/0/values/cutoff", "true",
     "factoryPresets[0].values.cutoff: must be a number, not true or false"},
};

INSTANTIATE_TEST_SUITE_P(All, DescriptionMistakes, testing::ValuesIn(mistakes),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Description, AllProblemsAreTold) {
  json description = example();
  description["contentRatio"] = "wide";
  description["parameters"][0]["unit"] = "furlongs";
  description["pages"][1]["sections"][0]["columns"][0]["slots"][0]["param"] = "ghost";
  EXPECT_THAT(
      problemsOf(description.dump()),
      ElementsAre("contentRatio: must be a number, not a text",
                  "parameters[0].unit: no unit \"furlongs\"",
                  "pages[1].sections[0].columns[0].slots[0].param: no parameter \"ghost\""));
}

TEST(Description, AMemberThatIsGivenTwiceIsToldAtEachLevel) {
  EXPECT_THAT(problemsOf(R"({"name": "A", "name": "B",
      "parameters": [{"key": "a"}, {"key": "b", "min": 0, "min": {"x": 1, "x": {"y": []}}}],
      "pages": [{"sections": [{"columns": [{"slots": [{"param": "a"}]}]}]}]})"),
              ElementsAre("name: this member is given twice",
                          "parameters[1].min: this member is given twice",
                          "parameters[1].min.x: this member is given twice"));
}

TEST(Description, EveryFieldIsTakenAsItStands) {
  const TemporaryFile file(R"({
    "name": "N", "version": "2", "build": "3", "productId": "p", "presetExtension": "e",
    "contentRatio": 2, "footHeightRatio": 0.2, "foot": [null, "b"], "categories": ["C"],
    "storeIdentifier": "id7", "displays": ["Sine", "Saw"], "areDisplaysIconWaveforms": true,
    "presetViewUseFilters": true, "allowImportAndExport": true,
    "addresses": {"maker": "M", "helpHost": "1", "reviewPage": "2", "allApps": "3", "feedback": "4",
      "website": "5", "facebook": "6", "youtube": "7", "instagram": "8", "twitter": "9"},
    "parameters": [
      {"key": "a", "address": 40, "min": -1, "max": 1, "default": 0.5, "unit": "indexed",
       "flags": ["displayLogarithmic", "nonRealTime"], "strings": ["x", "y", "z"], "name": "A",
       "control": "simpleCurve", "attached": ["b"], "inverted": true, "links": [true, false, true],
       "colors": ["#010203", "#0a0b0c80"], "controlColor": "#ff0000"}, {"key": "b"}, {"key": "c"}],
    "pages": [{"title": "T", "sections": [{"name": "S", "color": "#00ff00"}, {
      "name": "R", "row": 4, "horizontalWeight": 2, "verticalWeight": 3, "columnOffset": 0,
      "fillNameSpace": true, "displayGradient": false, "state": "b", "feedback": "a",
      "columns": [{"weight": 5, "slots": [
        {"param": "a", "weight": 6, "offset": 7, "widthRatio": 8, "siblings": [null]},
        {"param": "c", "offset": -13}]}]}]}],
    "factoryPresets": [{"name": "F", "number": 9, "bank": "B", "categories": ["c"], "pack": "K",
      "values": {"a": 1}}]})");
  tool::Problems problems;
  const tool::DescribedPlugin read =
      tool::readDescription(support::textOf(file.path()), "other", problems);
  ASSERT_TRUE(problems.empty()) << problems.front().text;
  const std::string texts[] = {read.name,      read.version,         read.build,
                               read.productId, read.presetExtension, read.storeIdentifier};
  EXPECT_THAT(texts, ElementsAre("N", "2", "3", "p", "e", "id7"));
  EXPECT_EQ(read.contentRatio + read.footHeightRatio, 2.2);
  EXPECT_THAT(read.foot, ElementsAre(std::nullopt, "b"));
  EXPECT_THAT(read.displays, ElementsAre("Sine", "Saw"));
  EXPECT_TRUE(read.areDisplaysIconWaveforms && read.presetViewUseFilters &&
              read.allowImportAndExport);
  const orvane::MakerAddresses& at = read.addresses;
  EXPECT_EQ(at.maker + at.helpHost + at.reviewPage + at.allApps + at.feedback, "M1234");
  EXPECT_EQ(at.website + at.facebook + at.youtube + at.instagram + at.twitter, "56789");

  const auto& [audio, settings] = read.parameters.at(0);
  EXPECT_EQ(audio.address, 40u);
  EXPECT_EQ(audio.minValue, -1);
  EXPECT_EQ(audio.defaultValue, 0.5f);
  EXPECT_EQ(audio.unit, platform::AudioUnitParameterUnit::indexed);
  namespace Flags = platform::AudioUnitParameterFlags;
  EXPECT_EQ(audio.flags,
            Flags::readable | Flags::writable | Flags::displayLogarithmic | Flags::nonRealTime);
  EXPECT_THAT(audio.valueStrings, ElementsAre("x", "y", "z"));
  EXPECT_EQ(settings.displayName, "A");
  EXPECT_THAT(settings.attachedParameters, ElementsAre("b"));
  EXPECT_TRUE(settings.inverted);
  EXPECT_THAT(settings.links, ElementsAre(true, false, true));
  EXPECT_THAT(settings.colors,
              ElementsAre(platform::Color::rgb(0x010203), *platform::Color::parse("#0a0b0c80")));
  EXPECT_EQ(settings.controlColor, platform::Color::rgb(0xff0000));

  const orvane::UISection& placed = read.pages.at(0).sections.at(1);
  const double places[] = {placed.horizontalWeightInPage, placed.verticalWeightInPage,
                           static_cast<double>(placed.rowIndex),
                           placed.section->stack[0].horizontalWeightInSection};
  EXPECT_THAT(places, ElementsAre(2, 3, 4, 5));
  EXPECT_TRUE(placed.section->fillNameSpace && !placed.section->displayGradient);
  EXPECT_EQ(*placed.section->stateParameter + *placed.section->feedbackParameter, "ba");
  EXPECT_EQ(read.pages[0].sections[0].section->color, platform::Color::rgb(0x00ff00));
  const orvane::UIParameter& slot = placed.section->stack[0].params[0];
  const double shares[] = {slot.verticalWeightInColumn, slot.verticalOffsetInColumn,
                           slot.widthRatio};
  EXPECT_THAT(shares, ElementsAre(6, 7, 8));
  EXPECT_THAT(slot.siblings, ElementsAre(std::nullopt));
  const auto& [preset, values] = read.factoryPresets.at(0);
  EXPECT_EQ(preset.number, 9);
  EXPECT_EQ(preset.name + preset.bank + preset.pack + preset.categories[0], "FBKc");
  EXPECT_EQ(values.at("a"), 1);
}

TEST(Description, ItsPluginHasTheSizeAndTheGroupThatItSays) {
  for (const auto& [ratio, size] :
       {std::pair("0.5", platform::Size{1024, 512}), std::pair("2", platform::Size{512, 1024})}) {
    const TemporaryFile file(std::string(R"({"name": "\u00dcber 9", "contentRatio": )") + ratio +
                             R"(, "pages": [{"sections": [{}]}]})");
    const tool::Plugin plugin = tool::loadPlugin(file.path());
    EXPECT_EQ(plugin.entry.preferredSize, size);
    EXPECT_EQ(plugin.entry.createViewController()->groupBundleId(), "group.ber9");
  }
}

TEST(Description, BracketsInATextAreNoNestingAndAFootHasAHeightOfItsOwn) {
  tool::Problems problems;
  const std::string name = "\"" + std::string(100, '[');
  const json description = {{"name", name},
                            {"foot", {"a"}},
                            {"parameters", {{{"key", "a"}}}},
                            {"pages", {{{"sections", {{{"name", "S"}}}}}}}};
  const tool::DescribedPlugin read = tool::readDescription(description.dump(), "", problems);
  ASSERT_TRUE(problems.empty()) << problems.front().text;
  EXPECT_EQ(read.name, name);
  EXPECT_EQ(read.footHeightRatio, 0.1);
}

TEST(Description, NearlyEverythingMayBeLeftOut) {
  const TemporaryFile file(
      R"({"parameters": [{"key": "a"}],
          "pages": [{"sections": [{"columns": [{"slots": [{"param": "a"}]}]}]}]})");
  const ToolResult result = runTool({"check", file.path(), "--size", "400x300"});
  EXPECT_EQ(result.code, 0) << result.out << result.err;
  EXPECT_TRUE(isOneLine(result.out));
}

struct Nonsense {
  const char* name;
  std::string text;
  const char* problem;
};

void PrintTo(const Nonsense& nonsense, std::ostream* stream) { *stream << nonsense.name; }

class DescriptionSyntax : public testing::TestWithParam<Nonsense> {};

TEST_P(DescriptionSyntax, EndsInOneLineThatNamesTheFileAndThePlace) {
  EXPECT_THAT(problemsOf(GetParam().text), ElementsAre(GetParam().problem));
}

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

const Nonsense nonsense[] = {
    {"Empty", "", "line 1, column 1: the file ends in the middle of a value"},
    {"Blank", " \n ", "line 2, column 2: the file ends in the middle of a value"},
    {"Unfinished", "{\"name\": \"A\",\n \"version\"",
     "line 2, column 11: the file ends in the middle of a value"},
    {"NoJson", "{\n  \"name\": oops\n}", "line 2, column 11: unexpected o"},
    {"AfterTheEnd", "{}\n{}", "line 2, column 1: unexpected {"},
    {"AfterWideCharacters", "{\"\xC3\xA4\xC3\xB6\": ?}", "line 1, column 8: unexpected ?"},
    {"NoUtf8", "{\"name\": \"\xFF\"}", "line 1, column 11: unexpected byte 0xFF"},
    {"Zero", std::string("\0\0", 2), "line 1, column 1: unexpected byte 0x00"},
    {"HugeNumber", "{\"a\": 1e999}", "line 1, column 11: this number is too large"},
    {"Deep", repeated("[", 100000), "line 1, column 65: nested too deeply"},
    {"DeepObjects", repeated("{\"a\":", 100000), "line 1, column 321: nested too deeply"},
    {"TenMegabytesOfBytes", repeated("\x93", 10000000), "line 1, column 1: unexpected byte 0x93"},
    {"TenMegabytesOfDigits", repeated("1", 10000000),
     "line 1, column 10000000: this number is too large"},
    {"OnlyAList", "[]", "must be an object, not a list"},
    {"OnlyNull", "null", "must be an object, not null"},
    {"TooManyParameters",
     "{\"pages\":[{\"sections\":[{}]}],\"parameters\":[" + repeated("0,", 2000000) + "0]}",
     "parameters: must hold at most 20000 entries, not 2000001"},
    {"ALongList", "[" + repeated("0,", 2000000) + "0]", "must be an object, not a list"},
};

INSTANTIATE_TEST_SUITE_P(All, DescriptionSyntax, testing::ValuesIn(nonsense),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Description, AMessageStaysOnOneLineWhateverTheNamesHold) {
  json description = example();
  description["foot"][0] = "a\nb\x01" + repeated("x", 100000);
  description["evil\nfield"] = 1;
  const auto problems = problemsOf(description.dump());
  ASSERT_EQ(problems.size(), 2u);
  EXPECT_EQ(problems[0], "evil field: unknown field");
  EXPECT_LT(problems[1].size(), 200u);
}

}  // namespace
