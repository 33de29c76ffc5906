#include "tools/orvane/DescriptionReader.h"

#include <cctype>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "KestroUI/Theme.h"
#include "Quillon/CommonAudioUnit.h"
#include "tools/orvane/DescribedPlugin.h"
#include "tools/orvane/DesignCheck.h"
#include "tools/orvane/JsonDocument.h"
#include "tools/orvane/ObjectReader.h"
#include "tools/orvane/ParameterReader.h"
#include "tools/orvane/Text.h"

namespace tool {

using orvane::UIColumn;
using orvane::UIParameter;
using orvane::UISection;

namespace {

/// Lower-case letters and digits of the name: an identifier where the description gives none.
std::string identifierOf(const std::string& name) {
  std::string identifier;
  for (const char c : name)
    if (const auto byte = static_cast<unsigned char>(c); byte < 0x80 && std::isalnum(byte))
      identifier += static_cast<char>(std::tolower(byte));
  return identifier.empty() ? "plugin" : identifier;
}

/// A text that must not be empty.
std::string readName(ObjectReader& plugin, std::string_view member, const std::string& fallback) {
  std::string name = plugin.text(member, fallback);
  if (!name.empty()) return name;
  plugin.problem(member, "must not be empty");
  return fallback;
}

/// Where a description names no addresses: a domain that is kept free for such, so that every road
/// can be tried and none leads anywhere.
orvane::MakerAddresses addressesToTry() {
  const std::string site = "https://example.invalid";
  orvane::MakerAddresses addresses;
  addresses.helpHost = site;
  addresses.reviewPage = site + "/review?id=";
  addresses.allApps = site + "/apps";
  addresses.feedback = "feedback@example.invalid";
  addresses.website = site;
  addresses.facebook = site + "/facebook";
  addresses.youtube = site + "/youtube";
  addresses.instagram = site + "/instagram";
  addresses.twitter = site + "/twitter";
  return addresses;
}

orvane::MakerAddresses readAddresses(ObjectReader& plugin, Problems& problems) {
  const auto* value = plugin.find("addresses");
  if (!value) return addressesToTry();
  orvane::MakerAddresses result;
  ObjectReader addresses(problems, *value, "addresses");
  result.maker = addresses.text("maker", result.maker);
  result.helpHost = addresses.text("helpHost", "");
  result.reviewPage = addresses.text("reviewPage", "");
  result.allApps = addresses.text("allApps", "");
  result.feedback = addresses.text("feedback", "");
  result.website = addresses.text("website", "");
  result.facebook = addresses.text("facebook", "");
  result.youtube = addresses.text("youtube", "");
  result.instagram = addresses.text("instagram", "");
  result.twitter = addresses.text("twitter", "");
  addresses.finish();
  return result;
}

// Pages

/// A list that must be there and hold something.
void requireEntries(ObjectReader& reader, std::string_view member, const std::string& what) {
  const auto* list = reader.require(member);
  if (list && list->is_array() && list->empty()) reader.problem(member, "must hold a " + what);
}

/// Reads the pages of a description. Whether they name parameters that exist and fit together is
/// for DesignCheck to say.
class PageReader {
 public:
  explicit PageReader(Problems& problems) : problems_(problems) {}

  std::vector<DescribedPage> read(ObjectReader& plugin);

 private:
  using Json = nlohmann::json;

  DescribedPage readPage(const Json& value, const std::string& place);
  orvane::UISection readSection(const Json& value, const std::string& place);
  orvane::UIColumn readColumn(const Json& value, const std::string& place);
  orvane::UIParameter readSlot(const Json& value, const std::string& place);

