// What a script does with presets.

#include <algorithm>

#include "Orvane/FavPresetsStore.h"
#include "Orvane/PresetManager.h"
#include "tools/orvane/DriveSession.h"
#include "tools/orvane/Problems.h"
#include "tools/orvane/Text.h"

namespace tool {

namespace {

orvane::PresetManager& presetManager(headless::HeadlessHost& host) {
  if (auto* manager = host.editor().presetManager()) return *manager;
  throw Failure("the editor keeps no presets");
}

orvane::PresetListTableViewController& presetList(headless::HeadlessHost& host) {
  return host.editor().overlaysView().presetList();
}

DriveSession::Json currentName(const platform::AudioUnit& unit) {
  const std::string name = unit.currentPresetName();
  return name.empty() ? DriveSession::Json() : DriveSession::Json(oneLine(name));
}

}  // namespace

void DriveSession::preset(const std::string& text, Json& answer) {
  constexpr std::string_view user = "user ";
  const bool isUser = text.starts_with(user);
  const std::string name = isUser ? text.substr(user.size()) : text;
  const auto find = [&](const std::string& wanted, bool isUserPreset) {
    const auto& all = presetList(host_).presetFileList();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& preset) {
      return preset->name == wanted && preset->isUserPreset == isUserPreset;
    });
    return found == all.end() ? nullptr : *found;
  };
  // A factory preset may have such a name, too.
  auto preset = find(text, false);
  if (!preset && isUser) {
    // Files come and go.
    presetManager(host_);
    presetList(host_).reload();
    preset = find(name, true);
  }
  if (!preset) throw Failure((isUser ? "no user preset " : "no factory preset ") + inQuotes(name));
  host_.editor().selectPreset(preset);
  host_.loop().runDue();
  answer["selected"] = currentName(host_.audioUnit());
}

void DriveSession::stepPreset(bool backward, Json& answer) {
  if (presetList(host_).presetListForNextAndPrevious().empty())
    throw Failure("there are no presets");
  presetList(host_).selectNext(backward);
  host_.loop().runDue();
  answer["selected"] = currentName(host_.audioUnit());
}

void DriveSession::next(const Words&, Json& answer) { stepPreset(false, answer); }

void DriveSession::previous(const Words&, Json& answer) { stepPreset(true, answer); }

void DriveSession::presets(const Words&, Json& answer) {
  orvane::PresetListTableViewController& list = presetList(host_);
  list.reload();
  const auto& selected = host_.editor().selectedPreset();
  answer["selected"] = selected ? Json(oneLine(selected->name)) : Json();
  Json& shown = answer["shown"] = Json::array();
  for (int section = 0; section < list.numberOfSections(list.tableView()); ++section)
    for (const auto& preset : list.presetFileListFiltered()) {
      const bool isHere = !list.useHeaders || preset->isUserPreset == (section == 0);
      if (!isHere) continue;
      // Of its kind, also where the list has no headers.
      shown.push_back({{"section", preset->isUserPreset ? "USER" : "FACTORY"},
                       {"name", oneLine(preset->name)},
                       {"user", preset->isUserPreset},
                       {"favourite", preset->isFavourite},
                       {"categories", preset->categories}});
    }
  Json& walk = answer["walk"] = Json::array();
  for (const auto& preset : list.presetListForNextAndPrevious())
    walk.push_back(oneLine(preset->name));
  Json& favourites = answer["favourites"] = Json::array();
  for (const std::string& name : orvane::FavPresetsStore::favouritePresets)
    favourites.push_back(oneLine(name));
}

void DriveSession::pick(const Words& words, Json& answer) {
  std::vector<std::string> files;
  for (const Word& word : words) files.push_back(word.text);
  // A picker that is not open yet is opened, as the browser's import button does.
  if (!host_.application()->pick(files)) {
    host_.editor().importPreset();
    if (!host_.application()->pick(files)) throw Failure("no picker opens");
  }
  host_.loop().runDue();
  answer["selected"] = currentName(host_.audioUnit());
}

void DriveSession::exportPreset(const Words&, Json&) {
  presetManager(host_);
  host_.editor().exportPreset();
  host_.loop().runDue();
}

void DriveSession::exportAll(const Words&, Json&) {
  presetManager(host_);
  host_.editor().exportAll();
  host_.loop().runDue();
}

}  // namespace tool
