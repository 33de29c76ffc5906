#include "tools/orvane/DescriptionReader.h"

#include <cctype>

#include "tools/orvane/DesignCheck.h"
#include "tools/orvane/JsonDocument.h"
#include "tools/orvane/ObjectReader.h"
#include "tools/orvane/PageReader.h"
#include "tools/orvane/ParameterReader.h"
#include "tools/orvane/PresetReader.h"
#include "tools/orvane/Text.h"

namespace tool {

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
  result.presetViewUseFilters = plugin.boolean("presetViewUseFilters", false);
  result.allowImportAndExport = plugin.boolean("allowImportAndExport", false);
  result.pages = PageReader(problems).read(plugin);
  result.factoryPresets = readPresets(plugin, problems, result.parameters, index);
  plugin.finish();
  DesignCheck(
      problems, [&](const std::string& key) { return index.contains(key); }, result.foot)
      .check(result.pages);
  return result;
}

}  // namespace tool
