#include <algorithm>
#include <map>
#include <ostream>
#include <utility>

#include "Orvane/AUFilterViewContainer.h"
#include "tools/orvane/ArgumentParser.h"
#include "tools/orvane/Commands.h"
#include "tools/orvane/DataFolders.h"
#include "tools/orvane/DesignCheck.h"
#include "tools/orvane/Editor.h"
#include "tools/orvane/Plugin.h"
#include "tools/orvane/Text.h"

namespace tool {

namespace {

/// From a small window to a large screen.
const std::vector<platform::Size> usualSizes{{480, 320}, {1024, 768}, {2560, 1600}};

bool hasParameter(const platform::AudioUnit& unit, const std::string& key) {
  return unit.parameter(orvane::DSPParameters::parameterKey(key)) != nullptr;
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

/// What can be shown but makes no sense.
void checkPage(const platform::AudioUnit& unit, const DescribedPage& page, const std::string& place,
               bool hasTab, Problems& problems) {
  if (hasTab && page.title.empty())
    problems.push_back({place + ".title", "is empty, so that the page's tab shows nothing"});
  for (std::size_t i = 0; i < page.sections.size(); ++i) {
    const auto& state = page.sections[i].section->stateParameter;
    const auto* parameter = state ? unit.parameter(*state) : nullptr;
    if (parameter && parameter->maxValue() < 1)
      problems.push_back(
          {place + ".sections[" + std::to_string(i) + "].state",
           inQuotes(*state) + " never reaches 1, so that the section is always off"});
  }
}

/// Presets that nobody can tell apart.
void checkPresets(const platform::AudioUnit& unit, Problems& problems) {
  std::map<std::pair<std::string, std::string>, std::size_t> places;
  const auto& presets = unit.factoryPresets();
  for (std::size_t i = 0; i < presets.size(); ++i) {
    const auto [first, isNew] = places.emplace(std::pair(presets[i].bank, presets[i].name), i);
    if (isNew) continue;
    problems.push_back({"factoryPresets[" + std::to_string(i) + "].name",
                        inQuotes(presets[i].name) + " is the name of factoryPresets[" +
                            std::to_string(first->second) +
                            "] in the same bank already, and both share one star"});
  }
}

/// The design as the plug-in gives it, which may be as wrong as a description.
void checkDesign(const Plugin& plugin, Problems& problems) {
  const headless::HeadlessRunLoop loop;
  const auto unit = plugin.entry.createAudioUnit();
  const auto controller = plugin.entry.createViewController();
  const auto design = controller->design();
  std::vector<DescribedPage> pages;
  for (const auto& page : design->pages()) pages.push_back({page->title(), page->sections});
  std::vector<std::shared_ptr<kestroui::ParamKey>> keys = design->paramKeys();
  checkSettings(*unit, keys, problems);
  checkPresets(*unit, problems);
  std::vector<std::optional<std::string>> foot;
  for (const auto& key : controller->foot_stack()) {
    foot.push_back(key ? std::optional(key->key()) : std::nullopt);
    if (key) keys.push_back(key);
  }

  // Of several settings for a key the first count, as they do for the controls.
  std::map<std::string, bool> hasControl;
  for (const auto& key : keys)
    hasControl.emplace(key->key(), key->settings().container ||
                                       key->settings().controlType != kestroui::ControlType::none);
  const auto keyProblem = [&](const std::string& key) -> std::string {
    if (!hasParameter(*unit, key)) return "no parameter " + inQuotes(key);
    const auto described = hasControl.find(key);
    return described != hasControl.end() && !described->second
               ? inQuotes(key) + " has the control \"none\", which shows nothing"
               : std::string();
  };
  DesignCheck(problems, keyProblem, foot).check(pages);
  for (std::size_t i = 0; i < pages.size(); ++i)
    checkPage(*unit, pages[i], "pages[" + std::to_string(i) + ']', pages.size() > 1, problems);
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
