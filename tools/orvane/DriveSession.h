#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "backends/headless/HeadlessHost.h"
#include "tools/orvane/Target.h"

namespace tool {

class ScriptLine;

/// Carries out the commands of a script on one editor. Each command ends with everything that is
/// due having run, or between `together` and `end` with nothing of it; time passes only by `wait`.
class DriveSession {
 public:
  using Json = nlohmann::ordered_json;

  explicit DriveSession(headless::HeadlessHost& host) : host_(host) {}

  /// The answer to one line; none for a line that says nothing. Whatever goes wrong is told in the
  /// answer.
  std::optional<Json> run(std::string_view line);
  /// The answer to the end of the script; none when there is nothing to say.
  std::optional<Json> finish() const;

 private:
  using Words = std::vector<Word>;
  struct Command {
    std::string_view name;
    /// As it is told to whoever gets it wrong.
    std::string_view arguments;
    /// Of words; -1 for one or more.
    int count;
    void (DriveSession::*run)(const Words& words, Json& answer);
  };
  struct TextCommand {
    std::string_view name;
    std::string_view arguments;
    void (DriveSession::*run)(const std::string& text, Json& answer);
  };
  static const std::vector<Command>& commands();
  static const std::vector<TextCommand>& textCommands();

  void execute(const ScriptLine& line, Json& answer);

  // The turn of the loop
  void together(const Words& words, Json& answer);
  void end(const Words& words, Json& answer);
  // The host
  void size(const Words& words, Json& answer);
  void set(const Words& words, Json& answer);
  void appear(const Words& words, Json& answer);
  void disappear(const Words& words, Json& answer);
  void wait(const Words& words, Json& answer);
  void frames(const Words& words, Json& answer);
  void respond(const std::string& text, Json& answer);
  // MIDI
  void midi(const Words& words, Json& answer);
  void receive(const Words& words, Json& answer);
  void learn(const Words& words, Json& answer);
  void map(const Words& words, Json& answer);
  void unmap(const Words& words, Json& answer);
  void unmapAll(const Words& words, Json& answer);
  // The user
  void page(const Words& words, Json& answer);
  void tap(const Words& words, Json& answer);
  void doubleTap(const Words& words, Json& answer);
  void drag(const Words& words, Json& answer);
  void press(const Words& words, Json& answer);
  void move(const Words& words, Json& answer);
  void lift(const Words& words, Json& answer);
  void wheel(const Words& words, Json& answer);
  void key(const Words& words, Json& answer);
  void type(const std::string& text, Json& answer);
  // The audio unit
  void live(const Words& words, Json& answer);
  void modulate(const Words& words, Json& answer);
  void preset(const std::string& text, Json& answer);
  void next(const Words& words, Json& answer);
  void previous(const Words& words, Json& answer);
  void presets(const Words& words, Json& answer);
  void pick(const Words& words, Json& answer);
  void exportPreset(const Words& words, Json& answer);
  void exportAll(const Words& words, Json& answer);
  // What is shown
  void get(const Words& words, Json& answer);
  void expect(const Words& words, Json& answer);
  void tree(const Words& words, Json& answer);
  void state(const Words& words, Json& answer);
  void snapshot(const std::string& file, Json& answer);

  void stepPreset(bool backward, Json& answer);
  platform::AUParameter& parameter(const std::string& key);

  headless::HeadlessHost& host_;
};

}  // namespace tool
