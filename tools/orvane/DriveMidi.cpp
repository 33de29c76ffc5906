// What a script does with MIDI.

#include <algorithm>
#include <optional>

#include "tools/orvane/DriveSession.h"
#include "tools/orvane/Text.h"
#include "tools/orvane/ToolError.h"

namespace tool {

namespace {

std::shared_ptr<kestroui::ParamKey> keyNamed(const std::string& key) {
  return std::make_shared<kestroui::ParamKey>(key);
}

/// "176,7" as bytes, of which the first is a status byte; none for anything else.
std::optional<orvane::MidiLearn::Message> messageOf(std::string_view text) {
  orvane::MidiLearn::Message message;
  while (true) {
    const std::size_t comma = std::min(text.find(','), text.size());
    const auto byte = parseCount(text.substr(0, comma));
    if (!byte || *byte > (message.empty() ? 255 : 127)) return std::nullopt;
    message.push_back(static_cast<std::uint8_t>(*byte));
    if (comma == text.size()) break;
    text.remove_prefix(comma + 1);
  }
  if (message.size() > 3 || message[0] < 128) return std::nullopt;
  return message;
}

}  // namespace

void DriveSession::midi(const Words& words, Json&) {
  parameter(words[0].text);
  const auto value = parseCount(words[1].text);
  if (!value || *value > 127)
    throw Failure("midi wants a value from 0 to 127, not " + inQuotes(words[1].text));
  host_.editor().setMidiValue(static_cast<std::uint8_t>(*value), keyNamed(words[0].text));
  host_.loop().runDue();
}

void DriveSession::receive(const Words& words, Json& answer) {
  const auto message = messageOf(words[0].text);
  if (!message)
    throw Failure("receive wants the bytes of a MIDI message such as 176,7,64, not " +
                  inQuotes(words[0].text));
  answer["used"] = host_.receiveMidi(*message);
}

void DriveSession::learn(const Words& words, Json& answer) {
  const std::string& mode = words[0].text;
  if (mode != "on" && mode != "off") throw Failure("learn wants on or off, not " + inQuotes(mode));
  host_.midiLearn().setLearning(mode == "on");
  host_.loop().runDue();
  const auto key = host_.editor().lastMidiMapKey();
  answer["key"] = key ? Json(key->key()) : Json();
}

void DriveSession::map(const Words& words, Json&) {
  parameter(words[0].text);
  const auto message = messageOf(words[1].text);
  if (!message || !host_.midiLearn().bind(words[0].text, *message))
    throw Failure("map wants the bytes of a MIDI message such as 176,7, not " +
                  inQuotes(words[1].text));
  host_.loop().runDue();
}

void DriveSession::unmap(const Words& words, Json&) {
  parameter(words[0].text);
  host_.midiLearn().remove(words[0].text);
  host_.loop().runDue();
}

void DriveSession::unmapAll(const Words&, Json&) {
  host_.midiLearn().removeAll();
  host_.loop().runDue();
}

}  // namespace tool
