#include "tools/orvane/Commands.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <istream>
#include <ostream>
#include <string>

#include "foundation/Bundle.h"
#include "tools/orvane/ArgumentParser.h"
#include "tools/orvane/DataFolders.h"
#include "tools/orvane/DriveSession.h"
#include "tools/orvane/Editor.h"
#include "tools/orvane/Picture.h"
#include "tools/orvane/Plugin.h"
#include "tools/orvane/Problems.h"
#include "tools/orvane/ViewTree.h"

#ifdef ORVANE_HAS_JUCE
#include "backends/juce/Standalone.h"
#endif

namespace tool {

namespace {

#ifdef ORVANE_HAS_JUCE
int show(const Plugin& plugin) { return juce_backend::runStandalone(plugin.entry); }
#else
int show(const Plugin& plugin) {
  throw Failure(plugin.place + ": orvane was built without the desktop backend, so it opens no " +
                "windows");
}
#endif

constexpr double maxScale = 16;

/// Brings the editor into the state that the picture shows; the first command that fails ends it.
void runScript(DriveSession& session, const std::string& path) {
  std::ifstream file(path);
  if (!file) throw Failure(path + ": cannot be read");
  std::string line;
  int number = 0;
  const auto check = [&](const std::optional<DriveSession::Json>& answer) {
    if (answer && answer->at("ok") == false)
      throw Failure(path + ": line " + std::to_string(number) + ": " +
                    answer->at("error").get<std::string>());
  };
  while (std::getline(file, line)) {
    ++number;
    check(session.run(line));
  }
  check(session.finish());
}

}  // namespace

int listCommand(const Words& words, Streams streams) {
  const ArgumentParser arguments("list", words, {});
  arguments.finish();
  std::size_t longest = 0;
  for (const BuiltIn& builtIn : builtIns()) longest = std::max(longest, std::strlen(builtIn.name));
  for (const BuiltIn& builtIn : builtIns()) {
    const std::string gap(longest + 2 - std::strlen(builtIn.name), ' ');
    streams.out << builtIn.name << gap << builtIn.entry().description << '\n';
  }
  return 0;
}

int runCommand(const Words& words, Streams) {
  ArgumentParser arguments("run", words, {});
  const std::string name = arguments.positional("PLUGIN");
  arguments.finish();
  const DataFolders folders(arguments, DataFolders::WithoutData::usersOwn);
  const Plugin plugin = loadPlugin(name);
  const foundation::MainBundle bundle(plugin.entry.infoDictionary());
  return show(plugin);
}

int snapshotCommand(const Words& words, Streams) {
  ArgumentParser arguments("snapshot", words, {"-o", "--size", "--scale", "--page", "--script"});
  const std::string name = arguments.positional("PLUGIN");
  const auto file = arguments.text("-o");
  const auto size = arguments.size("--size");
  const double scale = arguments.number("--scale", maxScale).value_or(1);
  const auto page = arguments.count("--page");
  const auto script = arguments.text("--script");
  arguments.finish();
  if (!file) arguments.fail("-o FILE.png is missing");

  requirePictures();
  const DataFolders folders(arguments, DataFolders::WithoutData::temporary);
  Editor editor(loadPlugin(name), size, page);
  DriveSession session(editor.host);
  if (script) runScript(session, *script);
  writePicture(editor.host, *file, scale);
  return 0;
}

int treeCommand(const Words& words, Streams streams) {
  ArgumentParser arguments("tree", words, {"--size", "--page"});
  const std::string name = arguments.positional("PLUGIN");
  const auto size = arguments.size("--size");
  const auto page = arguments.count("--page");
  arguments.finish();

  const DataFolders folders(arguments, DataFolders::WithoutData::temporary);
  Editor editor(loadPlugin(name), size, page);
  streams.out << dump(viewTree(editor.host.rootView()), Layout::indented) << '\n';
  return 0;
}

int driveCommand(const Words& words, Streams streams) {
  ArgumentParser arguments("drive", words, {"--size", "--page"}, {"--strict"});
  const std::string name = arguments.positional("PLUGIN");
  const auto size = arguments.size("--size");
  const auto page = arguments.count("--page");
  const bool isStrict = arguments.flag("--strict");
  arguments.finish();

  const DataFolders folders(arguments, DataFolders::WithoutData::temporary);
  Editor editor(loadPlugin(name), size, page);
  DriveSession session(editor.host);
  int number = 0;
  std::string firstError;
  const auto tell = [&](const std::optional<DriveSession::Json>& answer) {
    if (!answer) return;
    // Flushed, so that whoever sent the command can wait for its answer.
    streams.out << dump(*answer, Layout::oneLine) << std::endl;
    if (firstError.empty() && answer->at("ok") == false)
      firstError = "line " + std::to_string(number) + ": " + answer->at("error").get<std::string>();
  };
  for (std::string line; std::getline(streams.in, line);) {
    ++number;
    tell(session.run(line));
  }
  tell(session.finish());
  if (isStrict && !firstError.empty()) throw Failure("orvane drive: " + firstError);
  return 0;
}

}  // namespace tool
