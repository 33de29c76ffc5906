#include "tools/orvane/Tool.h"

#include <exception>
#include <istream>
#include <ostream>
#include <string_view>

#include "tools/orvane/Commands.h"
#include "tools/orvane/Problems.h"
#include "tools/orvane/Text.h"

namespace tool {

namespace {

struct Command {
  std::string_view name;
  int (*run)(const Words& words, Streams streams);
};

constexpr Command commands[] = {
    {"list", listCommand},       {"run", runCommand},     {"snapshot", snapshotCommand},
    {"tree", treeCommand},       {"drive", driveCommand}, {"check", checkCommand},
    {"presets", presetsCommand},
};

constexpr std::string_view help = R"(usage: orvane COMMAND ...

  list                  the built-in plug-ins
  run PLUGIN            the stand-alone editor in a window, with sound where a device exists
  snapshot PLUGIN -o FILE.png [--size WxH] [--scale S] [--page N] [--script FILE]
                        a picture of the editor
  tree PLUGIN [--size WxH] [--page N]
                        the view tree as JSON
  drive PLUGIN [--size WxH] [--page N] [--strict] [< SCRIPT]
                        a scripted editor: commands in, JSON out; --strict fails at the end if
                        a command did
  check PLUGIN [--size WxH ...]
                        what is wrong with a design
  presets list          the user presets
  presets show FILE     what a preset file holds
  presets convert FILE|FOLDER
                        rewrites keyed archives of older versions as property lists
  presets pack install FOLDER [PLUGIN]
                        installs a pack of presets
  presets doctor FOLDER [--fix]
                        what is wrong with a folder of presets
                        each presets command takes --json

PLUGIN is a built-in's name or the path of a description (*.json). Every command takes
--data DIR and --cloud DIR, the folders that stand for the app group and the cloud.
)";

int runCommandLine(const std::vector<std::string>& arguments, Streams streams) {
  if (arguments.empty()) throw UsageError("orvane: a command is missing; try orvane --help");
  const std::string& name = arguments[0];
  if (name == "--help" || name == "-h" || name == "help") {
    streams.out << help;
    return 0;
  }
  for (const Command& command : commands)
    if (command.name == name)
      return command.run(Words(arguments.begin() + 1, arguments.end()), streams);
  throw UsageError("orvane: unknown command " + inQuotes(name) + "; try orvane --help");
}

}  // namespace

int runTool(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
            std::ostream& err) {
  try {
    const int code = runCommandLine(arguments, {in, out});
    out.flush();
    return code;
  } catch (const UsageError& error) {
    err << oneLine(error.what()) << std::endl;
    return 2;
  } catch (const std::exception& error) {
    out.flush();
    err << oneLine(error.what()) << std::endl;
    return 1;
  }
}

}  // namespace tool
