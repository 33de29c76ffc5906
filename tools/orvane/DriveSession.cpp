#include "tools/orvane/DriveSession.h"

#include <exception>

#include "tools/orvane/Text.h"
#include "tools/orvane/ToolError.h"

namespace tool {

const std::vector<DriveSession::Command>& DriveSession::commands() {
  static const std::vector<Command> all{
      {"size", "W H", 2, &DriveSession::size},
      {"page", "N", 1, &DriveSession::page},
      {"tap", "TARGET", 1, &DriveSession::tap},
      {"doubletap", "TARGET", 1, &DriveSession::doubleTap},
      {"drag", "TARGET DX DY", 3, &DriveSession::drag},
      {"press", "TARGET", 1, &DriveSession::press},
      {"move", "DX DY", 2, &DriveSession::move},
      {"lift", "", 0, &DriveSession::lift},
      {"wheel", "TARGET DY", 2, &DriveSession::wheel},
      {"key", "NAME", 1, &DriveSession::key},
      {"set", "KEY VALUE", 2, &DriveSession::set},
      {"get", "KEY", 1, &DriveSession::get},
      {"expect", "KEY VALUE", 2, &DriveSession::expect},
      {"live", "KEY VALUE", 2, &DriveSession::live},
      {"modulate", "KEY on/off", 2, &DriveSession::modulate},
      {"midi", "KEY N", 2, &DriveSession::midi},
      {"receive", "STATUS,NUMBER,VALUE", 1, &DriveSession::receive},
      {"learn", "on/off", 1, &DriveSession::learn},
      {"map", "KEY STATUS,NUMBER", 2, &DriveSession::map},
      {"unmap", "KEY", 1, &DriveSession::unmap},
      {"unmapall", "", 0, &DriveSession::unmapAll},
      {"next", "", 0, &DriveSession::next},
      {"previous", "", 0, &DriveSession::previous},
      {"presets", "", 0, &DriveSession::presets},
      {"pick", "FILE ...", -1, &DriveSession::pick},
      {"export", "", 0, &DriveSession::exportPreset},
      {"exportall", "", 0, &DriveSession::exportAll},
      {"appear", "", 0, &DriveSession::appear},
      {"disappear", "", 0, &DriveSession::disappear},
      {"wait", "SECONDS", 1, &DriveSession::wait},
      {"together", "", 0, &DriveSession::together},
      {"end", "", 0, &DriveSession::end},
      {"frames", "", 0, &DriveSession::frames},
      {"tree", "", 0, &DriveSession::tree},
      {"state", "", 0, &DriveSession::state},
  };
  return all;
}

const std::vector<DriveSession::TextCommand>& DriveSession::textCommands() {
  static const std::vector<TextCommand> all{
      {"type", "TEXT", &DriveSession::type},
      {"preset", "NAME", &DriveSession::preset},
      {"respond", "STATUS TEXT or error", &DriveSession::respond},
      {"snapshot", "FILE", &DriveSession::snapshot},
  };
  return all;
}

std::optional<DriveSession::Json> DriveSession::run(std::string_view text) {
  const ScriptLine line(text);
  if (line.isEmpty()) return std::nullopt;
  Json answer{{"ok", true}};
  try {
    execute(line, answer);
  } catch (const std::exception& error) {
    return Json{{"ok", false}, {"error", error.what()}};
  }
  // What has left the editor is told with the next command that succeeds.
  if (answer["ok"] == false) return answer;
  Json& events = answer["events"] = Json::array();
  for (const headless::Event& event : host_.application()->takeEvents()) {
    Json& entry = events.emplace_back(Json{{"type", event.type}});
    for (const auto& [name, value] : event.members) entry[name] = oneLine(value);
    if (!event.types.empty()) entry["types"] = event.types;
    if (event.multiple) entry["multiple"] = *event.multiple;
  }
  return answer;
}

std::optional<DriveSession::Json> DriveSession::finish() const {
  if (!host_.loop().isInTurn()) return std::nullopt;
  return Json{{"ok", false}, {"error", "the script ends within together: end is missing"}};
}

void DriveSession::execute(const ScriptLine& line, Json& answer) {
  const std::string& name = line.command();
  const auto wants = [&](std::string_view arguments) {
    return Failure(name + (arguments.empty() ? " takes nothing" : " wants ") +
                   std::string(arguments));
  };
  for (const TextCommand& command : textCommands()) {
    if (command.name != name) continue;
    if (line.text().empty()) throw wants(command.arguments);
    return (this->*command.run)(line.text(), answer);
  }
  for (const Command& command : commands()) {
    if (command.name != name) continue;
    const Words words = line.words();
    const int count = static_cast<int>(words.size());
    if (command.count < 0 ? count == 0 : count != command.count) throw wants(command.arguments);
    return (this->*command.run)(words, answer);
  }
  throw Failure("unknown command " + inQuotes(name));
}

platform::AUParameter& DriveSession::parameter(const std::string& key) {
  if (platform::AUParameter* parameter = host_.audioUnit().parameter(key)) return *parameter;
  throw Failure("no parameter " + inQuotes(key));
}

}  // namespace tool
