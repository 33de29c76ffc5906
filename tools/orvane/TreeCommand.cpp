#include <ostream>

#include "tools/orvane/ArgumentParser.h"
#include "tools/orvane/Commands.h"
#include "tools/orvane/DataFolders.h"
#include "tools/orvane/Editor.h"
#include "tools/orvane/Plugin.h"
#include "tools/orvane/ViewTree.h"

namespace tool {

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

}  // namespace tool
