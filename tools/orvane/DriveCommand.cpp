#include <istream>
#include <ostream>
#include <string>

#include "tools/orvane/ArgumentParser.h"
#include "tools/orvane/Commands.h"
#include "tools/orvane/DataFolders.h"
#include "tools/orvane/DriveSession.h"
#include "tools/orvane/Editor.h"
#include "tools/orvane/Plugin.h"
#include "tools/orvane/ToolError.h"
#include "tools/orvane/ViewTree.h"

namespace tool {

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
