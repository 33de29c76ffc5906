#include "tools/orvane/PresetDoctor.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <map>
#include <set>
#include <utility>

#include "Orvane/PresetTrash.h"
#include "foundation/SafeFile.h"
#include "foundation/UnicodeText.h"
#include "foundation/UserDefaults.h"
#include "platform/FilePath.h"
#include "tools/orvane/Text.h"

namespace tool {

using platform::PropertyList;
using Kind = PresetProblem::Kind;

namespace {

/// A file that is still being written is not touched.
constexpr std::chrono::minutes unfinishedAge{10};

/// "a 2.example"
std::string numbered(const std::string& stem, int number, const std::string& extension) {
  return stem + ' ' + std::to_string(number) + (extension.empty() ? "" : '.' + extension);
}

}  // namespace

std::string kindName(Kind kind) {
  switch (kind) {
    case Kind::unreadable:
      return "unreadable";
    case Kind::duplicateName:
      return "duplicate-name";
    case Kind::categories:
      return "categories";
    case Kind::missingFavourite:
      return "missing-favourite";
    case Kind::unfinished:
      return "unfinished";
    case Kind::trash:
      return "trash";
  }
  return "";
}

PresetDoctor::PresetDoctor(platform::FileManager& files, PresetFolder folder, Mode mode)
    : files_(files), folder_(std::move(folder)), mode_(mode) {}

std::vector<PresetProblem> PresetDoctor::examine() {
  presets_ = presetsIn(files_, folder_.presets);
  findUnreadable();
  findDuplicates();
  findCategories();
  findMissingFavourites();
  findUnfinished();
  listTrash();
  return problems_;
}

template <class Fix>
void PresetDoctor::found(Kind kind, const std::string& file, std::string text, Fix fix) {
  PresetProblem problem{kind, file, std::move(text)};
  if (mode_ == Mode::fix) {
    const std::string whyNot = fix();
    problem.isFixed = whyNot.empty();
    if (!whyNot.empty()) problem.text += "; not mended: " + whyNot;
  }
  problems_.push_back(std::move(problem));
}

std::string PresetDoctor::move(const std::string& from, const std::string& to) {
  const auto error = files_.moveItem(from, to);
  return error ? error->localizedDescription : std::string();
}

void PresetDoctor::findUnreadable() {
  const std::string aside = foundation::folderOf(folder_.presets) + "/Unreadable Presets/";
  for (const PresetEntry& preset : presets_) {
    if (preset.error.empty()) continue;
    found(Kind::unreadable, preset.path, preset.error, [&] {
      static_cast<void>(
          files_.createDirectory(aside, platform::FileManager::Intermediates::mustExist));
      // An earlier mending may have put a file of this name there.
      std::string name = platform::lastPathComponent(preset.path);
      for (int number = 2; files_.fileExists(aside + name); ++number)
        name =
            numbered(platform::fileStem(preset.path), number, platform::pathExtension(preset.path));
      return move(preset.path, aside + name);
    });
  }
  std::erase_if(presets_, [](const PresetEntry& preset) { return !preset.error.empty(); });
}

void PresetDoctor::findDuplicates() {
  std::map<std::string, std::string> firstOf;
  for (PresetEntry& preset : presets_) {
    const auto [first, isNew] = firstOf.emplace(foundation::lowercased(preset.name), preset.path);
    if (isNew) continue;
    const std::string text =
        "has the name of " + inQuotes(platform::lastPathComponent(first->second));
    found(Kind::duplicateName, preset.path, text, [&] {
      const std::string extension = platform::pathExtension(preset.path);
      for (int number = 2;; ++number) {
        const std::string path = folder_.presets + '/' + numbered(preset.name, number, extension);
        const std::string name = preset.name + ' ' + std::to_string(number);
        if (firstOf.count(foundation::lowercased(name)) || files_.fileExists(path)) continue;
        std::string whyNot = move(preset.path, path);
        if (whyNot.empty()) {
          whyNot = changeFavourite(preset.path, path);
          preset.path = path;
          firstOf.emplace(foundation::lowercased(name), path);
        }
        return whyNot;
      }
    });
  }
}

void PresetDoctor::findCategories() {
  for (PresetEntry& preset : presets_) {
    PropertyList::Array lowered;
    std::string upper;
    for (const std::string& category : preset.file.categories()) {
      lowered.push_back(foundation::lowercased(category));
      if (upper.empty() && lowered.back() != PropertyList(category)) upper = category;
    }
    if (upper.empty()) continue;
    found(Kind::categories, preset.path, "the category " + inQuotes(upper) + " is not lower case",
          [&] {
            auto& entries = *preset.file.content.as<PropertyList::Dictionary>();
            entries[orvane::PresetFile::categoriesKey] = lowered;
            return writePreset(files_, preset);
          });
  }
}

std::string PresetDoctor::changeFavourite(const std::string& name,
                                          const std::optional<std::string>& newName) {
  for (const Favourites& favourites : favouritesIn(files_, folder_.container)) {
    if (std::find(favourites.names.begin(), favourites.names.end(), name) == favourites.names.end())
      continue;
    auto defaults = foundation::UserDefaults::open(favourites.suite);
    auto list = defaults ? defaults->array("favpresets") : std::nullopt;
    if (!list) return "the favourites cannot be read";
    if (newName)
      std::replace(list->begin(), list->end(), PropertyList(name), PropertyList(*newName));
    else
      std::erase(*list, PropertyList(name));
    defaults->setObject("favpresets", *list);
  }
  return "";
}

void PresetDoctor::findMissingFavourites() {
  // What lies elsewhere, such as on a disk that is not there now, may come back. A factory preset
  // without a bank has "/" in front as well.
  const std::string inFolder = folder_.presets + '/';
  std::set<std::string> missing;
  for (const Favourites& favourites : favouritesIn(files_, folder_.container))
    for (const std::string& name : favourites.names)
      if (name.starts_with(inFolder) && platform::isFileName(name.substr(inFolder.size())) &&
          !files_.status(name, platform::FileManager::Links::itself))
        missing.insert(name);
  for (const std::string& name : missing)
    found(Kind::missingFavourite, name, "is a favourite, but there is no such file",
          [&] { return changeFavourite(name, std::nullopt); });
}

void PresetDoctor::listTrash() {
  const orvane::PresetTrash trash(
      files_, foundation::folderOf(folder_.presets) + '/' + orvane::PresetTrash::folderName);
  auto entries = trash.entries();
  std::sort(entries.begin(), entries.end(),
            [](const auto& a, const auto& b) { return a.path < b.path; });
  for (const auto& entry : entries) {
    const std::string time =
        platform::lastPathComponent(foundation::folderOf(entry.path)).substr(0, 10);
    problems_.push_back({Kind::trash, entry.path, "was deleted or replaced on " + time});
  }
}

void PresetDoctor::findUnfinished() {
  namespace fs = std::filesystem;
  std::error_code error;
  const auto now = fs::file_time_type::clock::now();
  std::vector<std::string> left;
  for (const auto& entry : fs::directory_iterator(folder_.presets, error)) {
    const std::string name = entry.path().filename().string();
    std::error_code ignored;
    if (foundation::SafeFile::isUnfinished(name) &&
        now - entry.last_write_time(ignored) > unfinishedAge)
      left.push_back(entry.path().string());
  }
  for (const std::string& path : left)
    found(Kind::unfinished, path, "was left by a process that ended while it wrote", [&] {
      const auto failed = files_.removeItem(path);
      return failed ? failed->localizedDescription : std::string();
    });
}

}  // namespace tool
