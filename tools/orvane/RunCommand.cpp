#include "foundation/Bundle.h"
#include "tools/orvane/ArgumentParser.h"
#include "tools/orvane/Commands.h"
#include "tools/orvane/DataFolders.h"
#include "tools/orvane/Plugin.h"
#include "tools/orvane/ToolError.h"

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

}  // namespace

int runCommand(const Words& words, Streams) {
  ArgumentParser arguments("run", words, {});
  const std::string name = arguments.positional("PLUGIN");
  arguments.finish();
  const DataFolders folders(arguments, DataFolders::WithoutData::usersOwn);
  const Plugin plugin = loadPlugin(name);
  const foundation::MainBundle bundle(plugin.entry.infoDictionary());
  return show(plugin);
}

}  // namespace tool
