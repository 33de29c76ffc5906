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
