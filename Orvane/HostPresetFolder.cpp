#include "Orvane/HostPresetFolder.h"

#include <utility>

#include "Orvane/PresetFile.h"
#include "foundation/PropertyListCoding.h"
#include "foundation/UnicodeText.h"

namespace orvane {
namespace {

using platform::FileManager;
using platform::PropertyList;

constexpr const char* listFile = ".copies.plist";
/// Before the stamp of what can have no copy, so that it is not read again each time.
constexpr char isNoPreset = '-';

std::span<const std::uint8_t> bytesOf(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace

HostPresetFolder::HostPresetFolder(FileManager& files, std::string folder, Form form)
    : files_(files), folder_(std::move(folder)), form_(std::move(form)) {}

HostPresetFolder::Stamps HostPresetFolder::readStamps() const {
  Stamps stamps;
  platform::FileError ignored;
  const auto bytes = files_.contents(pathOf(listFile), ignored);
  std::string error;
  const auto list = bytes ? foundation::parsePropertyList(*bytes, error) : std::nullopt;
  if (const auto* entries = list ? list->as<PropertyList::Dictionary>() : nullptr)
    for (const auto& [file, stamp] : *entries)
      // Never a way out of the folder.
      if (const auto* text = stamp.as<std::string>(); text && file.find('/') == file.npos)
        stamps[file] = *text;
  return stamps;
}

std::optional<std::string> HostPresetFolder::writeStamps(const Stamps& stamps) {
  PropertyList::Dictionary entries;
  for (const auto& [file, stamp] : stamps) entries[file] = stamp;
  return write(foundation::writeXmlPropertyList(entries), listFile);
}

std::optional<std::string> HostPresetFolder::stampOf(const std::string& path) const {
  const auto status = files_.status(path, FileManager::Links::follow);
  if (!status || status->kind != platform::FileStatus::Kind::file) return std::nullopt;
  const platform::FileStamp& stamp = status->stamp;
  return std::to_string(stamp.file) + ' ' + std::to_string(stamp.modified) + ' ' +
         std::to_string(stamp.changed) + ' ' + std::to_string(stamp.size);
}

std::optional<std::string> HostPresetFolder::copyOf(const Source& source, const Copy& copy) const {
  platform::FileError ignored;
  const auto bytes = files_.contents(source.path, ignored);
  std::string error;
  const auto preset = bytes ? PresetFile::decode(*bytes, error) : std::nullopt;
  return preset ? form_.contents(copy, preset->content) : std::nullopt;
}

std::string HostPresetFolder::freeFile(const std::string& name, const Stamps& ours,
                                       const std::set<std::string>& taken) const {
  const auto isFree = [&](const std::string& file) {
    return file != form_.indexFile && !taken.contains(file) &&
           (ours.contains(file) || !files_.fileExists(pathOf(file)));
  };
  std::string file = name + form_.extension;
  for (int number = 2; !isFree(file); ++number)
    file = name + ' ' + std::to_string(number) + form_.extension;
  return file;
}

std::optional<std::string> HostPresetFolder::write(const std::string& text,
                                                   const std::string& file) {
  const FileManager::Error error = files_.write(bytesOf(text), pathOf(file));
  return error ? std::optional(folder_ + ": " + error->localizedDescription) : std::nullopt;
}

void HostPresetFolder::removeFolderOfOurs() {
  for (const std::string& file : {form_.indexFile, std::string(listFile)})
    if (!file.empty()) files_.removeItem(pathOf(file));
  const auto left = files_.contentsOfDirectory(folder_);
  if (left && left->empty()) files_.removeItem(folder_);
}

std::optional<std::string> HostPresetFolder::update(const std::vector<Source>& presets) {
  const Stamps before = readStamps();
  if (presets.empty() && before.empty()) return std::nullopt;

  struct Wanted {
    const Source* source;
    Copy copy;
    std::string stamp;
  };
  std::vector<Wanted> wanted;
  std::set<std::string> taken;
  Stamps now;
  bool isUnchanged = true;
  for (const Source& source : presets) {
    const auto stamp = stampOf(source.path);
    if (!stamp || !foundation::isPlainText(source.name)) continue;
    const std::string file = freeFile(source.name, before, taken);
    const auto known = before.find(file);
    const bool isKnown =
        known != before.end() && (known->second == isNoPreset + *stamp ||
                                  (known->second == *stamp && files_.fileExists(pathOf(file))));
    isUnchanged = isUnchanged && isKnown;
    taken.insert(file);
    wanted.push_back({&source, {source.name, file}, *stamp});
    now[file] = isKnown ? known->second : std::string();
  }
  if (isUnchanged && now.size() == before.size()) return std::nullopt;

  files_.createDirectory(folder_, FileManager::Intermediates::create);
  // Whatever is written from here on is known to be ours, even when nobody comes back to say so.
  Stamps begun = before;
  begun.insert(now.begin(), now.end());
  if (auto problem = writeStamps(begun)) return problem;
  std::optional<std::string> problem;
  std::vector<Copy> copies;
  for (const Wanted& each : wanted) {
    std::string& stamp = now[each.copy.file];
    if (stamp.empty()) {
      const auto text = copyOf(*each.source, each.copy);
      stamp = text ? each.stamp : isNoPreset + each.stamp;
      if (!text) {
        if (begun.contains(each.copy.file)) files_.removeItem(pathOf(each.copy.file));
      } else if (auto failed = write(*text, each.copy.file)) {
        problem = std::move(failed);
        stamp.clear();
        continue;
      }
    }
    if (stamp.front() != isNoPreset) copies.push_back(each.copy);
  }
  if (!form_.indexFile.empty() && !copies.empty())
    if (auto failed = write(form_.index(copies), form_.indexFile)) problem = std::move(failed);
  for (const auto& [file, stamp] : begun)
    if (!now.contains(file)) files_.removeItem(pathOf(file));
  if (now.empty()) {
    removeFolderOfOurs();
    return std::nullopt;
  }
  if (copies.empty() && !form_.indexFile.empty()) files_.removeItem(pathOf(form_.indexFile));
  if (auto failed = writeStamps(now)) problem = std::move(failed);
  return problem;
}

}  // namespace orvane
