// What a script does as the host, as the user and as a MIDI device.

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Responder.h"
#include "tools/orvane/DriveSession.h"
#include "tools/orvane/Editor.h"
#include "tools/orvane/Problems.h"
#include "tools/orvane/Text.h"

namespace tool {

using platform::Key;
using platform::KeyEvent;
using platform::Modifiers;

namespace {

constexpr double maxWait = 3600;
constexpr double farthest = 100000;

double numberOf(const Word& word, double low, double high) {
  const auto number = parseNumber(word.text);
  if (number && *number >= low && *number <= high) return *number;
  throw Failure("a number from " + std::to_string(static_cast<int>(low)) + " to " +
                std::to_string(static_cast<int>(high)) + " is wanted, not " + inQuotes(word.text));
}

platform::Point distanceOf(const Word& x, const Word& y) {
  return {numberOf(x, -farthest, farthest), numberOf(y, -farthest, farthest)};
}

constexpr std::pair<std::string_view, Key> keys[] = {
    {"return", Key::returnKey},
    {"escape", Key::escape},
    {"tab", Key::tab},
    {"space", Key::space},
    {"backspace", Key::backspace},
    {"delete", Key::deleteForward},
    {"left", Key::left},
    {"right", Key::right},
    {"up", Key::up},
    {"down", Key::down},
    {"pageup", Key::pageUp},
    {"pagedown", Key::pageDown},
    {"home", Key::home},
    {"end", Key::end},
};

constexpr std::pair<std::string_view, Modifiers> modifiers[] = {
    {"shift+", Modifiers::shift},
    {"control+", Modifiers::control},
    {"alt+", Modifiers::alt},
    {"command+", Modifiers::command},
};

/// The key press that a script names: "return", "shift+tab", "control+left", "a". Throws a Failure
/// for a name that is none.
KeyEvent keyEventOf(std::string_view name) {
  KeyEvent event;
  std::string_view rest = name;
  for (bool found = true; found;) {
    found = false;
    for (const auto& [prefix, modifier] : modifiers) {
      if (!rest.starts_with(prefix)) continue;
      event.modifiers = event.modifiers | modifier;
      rest.remove_prefix(prefix.size());
      found = true;
    }
  }
  for (const auto& [keyName, key] : keys) {
    if (rest != keyName) continue;
    event.key = key;
    if (key == Key::space) event.text.assign(1, ' ');
    return event;
  }
  const bool isOneCharacter =
      rest.size() == 1 && static_cast<unsigned char>(rest[0]) > 0x20 && rest[0] != 0x7F;
  if (!isOneCharacter) throw Failure("no key " + inQuotes(name));
  event.text.assign(rest);
  return event;
}

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

void DriveSession::size(const Words& words, Json&) {
  const auto size = parseSize(words[0].text + 'x' + words[1].text);
  if (!size)
    throw Failure("size wants W H in points, above 0 and at most 16384, not " +
                  inQuotes(words[0].text + ' ' + words[1].text));
  host_.resize(*size);
}

void DriveSession::page(const Words& words, Json&) {
  const auto page = parseCount(words[0].text);
  if (!page) throw Failure("page wants a number from 0 on, not " + inQuotes(words[0].text));
  showPage(host_, *page, "");
}

void DriveSession::tap(const Words& words, Json&) { host_.tap(placeOfTarget(host_, words[0])); }

void DriveSession::doubleTap(const Words& words, Json&) {
  host_.doubleTap(placeOfTarget(host_, words[0]));
}

void DriveSession::drag(const Words& words, Json&) {
  const platform::Point distance = distanceOf(words[1], words[2]);
  host_.drag(placeOfTarget(host_, words[0]), distance);
}

void DriveSession::press(const Words& words, Json&) {
  if (!host_.press(placeOfTarget(host_, words[0]))) throw Failure("a finger is pressed already");
}

void DriveSession::move(const Words& words, Json&) {
  if (!host_.move(distanceOf(words[0], words[1]))) throw Failure("no finger is pressed");
}

void DriveSession::lift(const Words&, Json&) {
  if (!host_.lift()) throw Failure("no finger is pressed");
}

void DriveSession::wheel(const Words& words, Json& answer) {
  const double notches = numberOf(words[1], -farthest, farthest);
  answer["used"] = host_.turnWheel(placeOfTarget(host_, words[0]), notches);
}

void DriveSession::key(const Words& words, Json& answer) {
  answer["used"] = host_.pressKey(keyEventOf(words[0].text));
}

void DriveSession::type(const std::string& text, Json&) {
  if (!host_.window().firstResponder()) throw Failure("nothing has the keyboard");
  host_.type(text);
}

void DriveSession::set(const Words& words, Json&) {
  parameter(words[0].text);
  const auto value = parseNumber(words[1].text);
  if (!value) throw Failure("set wants a number, not " + inQuotes(words[1].text));
  host_.automate(words[0].text, static_cast<float>(*value));
}

void DriveSession::respond(const std::string& text, Json&) {
  platform::URLSession::Answer answer;
  if (text == "error") {
    answer.error = "the server cannot be reached";
  } else {
    const std::size_t end = std::min(text.find(' '), text.size());
    const auto status = parseCount(text.substr(0, end));
    if (!status)
      throw Failure("respond wants the status of an answer and its text, or error, not " +
                    inQuotes(text));
    answer.statusCode = *status;
    if (end < text.size())
      answer.data.assign(text.begin() + static_cast<long>(end) + 1, text.end());
  }
  if (!host_.application()->session().respond(std::move(answer)))
    throw Failure("no request waits for an answer");
  host_.loop().runDue();
}

void DriveSession::appear(const Words&, Json&) { host_.appear(); }

void DriveSession::disappear(const Words&, Json&) { host_.disappear(); }

void DriveSession::wait(const Words& words, Json&) {
  const double seconds = numberOf(words[0], 0, maxWait);
  if (host_.loop().isInTurn())
    throw Failure("the clock stands still within together: wait comes after end");
  host_.loop().advance(seconds);
}

void DriveSession::together(const Words&, Json&) {
  if (host_.loop().isInTurn())
    throw Failure("together is within together: a turn holds no other turn");
  host_.loop().beginTurn();
}

void DriveSession::end(const Words&, Json&) {
  if (!host_.loop().isInTurn()) throw Failure("end is without together");
  host_.loop().endTurn();
}

void DriveSession::frames(const Words&, Json& answer) {
  const headless::FrameCount count = host_.takeFrames();
  answer["displayFrames"] = count.displayFrames;
  answer["repaints"] = count.repaints;
  answer["repaintedArea"] = tidy(count.repaintedArea);
}

// MIDI

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
