#include "tools/orvane/ParameterReader.h"

#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <set>
#include <string_view>
#include <utility>

#include "KestroUI/ControlType.h"
#include "platform/AUParameter.h"
#include "tools/orvane/Text.h"

namespace tool {

using platform::AudioUnitParameterUnit;

namespace {

struct UnitName {
  std::string_view name;
  AudioUnitParameterUnit unit;
};

constexpr UnitName units[] = {
    {"generic", AudioUnitParameterUnit::generic},
    {"indexed", AudioUnitParameterUnit::indexed},
    {"boolean", AudioUnitParameterUnit::boolean},
    {"percent", AudioUnitParameterUnit::percent},
    {"seconds", AudioUnitParameterUnit::seconds},
    {"hertz", AudioUnitParameterUnit::hertz},
    {"cents", AudioUnitParameterUnit::cents},
    {"semitones", AudioUnitParameterUnit::relativeSemiTones},
    {"decibels", AudioUnitParameterUnit::decibels},
    {"linearGain", AudioUnitParameterUnit::linearGain},
    {"degrees", AudioUnitParameterUnit::degrees},
    {"pan", AudioUnitParameterUnit::pan},
    {"midi", AudioUnitParameterUnit::midiNoteNumber},
    {"milliseconds", AudioUnitParameterUnit::milliseconds},
    {"ratio", AudioUnitParameterUnit::ratio},
    {"beats", AudioUnitParameterUnit::beats},
    {"bpm", AudioUnitParameterUnit::bpm},
};

struct FlagName {
  std::string_view name;
  std::uint32_t flag;
};

constexpr FlagName flags[] = {
    {"displaySquared", platform::AudioUnitParameterFlags::displaySquared},
    {"displayLogarithmic", platform::AudioUnitParameterFlags::displayLogarithmic},
    {"nonRealTime", platform::AudioUnitParameterFlags::nonRealTime},
    {"wholeValues", platform::AudioUnitParameterFlags::wholeValues},
};

/// Parameters hold floats; beyond this their sums and differences would not be finite.
constexpr double largest = 1e30;
/// Whole numbers up to here are exact in any JSON reader.
constexpr double maxAddress = 9007199254740992.0;

float readFloat(ObjectReader& reader, std::string_view member, double fallback) {
  return static_cast<float>(reader.number(member, fallback, {-largest, largest}));
}

AudioUnitParameterUnit readUnit(ObjectReader& reader) {
  const std::string name = reader.text("unit", "generic");
  for (const UnitName& unit : units)
    if (unit.name == name) return unit.unit;
  reader.problem("unit", "no unit " + inQuotes(name));
  return AudioUnitParameterUnit::generic;
}

std::uint32_t readFlags(ObjectReader& reader) {
  std::uint32_t bits = quillon::ParameterDescription().flags;
  const auto names = reader.texts("flags");
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto* found = std::begin(flags);
    while (found != std::end(flags) && found->name != names[i]) ++found;
    if (found != std::end(flags))
      bits |= found->flag;
    else if (!names[i].empty())
      reader.problem("flags", i, "no flag " + inQuotes(names[i]));
  }
  return bits;
}

kestroui::ControlType readControl(ObjectReader& reader) {
  const std::string name = reader.text("control", "knob");
  if (const auto type = kestroui::controlTypeFromRawValue(name)) return *type;
  reader.problem("control", "no control " + inQuotes(name));
  return kestroui::ControlType::knob;
}

void readRange(ObjectReader& reader, quillon::ParameterDescription& parameter) {
  const float low = readFloat(reader, "min", 0), high = readFloat(reader, "max", 1);
  const float start = readFloat(reader, "default", static_cast<double>(low));
  if (!(low < high)) {
    reader.problem("max", "must be above min, " + numberText(shortest(low)) + ", not " +
                              numberText(shortest(high)));
    return;
  }
  if (start < low || start > high)
    reader.problem("default", "must be in " + rangeText(shortest(low), shortest(high)) + ", not " +
                                  numberText(shortest(start)));
  parameter.minValue = low;
  parameter.maxValue = high;
  parameter.defaultValue = start < low || start > high ? low : start;
}

void checkStrings(ObjectReader& reader, const quillon::ParameterDescription& parameter) {
  if (parameter.valueStrings.empty()) return;
  const double steps = static_cast<double>(parameter.maxValue) - parameter.minValue + 1;
  const auto count = static_cast<double>(parameter.valueStrings.size());
  if (count != steps)
    reader.problem("strings", "must be one for each of the " + numberText(steps) +
                                  " values from min to max, not " + numberText(count));
}

DescribedParameter readParameter(ObjectReader& reader, std::size_t place) {
  DescribedParameter parameter;
  quillon::ParameterDescription& audio = parameter.audio;
  kestroui::ParameterUISettings& settings = parameter.settings;
  audio.key = reader.requiredText("key");
  audio.address = static_cast<platform::AUParameterAddress>(
      reader.whole("address", static_cast<std::int64_t>(place), {0, maxAddress}));
  readRange(reader, audio);
  audio.unit = readUnit(reader);
  audio.flags = readFlags(reader);
  audio.valueStrings = reader.texts("strings");
  checkStrings(reader, audio);
  audio.displayName = reader.text("name", audio.key);
  audio.publishesLive = true;
  settings.displayName = audio.displayName;
  settings.controlType = readControl(reader);
  settings.attachedParameters = reader.texts("attached");
  settings.inverted = reader.boolean("inverted", false);
  settings.links = reader.booleans("links", settings.links);
  settings.colors = reader.colors("colors");
  settings.controlColor = reader.color("controlColor");
  reader.finish();
  return parameter;
}

void checkAttached(const DescribedParameter& parameter, const std::string& place,
                   const ParameterIndex& index, Problems& problems) {
  // The names attached to a group of flags are those of its bits.
  if (parameter.settings.controlType == kestroui::ControlType::bitFlagsGroup) return;
  const auto& attached = parameter.settings.attachedParameters;
  std::set<std::string> seen{parameter.audio.key};
  for (std::size_t i = 0; i < attached.size(); ++i) {
    const std::string here = place + ".attached[" + std::to_string(i) + ']';
    if (!index.contains(attached[i]))
      problems.push_back({here, "no parameter " + inQuotes(attached[i])});
    else if (!seen.insert(attached[i]).second)
      problems.push_back({here, inQuotes(attached[i]) + " belongs to this control already"});
  }
}

}  // namespace

std::vector<DescribedParameter> readParameters(ObjectReader& plugin, Problems& problems,
                                               ParameterIndex& index) {
  // Wrong entries are kept too, so that the places of the others stay right.
  std::vector<DescribedParameter> parameters;
  std::map<platform::AUParameterAddress, std::size_t> addresses;
  plugin.list("parameters", [&](const nlohmann::json& entry, std::size_t i) {
    ObjectReader reader(problems, entry, plugin.place("parameters", i));
    DescribedParameter parameter = readParameter(reader, i);
    const std::string& key = parameter.audio.key;
    if (!key.empty() && !index.emplace(key, i).second)
      reader.problem("key", inQuotes(key) + " is the key of " +
                                plugin.place("parameters", index[key]) + " already");
    if (const auto [first, isNew] = addresses.emplace(parameter.audio.address, i); !isNew)
      reader.problem("address", std::to_string(parameter.audio.address) + " is the address of " +
                                    plugin.place("parameters", first->second) + " already");
    parameters.push_back(std::move(parameter));
  });
  for (std::size_t i = 0; i < parameters.size(); ++i)
    checkAttached(parameters[i], plugin.place("parameters", i), index, problems);
  return parameters;
}

}  // namespace tool
