#include <algorithm>
#include <ostream>
#include <set>

#include "Orvane/AUFilterViewContainer.h"
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

bool hasParameter(const platform::AudioUnit& unit, const std::string& key) {
  return unit.parameter(orvane::AUFilterViewContainer::parameterKey(key)) != nullptr;
}

/// What the settings of the keys name. A description has told of its own already.
void checkSettings(const platform::AudioUnit& unit,
                   const std::vector<std::shared_ptr<kestroui::ParamKey>>& keys,
                   Problems& problems) {
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const std::string place = "paramKeys[" + std::to_string(i) + ']';
    const kestroui::ParameterUISettings& settings = keys[i]->settings();
    if (!hasParameter(unit, keys[i]->key()))
      problems.push_back({place, "no parameter " + inQuotes(keys[i]->key())});
    // Those of a group of flags are the names of its bits.
    if (settings.controlType == kestroui::ControlType::bitFlagsGroup) continue;
    for (std::size_t k = 0; k < settings.attachedParameters.size(); ++k)
      if (const std::string& attached = settings.attachedParameters[k];
          !hasParameter(unit, attached))
        problems.push_back(
            {place + ".attached[" + std::to_string(k) + ']', "no parameter " + inQuotes(attached)});
  }
}

/// The design as the plug-in gives it, which may be as wrong as a description.
void checkDesign(const Plugin& plugin, Problems& problems) {
  const headless::HeadlessRunLoop loop;
  const auto unit = plugin.entry.makeAudioUnit();
  const auto controller = plugin.entry.makeViewController();
  const auto design = controller->design();
  std::vector<DescribedPage> pages;
  for (const auto& page : design->pages()) pages.push_back({page->title(), page->sections});
  std::vector<std::shared_ptr<kestroui::ParamKey>> keys = design->paramKeys();
  checkSettings(*unit, keys, problems);
  std::vector<std::optional<std::string>> foot;
  for (const auto& key : controller->foot_stack()) {
    foot.push_back(key ? std::optional(key->key()) : std::nullopt);
    if (key) keys.push_back(key);
  }

  std::set<std::string> withoutControl;
  for (const auto& key : keys)
    if (key->settings().controlType == kestroui::ControlType::none && !key->settings().container)
      withoutControl.insert(key->key());
  const auto keyProblem = [&](const std::string& key) -> std::string {
    if (!hasParameter(*unit, key)) return "no parameter " + inQuotes(key);
    return withoutControl.contains(key)
               ? inQuotes(key) + " has the control \"none\", which shows nothing"
               : std::string();
  };
  DesignCheck(problems, keyProblem, foot).check(pages);
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
    checkUse(editor.host, problems);
  }
  for (const Problem& problem : problems) streams.out << oneLine(problem.line(name)) << '\n';
  if (!problems.empty()) return 1;
  streams.out << oneLine(name) << ": no problems\n";
  return 0;
}

}  // namespace tool
