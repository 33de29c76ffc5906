#include "backends/juce/StoredBindings.h"

#include <cstdio>
#include <string>

#include "foundation/PropertyListCoding.h"

namespace juce_backend {
namespace {

constexpr const char* bindingsKey = "midiMap";

}  // namespace

StoredBindings::StoredBindings(orvane::MidiLearn& learn, juce::PropertiesFile& settings)
    : learn_(learn), settings_(settings) {
  load();
  learn_.bindingsChanged = [this] { store(); };
}

StoredBindings::~StoredBindings() { learn_.bindingsChanged = nullptr; }

void StoredBindings::load() {
  const std::string text = settings_.getValue(bindingsKey).toStdString();
  if (text.empty()) return;
  std::string error;
  const auto state = foundation::parsePropertyList(
      {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, error);
  if (state)
    learn_.setState(&*state);
  else
    std::fprintf(stderr, "%s: the MIDI bindings cannot be read: %s\n",
                 settings_.getFile().getFullPathName().toRawUTF8(), error.c_str());
}

void StoredBindings::store() {
  if (learn_.bindings().empty())
    settings_.removeValue(bindingsKey);
  else
    settings_.setValue(bindingsKey, juce::String::fromUTF8(
                                        foundation::writeXmlPropertyList(learn_.state()).c_str()));
  if (!settings_.save())
    std::fprintf(stderr, "%s cannot be written\n",
                 settings_.getFile().getFullPathName().toRawUTF8());
}

}  // namespace juce_backend
