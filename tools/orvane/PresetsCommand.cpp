// orvane presets: user presets without an editor.

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <string>
#include <utility>

#include <nlohmann/json.hpp>

#include "Orvane/KestroAUViewController.h"
#include "Orvane/PresetManager.h"
#include "backends/headless/HeadlessRunLoop.h"
#include "foundation/Console.h"
#include "foundation/DefaultFileManager.h"
#include "platform/FilePath.h"
#include "platform/PropertyList.h"
#include "tools/orvane/ArgumentParser.h"
#include "tools/orvane/Commands.h"
#include "tools/orvane/DataFolders.h"
#include "tools/orvane/Plugin.h"
#include "tools/orvane/PresetDoctor.h"
#include "tools/orvane/PresetFolder.h"
#include "tools/orvane/Problems.h"
#include "tools/orvane/Text.h"
#include "tools/orvane/ViewTree.h"

namespace tool {

namespace {

using Json = nlohmann::ordered_json;
using platform::PropertyList;
using WithoutData = DataFolders::WithoutData;
namespace fs = std::filesystem;

const std::vector<std::string> jsonFlag{"--json"};

/// Dictionaries and arrays as JSON has them; data as {"bytes": count} and dates as {"date": seconds
/// since 2001}, since JSON has neither. Numbers that are none are null.
Json jsonOf(const PropertyList& list);

struct ToJson {
  Json operator()(std::monostate) const { return nullptr; }
  Json operator()(const PropertyList::Data& value) const { return {{"bytes", value.size()}}; }
  Json operator()(const PropertyList::Date& value) const { return {{"date", value.seconds}}; }
  Json operator()(const PropertyList::Array& value) const {
    Json list = Json::array();
    for (const PropertyList& item : value) list.push_back(jsonOf(item));
    return list;
  }
  Json operator()(const PropertyList::Dictionary& value) const {
    Json object = Json::object();
    for (const auto& [key, item] : value) object[key] = jsonOf(item);
    return object;
  }
  template <class Plain>
  Json operator()(const Plain& value) const {
    return value;
  }
};

Json jsonOf(const PropertyList& list) { return std::visit(ToJson(), list.value()); }

void print(Streams streams, const Json& json) {
  streams.out << dump(json, Layout::indented) << '\n';
}

std::string absolute(const std::string& path) {
  return fs::absolute(path).lexically_normal().string();
}

Json texts(const std::vector<std::string>& all) {
  Json list = Json::array();
  for (const std::string& text : all) list.push_back(oneLine(text));
  return list;
}

std::string joined(const std::vector<std::string>& all) {
  std::string text;
  for (const std::string& each : all) text += (text.empty() ? "" : ", ") + oneLine(each);
  return text;
}

/// The containers of --data, or all that the user has; then the cloud.
std::vector<PresetFolder> foldersToList(const DataFolders& folders) {
  std::vector<PresetFolder> all;
  if (folders.data()) {
    all.push_back({*folders.data() + "/Presets", *folders.data()});
  } else {
    std::error_code error;
    for (const auto& entry :
         fs::directory_iterator(foundation::LocalFileManager::usersDataFolder(), error))
      all.push_back({entry.path().string() + "/Presets", entry.path().string()});
  }
  if (folders.cloud()) {
    const std::string container = all.empty() ? "" : all.front().container;
    all.push_back({*folders.cloud() + "/Documents/Presets", container, true});
  }
  return all;
}

int listPresets(const Words& words, Streams streams) {
  const ArgumentParser arguments("presets list", words, {}, jsonFlag);
  arguments.finish();
  DataFolders folders(arguments, WithoutData::usersOwn);
  Json list = Json::array();
  for (const PresetFolder& folder : foldersToList(folders)) {
    std::vector<std::string> favourites;
    for (const Favourites& each : favouritesIn(folders.files(), folder.container))
      favourites.insert(favourites.end(), each.names.begin(), each.names.end());
    for (const PresetEntry& preset : presetsIn(folders.files(), folder.presets)) {
      const bool isFavourite =
          std::find(favourites.begin(), favourites.end(), preset.path) != favourites.end();
      const std::vector<std::string> categories = preset.file.categories();
      if (arguments.flag("--json")) {
        Json& entry = list.emplace_back(Json{{"name", oneLine(preset.name)},
                                             {"file", oneLine(preset.path)},
                                             {"cloud", folder.isCloud},
                                             {"favourite", isFavourite},
                                             {"categories", texts(categories)}});
        if (!preset.error.empty()) entry["error"] = oneLine(preset.error);
      } else {
        streams.out << oneLine(preset.name) << (isFavourite ? " *" : "");
        if (!categories.empty()) streams.out << "  (" << joined(categories) << ')';
        if (!preset.error.empty()) streams.out << "  " << oneLine(preset.error);
        streams.out << '\n';
      }
    }
  }
  if (arguments.flag("--json")) print(streams, list);
  return 0;
}

int showPreset(const Words& words, Streams streams) {
  ArgumentParser arguments("presets show", words, {}, jsonFlag);
  const std::string file = arguments.positional("FILE");
  arguments.finish();
  DataFolders folders(arguments, WithoutData::temporary);
  const PresetEntry preset = readPreset(folders.files(), file);
  if (!preset.error.empty()) throw Failure(file + ": " + preset.error);
  const bool isArchive = preset.file.form == orvane::PresetFile::Form::keyedArchive;
  const std::string form = isArchive ? "keyed archive" : "property list";
  if (arguments.flag("--json")) {
    print(streams, {{"name", oneLine(preset.name)},
                    {"form", form},
                    {"categories", texts(preset.file.categories())},
                    {"content", jsonOf(preset.file.content)}});
    return 0;
  }
  streams.out << oneLine(preset.name) << "\n  " << form << '\n';
  if (const auto categories = preset.file.categories(); !categories.empty())
    streams.out << "  categories: " << joined(categories) << '\n';
  const auto* parameters = preset.file.content.find("parameters");
  const auto* values = parameters ? parameters->as<platform::PropertyList::Dictionary>() : nullptr;
  if (values)
    for (const auto& [key, value] : *values)
      streams.out << "  " << oneLine(key) << " = " << jsonOf(value).dump() << '\n';
  return 0;
}

int convertPresets(const Words& words, Streams streams) {
  ArgumentParser arguments("presets convert", words, {}, jsonFlag);
  const std::string path = arguments.positional("FILE or FOLDER");
  arguments.finish();
  DataFolders folders(arguments, WithoutData::temporary);
  std::vector<PresetEntry> presets;
  if (folders.files().isDirectory(path))
    presets = presetsIn(folders.files(), PresetFolder::at(path).presets);
  else
    presets.push_back(readPreset(folders.files(), path));
  Json list = Json::array();
  bool failed = false;
  for (const PresetEntry& preset : presets) {
    std::string error = preset.error, result = "unchanged";
    if (error.empty() && preset.file.form == orvane::PresetFile::Form::keyedArchive) {
      error = writePreset(folders.files(), preset);
      result = "converted";
    }
    if (!error.empty()) result = "failed";
    failed = failed || !error.empty();
    Json& entry = list.emplace_back(Json{{"file", oneLine(preset.path)}, {"result", result}});
    if (!error.empty()) entry["error"] = oneLine(error);
    if (!arguments.flag("--json"))
      streams.out << oneLine(preset.path) << ": " << (error.empty() ? result : oneLine(error))
                  << '\n';
  }
  if (arguments.flag("--json")) print(streams, list);
  return failed ? 1 : 0;
}

std::string groupOf(const std::string& plugin) {
  const headless::HeadlessRunLoop loop;
  std::string group = loadPlugin(plugin).entry.createViewController()->groupBundleId();
  if (group.empty()) throw Failure(plugin + ": the plug-in keeps no presets");
  return group;
}

/// A file is counted as the browser lists it; without a plug-in, whatever is a preset.
std::size_t countPresets(foundation::LocalFileManager& files, const std::string& folder) {
  const auto presets = presetsIn(files, folder);
  return static_cast<std::size_t>(
      std::count_if(presets.begin(), presets.end(),
                    [](const PresetEntry& preset) { return preset.error.empty(); }));
}

int listPacks(ArgumentParser& arguments, Streams streams) {
  const auto plugin = arguments.optionalPositional();
  arguments.finish();
  DataFolders folders(arguments, WithoutData::usersOwn);
  std::vector<std::string> containers;
  if (plugin && !folders.data())
    containers.push_back(*folders.files().groupContainer(groupOf(*plugin)));
  else
    for (const PresetFolder& folder : foldersToList(folders))
      if (!folder.isCloud) containers.push_back(folder.container);
  Json list = Json::array();
  for (const std::string& container : containers) {
    auto packs = folders.files().contentsOfDirectory(container + "/PresetPacks");
    if (!packs) continue;
    std::sort(packs->begin(), packs->end(),
              [](const auto& a, const auto& b) { return a.name < b.name; });
    for (const auto& pack : *packs) {
      if (!pack.isDirectory) continue;
      const std::string path = container + "/PresetPacks/" + pack.name;
      const std::size_t count = countPresets(folders.files(), path);
      list.push_back({{"name", oneLine(pack.name)}, {"folder", oneLine(path)}, {"presets", count}});
      if (!arguments.flag("--json"))
        streams.out << oneLine(pack.name) << ": " << count
                    << (count == 1 ? " preset\n" : " presets\n");
    }
  }
  if (arguments.flag("--json")) print(streams, list);
  return 0;
}

int packCommand(const Words& words, Streams streams) {
  ArgumentParser arguments("presets pack", words, {}, jsonFlag);
  const std::string action = arguments.positional("install or list");
  if (action == "list") return listPacks(arguments, streams);
  if (action != "install") arguments.fail("only install and list are known");
  const std::string folder = arguments.positional("FOLDER");
  const auto plugin = arguments.optionalPositional();
  arguments.finish();
  if (!plugin && !arguments.text("--data")) arguments.fail("PLUGIN or --data is missing");
  DataFolders folders(arguments, WithoutData::usersOwn);
  if (!folders.files().isDirectory(folder)) throw Failure(folder + ": there is no such folder");

  std::vector<std::string> printed;
  const foundation::ConsoleListener listener(
      [&](const std::string& line) { printed.push_back(line); });
  // With --data all groups have the same container.
  orvane::PresetManager manager(plugin ? groupOf(*plugin) : "presets", {});
  const std::string pack = manager.presetPackPath(platform::lastPathComponent(absolute(folder)));
  // Else it would be removed to make room for itself.
  std::error_code error;
  if (fs::equivalent(folder, pack, error)) throw Failure(folder + ": is installed already");
  manager.copyPresetsFromFolder(absolute(folder));
  if (!folders.files().isDirectory(pack))
    throw Failure(folder + ": the pack could not be installed");
  const std::size_t count = countPresets(folders.files(), pack);
  if (arguments.flag("--json"))
    print(streams, {{"pack", oneLine(pack)}, {"presets", count}, {"errors", texts(printed)}});
  else
    streams.out << oneLine(pack) << ": " << count << (count == 1 ? " preset\n" : " presets\n");
  if (!printed.empty() && !arguments.flag("--json")) throw Failure(folder + ": " + printed.front());
  return printed.empty() ? 0 : 1;
}

int examineFolder(const Words& words, Streams streams) {
  ArgumentParser arguments("presets doctor", words, {}, {"--json", "--fix"});
  const std::string path = absolute(arguments.positional("FOLDER"));
  arguments.finish();
  foundation::LocalFileManager files(PresetFolder::at(path).container,
                                     foundation::LocalFileManager::Groups::oneForAll);
  const foundation::DefaultFileManager scope(files);
  const PresetFolder folder = PresetFolder::at(path);
  if (!files.isDirectory(folder.presets)) throw Failure(path + ": there is no such folder");
  const auto mode = arguments.flag("--fix") ? PresetDoctor::Mode::fix : PresetDoctor::Mode::report;
  Json list = Json::array();
  bool isLeft = false, areAny = false;
  const auto problems = PresetDoctor(files, folder, mode).examine();
  for (const PresetProblem& problem : problems) {
    const bool isTrash = problem.kind == PresetProblem::Kind::trash;
    areAny = areAny || !isTrash;
    isLeft = isLeft || (!isTrash && !problem.isFixed);
    if (arguments.flag("--json"))
      list.push_back({{"kind", kindName(problem.kind)},
                      {"file", oneLine(problem.file)},
                      {"text", oneLine(problem.text)},
                      {"fixed", problem.isFixed}});
    else
      streams.out << oneLine(problem.file) << ": " << oneLine(problem.text)
                  << (problem.isFixed ? " (mended)\n" : "\n");
  }
  if (arguments.flag("--json"))
    print(streams, list);
  else if (!areAny)
    streams.out << oneLine(path) << ": no problems\n";
  return isLeft ? 1 : 0;
}

}  // namespace

int presetsCommand(const Words& words, Streams streams) {
  constexpr struct {
    std::string_view name;
    int (*run)(const Words& words, Streams streams);
  } commands[] = {{"list", listPresets},
                  {"show", showPreset},
                  {"convert", convertPresets},
                  {"pack", packCommand},
                  {"doctor", examineFolder}};
  if (words.empty())
    throw UsageError("orvane presets: list, show, convert, pack or doctor is missing");
  for (const auto& command : commands)
    if (command.name == words[0])
      return command.run(Words(words.begin() + 1, words.end()), streams);
  throw UsageError("orvane presets: unknown command " + inQuotes(words[0]));
}

}  // namespace tool
