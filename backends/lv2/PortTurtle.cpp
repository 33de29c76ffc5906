#include "backends/lv2/PortTurtle.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "backends/lv2/Turtle.h"

namespace lv2_backend {
namespace {

using Unit = platform::AudioUnitParameterUnit;

/// Empty when LV2 has no name for the unit.
std::string_view unitName(Unit unit) {
  switch (unit) {
    case Unit::percent:
    case Unit::equalPowerCrossfade:
    case Unit::mixerFaderCurve1:
      return "units:pc";
    case Unit::seconds:
      return "units:s";
    case Unit::milliseconds:
      return "units:ms";
    case Unit::sampleFrames:
      return "units:frame";
    case Unit::phase:
    case Unit::degrees:
      return "units:degree";
    case Unit::rate:
    case Unit::ratio:
    case Unit::linearGain:
      return "units:coef";
    case Unit::hertz:
      return "units:hz";
    case Unit::cents:
    case Unit::absoluteCents:
      return "units:cent";
    case Unit::relativeSemiTones:
      return "units:semitone12TET";
    case Unit::midiNoteNumber:
      return "units:midiNote";
    case Unit::decibels:
      return "units:db";
    case Unit::meters:
      return "units:m";
    case Unit::octaves:
      return "units:oct";
    case Unit::bpm:
      return "units:bpm";
    case Unit::beats:
      return "units:beat";
    case Unit::generic:
    case Unit::indexed:
    case Unit::boolean:
    case Unit::midiController:
    case Unit::pan:
    case Unit::customUnit:
      break;
  }
  return {};
}

bool isLogarithmic(const platform::AUParameter& parameter) {
  // A scale that meets zero has no logarithm.
  if (parameter.minValue() <= 0 || parameter.maxValue() <= parameter.minValue()) return false;
  return parameter.unit() == Unit::hertz ||
         (parameter.flags() & platform::AudioUnitParameterFlags::displayLogarithmic) != 0;
}

bool isInteger(const platform::AUParameter& parameter) {
  if (parameter.unit() == Unit::boolean) return false;
  return parameter.unit() == Unit::midiNoteNumber ||
         platform::takesWholeValues(parameter.unit(), parameter.flags());
}

/// Values and their texts. Hosts find a value by its text, so no two texts are the same.
std::vector<std::pair<float, std::string>> choices(const platform::AUParameter& parameter) {
  std::vector<std::pair<float, std::string>> points;
  if (parameter.unit() != Unit::indexed) return points;
  std::set<std::string> taken;
  float value = std::round(parameter.minValue());
  for (const std::string& text : parameter.valueStrings()) {
    if (value > parameter.maxValue()) break;
    std::string label = text;
    for (int number = 2; !taken.insert(label).second; ++number)
      label = text + " (" + std::to_string(number) + ")";
    points.emplace_back(value, std::move(label));
    value += 1;
  }
  return points;
}

std::string properties(const platform::AUParameter& parameter, bool hasChoices) {
  std::string names;
  const auto add = [&names](const char* name) {
    names += names.empty() ? "" : " , ";
    names += name;
  };
  if (parameter.unit() == Unit::boolean) add("lv2:toggled");
  if (isInteger(parameter)) add("lv2:integer");
  if (hasChoices) add("lv2:enumeration");
  if (isLogarithmic(parameter)) add("pprops:logarithmic");
  return names;
}

/// The part that every port has.
std::string head(const char* types, std::uint32_t index, std::string_view symbol,
                 std::string_view name) {
  return std::string("[\n\t\ta ") + types + " ;\n\t\tlv2:index " + std::to_string(index) +
         " ;\n\t\tlv2:symbol " + turtleString(symbol) + " ;\n\t\tlv2:name " + turtleString(name) +
         " ;\n";
}

std::string line(std::string_view predicate, std::string_view object) {
  return "\t\t" + std::string(predicate) + " " + std::string(object) + " ;\n";
}

}  // namespace

PortTurtle::PortTurtle(const platform::AudioUnit& audioUnit, const PortLayout& layout,
                       const orvane::ParameterGroups& groups, std::string pluginUri, bool takesMidi)
    : audioUnit_(audioUnit),
      layout_(layout),
      groups_(groups),
      pluginUri_(std::move(pluginUri)),
      takesMidi_(takesMidi || audioUnit.acceptsMidi()) {
  SymbolSet symbols;
  for (const orvane::ParameterGroups::Group& group : groups_.groups())
    symbols_.push_back(symbols.add(group.name));
}

const std::string& PortTurtle::symbolOf(const orvane::ParameterGroups::Group& group) const {
  return symbols_[static_cast<std::size_t>(&group - groups_.groups().data())];
}

std::string PortTurtle::audioGroup(std::uint32_t channels, const char* name) const {
  return channels == 1 || channels == 2 ? "<" + pluginUri_ + "#" + name + ">" : "";
}

std::string PortTurtle::groupAddress(const orvane::ParameterGroups::Group& group) const {
  return "<" + pluginUri_ + "#section_" + symbolOf(group) + ">";
}

float PortTurtle::defaultValue(const platform::AudioUnit& audioUnit,
                               const platform::AUParameter& parameter) {
  return std::clamp(audioUnit.defaultValueForKey(parameter.key()), parameter.minValue(),
                    parameter.maxValue());
}

std::string PortTurtle::audioPorts() const {
  struct Bus {
    const char *types, *name;
    std::uint32_t first, channels;
    std::string (*symbol)(std::uint32_t);
    std::string group, properties;
  };
  const Bus buses[] = {
      {"lv2:AudioPort , lv2:InputPort", "Audio In", layout_.firstInput(), layout_.inputs(),
       PortLayout::inputSymbol, mainInput(), ""},
      {"lv2:AudioPort , lv2:InputPort", "Side Chain", layout_.firstSideChain(), layout_.sideChain(),
       PortLayout::sideChainSymbol, sideChain(), "lv2:isSideChain , lv2:connectionOptional"},
      {"lv2:AudioPort , lv2:OutputPort", "Audio Out", layout_.firstOutput(), layout_.outputs(),
       PortLayout::outputSymbol, mainOutput(), ""}};
  std::string text;
  for (const Bus& bus : buses) {
    for (std::uint32_t channel = 0; channel < bus.channels; ++channel) {
      const bool isStereo = bus.channels == 2;
      std::string name = bus.name;
      if (isStereo) {
        name += channel == 0 ? " Left" : " Right";
      } else if (bus.channels > 2) {
        name += ' ';
        name += std::to_string(channel + 1);
      }
      text += head(bus.types, bus.first + channel, bus.symbol(channel), name);
      if (!bus.properties.empty()) text += line("lv2:portProperty", bus.properties);
      if (!bus.group.empty()) text += line("pg:group", bus.group);
      if (isStereo) text += line("lv2:designation", channel == 0 ? "pg:left" : "pg:right");
      text += "\t] , ";
    }
  }
  return text;
}

std::string PortTurtle::controlPort() const {
  std::string text = head("atom:AtomPort , lv2:InputPort", layout_.control(), "control", "Control");
  text += line("lv2:designation", "lv2:control");
  text += line("atom:bufferType", "atom:Sequence");
  text += line("atom:supports", takesMidi_ ? "time:Position , midi:MidiEvent" : "time:Position");
  text += line("rsz:minimumSize", std::to_string(PortLayout::eventBufferSize));
  return text + "\t]";
}

std::string PortTurtle::notifyPort() const {
  std::string text = head("atom:AtomPort , lv2:OutputPort", layout_.notify(), "notify", "Notify");
  text += line("atom:bufferType", "atom:Sequence");
  text += line("rsz:minimumSize", std::to_string(PortLayout::eventBufferSize));
  return text + "\t]";
}

std::string PortTurtle::latencyPort() const {
  std::string text =
      head("lv2:ControlPort , lv2:OutputPort", layout_.latency(), "latency", "Latency");
  text += line("lv2:designation", "lv2:latency");
  text += line("lv2:portProperty",
               "lv2:reportsLatency , lv2:integer , lv2:connectionOptional , pprops:notOnGUI");
  text += line("lv2:minimum", "0");
  text += line("units:unit", "units:frame");
  return text + "\t]";
}

std::string PortTurtle::enabledPort() const {
  std::string text =
      head("lv2:ControlPort , lv2:InputPort", layout_.enabled(), "enabled", "Enabled");
  text += line("lv2:designation", "lv2:enabled");
  text += line("lv2:portProperty", "lv2:toggled , lv2:connectionOptional , pprops:notOnGUI");
  text += line("lv2:default", "1");
  text += line("lv2:minimum", "0");
  text += line("lv2:maximum", "1");
  return text + "\t]";
}

std::string PortTurtle::parameterPort(std::uint32_t index, const ParameterPort& port) const {
  const platform::AUParameter& parameter = *port.parameter;
  const std::string& name =
      parameter.displayName().empty() ? parameter.key() : parameter.displayName();
  std::string text =
      head(port.isOutput ? "lv2:ControlPort , lv2:OutputPort" : "lv2:ControlPort , lv2:InputPort",
           layout_.firstParameter() + index, port.symbol, name);
  text += line("lv2:default", turtleNumber(defaultValue(audioUnit_, parameter)));
  text += line("lv2:minimum", turtleNumber(parameter.minValue()));
  text += line("lv2:maximum", turtleNumber(parameter.maxValue()));
  const auto points = choices(parameter);
  if (const std::string names = properties(parameter, !points.empty()); !names.empty())
    text += line("lv2:portProperty", names);
  if (isInteger(parameter)) {
    const float steps = std::round(parameter.maxValue() - parameter.minValue()) + 1;
    text += line("pprops:rangeSteps", turtleNumber(static_cast<int>(steps)));
  }
  if (const auto unit = unitName(parameter.unit()); !unit.empty()) text += line("units:unit", unit);
  if (const orvane::ParameterGroups::Group* group = groups_.groupOf(parameter.key()))
    text += line("pg:group", groupAddress(*group));
  for (const auto& [value, label] : points) {
    text += "\t\tlv2:scalePoint [ rdfs:label " + turtleString(label) + " ; rdf:value " +
            turtleNumber(value) + " ] ;\n";
  }
  return text + "\t]";
}

std::string PortTurtle::ports() const {
  std::string text = audioPorts() + controlPort() + " , " + notifyPort() + " , " + latencyPort() +
                     " , " + enabledPort();
  for (std::uint32_t i = 0; i < layout_.parameters().size(); ++i)
    text += " , " + parameterPort(i, layout_.parameters()[i]);
  return text;
}

std::string PortTurtle::groups() const {
  std::string text;
  const auto add = [&text](const std::string& address, const std::string& types,
                           std::string_view symbol, std::string_view name) {
    text += address + "\n\ta " + types + " ;\n\tlv2:symbol " + turtleString(symbol) +
            " ;\n\tlv2:name " + turtleString(name) + " .\n\n";
  };
  const auto layoutType = [](std::uint32_t channels) {
    return std::string(channels == 1 ? "pg:MonoGroup" : "pg:StereoGroup");
  };
  if (const std::string address = mainInput(); !address.empty())
    add(address, layoutType(layout_.inputs()) + " , pg:InputGroup", "main_in", "Audio In");
  if (const std::string address = sideChain(); !address.empty()) {
    std::string types = layoutType(layout_.sideChain()) + " , pg:InputGroup";
    if (const std::string main = mainInput(); !main.empty())
      types += " ;\n\tpg:sideChainOf " + main;
    add(address, types, "side_chain", "Side Chain");
  }
  if (const std::string address = mainOutput(); !address.empty())
    add(address, layoutType(layout_.outputs()) + " , pg:OutputGroup", "main_out", "Audio Out");
  for (const orvane::ParameterGroups::Group& group : groups_.groups())
    add(groupAddress(group), "pg:Group", symbolOf(group), group.name);
  return text;
}

}  // namespace lv2_backend
