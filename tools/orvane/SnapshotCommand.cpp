#include <fstream>
#include <string>

#include "tools/orvane/ArgumentParser.h"
#include "tools/orvane/Commands.h"
#include "tools/orvane/DataFolders.h"
#include "tools/orvane/DriveSession.h"
#include "tools/orvane/Editor.h"
#include "tools/orvane/Picture.h"
#include "tools/orvane/Plugin.h"
#include "tools/orvane/ToolError.h"

namespace tool {

namespace {

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

}  // namespace tool
