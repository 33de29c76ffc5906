#include "tools/orvane/DriveSession.h"

#include <algorithm>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "tools/orvane/Problems.h"
#include "tools/orvane/Target.h"
#include "tools/orvane/Text.h"

namespace tool {

/// One line of a script: a command and what follows it.
class ScriptLine {
 public:
  explicit ScriptLine(std::string_view line);

  /// Blank lines and lines that begin with # say nothing.
  bool isEmpty() const { return command_.empty() || command_[0] == '#'; }
  const std::string& command() const { return command_; }
  /// What follows the command, word by word; \" and \\ stand for themselves within quotes. Throws a
  /// Failure for a quote that is not closed.
  std::vector<Word> words() const;
  /// What follows the command as one text, as it stands or in quotes.
  std::string text() const;

 private:
  std::string command_;
  std::string rest_;
};

namespace {

constexpr std::string_view blanks = " \t\r\n\v\f";

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Takes a quoted word from the front of `text`, which begins with a quote.
Word takeQuoted(std::string_view& text) {
  Word word{"", true};
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '"') {
      text.remove_prefix(i + 1);
      if (!text.empty() && blanks.find(text[0]) == std::string_view::npos)
        throw Failure("a blank is missing after a closing quote");
      return word;
    }
    if (text[i] == '\\' && i + 1 < text.size() && (text[i + 1] == '"' || text[i + 1] == '\\')) ++i;
    word.text += text[i];
  }
  throw Failure("a quote is not closed");
}

}  // namespace

ScriptLine::ScriptLine(std::string_view line) {
  line = trimmed(line);
  const std::size_t end = std::min(line.find_first_of(blanks), line.size());
  command_ = line.substr(0, end);
  rest_ = trimmed(line.substr(end));
}

std::vector<Word> ScriptLine::words() const {
  std::vector<Word> words;
  std::string_view text = rest_;
  while (!(text = trimmed(text)).empty()) {
    if (text[0] == '"') {
      words.push_back(takeQuoted(text));
      continue;
    }
    const std::size_t end = std::min(text.find_first_of(blanks), text.size());
    words.push_back({std::string(text.substr(0, end)), false});
    text.remove_prefix(end);
  }
  return words;
}

std::string ScriptLine::text() const {
  if (rest_.starts_with('"') && rest_.ends_with('"') && rest_.size() > 1) {
    std::string_view text = rest_;
    const Word word = takeQuoted(text);
    if (text.empty()) return word.text;
  }
  return rest_;
}

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
