#pragma once

#include <map>
#include <string>
#include <string_view>

#include "Orvane/MidiLearn.h"
#include "platform/AudioUnit.h"

namespace lv2_backend {

// The state of an audio unit and its MIDI bindings as the text of an XML property list, which is how
// LV2 hosts store it and how the sound and the editor pass it on.

/// What the ports of parameters held that the sound had moved by itself, by key.
using StalePorts = std::map<std::string, float>;

std::string stateText(const platform::AudioUnit& audioUnit, const orvane::MidiLearn& midi,
                      const StalePorts& stale = {});
/// Without the values of the parameters, which are the ports' business.
std::string stateBesideParameters(const platform::AudioUnit& audioUnit,
                                  const orvane::MidiLearn& midi);
/// What a preset stores beside the ports.
std::string presetText(const platform::AudioUnit& audioUnit);
/// Sets what either of them holds; without values, the parameters keep theirs; without bindings
/// there are none. False when `text` is
/// no such state; then nothing has changed.
bool setState(platform::AudioUnit& audioUnit, orvane::MidiLearn& midi, std::string_view text,
              StalePorts* stale = nullptr);

}  // namespace lv2_backend
