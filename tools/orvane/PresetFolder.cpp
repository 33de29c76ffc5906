#include "tools/orvane/PresetFolder.h"

#include <algorithm>
#include <utility>

#include "foundation/DefaultFileManager.h"
#include "foundation/PropertyListCoding.h"
#include "platform/FilePath.h"

namespace tool {

using platform::FileError;
using platform::FileManager;
using platform::PropertyList;

namespace {

constexpr const char* presetsName = "/Presets";
constexpr const char* preferencesName = "/Library/Preferences";

}  // namespace

PresetFolder PresetFolder::at(const std::string& path) {
  FileManager& files = foundation::DefaultFileManager::current();
  std::string folder = path;
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  if (files.isDirectory(folder + presetsName)) return {folder + presetsName, folder};
  const std::size_t slash = folder.rfind('/');
  const std::string parent = slash == folder.npos ? "." : folder.substr(0, slash);
  return {folder, files.isDirectory(parent + preferencesName) ? parent : ""};
}

PresetEntry readPreset(FileManager& files, const std::string& path) {
  PresetEntry entry{path, platform::fileStem(path), "", {}};
  FileError fileError;
  const auto bytes = files.contents(path, fileError);
  if (!bytes) {
    entry.error = fileError.localizedDescription;
    return entry;
  }
  auto decoded = orvane::PresetFile::decode(*bytes, entry.error);
  if (decoded && !decoded->content.as<PropertyList::Dictionary>())
    entry.error = "the property list is no dictionary";
  else if (decoded && decoded->content.find("$archiver") == nullptr)
    entry.error.clear();
  if (decoded) entry.file = std::move(*decoded);
  return entry;
}

std::vector<PresetEntry> presetsIn(FileManager& files, const std::string& folder) {
  std::vector<PresetEntry> presets;
  const auto entries = files.contentsOfDirectory(folder);
  if (!entries) return presets;
  for (const auto& entry : *entries)
    if (!entry.isDirectory && platform::pathExtension(entry.name) != "icloud")
      presets.push_back(readPreset(files, folder + '/' + entry.name));
  std::sort(presets.begin(), presets.end(),
            [](const PresetEntry& a, const PresetEntry& b) { return a.path < b.path; });
  return presets;
}

std::string writePreset(FileManager& files, const PresetEntry& entry) {
  const std::string xml = foundation::writeXmlPropertyList(entry.file.content);
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(xml.data());
  const auto error = files.write({bytes, xml.size()}, entry.path);
  return error ? error->localizedDescription : std::string();
}

std::vector<Favourites> favouritesIn(FileManager& files, const std::string& container) {
  std::vector<Favourites> all;
  const std::string folder = container + preferencesName;
  const auto entries = container.empty() ? std::nullopt : files.contentsOfDirectory(folder);
  if (!entries) return all;
  for (const auto& entry : *entries) {
    if (platform::pathExtension(entry.name) != "plist") continue;
    FileError fileError;
    std::string error;
    const auto bytes = files.contents(folder + '/' + entry.name, fileError);
    const auto list = bytes ? foundation::parsePropertyList(*bytes, error) : std::nullopt;
    const PropertyList* stored = list ? list->find("favpresets") : nullptr;
    const auto* array = stored ? stored->as<PropertyList::Array>() : nullptr;
    if (!array) continue;
    Favourites favourites{platform::fileStem(entry.name), {}};
    for (const PropertyList& element : *array)
      if (const auto* name = element.as<std::string>()) favourites.names.push_back(*name);
    all.push_back(std::move(favourites));
  }
  return all;
}

}  // namespace tool
