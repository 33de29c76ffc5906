#include <algorithm>
#include <ostream>

#include "tools/orvane/ArgumentParser.h"
#include "tools/orvane/Commands.h"
#include "tools/orvane/DataFolders.h"
#include "tools/orvane/DesignCheck.h"
#include "tools/orvane/Editor.h"
#include "tools/orvane/LayoutCheck.h"
#include "tools/orvane/Plugin.h"
#include "tools/orvane/Text.h"

namespace tool {

namespace {

/// From a small window to a large screen.
const std::vector<platform::Size> usualSizes{{480, 320}, {1024, 768}, {2560, 1600}};

/// The design of a plug-in that was not read from a file, which may be as wrong as a description.
void checkDesign(const Plugin& plugin, Problems& problems) {
  const headless::HeadlessRunLoop loop;
  const auto unit = plugin.entry.makeAudioUnit();
  const auto controller = plugin.entry.makeViewController();
  const auto design = controller->design();
  std::vector<DescribedPage> pages;
  for (const auto& page : design->pages()) pages.push_back({page->title(), page->sections});
  std::vector<std::optional<std::string>> foot;
  for (const auto& key : controller->foot_stack())
    foot.push_back(key ? std::optional(key->key()) : std::nullopt);
  const auto isParameter = [&](const std::string& key) { return unit->parameter(key) != nullptr; };
  DesignCheck(problems, isParameter, foot).check(pages);
}

}  // namespace

int checkCommand(const Words& words, Streams streams) {
  ArgumentParser arguments("check", words, {"--size"});
  const std::string name = arguments.positional("PLUGIN");
  std::vector<platform::Size> sizes = arguments.sizes("--size");
  arguments.finish();
  const DataFolders folders(arguments, DataFolders::WithoutData::temporary);
  if (sizes.empty()) sizes = usualSizes;

  Problems problems;
  const Plugin plugin = loadPlugin(name, problems);
  if (problems.empty()) checkDesign(plugin, problems);
  // A design that does not fit together cannot be shown.
  if (problems.empty()) {
    Editor editor(plugin, sizes.front(), std::nullopt);
    for (const platform::Size& size : sizes) {
      editor.host.resize(size);
      checkLayout(editor.host, problems);
    }
  }
  for (const Problem& problem : problems) streams.out << oneLine(problem.line(name)) << '\n';
  if (!problems.empty()) return 1;
  streams.out << oneLine(name) << ": no problems\n";
  return 0;
}

}  // namespace tool
