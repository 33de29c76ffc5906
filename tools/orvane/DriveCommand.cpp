#include <istream>
#include <ostream>
#include <string>

#include "tools/orvane/ArgumentParser.h"
#include "tools/orvane/Commands.h"
#include "tools/orvane/DataFolders.h"
#include "tools/orvane/DriveSession.h"
#include "tools/orvane/Editor.h"
#include "tools/orvane/Plugin.h"
#include "tools/orvane/ViewTree.h"

namespace tool {

int driveCommand(const Words& words, Streams streams) {
  ArgumentParser arguments("drive", words, {"--size", "--page"});
  const std::string name = arguments.positional("PLUGIN");
  const auto size = arguments.size("--size");
  const auto page = arguments.count("--page");
  arguments.finish();

  const DataFolders folders(arguments, DataFolders::WithoutData::temporary);
  Editor editor(loadPlugin(name), size, page);
  DriveSession session(editor.host);
  std::string line;
  while (std::getline(streams.in, line))
    // Flushed, so that whoever sent the command can wait for its answer.
    if (const auto answer = session.run(line))
      streams.out << dump(*answer, Layout::oneLine) << std::endl;
  return 0;
}

}  // namespace tool
