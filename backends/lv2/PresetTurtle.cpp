#include "backends/lv2/PresetTurtle.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "Orvane/HostPresets.h"
#include "Orvane/MidiLearn.h"
#include "Quillon/FullState.h"
#include "backends/lv2/Turtle.h"
#include "backends/lv2/Uris.h"
#include "foundation/PropertyListCoding.h"

namespace lv2_backend {
namespace {

using orvane::HostPresetFolder;
using platform::PropertyList;

struct Port {
  std::string symbol, key;
  float standard, minimum, maximum;
};

float valueOf(const Port& port, const PropertyList* parameters) {
  const PropertyList* const stored = parameters ? parameters->find(port.key) : nullptr;
  const auto value = static_cast<float>(stored ? stored->number(port.standard) : port.standard);
  return std::isfinite(value) ? std::clamp(value, port.minimum, port.maximum) : port.standard;
}

/// The state dictionary as the state of a preset: without what the ports say.
std::string stateOf(const std::string& name, const PropertyList& state) {
  PropertyList::Dictionary entries;
  if (const auto* given = state.as<PropertyList::Dictionary>()) entries = *given;
  entries.erase(quillon::parametersEntry);
  entries[quillon::presetNameEntry] = name;
  entries[orvane::MidiLearn::presetEntry] = true;
  return foundation::writeXmlPropertyList(entries);
}

}  // namespace

std::string turtleOf(const PresetStatement& preset) {
  std::string text = preset.address + "\n\ta pset:Preset ;\n\tlv2:appliesTo " + preset.plugin +
                     " ;\n\trdfs:label " + turtleString(preset.name);
  if (!preset.bank.empty()) text += " ;\n\tpset:bank " + preset.bank;
  text +=
      " ;\n\tstate:state [ <" + std::string(uri::state) + "> " + turtleString(preset.state) + " ]";
  const char* separator = " ;\n\tlv2:port ";
  for (const auto& [symbol, value] : preset.values) {
    text += separator;
    text += "[ lv2:symbol " + turtleString(symbol) + " ; pset:value " + turtleNumber(value) + " ]";
    separator = " ,\n\t\t";
  }
  return text + " .\n\n";
}

std::string userPresetBundle(const orvane::PluginEntry& entry) {
  const std::string home = orvane::HostPresets::homeFolder();
  return home.empty() ? home : home + "/.lv2/" + entry.identifier + ".presets.lv2";
}

HostPresetFolder::Form userPresetForm(const orvane::PluginEntry& entry,
                                      platform::AudioUnit& audioUnit) {
  std::vector<Port> ports;
  const PortLayout layout(audioUnit);
  for (const ParameterPort& port : layout.parameters()) {
    if (port.isOutput) continue;
    const platform::AUParameter& parameter = *port.parameter;
    ports.push_back({port.symbol, parameter.key(), audioUnit.defaultValueForKey(parameter.key()),
                     parameter.minValue(), parameter.maxValue()});
  }
  const std::string plugin = '<' + pluginUri(entry) + '>';
  const std::string bank = '<' + pluginUri(entry) + "#bank_of_the_user>";

  HostPresetFolder::Form form;
  form.extension = ".ttl";
  form.indexFile = "manifest.ttl";
  form.contents = [ports = std::move(ports), plugin, bank](
                      const HostPresetFolder::Copy& copy,
                      const PropertyList& state) -> std::optional<std::string> {
    PresetStatement preset{"<>", plugin, bank, copy.name, stateOf(copy.name, state), {}};
    const PropertyList* const parameters = state.find(quillon::parametersEntry);
    for (const Port& port : ports)
      preset.values.emplace_back(port.symbol, valueOf(port, parameters));
    return turtlePrefixes() + turtleOf(preset);
  };
  form.index = [plugin, bank](const std::vector<HostPresetFolder::Copy>& copies) {
    std::string text = turtlePrefixes();
    text += bank + "\n\ta pset:Bank ;\n\trdfs:label \"USER\" .\n\n";
    for (const HostPresetFolder::Copy& copy : copies) {
      const std::string file = turtleFile(copy.file);
      for (const std::string& piece :
           {file, std::string("\n\ta pset:Preset ;\n\tlv2:appliesTo "), plugin,
            std::string(" ;\n\trdfs:label "), turtleString(copy.name),
            std::string(" ;\n\tpset:bank "), bank, std::string(" ;\n\trdfs:seeAlso "), file,
            std::string(" .\n\n")})
        text += piece;
    }
    return text;
  };
  return form;
}

}  // namespace lv2_backend
