#include "tools/orvane/PresetReader.h"

#include <map>
#include <string>
#include <utility>

#include "tools/orvane/JsonDocument.h"
#include "tools/orvane/Text.h"

namespace tool {

namespace {

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

}  // namespace

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

}  // namespace tool
