// What a script does with presets.

#include <algorithm>

#include "Orvane/FactoryPreset.h"
#include "Orvane/FavPresetsStore.h"
#include "tools/orvane/DriveSession.h"
#include "tools/orvane/Text.h"
#include "tools/orvane/ToolError.h"

namespace tool {

namespace {

orvane::PresetManager& presetManager(headless::HeadlessHost& host) {
  if (auto* manager = host.editor().presetManager()) return *manager;
  throw Failure("the editor keeps no presets");
}

std::vector<std::shared_ptr<orvane::UserPreset>> userPresets(headless::HeadlessHost& host) {
  orvane::PresetManager& manager = presetManager(host);
  manager.createPresetDirectories();
  auto presets = manager.getUserPresets();
  std::sort(presets.begin(), presets.end(), [](const auto& a, const auto& b) {
    return a->name != b->name ? a->name < b->name : a->url < b->url;
  });
  return presets;
}

DriveSession::Json currentName(const platform::AudioUnit& unit) {
  const std::string name = unit.currentPresetName();
  return name.empty() ? DriveSession::Json() : DriveSession::Json(oneLine(name));
}

}  // namespace

void DriveSession::preset(const std::string& text, Json& answer) {
  platform::AudioUnit& unit = host_.audioUnit();
  const auto& presets = unit.factoryPresets();
  const auto found = std::find_if(presets.begin(), presets.end(),
                                  [&](const auto& preset) { return preset.name == text; });
  constexpr std::string_view user = "user ";
  if (found != presets.end())
    host_.editor().presetSelected(
        std::make_shared<orvane::FactoryPreset>(platform::KestroAUPreset(*found)));
  else if (text.starts_with(user))
    userPreset(text.substr(user.size()));
  else
    throw Failure("no factory preset " + inQuotes(text));
  host_.loop().runDue();
  answer["selected"] = currentName(unit);
}

void DriveSession::userPreset(const std::string& name) {
  const auto presets = userPresets(host_);
  const auto found = std::find_if(presets.begin(), presets.end(),
                                  [&](const auto& preset) { return preset->name == name; });
  if (found == presets.end()) throw Failure("no user preset " + inQuotes(name));
  host_.editor().presetSelected(*found);
}

void DriveSession::presets(const Words&, Json& answer) {
  const platform::AudioUnit& unit = host_.audioUnit();
  answer["selected"] = currentName(unit);
  Json shown = Json::array(), walk = Json::array();
  const auto addRow = [&](const orvane::Preset& preset) {
    shown.push_back({{"section", oneLine(preset.bankName)},
                     {"name", oneLine(preset.name)},
                     {"user", preset.isUserPreset},
                     {"favourite", orvane::FavPresetsStore::contains(preset.uniqueName())},
                     {"categories", preset.categories}});
    walk.push_back(oneLine(preset.name));
  };
  for (const auto& preset : unit.factoryPresets())
    addRow(orvane::Preset(platform::KestroAUPreset(preset)));
  for (const auto& preset : userPresets(host_)) addRow(*preset);
  answer["shown"] = std::move(shown);
  answer["walk"] = std::move(walk);
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
