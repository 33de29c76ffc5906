#include "backends/lv2/BundleTurtle.h"

#include <array>
#include <charconv>
#include <map>
#include <utility>

#include "Orvane/KestroAUViewController.h"
#include "backends/lv2/PluginState.h"
#include "backends/lv2/PresetTurtle.h"
#include "backends/lv2/Turtle.h"
#include "backends/lv2/Uris.h"

namespace lv2_backend {
namespace {

std::array<int, 3> versionNumbers(const std::string& version) {
  std::array<int, 3> numbers{};
  const char* place = version.data();
  const char* const end = place + version.size();
  for (int& number : numbers) {
    const auto result = std::from_chars(place, end, number);
    if (result.ec != std::errc() || result.ptr == end || *result.ptr != '.') break;
    place = result.ptr + 1;
  }
  return numbers;
}

std::string address(const std::string& uri) { return "<" + uri + ">"; }

}  // namespace

BundleTurtle::BundleTurtle(const orvane::PluginEntry& entry, BundleFiles files)
    : entry_(entry),
      files_(std::move(files)),
      uri_(pluginUri(entry)),
      audioUnit_(entry.createAudioUnit()),
      layout_(*audioUnit_),
      groups_(*entry.createViewController()->design(), audioUnit_->parametersKeys()),
      ports_(*audioUnit_, layout_, groups_, uri_, files_.takesMidi) {}

std::string BundleTurtle::pluginClass() const {
  if (!files_.pluginClass.empty()) return "lv2:" + files_.pluginClass + " , lv2:Plugin";
  if (!audioUnit_->acceptsMidi()) return "lv2:Plugin";
  if (audioUnit_->outputChannels() == 0) return "lv2:MIDIPlugin , lv2:Plugin";
  return audioUnit_->inputChannels() == 0 ? "lv2:InstrumentPlugin , lv2:Plugin" : "lv2:Plugin";
}

std::string BundleTurtle::presetAddress(const platform::AUAudioUnitPreset& preset) const {
  return address(uri_ + "#preset_" + std::to_string(preset.number));
}

std::string BundleTurtle::manifest() const {
  std::string text = turtlePrefixes();
  const std::string seeAlso = " ;\n\trdfs:seeAlso " + turtleFile(files_.pluginFile) + " .\n\n";
  text += address(uri_) + "\n\ta " + pluginClass() + " ;\n\tlv2:binary " +
          turtleFile(files_.soundLibrary) + seeAlso;
  if (!files_.editorLibrary.empty()) {
    text += address(editorUri(entry_)) + "\n\ta ui:X11UI ;\n\tlv2:binary " +
            turtleFile(files_.editorLibrary) + seeAlso;
  }
  for (const platform::AUAudioUnitPreset& preset : audioUnit_->factoryPresets()) {
    text += presetAddress(preset) + "\n\ta pset:Preset ;\n\tlv2:appliesTo " + address(uri_) +
            " ;\n\trdfs:label " + turtleString(preset.name) + " ;\n\trdfs:seeAlso " +
            turtleFile(presetsFile) + " .\n\n";
  }
  return text;
}

std::string BundleTurtle::plugin() const {
  // LV2 knows two numbers; hosts take the bundle with the greater ones, and odd ones for what is not
  // released.
  const auto [major, minor, micro] = versionNumbers(entry_.version);
  std::string text = turtlePrefixes();
  text += ports_.groups();
  text += address(uri_) + "\n\ta " + pluginClass() + " ;\n";
  text += "\tdoap:name " + turtleString(entry_.name) + " ;\n";
  if (!entry_.description.empty())
    text += "\tdoap:shortdesc " + turtleString(entry_.description) + " ;\n";
  if (!files_.license.empty()) text += "\tdoap:license " + address(files_.license) + " ;\n";
  if (!entry_.manufacturer.empty()) {
    // Only a project has a maintainer, and a plug-in that were one would be listed as such.
    text += "\tlv2:project [\n\t\ta doap:Project ;\n\t\tdoap:name " + turtleString(entry_.name) +
            " ;\n\t\tdoap:maintainer [\n\t\t\ta foaf:Agent ;\n\t\t\tfoaf:name " +
            turtleString(entry_.manufacturer) + "\n\t\t]\n\t] ;\n";
  }
  text += "\tlv2:minorVersion " + std::to_string(2 * (major * 100 + minor)) +
          " ;\n\tlv2:microVersion " + std::to_string(2 * micro) + " ;\n";
  text +=
      "\tlv2:requiredFeature urid:map ;\n"
      "\tlv2:optionalFeature lv2:hardRTCapable , opts:options , bufsz:boundedBlockLength ,\n"
      "\t\twork:schedule , state:threadSafeRestore ;\n"
      "\topts:supportedOption bufsz:maxBlockLength ;\n"
      "\tlv2:extensionData state:interface , work:interface ;\n";
  if (!files_.editorLibrary.empty()) text += "\tui:ui " + address(editorUri(entry_)) + " ;\n";
  if (const std::string group = ports_.mainInput(); !group.empty())
    text += "\tpg:mainInput " + group + " ;\n";
  if (const std::string group = ports_.mainOutput(); !group.empty())
    text += "\tpg:mainOutput " + group + " ;\n";
  text += "\tlv2:port " + ports_.ports() + " .\n";
  if (!files_.editorLibrary.empty()) text += "\n" + editor();
  return text;
}

std::string BundleTurtle::editor() const {
  std::string text = address(editorUri(entry_)) + "\n\ta ui:X11UI ;\n";
  text +=
      "\tlv2:requiredFeature urid:map , ui:idleInterface , ui:parent ;\n"
      "\tlv2:optionalFeature ui:resize , ui:touch , opts:options ;\n"
      "\tlv2:extensionData ui:idleInterface , ui:resize ;\n"
      "\topts:supportedOption ui:scaleFactor ;\n";
  const auto notification = [this](std::string_view symbol, const char* rest) {
    return "[\n\t\tui:plugin " + address(uri_) + " ;\n\t\tlv2:symbol " + turtleString(symbol) +
           " ;\n" + rest + "\t]";
  };
  text += "\tui:portNotification " +
          notification("notify",
                       "\t\tui:protocol atom:eventTransfer ;\n\t\tui:notifyType atom:Object\n");
  for (const ParameterPort& port : layout_.parameters())
    text += " , " + notification(port.symbol, "\t\tui:protocol ui:floatProtocol\n");
  return text + " .\n";
}

std::string BundleTurtle::presets() {
  const auto factory = audioUnit_->factoryPresets();
  if (factory.empty()) return {};
  std::string text = turtlePrefixes();
  text += address(uri::state) + "\n\ta rdf:Property ;\n\trdfs:label \"State\" .\n\n";

  SymbolSet bankSymbols;
  std::map<std::string, std::string> bankAddresses;
  for (const platform::AUAudioUnitPreset& preset : factory) {
    if (preset.bank.empty() || bankAddresses.count(preset.bank)) continue;
    const std::string bank = address(uri_ + "#bank_" + bankSymbols.add(preset.bank));
    bankAddresses[preset.bank] = bank;
    text += bank + "\n\ta pset:Bank ;\n\trdfs:label " + turtleString(preset.bank) + " .\n\n";
  }

  for (const platform::AUAudioUnitPreset& preset : factory) {
    audioUnit_->setCurrentPreset(preset.number);
    // With the name, so that an editor shows which preset the host has loaded.
    PresetStatement statement{presetAddress(preset), address(uri_),           {},
                              preset.name,           presetText(*audioUnit_), {}};
    if (!preset.bank.empty()) statement.bank = bankAddresses[preset.bank];
    for (const ParameterPort& port : layout_.parameters())
      if (!port.isOutput) statement.values.emplace_back(port.symbol, port.parameter->value());
    text += turtleOf(statement);
  }
  return text;
}

}  // namespace lv2_backend
