#include "backends/juce/VstPresets.h"

#include <algorithm>
#include <cstdio>
#include <span>
#include <utility>

#include "Orvane/HostPresets.h"
#include "Orvane/MidiLearn.h"
#include "Quillon/FullState.h"
#include "foundation/PropertyListCoding.h"

namespace juce_backend {
namespace {

/// The lowest byte first, as the format has its numbers.
void append(std::string& text, std::uint64_t number, int bytes) {
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i) & 0xff);
}

/// Header, the component's state, and the list that says where it lies.
std::string presetFile(const std::string& classIdentifier, const std::string& state) {
  constexpr std::uint64_t headerSize = 4 + 4 + 32 + 8;
  std::string file = "VST3";
  append(file, 1, 4);
  file += classIdentifier;
  append(file, headerSize + state.size(), 8);
  file += state;
  file += "List";
  append(file, 1, 4);
  file += "Comp";
  append(file, headerSize, 8);
  append(file, state.size(), 8);
  return file;
}

std::string asFolderName(std::string name) {
  std::replace(name.begin(), name.end(), '/', '_');
  return name;
}

}  // namespace

std::string vstPresetFolder(const orvane::PluginEntry& entry) {
  const std::string home = orvane::HostPresets::homeFolder();
  if (home.empty() || entry.manufacturer.empty()) return {};
  return home + "/.vst3/presets/" + asFolderName(entry.manufacturer) + '/' +
         asFolderName(entry.name);
}

orvane::HostPresetFolder::Form vstPresetForm(std::uint32_t manufacturerCode,
                                             std::uint32_t pluginCode) {
  char identifier[33];
  std::snprintf(identifier, sizeof identifier, "ABCDEF019182FAEB%08X%08X", manufacturerCode,
                pluginCode);
  orvane::HostPresetFolder::Form form;
  form.extension = ".vstpreset";
  form.contents = [classIdentifier = std::string(identifier)](
                      const orvane::HostPresetFolder::Copy& copy,
                      const platform::PropertyList& state) -> std::optional<std::string> {
    using platform::PropertyList;
    const std::string list = foundation::writeXmlPropertyList(state);
    PropertyList::Dictionary whole;
    whole[quillon::dataEntry] = PropertyList::Data(list.begin(), list.end());
    whole[quillon::presetNameEntry] = copy.name;
    whole[orvane::MidiLearn::presetEntry] = true;
    return presetFile(classIdentifier, foundation::writeXmlPropertyList(whole));
  };
  return form;
}

}  // namespace juce_backend
