#include "examples/Halden/HaldenPresets.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <string>

#include "examples/Halden/HaldenParameters.h"
#include "examples/Halden/presets/Banks.h"

namespace halden {
namespace {

using quillon::ParameterDescription;
using quillon::PresetDescription;

std::string_view trimmed(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  text.remove_prefix(first);
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Takes what stands before `separator`, and the separator, off the front of `text`.
std::string_view take(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view piece = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return piece;
}

[[noreturn]] void refuse(const PresetDescription& preset, std::string_view entry,
                         const char* reason) {
  throw std::invalid_argument("preset '" + preset.preset.name + "': '" + std::string(entry) + "' " +
                              reason);
}

/// None for a text that is no value of the parameter.
std::optional<float> valueOf(const ParameterDescription& parameter, std::string_view text) {
  if (parameter.unit == platform::AudioUnitParameterUnit::boolean) {
    if (text == "On") return 1.0f;
    return text == "Off" ? std::optional(0.0f) : std::nullopt;
  }
  const auto& names = parameter.valueStrings;
  if (!names.empty()) {
    const auto name = std::find(names.begin(), names.end(), text);
    if (name == names.end()) return std::nullopt;
    return parameter.minValue + static_cast<float>(name - names.begin());
  }
  float value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value >= parameter.minValue && value <= parameter.maxValue ? std::optional(value)
                                                                    : std::nullopt;
}

void readValue(std::string_view entry, PresetDescription& preset) {
  static const std::vector<ParameterDescription> parameters = parameterDescriptions();
  std::string_view rest = entry;
  const std::string_view key = take(rest, ' ');
  const auto parameter =
      std::find_if(parameters.begin(), parameters.end(),
                   [key](const ParameterDescription& known) { return known.key == key; });
  if (parameter == parameters.end()) refuse(preset, entry, "is of no known parameter");
  const std::optional<float> value = valueOf(*parameter, trimmed(rest));
  if (!value) refuse(preset, entry, "is no value of its parameter");
  if (!preset.values.emplace(key, *value).second) refuse(preset, entry, "is the second of its key");
}

}  // namespace

void readBank(std::string_view bank, std::string_view text,
              std::vector<PresetDescription>& presets) {
  while (!text.empty()) {
    std::string_view line = take(text, '\n');
    if (line.empty()) continue;
    if (line.front() != ' ') {
      PresetDescription& preset = presets.emplace_back();
      preset.preset.number = static_cast<int>(presets.size()) - 1;
      preset.preset.name = trimmed(take(line, ':'));
      preset.preset.bank = bank;
      for (line = trimmed(line); !line.empty(); line = trimmed(line))
        preset.preset.categories.emplace_back(take(line, ' '));
      continue;
    }
    if (presets.empty()) throw std::invalid_argument("a bank begins with values of no preset");
    while (!line.empty()) {
      const std::string_view entry = trimmed(take(line, ','));
      if (!entry.empty()) readValue(entry, presets.back());
    }
  }
}

const std::vector<PresetDescription>& presetDescriptions() {
  static const std::vector<PresetDescription> presets = [] {
    std::vector<PresetDescription> all;
    readBank("COAST", coastBank, all);
    readBank("HARBOUR", harbourBank, all);
    readBank("INLAND", inlandBank, all);
    readBank("CURRENT", currentBank, all);
    return all;
  }();
  return presets;
}

}  // namespace halden