  Problems& problems_;
};

std::vector<DescribedPage> PageReader::read(ObjectReader& plugin) {
  std::vector<DescribedPage> pages;
  requireEntries(plugin, "pages", "page");
  plugin.list("pages", [&](const Json& page, std::size_t i) {
    pages.push_back(readPage(page, plugin.place("pages", i)));
  });
  return pages;
}

DescribedPage PageReader::readPage(const Json& value, const std::string& place) {
  ObjectReader reader(problems_, value, place);
  DescribedPage page;
  page.title = reader.text("title", "");
  requireEntries(reader, "sections", "section");
  reader.list("sections", [&](const Json& section, std::size_t i) {
    page.sections.push_back(readSection(section, reader.place("sections", i)));
  });
  reader.finish();
  return page;
}

UISection PageReader::readSection(const Json& value, const std::string& place) {
  constexpr double maxRows = 1e6;
  ObjectReader reader(problems_, value, place);
  const std::string name = reader.text("name", "");
  const platform::Color color = reader.color("color").value_or(kestroui::Theme::accent);
  const auto row = reader.whole("row", 0, {-maxRows, maxRows});
  const double width = reader.weight("horizontalWeight", 1);
  const double height = reader.weight("verticalWeight", 1);
  const auto offset = reader.whole("columnOffset", 0, {-maxRows, maxRows});
  const bool fill = reader.boolean("fillNameSpace", false);
  const bool gradient = reader.boolean("displayGradient", true);
  const auto state = reader.optionalText("state");
  const auto feedback = reader.optionalText("feedback");
  std::vector<UIColumn> columns;
  reader.list("columns", [&](const Json& column, std::size_t i) {
    columns.push_back(readColumn(column, reader.place("columns", i)));
  });
  reader.finish();
  return UISection(std::make_shared<orvane::Section>(std::move(columns), name, color, state,
                                                     feedback, fill, gradient),
                   width, row, height, offset);
}

UIColumn PageReader::readColumn(const Json& value, const std::string& place) {
  ObjectReader reader(problems_, value, place);
  UIColumn column;
  column.horizontalWeightInSection = reader.weight("weight", 1);
  reader.list("slots", [&](const Json& slot, std::size_t i) {
    column.params.push_back(readSlot(slot, reader.place("slots", i)));
  });
  reader.finish();
  return column;
}

UIParameter PageReader::readSlot(const Json& value, const std::string& place) {
  constexpr double farthest = 1e6;
  ObjectReader reader(problems_, value, place);
  UIParameter slot;
  slot.param = reader.requiredText("param");
  slot.verticalWeightInColumn = reader.weight("weight", 1);
  slot.verticalOffsetInColumn = reader.number("offset", 0, {-farthest, farthest});
  slot.widthRatio = reader.weight("widthRatio", 1);
  slot.siblings = reader.optionalTexts("siblings");
  reader.finish();
  return slot;
}

// Presets

constexpr double maxPresets = 1e6;

/// "" when the parameter takes the value.
std::string whyNot(const nlohmann::json& value, const quillon::ParameterDescription& parameter) {
  if (!value.is_number()) return "must be a number, not " + std::string(kindOf(value));
  const double number = value.get<double>();
  const double low = shortest(parameter.minValue), high = shortest(parameter.maxValue);
  if (number >= low && number <= high) return {};
  return "must be in " + rangeText(low, high) + ", not " + numberText(number);
}

void readValues(ObjectReader& preset, Problems& problems,
                const std::vector<DescribedParameter>& parameters, const ParameterIndex& index,
                std::map<std::string, float>& values) {
  const nlohmann::json* object = preset.find("values");
  if (!object) return;
  if (!object->is_object()) {
    preset.problem("values", "must be an object, not " + std::string(kindOf(*object)));
    return;
  }
  for (const auto& [key, value] : object->items()) {
    const std::string place = preset.place("values") + '.' + oneLine(key);
    const auto parameter = index.find(key);
    if (parameter == index.end()) {
      problems.push_back({place, "no parameter " + inQuotes(key)});
      continue;
    }
    const std::string wrong = whyNot(value, parameters[parameter->second].audio);
    if (wrong.empty())
      values[key] = value.get<float>();
    else
      problems.push_back({place, wrong});
  }
}

/// Reads the factory presets of a description, whose values must be ones that the parameters take.
std::vector<quillon::PresetDescription> readPresets(
    ObjectReader& plugin, Problems& problems, const std::vector<DescribedParameter>& parameters,
    const ParameterIndex& index) {
  std::vector<quillon::PresetDescription> presets;
  std::map<int, std::string> numbers;
  plugin.list("factoryPresets", [&](const nlohmann::json& entry, std::size_t i) {
    const std::string place = plugin.place("factoryPresets", i);
    ObjectReader reader(problems, entry, place);
    quillon::PresetDescription description;
    platform::AUAudioUnitPreset& preset = description.preset;
    preset.name = reader.requiredText("name");
    preset.number =
        static_cast<int>(reader.whole("number", static_cast<std::int64_t>(i), {0, maxPresets}));
    preset.bank = reader.text("bank", "");
    preset.categories = reader.texts("categories");
    preset.pack = reader.text("pack", "");
    readValues(reader, problems, parameters, index, description.values);
    reader.finish();
    if (const auto [first, isNew] = numbers.emplace(preset.number, place); !isNew)
      reader.problem("number", std::to_string(preset.number) + " is the number of " +
                                   first->second + " already");
    presets.push_back(std::move(description));
  });
  return presets;
}

}  // namespace

DescribedPlugin readDescription(std::string_view text, const std::string& fallbackName,
                                Problems& problems) {
  DescribedPlugin result;
  const nlohmann::json root = parseJson(text, problems);
  if (root.is_null() && !problems.empty()) return result;

  ObjectReader plugin(problems, root, "");
  result.name = readName(plugin, "name", fallbackName);
  result.version = readName(plugin, "version", result.version);
  result.build = readName(plugin, "build", result.build);
  result.productId = readName(plugin, "productId", identifierOf(result.name));
  result.presetExtension = readName(plugin, "presetExtension", identifierOf(result.productId));
  result.contentRatio = plugin.number("contentRatio", result.contentRatio, {0.05, 20});
  ParameterIndex index;
  result.parameters = readParameters(plugin, problems, index);
  result.foot = plugin.optionalTexts("foot");
  result.footHeightRatio =
      plugin.number("footHeightRatio", result.foot.empty() ? 0 : 0.1, {0, 0.9});
  result.categories = plugin.texts("categories");
  result.storeIdentifier = plugin.text("storeIdentifier", "");
  result.addresses = readAddresses(plugin, problems);
  result.displays = plugin.texts("displays");
  result.areDisplaysIconWaveforms = plugin.boolean("areDisplaysIconWaveforms", false);
  result.presetViewUseFilters = plugin.boolean("presetViewUseFilters", false);
  result.allowImportAndExport = plugin.boolean("allowImportAndExport", false);
  result.pages = PageReader(problems).read(plugin);
  result.factoryPresets = readPresets(plugin, problems, result.parameters, index);
  plugin.finish();
  const auto keyProblem = [&](const std::string& key) {
    return index.contains(key) ? std::string() : "no parameter " + inQuotes(key);
  };
  DesignCheck(problems, keyProblem, result.foot).check(result.pages);
  return result;
}

}  // namespace tool
