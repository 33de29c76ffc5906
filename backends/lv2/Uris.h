#pragma once

#include <string>

#include "Orvane/PluginEntry.h"

namespace lv2_backend {

/// "urn:orvane:" and the plug-in's identifier; characters that a URI cannot hold are
/// percent-encoded. Sessions store it: it never changes as long as the identifier does not.
std::string pluginUri(const orvane::PluginEntry& entry);
/// Names the editor.
std::string editorUri(const orvane::PluginEntry& entry);

/// What the sound and the editor of a plug-in call the things that they tell each other.
namespace uri {
inline constexpr const char* state = "urn:orvane:lv2#state";
inline constexpr const char* editorOpened = "urn:orvane:lv2#EditorOpened";
inline constexpr const char* editorClosed = "urn:orvane:lv2#EditorClosed";
inline constexpr const char* midiWanted = "urn:orvane:lv2#MidiWanted";
inline constexpr const char* midiUnwanted = "urn:orvane:lv2#MidiUnwanted";
inline constexpr const char* stateChanged = "urn:orvane:lv2#StateChanged";
inline constexpr const char* liveValues = "urn:orvane:lv2#LiveValues";
inline constexpr const char* ownValues = "urn:orvane:lv2#OwnValues";
inline constexpr const char* indices = "urn:orvane:lv2#indices";
inline constexpr const char* liveSound = "urn:orvane:lv2#LiveSound";
inline constexpr const char* sound = "urn:orvane:lv2#sound";
inline constexpr const char* values = "urn:orvane:lv2#values";
inline constexpr const char* modulating = "urn:orvane:lv2#modulating";
}  // namespace uri

}  // namespace lv2_backend
